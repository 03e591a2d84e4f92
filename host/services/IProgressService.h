#pragma once

#include <QString>

#include <cstdint>

/// The progress bars of the application, as far as others need them. A bar is known by its id.
///
/// GUI thread only, except for close(). An id that is not open is no error anywhere: it is not cancelled, and
/// incrementing or closing it does nothing.
class IProgressService
{
public:
    /// The parent of a bar that has none; never the id of a bar.
    static constexpr std::int32_t NoBar = 0;

    virtual ~IProgressService() = default;

    /// Opens a bar and returns its id, which is not given out again soon. `steps` below 1 stands for work whose length
    /// is not known. A `parent` that is not open counts as none; a child of a cancelled bar is cancelled from the
    /// start. `modal` bars keep the user from doing anything else than cancelling. `flag` is reserved and 0.
    virtual std::int32_t create(std::int32_t steps, const QString& name, std::int32_t parent, bool modal, int flag) = 0;
    /// Cheap enough for the innermost loop. More increments than steps leave the bar at its end.
    virtual void increment(std::int32_t id, std::int32_t count) = 0;
    /// Whether the user cancelled the bar or one that it is nested in.
    virtual bool wasCancelled(std::int32_t id) const = 0;
    /// Closes the bar and those nested in it. From another thread it takes effect with the next call on the GUI thread.
    virtual void close(std::int32_t id) = 0;
    virtual bool isAnyRunning() const = 0;
    virtual void closeAll() = 0;
};
