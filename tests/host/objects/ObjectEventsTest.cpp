// What remains of several changes of one object before anybody was told.
#include "host/objects/ObjectEvents.h"

#include <gtest/gtest.h>

namespace {

using hv::CellRegion;
using hv::ObjectEvents;
using hv::ObjectKey;

ObjectKey key(const char* name)
{
    return {ObjectKind::Well, QString::fromUtf8(name)};
}

TEST(ObjectEvents, ofRenamingsTheFirstAndTheLastNameRemain)
{
    ObjectEvents events;
    events.renamed(key("a"), key("b"));
    events.changed(key("b"), {});
    events.renamed(key("b"), key("c"));
    const auto told = events.take();
    ASSERT_EQ(told.renamed.size(), 1U);
    EXPECT_EQ(told.renamed[0].first, key("a"));
    EXPECT_EQ(told.renamed[0].second, key("c"));
    EXPECT_TRUE(told.added.empty() && told.removed.empty());
    EXPECT_TRUE(events.isEmpty());

    events.renamed(key("a"), key("b"));
    events.renamed(key("b"), key("a"));
    events.added(key("new"));
    events.renamed(key("new"), key("newer"));
    const auto back = events.take();
    EXPECT_TRUE(back.renamed.empty());
    EXPECT_EQ(back.added, std::vector<ObjectKey>{key("newer")});
    EXPECT_TRUE(back.removed.empty());
}

TEST(ObjectEvents, twoObjectsThatChangeNamesAreToldAsOtherContent)
{
    ObjectEvents events;
    events.renamed(key("a"), key("x"));
    events.renamed(key("b"), key("a"));
    events.renamed(key("x"), key("b"));
    const auto told = events.take();
    EXPECT_TRUE(told.removed.empty() && told.added.empty()) << "both names are there, as before";
}

TEST(ObjectEvents, whatCameAndWentIsNotTold)
{
    ObjectEvents events;
    events.added(key("a"));
    events.removed(key("a"));
    events.removed(key("b"));
    events.added(key("b"));
    const auto told = events.take();
    EXPECT_TRUE(told.added.empty() && told.removed.empty());
    ASSERT_EQ(told.changed.size(), 1U) << "another file of the same name";
    EXPECT_EQ(told.changed[0].first, key("b"));
}

TEST(ObjectEvents, regionsAreUnitedAndMassesAreOneReset)
{
    ObjectEvents events;
    events.changed(key("a"), {0, 10, 5, 6, 0, 100});
    events.changed(key("a"), {20, 21, 0, 2, 50, 200});
    auto told = events.take();
    ASSERT_EQ(told.changed.size(), 1U);
    EXPECT_EQ(told.changed[0].second, (CellRegion{0, 21, 0, 6, 0, 200}));
    EXPECT_FALSE(told.changed[0].second.isEverything());

    for (int i = 0; i < 1000; ++i)
        events.added(key(std::to_string(i).c_str()));
    told = events.take();
    EXPECT_EQ(told.resets, std::set<ObjectKind>{ObjectKind::Well});
}

} // namespace
