// The project's folder: settings, objects as files, hostile folders and names.
#include "TestFiles.h"
#include "host/data/HVProjectService.h"
#include "host/objects/NaturalOrder.h"

#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

class Project : public ::testing::Test
{
protected:
    Project() { project = *HVProject::create(folder, QString()); }
    void reopen()
    {
        project.reset();
        project = *HVProject::open(folder);
    }
    QString file(const char* name = "project.strativo") const { return folder + '/' + QLatin1String(name); }
    /// The sentence with which opening is refused.
    QString refusal() { return error = reason(HVProject::open(folder)); }

    QTemporaryDir temporary;
    const QString folder = temporary.filePath(QStringLiteral("Gr\u00f6ne \"Bank\""));
    QString error;
    std::unique_ptr<HVProject> project;
};

TEST_F(Project, settingsComeBackAndUnknownOnesStay)
{
    EXPECT_EQ(project->name(), QStringLiteral("Gr\u00f6ne \"Bank\""));
    EXPECT_FALSE(project->hasCrs());
    EXPECT_EQ(project->verticalUnit(), georef::Unit::Milliseconds);
    // As a later minor version and a person with an editor leave it.
    writeFile(file(), readFile(file()).replace("\"1.0\"", "\"1.7\",\n \"later\": {\"kept\": [1, 2]}"));
    const auto utm = *georef::Crs::fromAuthority(QStringLiteral("EPSG"), QStringLiteral("32631"));
    QSignalSpy changed(project.get(), &HVProject::crsChanged);
    EXPECT_EQ(reason(project->setCrs(utm)), QString());
    EXPECT_EQ(changed.count(), 1);
    EXPECT_TRUE(project->setDomain(georef::Domain::Depth));
    EXPECT_TRUE(project->setHorizontalUnit(georef::Unit::FeetUS));
    EXPECT_TRUE(project->setName(QStringLiteral("N\u00f8rd")));
    reopen();
    EXPECT_EQ(project->crs(), utm);
    EXPECT_EQ(project->domain(), georef::Domain::Depth);
    EXPECT_EQ(project->verticalUnit(), georef::Unit::Meters);
    EXPECT_EQ(project->horizontalUnit(), georef::Unit::FeetUS);
    EXPECT_EQ(project->name(), QStringLiteral("N\u00f8rd"));
    EXPECT_TRUE(readFile(file()).contains("\"kept\"")) << readFile(file()).toStdString();
    EXPECT_TRUE(readFile(file()).contains("\"1.7\""));
    EXPECT_TRUE(project->setCrs({}));
    reopen();
    EXPECT_FALSE(project->hasCrs());

    EXPECT_FALSE((error = reason(HVProject::create(folder, QStringLiteral("again")))).isEmpty());
    EXPECT_TRUE(error.contains(QStringLiteral("already"))) << error.toStdString();
    EXPECT_EQ((*HVProject::open(file()))->path(), folder) << "the file stands for the folder";
}

TEST_F(Project, remainsOfAKilledProgramAreClearedAtTheNextOpening)
{
    const QString part = QStringLiteral(".strativo-part-0123456789abcdef");
    const QStringList remains{folder + '/' + part, folder + "/directories/" + part, folder + "/wells/" + part};
    for (const QString& path : remains)
        writeFile(path);
    writeFile(folder + "/wells/.strativo-part-list.las");
    reopen();
    for (const QString& path : remains)
        EXPECT_FALSE(QFileInfo::exists(path)) << path.toStdString();
    EXPECT_EQ(project->objectNames(ObjectKind::Well), QStringList{".strativo-part-list"});
}

TEST_F(Project, whatIsNoProjectIsRefusedWithTheReason)
{
    const QByteArray good = readFile(file());
    writeFile(file(), "{\n\"version\": \"1.0\",\n oops\n}");
    EXPECT_TRUE(refusal().contains(QStringLiteral("line 3"))) << error.toStdString();
    writeFile(file(), "[1, 2]");
    EXPECT_TRUE(refusal().contains(QStringLiteral("no format version"))) << error.toStdString();
    writeFile(file(), "{\"version\": \"2.0\", \"name\": \"x\"}");
    EXPECT_TRUE(refusal().contains(QStringLiteral("later version"))) << error.toStdString();
    EXPECT_FALSE(project->setName(QStringLiteral("y"))) << "a later version's file is not overwritten";
    EXPECT_EQ(readFile(file()), QByteArray("{\"version\": \"2.0\", \"name\": \"x\"}"));
    QFile::remove(file());
    EXPECT_TRUE(refusal().contains(QStringLiteral("has no file"))) << error.toStdString();
    EXPECT_FALSE((error = reason(HVProject::open(folder + QStringLiteral("/none")))).isEmpty());
    EXPECT_TRUE(error.contains(QStringLiteral("There is no folder"))) << error.toStdString();

    // A project whose file was deleted while it was open gets it back with the next change.
    EXPECT_EQ(reason(project->setName(QStringLiteral("back"))), QString());
    reopen();
    EXPECT_EQ(project->name(), QStringLiteral("back"));
    blockFolder(folder);
    EXPECT_FALSE((error = reason(project->setName(QStringLiteral("lost")))).isEmpty());
    EXPECT_TRUE(error.contains(QStringLiteral("Unable to write"))) << error.toStdString();
    EXPECT_EQ(project->name(), QStringLiteral("back"));
    EXPECT_TRUE(refusal().contains(QStringLiteral("not a folder"))) << error.toStdString();
    EXPECT_TRUE(project->objects().isEmpty());
    error = reason(project->newFilename(ObjectKind::Well, QStringLiteral("a")));
    EXPECT_TRUE(error.contains(QStringLiteral("Unable to create the folder"))) << error.toStdString();
}

TEST_F(Project, objectsAreWhatLiesInTheFolders)
{
    const auto horizon = [&](const QString& name) { return folder + QStringLiteral("/horizons-3d/") + name; };
    const QStringList names{QStringLiteral(".hidden"), QStringLiteral("a \"quoted\" 'name'"),
                            QStringLiteral("H 2"),     QStringLiteral("h 10"),
                            QStringLiteral("v1.2"),    QStringLiteral("\u00c9tage")};
    for (const QString& name : names)
        writeFile(horizon(name + QStringLiteral(".horizon")));
    writeFile(horizon(QStringLiteral("notes.txt")));
    writeFile(horizon(QStringLiteral(".horizon")));
    writeFile(horizon(QStringLiteral("H 2.horizon.A1b2C3")));
    QDir().mkpath(horizon(QStringLiteral("folder.horizon")));
    writeFile(folder + QStringLiteral("/wells/34_10-A.LAS"));
    writeFile(folder + QStringLiteral("/color-bars/Red.cpt"));
    writeFile(folder + QStringLiteral("/color-bars/Red.json"));

    EXPECT_EQ(project->objectNames(ObjectKind::Horizon3d), names);
    EXPECT_EQ(project->objects(ObjectKind::ColorBar), QStringList{folder + QStringLiteral("/color-bars/Red.json")});
    EXPECT_EQ(project->objects().size(), names.size() + 2);
    EXPECT_EQ(project->filename(ObjectKind::Well, QStringLiteral("34_10-A")),
              folder + QStringLiteral("/wells/34_10-A.LAS"));
    EXPECT_EQ(project->kindOf(horizon(QStringLiteral("H 2.horizon"))), ObjectKind::Horizon3d);
    EXPECT_EQ(project->kindOf(horizon(QStringLiteral("notes.txt"))), std::nullopt);

    EXPECT_EQ(*project->newFilename(ObjectKind::Horizon3d, QStringLiteral("H")), horizon(QStringLiteral("H.horizon")));
    EXPECT_EQ(*project->newFilename(ObjectKind::Horizon3d, QStringLiteral("\u00c9tage")),
              horizon(QStringLiteral("\u00c9tage 2.horizon")));
    for (const char* bad : {"", "a/b", "../x", "a\nb"}) {
        EXPECT_FALSE(project->newFilename(ObjectKind::Horizon3d, QLatin1String(bad))) << bad;
        EXPECT_TRUE(project->filename(ObjectKind::Horizon3d, QLatin1String(bad)).isEmpty()) << bad;
    }
    EXPECT_FALSE(HVProject::isObjectName(QString(100, QChar(0x20ac))));
}

TEST_F(Project, renamingAndRemovingLoseNothing)
{
    const ObjectKind kind = ObjectKind::Wavelet;
    const auto name = [](const char* text) { return QString::fromUtf8(text); };
    writeFile(*project->newFilename(kind, name("a")), "A");
    writeFile(*project->newFilename(kind, name("b")), "B");
    EXPECT_TRUE(project->directories(kind).addDirectory(name("D"), QString()));
    EXPECT_TRUE(project->directories(kind).fileObjects({name("a")}, name("D")));
    QSignalSpy listed(&project->store(), &hv::ObjectStore::listingReset);
    EXPECT_FALSE(project->renameObject(kind, name("a"), name("b")));
    EXPECT_FALSE(project->renameObject(kind, name("gone"), name("c")));
    EXPECT_FALSE(project->renameObject(kind, name("a"), name("x/y")));
    EXPECT_EQ(readFile(project->filename(kind, name("b"))), QByteArray("B"));
    EXPECT_EQ(reason(project->renameObject(kind, name("a"), name("\u00e4"))), QString());
    EXPECT_EQ(project->directories(kind).objects(name("D")), QStringList{name("\u00e4")});
    EXPECT_EQ(readFile(project->filename(kind, name("\u00e4"))), QByteArray("A"));
    EXPECT_FALSE(project->removeObject(kind, name("a"), HVProject::Removal::Permanent));
    EXPECT_EQ(reason(project->removeObject(kind, name("\u00e4"), HVProject::Removal::Permanent)), QString());
    EXPECT_EQ(project->objectNames(kind), QStringList{name("b")});
    EXPECT_TRUE(project->directories(kind).objects(name("D")).isEmpty());
    project->store().tellChanges();
    EXPECT_EQ(listed.count(), 1) << "with its folders";
}

TEST_F(Project, watchingNoticesOtherPrograms)
{
    EXPECT_TRUE(project->objects().isEmpty());
    QSignalSpy listed(&project->store(), &hv::ObjectStore::listingReset);
    QSignalSpy added(&project->store(), &hv::ObjectStore::added);
    writeFile(folder + QStringLiteral("/wells/a.las"));
    ASSERT_TRUE(listed.wait(2000)) << "with a folder of its own";
    EXPECT_EQ(listed.first().first().value<ObjectKind>(), ObjectKind::Well);
    writeFile(folder + QStringLiteral("/wells/b.las"));
    ASSERT_TRUE(added.wait(2000));
    EXPECT_EQ(added.first().first().value<hv::ObjectKey>(), (hv::ObjectKey{ObjectKind::Well, QStringLiteral("b")}));
}

TEST_F(Project, theServiceHasOneProjectAndKeepsItWhenAnotherFails)
{
    project.reset();
    HVProjectService service;
    QSignalSpy changed(&service, &HVProjectService::projectChanged);
    EXPECT_EQ(reason(service.open(folder)), QString());
    HVProject* first = service.project();
    EXPECT_FALSE(service.open(folder + QStringLiteral("x")));
    EXPECT_FALSE(service.create(folder, QString()));
    EXPECT_EQ(service.project(), first);
    QString closing;
    QObject::connect(&service, &HVProjectService::projectAboutToClose, [&](HVProject* old) { closing = old->name(); });
    EXPECT_EQ(reason(service.create(folder + QStringLiteral("2"), QStringLiteral("Two"))), QString());
    EXPECT_EQ(closing, QStringLiteral("Gr\u00f6ne \"Bank\""));
    service.close();
    EXPECT_EQ(changed.count(), 3);
    EXPECT_EQ(service.project(), nullptr);

    for (int i = 0; i < 12; ++i)
        HVProjectService::addRecentProject(QString::number(i));
    HVProjectService::addRecentProject(QStringLiteral("5"));
    HVProjectService::removeRecentProject(QStringLiteral("11"));
    EXPECT_EQ(HVProjectService::recentProjects().join(' '), QStringLiteral("5 10 9 8 7 6 4 3 2"));
}

TEST(NaturalOrder, numbersByValueAndAStrictOrder)
{
    QStringList names{"Line 10", "line 2", "Line 2", "Line 02", "Line", "Line 2b", "1", "01", ""};
    std::sort(names.begin(), names.end(), hv::naturalLess);
    EXPECT_EQ(names.join('|'), QStringLiteral("|01|1|Line|Line 02|Line 2|line 2|Line 2b|Line 10"));
    for (const QString& a : names)
        for (const QString& b : names)
            EXPECT_EQ(int(hv::naturalLess(a, b)) + int(hv::naturalLess(b, a)), int(a != b));
}

} // namespace
