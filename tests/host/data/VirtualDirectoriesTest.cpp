// Virtual directories: a tree of names, kept in a text file that others may edit.
#include "TestFiles.h"
#include "host/data/HVProject.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

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

    QTemporaryDir temporary;
    const QString path = temporary.filePath(QStringLiteral("directories/wells.json"));
    QString error;
    std::unique_ptr<HVVirtualDirectories> directories;
};

TEST_F(VirtualDirectories, theTreeComesBack)
{
    auto& d = fresh();
    EXPECT_TRUE(d.addDirectory("Block \u00e9", QString(), &error)) << error.toStdString();
    EXPECT_TRUE(d.addDirectory("North", "Block \u00e9"));
    EXPECT_TRUE(d.addDirectory("Deep", "North"));
    EXPECT_FALSE(d.addDirectory("North", QString(), &error));
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
    EXPECT_FALSE(d.addDirectory("New", QString(), &error));
    EXPECT_TRUE(error.contains("line 1")) << error.toStdString();
    EXPECT_EQ(readFile(path), broken);
    writeFile(path, R"({"version": "1.0", "directories": [{"name": "Mended"}]})");
    EXPECT_TRUE(d.fileObjects({"x"}, "Mended", &error)) << error.toStdString();
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
    EXPECT_FALSE(directories->addDirectory("B", QString(), &error));
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

TEST_F(VirtualDirectories, tenThousandObjectsOfOneKind)
{
    auto project = HVProject::create(temporary.filePath("p"), QString(), &error);
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
    EXPECT_EQ(project->objectsInDirectory(ObjectKind::Horizon3d, "All"), project->objects(ObjectKind::Horizon3d))
        << "files that are gone are not listed";
    project.reset();
    project = HVProject::open(temporary.filePath("p"), &error);
    EXPECT_EQ(project->directories(ObjectKind::Horizon3d).directoryOf("gone"), "All") << "but keep their place";
}

} // namespace
