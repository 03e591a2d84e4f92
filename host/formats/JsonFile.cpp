#include "host/formats/JsonFile.h"

#include "host/formats/WholeFile.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>

namespace hv {

bool fail(QString* error, const QString& sentence)
{
    if (error)
        *error = sentence;
    return false;
}

bool readJsonFile(const QString& path, int major, QJsonObject& object, QString* error)
{
    const QString shown = QDir::toNativeSeparators(path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(error, QStringLiteral("Unable to read '%1': %2.").arg(shown, file.errorString()));
    const QByteArray text = file.readAll();
    QJsonParseError problem{};
    const QJsonDocument document = QJsonDocument::fromJson(text, &problem);
    if (problem.error != QJsonParseError::NoError) {
        const int line = text.left(problem.offset).count('\n') + 1;
        return fail(error, QStringLiteral("Unable to read '%1': line %2, %3.")
                               .arg(shown, QString::number(line), problem.errorString()));
    }
    const QJsonObject read = document.object();
    const QString version = read.value(QLatin1String("version")).toString();
    bool isNumber = false;
    const int found = version.section(QLatin1Char('.'), 0, 0).toInt(&isNumber);
    if (!isNumber)
        return fail(error, QStringLiteral("Unable to read '%1': it has no format version.").arg(shown));
    if (found > major)
        return fail(error, QStringLiteral("'%1' was written by a later version of Strativo: its format is %2, this "
                                          "version reads up to %3.x.")
                               .arg(shown, version, QString::number(major)));
    object = read;
    return true;
}

bool writeJsonFile(const QString& path, const QJsonObject& object, QString* error)
{
    QString reason;
    if (writeWholeFile(path, QJsonDocument(object).toJson(QJsonDocument::Indented), reason))
        return true;
    return fail(error, QStringLiteral("Unable to write '%1': %2.").arg(QDir::toNativeSeparators(path), reason));
}

} // namespace hv
