// Times (of the processor) of the objects of a project, for bench_project.py: "name milliseconds" per line. Needs an
// empty folder.
#include "host/data/HVProject.h"
#include "host/widgets/HVProjectBrowser.h"
#include "host/widgets/HVUndoStack.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTreeView>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <limits>
#include <tuple>

namespace {

constexpr int g_objects = 100000;
constexpr int g_changes = 10000;
constexpr int g_rounds = 5;

double now()
{
    timespec time{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return 1e3 * static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_nsec);
}

/// The processor's, to which others that use the machine add little.
double milliseconds(const std::function<void()>& act)
{
    const double start = now();
    act();
    return now() - start;
}

void report(const char* name, double value)
{
    std::printf("%s %.2f\n", name, value);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QString folder = application.arguments().value(1);
    constexpr ObjectKind kind = ObjectKind::Horizon3d;
    double list = std::numeric_limits<double>::infinity();
    for (int round = 0; round < g_rounds; ++round) {
        const auto project = *(round == 0 ? HVProject::create(folder, QString()) : HVProject::open(folder));
        if (round == 0) {
            QDir().mkpath(project->folder(kind));
            for (int i = 0; i < g_objects; ++i)
                std::fclose(
                    std::fopen(qPrintable(project->folder(kind) + QStringLiteral("/Horizon %1.horizon").arg(i)), "w"));
        }
        list = std::min(list, milliseconds([&] { project->store().list(kind); }));
    }
    report("list 100000 objects first", list);

    const auto project = *HVProject::open(folder);
    HVProjectBrowser browser;
    browser.resize(400, 600);
    browser.setProject(project.get());
    browser.show();
    browser.view()->expandAll();
    application.processEvents();
    double rename = std::numeric_limits<double>::infinity();
    for (int round = 0; round < 2 * g_rounds; ++round)
        rename = std::min(rename, milliseconds([&] {
                              const QString before = QStringLiteral("Horizon %1").arg(500 + round);
                              project->renameObject(kind, before, QStringLiteral("Renamed %1").arg(round));
                              project->store().tellChanges();
                              application.processEvents();
                              browser.view()->viewport()->repaint();
                          }));
    report("rename one of them in the browser", rename);

    browser.setProject(nullptr);
    HVUndoStack undo;
    undo.setProject(project.get());
    {
        const hv::ChangeScope scope(&project->changes(), "many");
        for (int i = 0; i < g_changes / 2; ++i) {
            std::ignore = project->store().rename({kind, QStringLiteral("Horizon %1").arg(1000 + i)},
                                                  QStringLiteral("Other %1").arg(i));
            std::ignore = project->store().remove({kind, QStringLiteral("Horizon %1").arg(50000 + i)});
        }
    }
    double back = std::numeric_limits<double>::infinity();
    double forth = back;
    for (int round = 0; round < g_rounds; ++round) {
        back = std::min(back, milliseconds([&] { undo.undo(); }));
        forth = std::min(forth, milliseconds([&] { undo.redo(); }));
    }
    report("undo 10000 changes", back);
    report("redo 10000 changes", forth);
    return 0;
}
