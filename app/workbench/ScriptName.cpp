#include "app/workbench/ScriptName.h"

#include "editor/HVPythonTextEdit.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>
#include <QVariant>

#include <algorithm>

namespace workbench {

namespace {

constexpr const char* g_numberProperty = "strativoUnsavedNumber";
const QString g_titleWithoutFile = QStringLiteral("Python Editor");

/// From 1; given to a script without a file when it is first asked for.
int unsavedNumber(const HVPythonTextEdit& editor)
{
    static int lastNumber = 0;
    // Kept with the editor: the name must stay the same as long as there is no file.
    auto& keeper = const_cast<HVPythonTextEdit&>(editor);
    if (!keeper.property(g_numberProperty).isValid())
        keeper.setProperty(g_numberProperty, ++lastNumber);
    return editor.property(g_numberProperty).toInt();
}

/// The end of the path of the file's folder, as long as it has to be to tell it from those of `others`.
QString tellingFolder(const QString& file, const QStringList& others)
{
    const auto end = [](const QString& path, int folders) {
        return QFileInfo(path).absolutePath().section(QLatin1Char('/'), -folders);
    };
    const int most = static_cast<int>(QFileInfo(file).absolutePath().count(QLatin1Char('/'))) + 1;
    for (int folders = 1; folders < most; ++folders)
        if (std::none_of(others.begin(), others.end(),
                         [&](const QString& other) { return end(other, folders) == end(file, folders); }))
            return end(file, folders);
    return QFileInfo(file).absolutePath();
}

} // namespace

QString scriptName(const HVPythonTextEdit& editor)
{
    if (!editor.filename().isEmpty())
        return editor.filename();
    const QString name = QCoreApplication::translate("workbench", "unsaved script");
    const int number = unsavedNumber(editor);
    return number == 1 ? QStringLiteral("<%1>").arg(name) : QStringLiteral("<%1 %2>").arg(name).arg(number);
}

QString tabTitle(const HVPythonTextEdit& editor, const QList<HVPythonTextEdit*>& others)
{
    QString title = editor.windowTitle();
    if (editor.filename().isEmpty()) {
        if (title.startsWith(g_titleWithoutFile) && unsavedNumber(editor) > 1)
            title.insert(g_titleWithoutFile.size(), QStringLiteral(" %1").arg(unsavedNumber(editor)));
        return title;
    }
    const QString name = QFileInfo(editor.filename()).fileName();
    QStringList sameNames;
    for (const HVPythonTextEdit* other : others)
        if (other != &editor && QFileInfo(other->filename()).fileName() == name)
            sameNames << other->filename();
    if (!sameNames.isEmpty() && title.startsWith(name))
        title.insert(name.size(), QStringLiteral(" - %1").arg(tellingFolder(editor.filename(), sameNames)));
    return title;
}

bool showsScript(const HVPythonTextEdit& editor, const QString& name)
{
    if (editor.filename().isEmpty())
        return scriptName(editor) == name;
    return editor.filename() == name ||
           (!name.startsWith(QLatin1Char('<')) && QFileInfo(editor.filename()) == QFileInfo(name));
}

} // namespace workbench
