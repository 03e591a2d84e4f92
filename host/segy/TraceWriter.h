#pragma once

#include "host/jobs/JobContext.h"
#include "host/segy/HVSegyDescription.h"

#include <functional>

namespace hv::segy {

/// Where the samples come from: traces [firstCrossline, endCrossline) of an inline, one after the other. Called on one
/// thread at a time.
using ReadTraces = std::function<Result<void>(int inlineIndex, int firstCrossline, int endCrossline, float* out)>;

/// What became of samples that SEG-Y has no word for.
struct WriteCounts
{
    std::int64_t written = 0; ///< traces
    std::int64_t missing = 0; ///< traces without a value: left out or marked as dead
    std::int64_t holes = 0;   ///< samples without a value in the others, written as 0
};

/// Writes a whole SEG-Y file of revision 1 to an open, empty one, in blocks of megabytes. Fails, before anything is
/// written, for what the format cannot hold; a later failure leaves what was written. The reason alone is told.
/// Takes a step of `context` for each inline.
Result<WriteCounts> writeTraces(int file, const HVSegyDescription& description, float noValue, const ReadTraces& read,
                                JobContext& context);

/// The same beside its place, where it is put when it is whole; what was there is replaced. The failure names the file.
Result<WriteCounts> writeSegy(const QString& path, const HVSegyDescription& description, float noValue,
                              const ReadTraces& read, JobContext& context);

} // namespace hv::segy
