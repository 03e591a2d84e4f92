#include "host/kinds/script/ScriptKind.h"

#include <QObject>

namespace hv {

const ObjectKindInfo& ScriptKind::info() const
{
    static const ObjectKindInfo info{
        ObjectKind::PythonScript, "Script", "Python Scripts", "scripts", "py", "python_24"};
    return info;
}

std::vector<Description> ScriptKind::rows(const Script& script) const
{
    const bool endsInLine = !script.text.isEmpty() && !script.text.endsWith('\n');
    return {{QObject::tr("Lines"), QString::number(script.text.count('\n') + (endsInLine ? 1 : 0))}};
}

} // namespace hv
