#include "host/formats/JsonFile.h"

#include "host/formats/WholeFile.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>

namespace hv {

Result<QJsonObject> readJsonFile(const QString& path, int major)
{
    const QString shown = QDir::toNativeSeparators(path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Failure(QStringLiteral("Unable to read '%1': %2.").arg(shown, file.errorString()), path);
    const QByteArray text = file.readAll();
    QJsonParseError problem{};
    const QJsonDocument document = QJsonDocument::fromJson(text, &problem);
    if (problem.error != QJsonParseError::NoError) {
        const int line = text.left(problem.offset).count('\n') + 1;
        return Failure(QStringLiteral("Unable to read '%1': line %2, %3.")
                           .arg(shown, QString::number(line), problem.errorString()),
                       path, line);
    }
    const QJsonObject object = document.object();
    const QString version = object.value(QLatin1String("version")).toString();
    bool isNumber = false;
    const int found = version.section(QLatin1Char('.'), 0, 0).toInt(&isNumber);
    if (!isNumber)
        return Failure(QStringLiteral("Unable to read '%1': it has no format version.").arg(shown), path);
    if (found > major)
        return Failure(QStringLiteral("'%1' was written by a later version of Strativo: its format is %2, this "
                                      "version reads up to %3.x.")
                           .arg(shown, version, QString::number(major)),
                       path);
    return object;
}

Result<void> writeJsonFile(const QString& path, const QJsonObject& object)
{
    auto written = writeWholeFile(path, QJsonDocument(object).toJson(QJsonDocument::Indented));
    if (!written)
        return Failure(
            QStringLiteral("Unable to write '%1': %2.").arg(QDir::toNativeSeparators(path), written.failure().sentence),
            path);
    return written;
}

} // namespace hv
