#include "app/workbench/MainWindow.h"
#include "app/workbench/SettingsMenu.h"
#include "runtime/TextSetting.h"

#include <QMenu>
#include <QMenuBar>
#include <QSettings>

#include <gtest/gtest.h>

namespace {

QAction* entry(const QWidget& menu, const char* text)
{
    for (QAction* action : menu.actions())
        if (action->text() == QLatin1String(text)) {
            if (action->menu())
                Q_EMIT action->menu()->aboutToShow();
            return action;
        }
    return nullptr;
}

TEST(SettingsMenu, wholeUnicodeTextsHoldsAtOnceAndIsKept)
{
    const workbench::MainWindow window;
    QAction* settings = entry(*window.menuBar(), "Settings");
    ASSERT_TRUE(settings);
    QAction* submenu = entry(*settings->menu(), "Python");
    ASSERT_TRUE(submenu);
    QAction* whole = entry(*submenu->menu(), "Whole Unicode texts");
    ASSERT_TRUE(whole);
    EXPECT_FALSE(whole->isChecked()) << "off by default";
    whole->trigger();
    EXPECT_TRUE(python::areTextsWhole());
    EXPECT_TRUE(QSettings().value("Python/unicode-text").toBool());
    python::setTextsWhole(false);
    entry(*settings->menu(), "Python");
    EXPECT_FALSE(whole->isChecked()) << "shows what holds";
    whole->trigger();
    whole->trigger();
    EXPECT_FALSE(python::areTextsWhole());
    EXPECT_FALSE(QSettings().value("Python/unicode-text").toBool());
}

} // namespace
