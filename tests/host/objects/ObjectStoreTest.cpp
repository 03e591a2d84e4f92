// The objects of a project: one instance each, what is told of own changes and of those of other programs, and that
// own changes do not read the folders again.
#include "TestFiles.h"
#include "host/data/HVProject.h"
#include "host/display/ColorBar.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using display::ColorBar;
using hv::DataObject;
using hv::ObjectChange;
using hv::ObjectKey;
using hv::ObjectStore;
using hv::ObjectValue;

ObjectKey bar(const char* name)
{
    return {ObjectKind::ColorBar, QString::fromUtf8(name)};
}

ObjectValue valueOf(double maximum)
{
    ColorBar made;
    made.setRange(0, maximum);
    return ObjectValue::of(made);
}

class Store : public ::testing::Test
{
protected:
    Store() : project(*HVProject::create(temporary.filePath("p"), QString())), store(project->store())
    {
        const auto note = [this](const char* what) {
            return [this, what](const ObjectKey& key) { told << QLatin1String(what) + ' ' + key.name; };
        };
        QObject::connect(&store, &ObjectStore::added, note("added"));
        QObject::connect(&store, &ObjectStore::removed, note("removed"));
        QObject::connect(&store, &ObjectStore::renamed, [this](const ObjectKey& before, const ObjectKey& after) {
            told << QStringLiteral("renamed %1 %2").arg(before.name, after.name);
        });
        QObject::connect(&store, &ObjectStore::listingReset, [this] { told << QStringLiteral("reset"); });
    }
    void save(const char* name, double maximum = 1)
    {
        const auto saved = store.save(bar(name), valueOf(maximum));
        ASSERT_TRUE(saved) << saved.failure().sentence.toStdString();
    }
    std::shared_ptr<DataObject> open(const char* name)
    {
        const auto opened = store.open(bar(name));
        return opened ? *opened : nullptr;
    }
    static double maximum(DataObject& object)
    {
        const auto held = object.valueAs<ColorBar>();
        return held ? (*held)->maximum() : -1;
    }
    QString file(const char* name) const { return store.folder(ObjectKind::ColorBar) + '/' + QLatin1String(name); }
    QStringList names()
    {
        QStringList all;
        for (const auto& object : store.list(ObjectKind::ColorBar))
            all << object.name;
        return all;
    }
    /// What is told from now on, once.
    QStringList take()
    {
        store.list(ObjectKind::ColorBar);
        store.tellChanges();
        return std::exchange(told, {});
    }

    QTemporaryDir temporary;
    std::unique_ptr<HVProject> project;
    ObjectStore& store;
    QStringList told;
};

TEST_F(Store, anObjectHasOneInstanceAsLongAsItIsHeld)
{
    save("a", 5);
    EXPECT_FALSE(open("none"));
    auto first = open("a");
    ASSERT_TRUE(first);
    EXPECT_EQ(first, open("a"));
    EXPECT_EQ(maximum(*first), 5);
    const auto snapshot = *first->valueAs<ColorBar>();
    QSignalSpy changed(first.get(), &DataObject::changed);
    store.tellChanges();
    changed.clear();
    save("a", 6);
    save("a", 7);
    EXPECT_EQ(first->revision(), 3U);
    EXPECT_EQ(maximum(*first), 7);
    EXPECT_EQ(snapshot->maximum(), 5) << "what somebody reads does not change under him";
    store.tellChanges();
    ASSERT_EQ(changed.count(), 1) << "each object once";
    EXPECT_EQ(changed[0][0].value<ObjectChange>().what, ObjectChange::What::Content);

    first->setValue(valueOf(8));
    EXPECT_TRUE(first->isModified());
    EXPECT_EQ(maximum(*open("a")), 8);
    save("a", 8);
    EXPECT_FALSE(first->isModified());

    // Another project's end leaves the object with what it had.
    auto held = first;
    first.reset();
    project.reset();
    EXPECT_EQ(maximum(*held), 8);
}

TEST_F(Store, ownChangesAreToldOnceAndDoNotReadTheFolderAgain)
{
    save("b");
    EXPECT_EQ(names(), QStringList{"b"});
    take();
    const int readings = store.readings();
    save("a");
    EXPECT_TRUE(store.rename(bar("a"), "a 10"));
    save("a 9");
    EXPECT_EQ(names(), (QStringList{"a 9", "a 10", "b"}));
    EXPECT_TRUE(store.rename(bar("b"), "c"));
    EXPECT_EQ(take(), (QStringList{"renamed b c", "added a 10", "added a 9"}));
    EXPECT_TRUE(store.remove(bar("c")));
    EXPECT_EQ(names(), (QStringList{"a 9", "a 10"}));
    // The system's log of all that is read in between; and nothing of it is told a second time.
    QTest::qWait(50);
    EXPECT_EQ(take(), QStringList{"removed c"} + QStringList{});
    EXPECT_EQ(store.readings(), readings);
}

TEST_F(Store, aRenamedObjectStaysTheSame)
{
    save("a", 3);
    auto object = open("a");
    take();
    QSignalSpy changed(object.get(), &DataObject::changed);
    QSignalSpy stored(&store, &ObjectStore::renamed);
    EXPECT_TRUE(project->renameObject(ObjectKind::ColorBar, "a", "b"));
    EXPECT_EQ(object->key(), bar("b"));
    EXPECT_EQ(open("b"), object);
    QTest::qWait(50);
    EXPECT_EQ(stored.count(), 1);
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed[0][0].value<ObjectChange>().what, ObjectChange::What::Renamed);
    EXPECT_EQ(object->revision(), 1U) << "its content is the same";

    save("c");
    EXPECT_FALSE(store.rename(bar("b"), "c"));
    EXPECT_FALSE(store.rename(bar("b"), "x/y"));
    EXPECT_FALSE(store.create(bar("c"), valueOf(1)));
    EXPECT_FALSE(store.save(bar("no/name"), valueOf(1)));
    EXPECT_FALSE(store.save({ObjectKind::ColorBar, "wrong"}, ObjectValue::of(1)));
    EXPECT_EQ(names(), (QStringList{"b", "c"}));
}

TEST_F(Store, whatOtherProgramsDoIsKnownAtOnceAndTold)
{
    EXPECT_EQ(names(), QStringList());
    // Without an event loop: the folder itself comes too.
    writeFile(file("one.json"), "{");
    writeFile(file("two.cpt"));
    writeFile(file("notes.txt"));
    EXPECT_EQ(names(), (QStringList{"one", "two"}));
    take();
    QFile::rename(file("one.json"), file("uno.json"));
    EXPECT_EQ(names(), (QStringList{"two", "uno"}));
    QFile::remove(file("two.cpt"));
    EXPECT_EQ(take(), (QStringList{"renamed one uno", "removed two"}));

    // With one.
    QSignalSpy added(&store, &ObjectStore::added);
    writeFile(file("three.json"));
    EXPECT_TRUE(added.wait(2000));
    EXPECT_EQ(store.path(bar("three")), file("three.json"));
    // The kind's first suffix wins, and what is left takes its place.
    writeFile(file("three.cpt"));
    EXPECT_EQ(store.path(bar("three")), file("three.json"));
    QFile::remove(file("three.json"));
    EXPECT_EQ(store.path(bar("three")), file("three.cpt"));
    told.clear();

    QDir(store.folder(ObjectKind::ColorBar)).removeRecursively();
    EXPECT_EQ(names(), QStringList());
    save("again");
    EXPECT_EQ(names(), QStringList{"again"});
    writeFile(file("b.json"));
    EXPECT_EQ(names(), (QStringList{"again", "b"}));
}

TEST_F(Store, anObjectThatAnotherProgramWritesHasItsNewContent)
{
    save("a", 2);
    save("b", 9);
    auto object = open("a");
    EXPECT_EQ(maximum(*object), 2);
    take();
    QSignalSpy changed(object.get(), &DataObject::changed);
    // Written in place, and replaced as editors do.
    const QByteArray other = readFile(file("b.json"));
    writeFile(file("a.json"), other);
    ASSERT_TRUE(changed.wait(2000));
    EXPECT_EQ(maximum(*object), 9);
    const quint64 revision = object->revision();
    writeFile(file("a.json.new"), "broken");
    std::rename(qPrintable(file("a.json.new")), qPrintable(file("a.json")));
    ASSERT_TRUE(changed.wait(2000));
    EXPECT_GT(object->revision(), revision);
    EXPECT_FALSE(object->value()) << "it cannot be read";
    EXPECT_TRUE(object->value().failure().sentence.contains("a.json"));

    QFile::remove(file("a.json"));
    store.list(ObjectKind::ColorBar);
    EXPECT_FALSE(object->exists());
    EXPECT_FALSE(open("a"));
    writeFile(file("a.json"), other);
    EXPECT_EQ(open("a"), object) << "it is back";
    EXPECT_EQ(maximum(*object), 9);
}

TEST_F(Store, aHundredThousandObjectsComeOrGoAsOneReset)
{
    EXPECT_EQ(names(), QStringList());
    QDir().mkpath(store.folder(ObjectKind::ColorBar));
    for (int i = 0; i < 100000; ++i)
        std::fclose(std::fopen(qPrintable(file(qPrintable(QStringLiteral("%1.cpt").arg(i)))), "w"));
    EXPECT_EQ(store.list(ObjectKind::ColorBar).size(), 100000U) << "more than the system's log can hold";
    EXPECT_EQ(take(), QStringList{"reset"});
    EXPECT_TRUE(store.rename(bar("500"), "five hundred"));
    EXPECT_EQ(take(), QStringList{"renamed 500 five hundred"});
    EXPECT_EQ(names().size(), 100000);
    EXPECT_EQ(names().last(), "five hundred");
}

} // namespace
