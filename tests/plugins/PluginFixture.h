#pragma once

#include "plugins/HVPythonPlugin.h"
#include "plugins/UnloadFailurePrompt.h"
#include "tests/runtime/RuntimeFixture.h"

#include <QFile>
#include <QTemporaryDir>

namespace fixture {

inline void writeFile(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

inline QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

/// Answers as told and counts.
struct FakePrompt final : python::IUnloadFailurePrompt
{
    bool askForRestart(const QString& askedTitle, const QString& askedText) override
    {
        ++asked;
        title = askedTitle;
        text = askedText;
        return answer;
    }
    void restart() override { ++restarts; }

    bool answer = false;
    int asked = 0, restarts = 0;
    QString title, text;
};

class PluginTest : public RuntimeTest
{
protected:
    static constexpr const char* g_sound = "def register():\n  return True\n\ndef unregister():\n  return True\n";

    /// A folder with the startup file main.py.
    QString makePlugin(const QByteArray& source, const QString& name = QStringLiteral("a plug-in"),
                       const QByteArray& info = "[PluginInfo]\ninit=main.py\ncontact=me@example.org\nautoload=true\n")
    {
        const QString path = folder.filePath(name);
        writeFile(path + QStringLiteral("/plugin.info"), info);
        writeFile(path + QStringLiteral("/main.py"), source);
        return path;
    }
    static QByteArray withRegister(const char* body) { return QByteArray("def register():\n  ") + body + "\n"; }
    static QByteArray withUnregister(const char* body)
    {
        return QByteArray("def register():\n  return True\ndef unregister():\n  ") + body + "\n";
    }
    /// What a Python expression gives, as str().
    std::string evaluate(const char* expression)
    {
        recorder.posts.clear();
        EXPECT_TRUE(run((std::string("print((") + expression + "), end='')").c_str()));
        return recorder.textOf(5);
    }

    QTemporaryDir folder;
    FakePrompt prompt;
    python::UnloadFailurePromptGuard guard{prompt};
};

} // namespace fixture
