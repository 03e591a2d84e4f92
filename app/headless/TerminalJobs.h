#pragma once

#include "host/jobs/JobManager.h"

namespace headless {

class TerminalProgress;

/// The jobs of a program whose user sits at a terminal: their progress stands where that of progress bars stands while
/// there are none of those. It moves while an event loop runs. GUI thread only.
class TerminalJobs : public QObject
{
    Q_OBJECT

public:
    /// Neither is owned; both outlive this.
    TerminalJobs(hv::JobManager& jobs, TerminalProgress& progress);
};

} // namespace headless
