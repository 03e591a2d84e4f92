#include "host/services/HVUserData.h"

#include <QCoreApplication>
#include <QDir>
#include <QSettings>

namespace hv {

QString userDataDirectory()
{
    const QString chosen = qEnvironmentVariable("STRATIVO_HOMEPATH");
    const QDir base(chosen.isEmpty() ? QDir::homePath() : chosen);
    const QString folder = base.absoluteFilePath(QStringLiteral(".strativo"));
    QDir().mkpath(folder);
    return folder;
}

void nameApplication()
{
    QCoreApplication::setApplicationName(QStringLiteral("Strativo"));
    QCoreApplication::setOrganizationName(QStringLiteral("Strativo"));
}

void keepSettingsInUserData()
{
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, userDataDirectory());
}

} // namespace hv
