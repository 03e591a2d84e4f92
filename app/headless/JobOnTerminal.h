#pragma once

#include "host/jobs/JobContext.h"

#include <functional>

namespace headless {

/// Does work as a job whose progress stands on standard error, and waits for it. Ctrl+C cancels it; the failure then
/// says so. There is an application object, of whatever kind.
hv::Result<void> runOnTerminal(const QString& name, const std::function<hv::Result<void>(hv::JobContext&)>& work);

/// The same for work that gives a value.
template <class Value>
hv::Result<Value> runOnTerminal(const QString& name, const std::function<hv::Result<Value>(hv::JobContext&)>& work)
{
    std::optional<Value> value;
    const std::function<hv::Result<void>(hv::JobContext&)> keep = [&](hv::JobContext& context) -> hv::Result<void> {
        hv::Result<Value> result = work(context);
        if (!result)
            return result.failure();
        value.emplace(std::move(*result));
        return {};
    };
    const hv::Result<void> done = runOnTerminal(name, keep);
    if (!done)
        return done.failure();
    return std::move(*value);
}

} // namespace headless
