#include "host/services/IScriptProject.h"

namespace {
IScriptProject* g_current = nullptr;
} // namespace

IScriptProject* IScriptProject::current()
{
    return g_current;
}

void IScriptProject::setCurrent(IScriptProject* project)
{
    g_current = project;
}
