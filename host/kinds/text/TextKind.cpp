#include "host/kinds/text/TextKind.h"

#include "host/formats/WholeFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace hv {

namespace {

/// Anything larger was put here by mistake.
constexpr qint64 g_largest = 256LL * 1024 * 1024;

} // namespace

Result<ObjectValue> TextKind::read(const QString& path) const
{
    const auto fail = [&path](const QString& reason, int line = 0) {
        return Failure(QStringLiteral("Unable to read '%1': %2.").arg(QDir::toNativeSeparators(path), reason), path,
                       line);
    };
    QFile file(path);
    if (QFileInfo(path).size() > g_largest)
        return fail(QStringLiteral("it is too large"));
    if (!file.open(QIODevice::ReadOnly))
        return fail(file.errorString());
    const QByteArray text = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return fail(file.errorString());
    Result<ObjectValue> parsed = parse(text);
    return parsed ? std::move(parsed) : fail(parsed.failure().sentence, parsed.failure().line);
}

Result<void> TextKind::write(const ObjectValue& value, const QString& path) const
{
    const QByteArray* text = textOf(value);
    const auto written =
        text ? writeWholeFile(path, *text)
             : Failure(QStringLiteral("it is no %1").arg(QString::fromLatin1(info().singular).toLower()));
    if (written)
        return {};
    return Failure(
        QStringLiteral("Unable to write '%1': %2.").arg(QDir::toNativeSeparators(path), written.failure().sentence),
        path);
}

} // namespace hv
