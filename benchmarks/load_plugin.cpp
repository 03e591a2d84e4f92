// load_plugin FOLDER ROUNDS TIMES: seconds of one load and unload of the plug-in, the minimum over the rounds.
#include "app/ProgramSetup.h"
#include "plugins/HVPythonPlugin.h"
#include "runtime/HVPythonExecutionContext.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <limits>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    program::setUp();
    const HVPythonExecutionContext context(nullptr);
    HVPythonPlugin plugin;
    if (argc != 4 || !plugin.initialize(QString::fromLocal8Bit(argv[1])))
        return 2;
    const int times = std::atoi(argv[3]);
    double best = std::numeric_limits<double>::infinity();
    for (int round = std::atoi(argv[2]); round > 0; --round) {
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < times; ++i)
            if (!plugin.load() || !plugin.unload())
                return 1;
        best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() / times);
    }
    std::printf("%.9f\n", best);
    return 0;
}
