#include "host/blocs/HVRandomLine.h"

#include "host/kinds/IObjectKind.h"
#include "host/kinds/randomline/RandomLineKind.h"

#include <QDir>
#include <QFileInfo>

namespace {

QString absolute(const QString& path)
{
    return QDir::cleanPath(QDir::current().absoluteFilePath(path));
}

} // namespace

hv::Result<HVRandomLine> HVRandomLine::load(const QString& path)
{
    auto value = hv::objectKind(ObjectKind::RandomLine).read(path);
    if (!value)
        return value.failure();
    HVRandomLine line(value->as<hv::RandomLineText>()->line);
    line.m_filename = absolute(path);
    return line;
}

hv::Result<void> HVRandomLine::save(const QString& path)
{
    if (const QString fault = m_line.fault(); !fault.isEmpty())
        return hv::Failure(QStringLiteral("Unable to write '%1': %2.").arg(QDir::toNativeSeparators(path), fault),
                           path);
    const auto value = hv::ObjectValue::of(hv::RandomLineText::of(m_line));
    auto written = hv::objectKind(ObjectKind::RandomLine).write(value, path);
    if (written)
        m_filename = absolute(path);
    return written;
}

QString HVRandomLine::name() const
{
    return m_filename.isEmpty() ? m_line.name : QFileInfo(m_filename).completeBaseName();
}
