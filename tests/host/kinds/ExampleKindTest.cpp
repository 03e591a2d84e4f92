// The documentation's example of a new kind: a folder and one line are all that it takes.
#include "app/headless/Info.h"
#include "host/data/HVProject.h"
#include "host/data/demo/DemoProject.h"
#include "host/kinds/ObjectPicture.h"
#include "host/widgets/HVProjectBrowser.h"
#include "host/widgets/HVUndoStack.h"
#include "tests/host/data/TestFiles.h"
#include "tests/host/kinds/time_depth/TimeDepthKind.h"

#include <QApplication>
#include <QImage>
#include <QSettings>
#include <QTemporaryDir>
#include <QTreeView>

namespace {

using hv::ObjectKey;
using hv::ObjectValue;
using hv::TimeDepth;
using hv::TimeDepthKind;

class ExampleKind : public ::testing::Test
{
protected:
    ExampleKind() { stack.setProject(project.get()); }
    static ObjectKey key(const char* name) { return {TimeDepthKind::number, QString::fromLatin1(name)}; }
    static ObjectValue value(const QByteArray& text) { return ObjectValue::of(TimeDepth{text, {{0, 0}}}); }
    QString list() const { return project->objectNames(TimeDepthKind::number).join(','); }
    QByteArray content(const char* name) const { return readFile(project->store().path(key(name))); }

    QTemporaryDir temporary;
    std::unique_ptr<HVProject> project = *HVProject::create(temporary.filePath("p"), QString());
    HVUndoStack stack;
};

TEST_F(ExampleKind, isCreatedOpenedSavedRenamedDeletedAndAllOfItUndone)
{
    hv::ObjectStore& store = project->store();
    ASSERT_TRUE(store.create(key("a"), value("0 0\n")));
    EXPECT_EQ(list(), "a");
    EXPECT_EQ(content("a"), "0 0\n");
    const auto object = *store.open(key("a"));
    ASSERT_TRUE(store.save(key("a"), value("0 0\n10 9\n")));
    ASSERT_TRUE(store.rename(key("a"), "b"));
    EXPECT_EQ(object->key(), key("b"));
    ASSERT_TRUE(store.remove(key("b")));
    EXPECT_EQ(list(), "");
    stack.goTo(2);
    EXPECT_EQ(list(), "a");
    EXPECT_EQ(content("a"), "0 0\n10 9\n");
    stack.goTo(1);
    EXPECT_EQ((*object->valueAs<TimeDepth>())->text, "0 0\n");
    EXPECT_EQ(stack.texts().first(), "Create Time-Depth Curve 'a'");

    writeFile(store.folder(TimeDepthKind::number) + "/broken.tdc", "0 0\nten 9\n");
    const auto broken = (*store.open(key("broken")))->value();
    ASSERT_FALSE(broken);
    EXPECT_TRUE(broken.failure().sentence.endsWith("line 2: it is no time and depth."));
    EXPECT_EQ(broken.failure().line, 2);
}

TEST_F(ExampleKind, isInTheBrowserAndHasAPicture)
{
    ASSERT_TRUE(project->store().create(key("Check shot"), value("0 0\n")));
    HVProjectBrowser browser;
    browser.setProject(project.get());
    browser.show();
    const QAbstractItemModel& model = *browser.view()->model();
    const auto found = model.match(model.index(0, 0), Qt::DisplayRole, "Check shot", 1, Qt::MatchRecursive);
    ASSERT_EQ(found.size(), 1);
    EXPECT_TRUE(found[0].parent().data().toString().startsWith("Time-Depth Curves"));

    const hv::IObjectKind& kind = hv::objectKind(TimeDepthKind::number);
    const auto picture = kind.picture(kind.demo().front().value);
    ASSERT_TRUE(picture);
    const QImage image = hv::imageOf(*picture, {100, 100});
    int painted = 0;
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 100; ++x)
            painted += image.pixel(x, y) != qRgb(255, 255, 255);
    EXPECT_GT(painted, 50);
}

TEST_F(ExampleKind, isInTheDemonstrationAndInWhatInfoSays)
{
    const QString demo = temporary.filePath("demo");
    ASSERT_TRUE(demo::makeProject(demo, [](const QString&) {}));
    const auto object = headless::describePath(demo + "/time-depth/S-1");
    ASSERT_TRUE(object) << object.failure().sentence.toStdString();
    EXPECT_TRUE(object->contains("  Kind     Time-Depth Curve\n  Pairs    3\n  Last     2000 ms at 2100 m\n  Size   "))
        << object->toStdString();
    const auto all = headless::describePath(demo);
    ASSERT_TRUE(all) << all.failure().sentence.toStdString();
    EXPECT_TRUE(all->contains("  Time-Depth Curves  1\n")) << all->toStdString();
}

TEST(Kinds, noTwoHaveANumberAFolderOrASuffixInCommon)
{
    struct Other final : hv::TypedTextKind<TimeDepth>
    {
        explicit Other(const ObjectKindInfo& theInfo) : m_info(theInfo) {}
        const ObjectKindInfo& info() const override { return m_info; }
        hv::Result<ObjectValue> parse(const QByteArray&) const override { return hv::Failure("no"); }
        std::vector<hv::Description> rows(const TimeDepth&) const override { return {}; }
        ObjectKindInfo m_info;
    };
    const auto isAdded = [](const ObjectKindInfo& info) { return hv::addObjectKind(std::make_unique<Other>(info)); };
    const std::size_t before = objectKinds().size();
    EXPECT_FALSE(isAdded({TimeDepthKind::number, "Other", "Others", "others", "other", ""}));
    EXPECT_FALSE(isAdded({ObjectKind(1002), "Other", "Others", "wells", "other", ""}));
    EXPECT_FALSE(isAdded({ObjectKind(1002), "Other", "Others", "others", "oth prj", ""}));
    EXPECT_EQ(objectKinds().size(), before);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QTemporaryDir settings;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    hv::addObjectKind(std::make_unique<TimeDepthKind>());
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
