#include "runtime/PythonPaths.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class PathsTest : public testing::Test
{
protected:
    void SetUp() override { qputenv("STRATIVO_HOMEPATH", m_home.path().toLocal8Bit()); }
    void TearDown() override
    {
        qputenv("STRATIVO_HOMEPATH", m_previous);
        python::utils::setApplicationDirPath(QCoreApplication::applicationDirPath());
    }

    QTemporaryDir m_home;
    QByteArray m_previous = qgetenv("STRATIVO_HOMEPATH");
};

TEST_F(PathsTest, SearchPathKeepsOrderSeparatorsAndMakesTheUserFolder)
{
    const std::wstring user = (m_home.path() + "/.strativo/site-packages/").toStdWString();
    python::utils::setApplicationDirPath("/opt/app");
    EXPECT_EQ(python::utils::ConstructPythonPath(),
              L"/opt/app/python/python36.zip;/opt/app/python/;/opt/app/python/site-packages/;" + user + L";");
    EXPECT_TRUE(QDir(m_home.path() + "/.strativo/site-packages").exists());
    EXPECT_EQ(python::utils::ConstructPythonExecutablePath(), L"/opt/app/python/python3");

    python::utils::setApplicationDirPath(QString());
    EXPECT_EQ(python::utils::ConstructPythonPath(),
              L"/python/python36.zip;/python/;/python/site-packages/;" + user + L";");
}

} // namespace
