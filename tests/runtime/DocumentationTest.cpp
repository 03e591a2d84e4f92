#include "runtime/DesktopEntry.h"
#include "runtime/HVPythonDocumentation.h"
#include "tests/runtime/RuntimeFixture.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QUrl>

namespace {

/// Takes the place of the desktop's handler for local files.
class UrlCatcher : public QObject
{
    Q_OBJECT
public:
    UrlCatcher() { QDesktopServices::setUrlHandler("file", this, "caught"); }
    ~UrlCatcher() override { QDesktopServices::unsetUrlHandler("file"); }
    Q_INVOKABLE void caught(const QUrl& opened) { url = opened; }
    QUrl url;
};

/// Documentation pages lie beside the program; the test brings its own where the build has none.
class DocumentationTest : public fixture::RuntimeTest
{
protected:
    static QString page(const QString& name) { return QCoreApplication::applicationDirPath() + "/doc/python/" + name; }

    void SetUp() override
    {
        QDir().mkpath(QFileInfo(page("x")).path());
        for (const char* name : {"index.html", "search.html", "strativo_python_attribute.html"}) {
            QFile file(page(name));
            if (!file.exists() && file.open(QIODevice::WriteOnly))
                file.write("<html></html>");
        }
    }
};

TEST_F(DocumentationTest, PagesOpenBesideTheProgramFromAnyWorkingDirectory)
{
    UrlCatcher catcher;
    const QString before = QDir::currentPath();
    QDir::setCurrent("/");
    HVPythonDocumentation::openIndex();
    EXPECT_EQ(catcher.url, QUrl::fromLocalFile(page("index.html")));
    HVPythonDocumentation::openAttribute();
    EXPECT_EQ(catcher.url, QUrl::fromLocalFile(page("strativo_python_attribute.html")));
    HVPythonDocumentation::openAndSearchForTargetString(QString());
    EXPECT_EQ(catcher.url, QUrl::fromLocalFile(page("search.html")));
    EXPECT_TRUE(run("print(help(), help(None))"));
    EXPECT_EQ(catcher.url, QUrl::fromLocalFile(page("index.html")));
    QDir::setCurrent(before);
}

TEST_F(DocumentationTest, SearchStartsTheBrowserWithTheQuery)
{
    const QTemporaryDir folder;
    const QString browser = folder.filePath("browser");
    const QString seen = folder.filePath("seen");
    QFile script(browser);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\nprintf %s \"$1\" > \"" + seen.toLocal8Bit() + ".part\" && mv \"" + seen.toLocal8Bit() +
                 ".part\" \"" + seen.toLocal8Bit() + "\"\n");
    script.close();
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("BROWSER", browser.toLocal8Bit());
    HVPythonDocumentation::openAndSearchForTargetString("a b&c");
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(seen); }, 5000));
    QFile result(seen);
    ASSERT_TRUE(result.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(result.readAll()),
              QString::fromUtf8(QUrl::fromLocalFile(page("search.html")).toEncoded() + "?q=a%20b%26c"));
    qunsetenv("BROWSER");
}

/// Answers the next message box and tells what it says.
void closeNextBox(QString& title, QString& text)
{
    QTimer::singleShot(0, qApp, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        title = box->windowTitle();
        text = box->text();
        box->accept();
    });
}

TEST_F(DocumentationTest, BrowserOfADesktopEntryIsStartedWithItsWholeCommand)
{
    const auto command = [](const char* exec) {
        return python::commandOfDesktopEntry(QByteArray("# Exec=no\n[Desktop Entry]\nName=x\nExec = ") + exec +
                                                 "\n[Desktop Action new]\nExec=other\n",
                                             "file:///s.html?q=a");
    };
    const QString url = "file:///s.html?q=a";
    EXPECT_EQ(command("firefox"), QStringList({"firefox", url}));
    EXPECT_EQ(command("env A=b,c /usr/lib/x/firefox %u"), QStringList({"env", "A=b,c", "/usr/lib/x/firefox", url}));
    EXPECT_EQ(command("/usr/bin/flatpak run --command=launch org.x.Y @@u %U @@"),
              QStringList({"/usr/bin/flatpak", "run", "--command=launch", "org.x.Y", "@@u", url, "@@"}));
    EXPECT_EQ(command("\"/opt/a \\\\$b/x\" %i --url=%u 100%% \"\""),
              QStringList({"/opt/a $b/x", "--url=" + url, "100%", ""}));
    EXPECT_EQ(python::commandOfDesktopEntry("[Other]\nExec=x\n", url), QStringList());
}

TEST_F(DocumentationTest, WithoutABrowserTheSearchSaysSo)
{
    const QTemporaryDir empty;
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", empty.path().toLocal8Bit());
    QString title, text;
    closeNextBox(title, text);
    HVPythonDocumentation::openAndSearchForTargetString("a");
    qputenv("PATH", path);
    EXPECT_EQ(title, "Python Documentation");
    EXPECT_EQ(text, "Unable to open the Python documentation: There is no web browser.");
    ASSERT_EQ(recorder.posts.size(), 2U);
    EXPECT_EQ(recorder.posts[1].text, "File path: " + page("search.html").toStdString());
}

TEST_F(DocumentationTest, FailureIsShownAndPosted)
{
    QString title, text;
    closeNextBox(title, text);
    HVPythonDocumentation::open(QUrl::fromLocalFile("/nowhere/at/all.html"));
    EXPECT_EQ(title, "Python Documentation");
    EXPECT_EQ(text, "Unable to open the Python documentation: No such file or directory");
    ASSERT_EQ(recorder.posts.size(), 2U);
    EXPECT_EQ(recorder.posts[0].level, 3);
    EXPECT_EQ(recorder.posts[0].text, text.toStdString());
    EXPECT_EQ(recorder.posts[1].text, "URL: file:///nowhere/at/all.html");
}

} // namespace

#include "DocumentationTest.moc"
