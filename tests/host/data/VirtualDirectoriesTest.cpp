// Virtual directories: a tree of names, kept in a text file that others may edit.
#include "TestFiles.h"
#include "host/data/HVProject.h"
#include "host/services/HVEventBus.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <atomic>
#include <chrono>
#include <csignal>
#include <functional>
#include <sys/resource.h>
#include <thread>

namespace {

/// Stands for a disk that has room for files of so many bytes.
class DiskLimit
{
public:
    explicit DiskLimit(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit tight{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &tight);
    }
    ~DiskLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    void (*m_handler)(int);
    rlimit m_before{};
};

class VirtualDirectories : public ::testing::Test
{
protected:
    HVVirtualDirectories& fresh()
    {
        directories.reset();
        directories = std::make_unique<HVVirtualDirectories>(path);
        return *directories;
    }
    QStringList sorted(const char* directory)
    {
        QStringList names = directories->objects(QString::fromUtf8(directory));
        names.sort();
        return names;
    }

    QStringList filesBeside() const
    {
        return QFileInfo(path).dir().entryList(QDir::Files | QDir::Hidden | QDir::System);
    }
    /// Waits without an event loop, as a script does.
    static bool soon(const std::function<bool()>& condition)
    {
        for (int tenths = 0; tenths < 200; ++tenths) {
            if (condition())
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
        return false;
    }

    QTemporaryDir temporary;
    const QString path = temporary.filePath(QStringLiteral("directories/wells.json"));
    QString error;
    std::unique_ptr<HVVirtualDirectories> directories;
};

TEST_F(VirtualDirectories, theTreeComesBack)
{
    auto& d = fresh();
    EXPECT_EQ(reason(d.addDirectory("Block \u00e9", QString())), QString());
    EXPECT_TRUE(d.addDirectory("North", "Block \u00e9"));
    EXPECT_TRUE(d.addDirectory("Deep", "North"));
    EXPECT_FALSE((error = reason(d.addDirectory("North", QString()))).isEmpty());
    EXPECT_TRUE(error.contains("already")) << error.toStdString();
    EXPECT_FALSE(d.addDirectory("Orphan", "Nowhere"));
    for (const char* bad : {"", "  ", "a/b", "a\nb"})
        EXPECT_FALSE(d.addDirectory(bad, QString())) << bad;
    EXPECT_TRUE(d.fileObjects({"a", "b", "\u00f6 \"q\""}, "North"));
    EXPECT_TRUE(d.fileObjects({"b"}, "Deep"));
    EXPECT_FALSE(d.fileObjects({"a"}, "Nowhere"));
    EXPECT_TRUE(d.unfileObjects({"unknown", "a"}));

    fresh();
    EXPECT_EQ(directories->directories(), (QStringList{"Block \u00e9", "North", "Deep"}));
    EXPECT_EQ(directories->parentOf("Deep"), "North");
    EXPECT_EQ(sorted("North"), QStringList{"\u00f6 \"q\""});
    EXPECT_EQ(sorted("Deep"), QStringList{"b"});
    EXPECT_TRUE(directories->renameDirectory("North", "South"));
    EXPECT_FALSE(directories->renameDirectory("South", "Deep"));
    EXPECT_TRUE(directories->removeDirectory("Deep"));
    EXPECT_EQ(sorted("South"), (QStringList{"b", "\u00f6 \"q\""})) << "contents move up";
    EXPECT_TRUE(directories->removeDirectory("Block \u00e9"));
    EXPECT_EQ(directories->parentOf("South"), QString());
    EXPECT_TRUE(directories->removeDirectory("South"));
    EXPECT_FALSE(directories->removeDirectory("South"));
    fresh();
    EXPECT_TRUE(directories->directories().isEmpty());
    EXPECT_TRUE(directories->directoryOf("b").isEmpty());
}

TEST_F(VirtualDirectories, filesOfOthersAreReadAndNeverSpoiled)
{
    writeFile(path, R"({"version": "1.3", "extra": 1, "directories": [
        {"name": "A", "parent": "B", "colour": "red", "objects": ["x"]}, {"name": "B", "parent": "A"},
        {"name": "C", "parent": "gone"}, {"name": "A", "objects": ["y"]}]})");
    auto& d = fresh();
    EXPECT_EQ(d.directories(), (QStringList{"A", "B", "C"}));
    EXPECT_TRUE(d.parentOf("A").isEmpty() || d.parentOf("B").isEmpty()) << "no circle";
    EXPECT_TRUE(d.parentOf("C").isEmpty());
    EXPECT_EQ(sorted("A"), (QStringList{"x", "y"}));
    EXPECT_TRUE(d.fileObjects({"z"}, "C"));
    EXPECT_TRUE(readFile(path).contains("\"colour\": \"red\""));
    EXPECT_TRUE(readFile(path).contains("\"extra\": 1"));
    // Another program's change is seen by the same object.
    writeFile(path, R"({"version": "1.0", "directories": [{"name": "Other", "objects": []}]})");
    EXPECT_EQ(d.directories(), QStringList{"Other"});

    const QByteArray broken = "{\"version\": \"1.0\", \"directories\": [";
    writeFile(path, broken);
    EXPECT_TRUE(d.directories().isEmpty());
    EXPECT_FALSE((error = reason(d.addDirectory("New", QString()))).isEmpty());
    EXPECT_TRUE(error.contains("line 1")) << error.toStdString();
    EXPECT_EQ(readFile(path), broken);
    writeFile(path, R"({"version": "1.0", "directories": [{"name": "Mended"}]})");
    EXPECT_EQ(reason(d.fileObjects({"x"}, "Mended")), QString());
}

TEST_F(VirtualDirectories, aFailedWriteChangesNothing)
{
    auto& d = fresh();
    ASSERT_TRUE(d.addDirectory("A", QString()));
    ASSERT_TRUE(d.fileObjects({"x"}, "A"));
    ASSERT_TRUE(d.flush());
    fresh();
    EXPECT_EQ(directories->objects("A"), QStringList{"x"});
    QDir().rename(temporary.filePath("directories"), temporary.filePath("elsewhere"));
    blockFolder(temporary.filePath("directories"));
    EXPECT_FALSE((error = reason(directories->addDirectory("B", QString()))).isEmpty());
    EXPECT_TRUE(error.contains("Unable to create the folder")) << error.toStdString();
    EXPECT_TRUE(directories->directories().isEmpty());
    QFile::remove(temporary.filePath("directories"));
    QDir().rename(temporary.filePath("elsewhere"), temporary.filePath("directories"));
    EXPECT_EQ(directories->objects("A"), QStringList{"x"});
}

TEST_F(VirtualDirectories, changesInQuickSuccessionAreWrittenTogetherAndNotLost)
{
    auto& d = fresh();
    ASSERT_TRUE(d.addDirectory("A", QString()));
    QSignalSpy changed(&d, &HVVirtualDirectories::changed);
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < 10000; ++i)
        ASSERT_TRUE(d.fileObjects({QString::number(i)}, "A"));
    EXPECT_LT(clock.elapsed(), 5000) << "a write per object would take minutes";
    EXPECT_EQ(changed.count(), 10000);
    EXPECT_TRUE(d.fileObjects({"5"}, "A"));
    EXPECT_EQ(changed.count(), 10000) << "nothing new";
    EXPECT_EQ(fresh().objects("A").size(), 10000);
}

TEST_F(VirtualDirectories, aFullDiskRefusesAlsoChangesInQuickSuccession)
{
    auto& d = fresh();
    const DiskLimit disk(4000);
    ASSERT_EQ(reason(d.addDirectory("A", QString())), QString());
    QStringList filed;
    const auto next = [&] { return QStringLiteral("\u00f6 %1").arg(filed.size(), 8, 10, QLatin1Char('0')); };
    while (filed.size() < 1000 && (error = reason(d.fileObjects({next()}, "A"))).isEmpty())
        filed << next();
    EXPECT_GT(filed.size(), 80) << "room is not refused before it is used up";
    EXPECT_LT(filed.size(), 130);
    EXPECT_EQ(error.toStdString(), "Unable to write '" + path.toStdString() + "': File too large.");
    EXPECT_FALSE(d.addDirectory("B", QString()));
    EXPECT_EQ(d.directories(), QStringList{"A"});
    EXPECT_EQ(sorted("A"), filed) << "what was refused is taken back, and nothing else";
    EXPECT_EQ(reason(d.flush()), QString());
    EXPECT_FALSE(d.fileObjects({next()}, "A"));
    fresh();
    EXPECT_EQ(sorted("A"), filed) << "what was not refused is on the disk";
}

TEST_F(VirtualDirectories, collectedChangesAreWrittenWhileNoEventLoopRuns)
{
    auto& d = fresh();
    ASSERT_TRUE(d.addDirectory("A", QString()));
    ASSERT_TRUE(d.fileObjects({"quick"}, "A"));
    EXPECT_TRUE(soon([&] { return readFile(path).contains("quick"); }));
    ASSERT_TRUE(d.fileObjects({"next"}, "A"));
    EXPECT_TRUE(soon([&] { return readFile(path).contains("next"); }));
    EXPECT_TRUE(soon([&] { return filesBeside().size() == 1; })) << "no remains";
}

TEST_F(VirtualDirectories, whatCannotBeWrittenLaterIsReportedAndTriedAgain)
{
    struct Errors final : HVEventBus::Sink
    {
        void receive(const HVEventBus::Message& message) override { count += message.level == 1; }
        std::atomic<int> count = 0;
    } errors;
    HVEventBus::instance().addSink(&errors);
    auto& d = fresh();
    ASSERT_TRUE(d.addDirectory("A", QString()));
    const QString elsewhere = temporary.filePath("elsewhere");
    for (bool isWritten = true; isWritten;) {
        ASSERT_TRUE(d.unfileObjects({"kept"}) && d.flush());
        ASSERT_TRUE(d.fileObjects({"kept"}, "A"));
        // A folder takes the file's place, unless the thread was there first.
        ASSERT_TRUE(QFile::rename(path, elsewhere));
        isWritten = !QDir().mkdir(path) || readFile(elsewhere).contains("kept");
        if (isWritten) {
            QDir().rmdir(path);
            QFile::remove(path);
            ASSERT_TRUE(QFile::rename(elsewhere, path));
        }
    }
    EXPECT_TRUE(soon([&] { return errors.count == 1; }));
    EXPECT_FALSE(d.fileObjects({"refused"}, "A"));
    ASSERT_TRUE(QDir().rmdir(path));
    EXPECT_TRUE(soon([&] { return readFile(path).contains("kept"); }));
    EXPECT_FALSE(readFile(path).contains("refused"));
    EXPECT_EQ(errors.count, 1);
    HVEventBus::instance().removeSink(&errors);
}

TEST_F(VirtualDirectories, tenThousandObjectsOfOneKind)
{
    auto project = *HVProject::create(temporary.filePath("p"), QString());
    QDir().mkpath(project->folder(ObjectKind::Horizon3d));
    QStringList names;
    for (int i = 0; i < 10000; ++i) {
        names << QStringLiteral("Horizon %1").arg(i);
        QFile file(project->filename(ObjectKind::Horizon3d, names.last()));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    auto& d = project->directories(ObjectKind::Horizon3d);
    ASSERT_TRUE(d.addDirectory("All", QString()));
    EXPECT_TRUE(d.fileObjects(names + QStringList{"gone"}, "All"));
    EXPECT_EQ(project->objectNames(ObjectKind::Horizon3d), names);
    EXPECT_EQ(project->objectsInDirectory(ObjectKind::Horizon3d, "All"),
              QStringList(project->folder(ObjectKind::Horizon3d) + "/gone.horizon") +
                  project->objects(ObjectKind::Horizon3d))
        << "also what has no file";
    project.reset();
    project = *HVProject::open(temporary.filePath("p"));
    EXPECT_EQ(project->directories(ObjectKind::Horizon3d).directoryOf("gone"), "All");
}

} // namespace
