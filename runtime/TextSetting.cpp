#include "runtime/TextSetting.h"

#include <QSettings>

#include <atomic>

namespace python {

namespace {

const QString g_key = QStringLiteral("Python/unicode-text");
constexpr char g_variable[] = "STRATIVO_UNICODE_TEXT";
std::atomic<bool> g_areTextsWhole = false;

} // namespace

bool areTextsWhole()
{
    return g_areTextsWhole.load(std::memory_order_relaxed);
}

void setTextsWhole(bool whole)
{
    g_areTextsWhole.store(whole, std::memory_order_relaxed);
}

void setTextsWholeEverywhere()
{
    qputenv(g_variable, "1");
    setTextsWhole(true);
}

void readTextSetting()
{
    setTextsWhole(qEnvironmentVariableIsSet(g_variable) || QSettings().value(g_key, false).toBool());
}

void storeTextSetting(bool whole)
{
    QSettings().setValue(g_key, whole);
    setTextsWhole(whole);
}

} // namespace python
