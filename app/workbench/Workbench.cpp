#include "app/workbench/Workbench.h"

#include <QApplication>

namespace workbench {

int run(int& argc, char** argv)
{
    QApplication application(argc, argv);
    return 0;
}

} // namespace workbench
