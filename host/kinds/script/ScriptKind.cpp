#include "host/kinds/script/ScriptKind.h"

#include <QObject>

namespace hv {

const ObjectKindInfo& ScriptKind::info() const
{
    static const ObjectKindInfo info{
        ObjectKind::PythonScript, "Script", "Python Scripts", "scripts", "py", "python_24"};
    return info;
}

std::vector<Description> ScriptKind::describe(const ObjectValue& value) const
{
    const auto script = value.as<Script>();
    if (!script)
        return {};
    const bool endsInLine = !script->text.isEmpty() && !script->text.endsWith('\n');
    return {{QObject::tr("Lines"), QString::number(script->text.count('\n') + (endsInLine ? 1 : 0))}};
}

const QByteArray* ScriptKind::textOf(const ObjectValue& value) const
{
    const auto script = value.as<Script>();
    return script ? &script->text : nullptr;
}

} // namespace hv
