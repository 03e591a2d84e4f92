// All plug-ins of the application: finding them, their order, and that one does not harm another.
#include "plugins/HVPythonPluginCollection.h"
#include "tests/plugins/PluginFixture.h"

#include <QSettings>

namespace {

using namespace fixture;

class PluginFolder : public PluginTest
{
protected:
    PluginFolder() { QSettings().setValue("Python/PluginsDirectory", folder.path()); }
    ~PluginFolder() override { QSettings().remove("Python/PluginsDirectory"); }

    /// Prints what happens to it.
    void addTalking(const QString& name, bool autoLoad = true)
    {
        const QByteArray source = "def register():\n  print('+NAME', end=' ')\n  return True\n"
                                  "def unregister():\n  print('-NAME', end=' ')\n  return True\n";
        makePlugin(QByteArray(source).replace("NAME", name.toUtf8()), name,
                   QByteArray("[PluginInfo]\ninit=main.py\nautoload=") + (autoLoad ? "true" : "false"));
    }
};

TEST_F(PluginFolder, autoloadPassesBrokenOnesAndUnloadsInReverse)
{
    addTalking("c");
    addTalking("a");
    addTalking("by hand", false);
    addTalking(".hidden");
    makePlugin("1 / 0", "b broken");
    makePlugin(withUnregister("return False"), "stays");
    QDir(folder.path()).mkdir("no plug-in");
    {
        HVPythonPluginCollection plugins;
        plugins.scan();
        EXPECT_EQ(plugins.plugins().size(), 5U);
        plugins.loadAutomatic();
        EXPECT_NE(recorder.textOf(1).find("Unable to load the plug-in b broken: see the messages above"),
                  std::string::npos);
        ASSERT_TRUE(plugins.load(*plugins.plugins().at("by hand")));
        plugins.loadAutomatic();
        EXPECT_EQ(recorder.textOf(5), "+a +c +by hand ") << "loaded plug-ins stay as they are";
        // Two startup files of one name within one second.
        EXPECT_NE(plugins.plugins().at("a")->pythonModule(), plugins.plugins().at("c")->pythonModule());
        recorder.posts.clear();
    }
    EXPECT_EQ(recorder.textOf(5), "-by hand -c -a ");
    EXPECT_NE(recorder.textOf(1).find("Unable to unload the plug-in stays"), std::string::npos);
    EXPECT_EQ(prompt.asked, 0) << "no dialog while the application leaves";
}

TEST_F(PluginFolder, followsTheDisk)
{
    addTalking("a");
    HVPythonPluginCollection plugins;
    plugins.scan();
    HVPythonPlugin* a = *plugins.add(folder.filePath("a/"));
    ASSERT_TRUE(a);
    EXPECT_EQ(plugins.plugins().size(), 1U);
    const auto namesake = plugins.add(makePlugin(g_sound, "elsewhere/a"));
    ASSERT_FALSE(namesake);
    EXPECT_TRUE(namesake.failure().sentence.startsWith("A plug-in with the name a is there already: "));
    EXPECT_FALSE(plugins.add(folder.filePath("absent")));

    ASSERT_TRUE(plugins.load(*a));
    addTalking("new");
    QDir(folder.filePath("a")).removeRecursively();
    plugins.scan();
    EXPECT_EQ(plugins.plugins().size(), 2U) << "a loaded plug-in stays known without its folder";
    EXPECT_TRUE(plugins.unload(*a));
    plugins.scan();
    EXPECT_EQ(plugins.plugins().count("a"), 0U);
}

} // namespace
