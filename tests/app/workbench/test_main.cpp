#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Strativo"));
    QCoreApplication::setOrganizationName(QStringLiteral("Strativo"));
    const QTemporaryDir settings;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
