#include "tests/runtime/RuntimeFixture.h"

#include "host/services/HVUserData.h"
#include "module/ModuleFrame.h"
#include "runtime/PythonPaths.h"

#include <QApplication>
#include <QSettings>

#include <memory>

namespace fixture {

namespace {
std::unique_ptr<FakeApp> g_app;
std::unique_ptr<HVPythonExecutionContext> g_context;
} // namespace

FakeApp& RuntimeTest::app()
{
    return *g_app;
}

const HVPythonExecutionContext& RuntimeTest::context()
{
    return *g_context;
}

} // namespace fixture

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    hv::keepSettingsInUserData();
    QSettings().clear();
    python::utils::setApplicationDirPath(QCoreApplication::applicationDirPath());
    python::installScripting();
    fixture::g_app = std::make_unique<fixture::FakeApp>();
    fixture::g_context = std::make_unique<HVPythonExecutionContext>(fixture::g_app.get());
    const int result = RUN_ALL_TESTS();
    fixture::g_context.reset();
    return result;
}
