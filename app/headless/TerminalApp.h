#pragma once

#include "app/workbench/AppWrapper.h"

namespace headless {

inline constexpr int g_statusRan = 0;
inline constexpr int g_statusFailed = 1;
inline constexpr int g_statusNotStarted = 2;

/// The workbench's objects for a user who sits at a terminal.
class TerminalApp final : public workbench::AppWrapper
{
public:
    using AppWrapper::AppWrapper;
    bool isTerminalProgram() const override { return true; }
    IRunObserver* runObserver() const override { return nullptr; }
};

/// Keeps Qt's own remarks about the platform, which are of no use to a script's user, from standard error.
void hideQtWarnings();

/// Says on standard error why nothing was started; the status for that.
int refuse(const QString& sentence);

} // namespace headless
