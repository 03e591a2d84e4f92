// Undo of what was done to a project: on the disk, in the listing and in objects that somebody looks at.
#include "host/data/HVProject.h"
#include "host/display/ColorBar.h"
#include "host/kinds/IObjectKind.h"
#include "host/widgets/HVUndoList.h"
#include "host/widgets/HVUndoStack.h"
#include "tests/host/data/TestFiles.h"

#include <QApplication>
#include <QDate>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <gtest/gtest.h>

namespace {

using display::ColorBar;
using hv::ChangeScope;
using hv::ObjectKey;
using hv::ObjectValue;

ObjectKey bar(const QString& name)
{
    return {ObjectKind::ColorBar, name};
}

class Undo : public ::testing::Test
{
protected:
    Undo() : project(*HVProject::create(temporary.filePath("p"), QString())), store(project->store())
    {
        stack.setProject(project.get());
    }
    void save(const QString& name, double maximum)
    {
        ColorBar made;
        made.setRange(0, maximum);
        const auto saved = store.save(bar(name), ObjectValue::of(made));
        ASSERT_TRUE(saved) << saved.failure().sentence.toStdString();
    }
    /// Every object with its maximum, as the disk has it: "a 1,b 2".
    QString state()
    {
        QStringList all;
        for (const QString& path : project->objects(ObjectKind::ColorBar)) {
            const auto read = hv::objectKind(ObjectKind::ColorBar).read(path);
            all << QStringLiteral("%1 %2").arg(QFileInfo(path).completeBaseName(),
                                               read ? QString::number(read->as<ColorBar>()->maximum()) : "?");
        }
        return all.join(',');
    }
    QString steps() const { return stack.texts().join('|'); }
    void back() { stack.goTo(0); }
    void forth() { stack.goTo(1000); }

    QTemporaryDir temporary;
    std::unique_ptr<HVProject> project;
    hv::ObjectStore& store;
    HVUndoStack stack;
};

TEST_F(Undo, creatingChangingRenamingAndDeletingGoBackAndForth)
{
    QStringList states{state()};
    const auto step = [&](auto act) {
        act();
        states << state();
    };
    step([&] { save("a", 1); });
    step([&] { save("a", 2); });
    step([&] { EXPECT_TRUE(project->renameObject(ObjectKind::ColorBar, "a", "b")); });
    step([&] { save("b", 3); });
    step([&] { save("c", 4); });
    step([&] { EXPECT_TRUE(project->removeObject(ObjectKind::ColorBar, "b", HVProject::Removal::ToTrash)); });
    EXPECT_EQ(steps(), "Create Color Bar 'a'|Change Color Bar 'a'|Rename Color Bar 'a'|Change Color Bar 'b'|"
                       "Create Color Bar 'c'|Delete Color Bar 'b'");
    EXPECT_EQ(states.join(';'), ";a 1;a 2;b 2;b 3;b 3,c 4;c 4");
    const int readings = store.readings();
    for (int round = 0; round < 2; ++round) {
        for (int i = states.size() - 2; i >= 0; --i) {
            stack.undo();
            EXPECT_EQ(state(), states[i]) << i;
        }
        EXPECT_FALSE(stack.canUndo());
        for (int i = 1; i < states.size(); ++i) {
            stack.redo();
            EXPECT_EQ(state(), states[i]) << i;
        }
        EXPECT_FALSE(stack.canRedo());
    }
    EXPECT_EQ(store.readings(), readings);
}

TEST_F(Undo, whoeverHoldsAnObjectSeesItGoBackWithoutTheDisk)
{
    save("a", 1);
    const auto object = *store.open(bar("a"));
    const auto first = *object->value();
    save("a", 2);
    const auto second = *object->value();
    store.tellChanges();
    QSignalSpy changed(object.get(), &hv::DataObject::changed);
    stack.undo();
    EXPECT_TRUE(*object->value() == first) << "the snapshot that was held, not one that was read";
    stack.redo();
    EXPECT_TRUE(*object->value() == second);
    store.tellChanges();
    EXPECT_EQ(changed.count(), 1);

    EXPECT_TRUE(store.remove(bar("a")));
    EXPECT_FALSE(object->exists());
    stack.undo();
    EXPECT_TRUE(object->exists());
    EXPECT_TRUE(*object->value() == second);
    // What another program wrote since is not taken for what was held.
    stack.undo();
    stack.redo();
    const QString path = object->path();
    const QByteArray other = readFile(path).replace("2", "7");
    writeFile(path, other);
    EXPECT_EQ(state(), "a 7");
    stack.undo();
    EXPECT_EQ(state(), "a 1");
    stack.redo();
    EXPECT_EQ(state(), "a 7") << "and comes back too";
    EXPECT_EQ((*object->valueAs<ColorBar>())->maximum(), 7);
}

TEST_F(Undo, foldersAndSettingsGoBackWithTheObjects)
{
    auto& folders = project->directories(ObjectKind::ColorBar);
    const auto utm = *georef::Crs::fromAuthority("EPSG", "32631");
    save("a", 1);
    {
        const ChangeScope scope(&project->changes(), "script.py");
        EXPECT_TRUE(folders.addDirectory("North", QString()));
        EXPECT_TRUE(folders.fileObjects({"a"}, "North"));
        EXPECT_TRUE(project->renameObject(ObjectKind::ColorBar, "a", "b"));
        EXPECT_TRUE(folders.renameDirectory("North", "South"));
        EXPECT_TRUE(project->setName("Other"));
        EXPECT_TRUE(project->setCrs(utm));
        EXPECT_TRUE(project->removeObject(ObjectKind::ColorBar, "b", HVProject::Removal::ToTrash));
    }
    EXPECT_EQ(steps(), "Create Color Bar 'a'|script.py");
    for (int round = 0; round < 2; ++round) {
        stack.undo();
        EXPECT_EQ(state(), "a 1");
        EXPECT_TRUE(folders.directories().isEmpty());
        EXPECT_EQ(project->name(), "p");
        EXPECT_FALSE(project->hasCrs());
        stack.redo();
        EXPECT_EQ(state(), "");
        EXPECT_EQ(folders.directories(), QStringList{"South"});
        EXPECT_EQ(folders.directoryOf("b"), "South") << "where it is when it comes back from the trash";
        EXPECT_EQ(project->name(), "Other");
        EXPECT_EQ(project->crs(), utm);
    }
    stack.undo();
    EXPECT_TRUE(folders.flush());
    project.reset();
    EXPECT_EQ(stack.texts(), QStringList()) << "with the project go its steps";
    const auto again = *HVProject::open(temporary.filePath("p"));
    EXPECT_TRUE(again->directories(ObjectKind::ColorBar).directories().isEmpty());
    EXPECT_EQ(again->name(), "p");
}

TEST_F(Undo, aStepThatOthersHaveMadeImpossibleIsGivenUpAsAWhole)
{
    {
        const ChangeScope scope(&project->changes(), "script.py");
        save("a", 1);
        save("b", 2);
    }
    const QString gone = store.path(bar("a"));
    QFile::remove(gone);
    stack.undo();
    EXPECT_EQ(state(), "b 2") << "not b alone";
    EXPECT_EQ(steps(), "");

    save("c", 3);
    EXPECT_TRUE(store.remove(bar("c")));
    writeFile(store.folder(ObjectKind::ColorBar) + "/c.json", "another");
    stack.undo();
    EXPECT_EQ(readFile(store.path(bar("c"))), QByteArray("another")) << "nothing is overwritten";

    EXPECT_TRUE(project->removeObject(ObjectKind::ColorBar, "b", HVProject::Removal::Permanent));
    EXPECT_EQ(stack.texts().last(), "Delete Color Bar 'b' (cannot be undone)");
    EXPECT_FALSE(stack.canUndo());
    stack.undo();
    back();
    EXPECT_EQ(stack.position(), stack.texts().size());
    save("d", 4);
    EXPECT_TRUE(stack.canUndo());
}

TEST_F(Undo, whatIsDoneOnHearingOfAnUndoCanBeTakenBackItself)
{
    struct Heard final : hv::Change
    {
        explicit Heard(std::function<void()> reaction) : react(std::move(reaction)) {}
        hv::Result<void> undo() override
        {
            react();
            return {};
        }
        hv::Result<void> redo() override { return {}; }
        std::function<void()> react;
    };
    project->changes().record(std::make_unique<Heard>([this] {
                                  save("a", 1);
                                  stack.undo(); // is refused, as one is under way
                              }),
                              "First");
    stack.undo();
    EXPECT_EQ(steps(), "Create Color Bar 'a'");
    EXPECT_EQ(stack.position(), 1) << "what is done counts as done";
    stack.undo();
    EXPECT_EQ(state(), "");
    stack.redo();
    EXPECT_EQ(state(), "a 1");
}

TEST_F(Undo, whatWasNeverSavedIsNotTakenForTheFileBefore)
{
    save("a", 1);
    const auto object = *store.open(bar("a"));
    ASSERT_TRUE(object->value());
    ColorBar shown;
    shown.setRange(0, 2);
    object->setValue(ObjectValue::of(shown));
    save("a", 2);
    stack.undo();
    EXPECT_EQ((*object->valueAs<ColorBar>())->maximum(), 1);
}

TEST_F(Undo, tenThousandChangesGoBackAndForthInAMoment)
{
    constexpr int count = 2500;
    {
        const ChangeScope scope(&project->changes(), "script.py");
        const ObjectKind kind = ObjectKind::Wavelet;
        auto& folders = project->directories(kind);
        ASSERT_TRUE(folders.addDirectory("All", QString()));
        QDir().mkpath(project->folder(kind));
        for (int i = 0; i < 2 * count; ++i)
            writeFile(project->folder(kind) + QStringLiteral("/%1.wavelet").arg(i));
        for (int i = 0; i < count; ++i) {
            const QString name = QString::number(i);
            ASSERT_TRUE(project->renameObject(kind, name, "w" + name));
            ASSERT_TRUE(folders.fileObjects({"w" + name}, "All"));
            ASSERT_TRUE(store.rename({kind, "w" + name}, "x" + name));
            ASSERT_TRUE(store.remove({kind, QString::number(count + i)}));
        }
    }
    EXPECT_EQ(steps(), "script.py");
    const auto wavelets = [&] { return store.list(ObjectKind::Wavelet).size(); };
    EXPECT_EQ(wavelets(), std::size_t(count));
    QElapsedTimer clock;
    clock.start();
    stack.undo();
    EXPECT_LT(clock.elapsed(), 10000) << "a second on a quiet machine";
    EXPECT_EQ(wavelets(), std::size_t(2 * count));
    EXPECT_TRUE(store.contains({ObjectKind::Wavelet, "7"}));
    stack.redo();
    EXPECT_EQ(wavelets(), std::size_t(count));
    EXPECT_TRUE(store.contains({ObjectKind::Wavelet, "x7"}));
}

TEST_F(Undo, theTrashIsEmptiedOfWhatNobodyReachesAnyMore)
{
    save("a", 1);
    EXPECT_TRUE(store.remove(bar("a")));
    const QDir trash(project->path() + "/.trash");
    const QString today = QDate::currentDate().toString(Qt::ISODate);
    const QStringList files = QDir(trash.filePath(today)).entryList(QDir::Files);
    ASSERT_EQ(files.size(), 2);
    EXPECT_TRUE(files[0].endsWith("-a.json"));
    EXPECT_TRUE(readFile(trash.filePath(today + '/' + files[1])).contains("\"name\": \"a\""));
    const auto day = [&](int ago) { return QDate::currentDate().addDays(-ago).toString(Qt::ISODate); };
    for (const QString& name : {day(31), day(29), QStringLiteral("notes")})
        writeFile(trash.filePath(name + "/file"));
    project.reset();
    project = *HVProject::open(temporary.filePath("p"));
    QStringList days = trash.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    EXPECT_EQ(days, (QStringList{day(29), today, "notes"}));
    project.reset();
}

TEST_F(Undo, whatIsRemovedAgainLiesWhereItLayBefore)
{
    save("a", 1);
    stack.clear();
    EXPECT_TRUE(project->store().remove(bar("a")));
    const QDir today(project->path() + "/.trash/" + QDate::currentDate().toString(Qt::ISODate));
    const auto files = [&] { return QDir(today.path()).entryList(QDir::Files); };
    const QStringList first = files();
    ASSERT_EQ(first.size(), 2);
    stack.undo();
    EXPECT_EQ(files(), QStringList(first[1])) << "a new note for each of thousands of objects takes seconds";
    stack.redo();
    EXPECT_EQ(files(), first);
    stack.undo();
    stack.clear();
    EXPECT_EQ(files(), QStringList()) << "the note of an object that is there";
    EXPECT_TRUE(project->store().remove(bar("a")));
    stack.undo();
    ASSERT_TRUE(QDir(today.path()).removeRecursively());
    stack.redo();
    EXPECT_FALSE(project->store().contains(bar("a"))) << "somebody has emptied the trash";
    EXPECT_EQ(files().size(), 2);
}

TEST_F(Undo, theListShowsAllStepsAndGoesToTheOneThatIsClicked)
{
    HVUndoList list(stack);
    list.show();
    for (int i = 0; i < 3; ++i)
        save(QString::number(i), i + 1);
    ASSERT_EQ(list.count(), 4);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(1)).center());
    EXPECT_EQ(state(), "0 1");
    EXPECT_EQ(list.currentRow(), 1);
    EXPECT_EQ(list.count(), 4);
    save("new", 9);
    EXPECT_EQ(list.count(), 3) << "what was taken back is gone";
    const ChangeScope busy(&project->changes(), "script.py");
    stack.undo();
    EXPECT_EQ(state(), "0 1,new 9") << "not in the middle of a script";
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
