#include "plugins/PluginInfo.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTextCodec>

namespace python {

namespace {

const QString g_prefix = QStringLiteral("PluginInfo/");

bool isUtf8(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return true;
    const QByteArray bytes = file.readAll();
    QTextCodec::ConverterState state;
    QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

void chooseCodec(QSettings& settings, const QString& path)
{
    if (isUtf8(path))
        settings.setIniCodec("UTF-8");
}

QVariant valueOf(const QSettings& settings, const QString& name)
{
    const QString exact = g_prefix + name;
    if (settings.contains(exact))
        return settings.value(exact);
    for (const QString& key : settings.allKeys())
        if (key.compare(exact, Qt::CaseInsensitive) == 0)
            return settings.value(key);
    return {};
}

QString textOf(const QSettings& settings, const char* name)
{
    const QVariant value = valueOf(settings, QLatin1String(name));
    if (!value.isValid())
        return QStringLiteral("Unknown");
    return value.type() == QVariant::StringList ? value.toStringList().join(QStringLiteral(", ")) : value.toString();
}

} // namespace

PluginInfo PluginInfo::read(const QString& path)
{
    QSettings settings(path, QSettings::IniFormat);
    chooseCodec(settings, path);
    PluginInfo info;
    info.init = textOf(settings, "init");
    info.license = textOf(settings, "license");
    info.version = textOf(settings, "version");
    info.copyright = textOf(settings, "copyright");
    info.contact = textOf(settings, "contact");
    info.autoLoad = valueOf(settings, QStringLiteral("autoload")).toBool();
    return info;
}

bool PluginInfo::isStartupFileInside() const
{
    const QString path = QDir::cleanPath(init);
    return !QDir::isAbsolutePath(path) && path != QLatin1String("..") && !path.startsWith(QLatin1String("../"));
}

bool PluginInfo::writeAutoLoad(const QString& path, bool value)
{
    QSettings settings(path, QSettings::IniFormat);
    chooseCodec(settings, path);
    settings.setValue(g_prefix + QStringLiteral("autoload"), value);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

} // namespace python
