// The table of commands, and the menus that are made from it.
#include "app/workbench/Commands.h"
#include "host/icons/HVIconStore.h"

#include <QMenuBar>
#include <QToolBar>

#include <set>

namespace {

using namespace workbench;

std::vector<std::string> wordsOf(const char* entries)
{
    std::vector<std::string> all;
    for (const QString& word : QString::fromLatin1(entries).split(QLatin1Char(' '), Qt::SkipEmptyParts))
        all.push_back(word.toStdString());
    return all;
}

/// Whether there can be a moment at which both are of use.
bool canMeet(Contexts one, Contexts other)
{
    const Contexts both = one | other;
    return !(both.testFlag(Context::Idle) && (both & (Contexts(Context::Running) | Context::Paused)));
}

TEST(CommandTable, everyCommandStandsInOneMenuAndMenusNameNothingElse)
{
    std::multiset<std::string> commands, subMenus;
    for (const Command& command : commandTable())
        commands.insert(command.id);
    for (const MenuTable& menu : subMenuTable())
        subMenus.insert('>' + std::string(menu.id));
    std::multiset<std::string> entries, entriesOfMenus;
    for (const auto* table : {&menuBarTable(), &subMenuTable()})
        for (const MenuTable& menu : *table)
            for (const std::string& word : wordsOf(menu.entries))
                if (word != "-")
                    (word[0] == '>' ? entriesOfMenus : entries).insert(word);
    EXPECT_EQ(entries, commands);
    EXPECT_EQ(entriesOfMenus, subMenus);
    for (const std::string& word : wordsOf(toolBarEntries()))
        EXPECT_TRUE(word == "-" || commands.count(word) == 1) << word;
}

TEST(CommandTable, noKeyMeansTwoThingsAtATime)
{
    const std::vector<Command>& all = commandTable();
    for (std::size_t i = 0; i < all.size(); ++i)
        for (std::size_t j = i + 1; j < all.size(); ++j)
            for (const QKeySequence& keys : all[i].keys.sequences())
                EXPECT_FALSE(all[j].keys.sequences().contains(keys) && canMeet(all[i].needs, all[j].needs))
                    << keys.toString().toStdString() << ": " << all[i].id << ", " << all[j].id;
    EXPECT_EQ(CommandKeys("F5; F8").sequences().size(), 2);
}

TEST(CommandTable, everythingHasItsLooks)
{
    for (const Command& command : commandTable()) {
        EXPECT_TRUE(*command.text && *command.tip) << command.id;
        EXPECT_TRUE(!*command.icon || !HVIconStore::icon(QLatin1String(command.icon)).isNull()) << command.id;
        for (const QKeySequence& keys : command.keys.sequences())
            EXPECT_TRUE(keys.count() == 1 && keys[0] != Qt::Key_unknown) << command.id;
    }
}

class FilledMenus : public ::testing::Test
{
protected:
    FilledMenus()
    {
        commands.fill(bar);
        commands.fill(toolBar);
    }
    QMenuBar bar;
    QToolBar toolBar;
    Commands commands{nullptr};
};

TEST_F(FilledMenus, aCommandIsThereWhileSomebodyCarriesItOut)
{
    QAction* run = commands.action("script.run");
    EXPECT_FALSE(run->isVisible());
    int runs = 0;
    {
        QObject runner;
        commands.handle("script.run", &runner, [&] { ++runs; });
        EXPECT_TRUE(run->isVisible());
        EXPECT_FALSE(run->isEnabled()) << "no script is open";
        commands.setContexts(Contexts(Context::Script) | Context::Idle);
        EXPECT_TRUE(run->isEnabled());
        run->trigger();
        EXPECT_EQ(runs, 1);
        commands.setContexts(Contexts(Context::Script) | Context::Running);
        EXPECT_FALSE(run->isEnabled());
    }
    EXPECT_FALSE(run->isVisible());
    EXPECT_THROW(commands.action("script.runn"), std::out_of_range);
}

TEST_F(FilledMenus, anAdoptedActionTakesThePlaceAndLeavesIt)
{
    const QMenu* tools = commands.menu("tools");
    const int place = tools->actions().indexOf(commands.action("debug.step-over"));
    ASSERT_GE(place, 0);
    {
        QAction own(QStringLiteral("own text"));
        own.setEnabled(false);
        commands.adopt("debug.step-over", &own);
        EXPECT_EQ(tools->actions().indexOf(&own), place);
        EXPECT_EQ(own.text(), QStringLiteral("Step Over"));
        EXPECT_EQ(own.shortcut(), QKeySequence(QStringLiteral("F10")));
        commands.setContexts(Contexts(Context::Running) | Context::Paused);
        EXPECT_FALSE(own.isEnabled()) << "its owner's business";
    }
    EXPECT_EQ(commands.action("debug.step-over"), nullptr);
    EXPECT_TRUE(commands.keyText("debug.step-over").isEmpty());
    commands.setContexts({});
}

TEST_F(FilledMenus, menusAreFoundByTheirIds)
{
    EXPECT_EQ(commands.menu("view")->title(), QStringLiteral("View"));
    QMenu* recent = commands.menu("recent-scripts");
    EXPECT_FALSE(recent->menuAction()->isVisible());
    commands.handleMenu("recent-scripts", &toolBar, [](QObject*, QMenu* menu) { menu->addAction("a.py"); });
    EXPECT_TRUE(recent->menuAction()->isVisible());
    Q_EMIT recent->aboutToShow();
    EXPECT_EQ(recent->actions().size(), 1);
}

} // namespace
