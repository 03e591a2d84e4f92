#include <QCoreApplication>
#include <QSettings>
#include <QTemporaryDir>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir settings;
    QCoreApplication::setOrganizationName(QStringLiteral("Strativo"));
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
