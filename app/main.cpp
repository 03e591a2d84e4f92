#include "app/demo/Demo.h"
#include "app/headless/Headless.h"
#include "app/headless/PluginCheck.h"
#include "app/workbench/Workbench.h"

#include <cstring>

int main(int argc, char** argv)
{
    if (argc > 1 && std::strcmp(argv[1], "run") == 0)
        return headless::run(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "plugin") == 0)
        return headless::runPluginCommand(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "demo") == 0)
        return demo::run(argc, argv);
    return workbench::run(argc, argv);
}
