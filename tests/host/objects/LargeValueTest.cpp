// Values of kinds that say that theirs are large: nobody keeps them but who looks at them.
#include "TestFiles.h"
#include "host/changes/ChangeLog.h"
#include "host/data/HVProject.h"
#include "host/kinds/text/TextKind.h"

#include <QTemporaryDir>

namespace {

using hv::ObjectKey;
using hv::ObjectValue;

struct Large
{
    QByteArray text;
};

struct LargeKind final : hv::TypedTextKind<Large>
{
    static constexpr ObjectKind number{1009};
    const ObjectKindInfo& info() const override
    {
        static const ObjectKindInfo info{number, "Large", "Large", "large", "large", ""};
        return info;
    }
    bool isLarge() const override { return true; }
    hv::Result<ObjectValue> parse(const QByteArray& text) const override { return ObjectValue::of(Large{text}); }
    std::vector<hv::Description> rows(const Large&) const override { return {}; }
};

class LargeValues : public ::testing::Test, public hv::IUndoSink
{
protected:
    static void SetUpTestSuite() { ASSERT_TRUE(hv::addObjectKind(std::make_unique<LargeKind>())); }
    LargeValues() { project->changes().setSink(this); }
    ~LargeValues() override { project.reset(); }
    void add(std::unique_ptr<hv::ChangeStep> step) override { steps.push_back(std::move(step)); }
    void clear() override { steps.clear(); }

    /// Saves a new value, which nobody keeps but who had it already.
    std::weak_ptr<const Large> save(const QByteArray& text)
    {
        const auto value = std::make_shared<const Large>(Large{text});
        EXPECT_TRUE(project->store().save(key, ObjectValue(value)));
        return value;
    }
    static QByteArray textOf(hv::DataObject& object)
    {
        const auto value = object.valueAs<Large>();
        return value ? (*value)->text : QByteArray();
    }

    const ObjectKey key{LargeKind::number, "a"};
    std::vector<std::unique_ptr<hv::ChangeStep>> steps;
    QTemporaryDir temporary;
    std::unique_ptr<HVProject> project = *HVProject::create(temporary.filePath("p"), QString());
};

TEST_F(LargeValues, areKeptWhileSomebodyLooksAndReadAgainForTheNext)
{
    save("one");
    const auto object = *project->store().open(key);
    auto first = *object->value();
    EXPECT_TRUE(*object->value() == first) << "all who look share one";
    const std::weak_ptr<const Large> watched = first.as<Large>();
    first = {};
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(textOf(*object), "one");
    EXPECT_EQ(object->revision(), 1U);
}

TEST_F(LargeValues, areKeptAsLongAsTheyAreNotSaved)
{
    save("one");
    const auto object = *project->store().open(key);
    object->setValue(ObjectValue::of(Large{"two"}));
    EXPECT_EQ(textOf(*object), "two");
    EXPECT_TRUE(save("three").expired());
    EXPECT_EQ(textOf(*object), "three");
}

TEST_F(LargeValues, areNotKeptByWhatCanBeUndone)
{
    save("one");
    const auto object = *project->store().open(key);
    auto first = *object->value();
    EXPECT_TRUE(save("two").expired());
    ASSERT_TRUE(steps.back()->undo());
    EXPECT_TRUE(*object->value() == first) << "who still has it sees it again";
    const std::weak_ptr<const Large> watched = first.as<Large>();
    first = {};
    ASSERT_TRUE(steps.back()->redo());
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(textOf(*object), "two");
    ASSERT_TRUE(steps.back()->undo());
    EXPECT_EQ(textOf(*object), "one");
}

} // namespace
