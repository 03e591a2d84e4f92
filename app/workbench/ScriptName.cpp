#include "app/workbench/ScriptName.h"

#include "editor/HVPythonTextEdit.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QVariant>

namespace workbench {

namespace {
constexpr const char* g_numberProperty = "strativoUnsavedNumber";
}

QString scriptName(const HVPythonTextEdit& editor)
{
    if (!editor.filename().isEmpty())
        return editor.filename();
    static int lastNumber = 0;
    // Kept with the editor: the name must stay the same as long as there is no file.
    auto& keeper = const_cast<HVPythonTextEdit&>(editor);
    if (!keeper.property(g_numberProperty).isValid())
        keeper.setProperty(g_numberProperty, ++lastNumber);
    const int number = editor.property(g_numberProperty).toInt();
    const QString name = QCoreApplication::translate("workbench", "unsaved script");
    return number == 1 ? QStringLiteral("<%1>").arg(name) : QStringLiteral("<%1 %2>").arg(name).arg(number);
}

bool showsScript(const HVPythonTextEdit& editor, const QString& name)
{
    if (editor.filename().isEmpty())
        return scriptName(editor) == name;
    return editor.filename() == name ||
           (!name.startsWith(QLatin1Char('<')) && QFileInfo(editor.filename()) == QFileInfo(name));
}

} // namespace workbench
