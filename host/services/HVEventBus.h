#pragma once

#include <QString>

#include <atomic>
#include <mutex>
#include <string_view>
#include <vector>

/// host/services: what the application offers to all of its parts without showing a window itself: the event bus,
/// the per-user data folder, the icon store, the interface through which the scripting layer reaches the application.

/// Kind of a message on the event bus; the numbers are shared with scripts and plug-ins.
enum class MessageLevel : int
{
    Error = 1,
    Warning = 2,
    Information = 3,
    Success = 4,
    StandardOutput = 5,
    StandardError = 6,
};

/// The one channel for messages to the user.
///
/// Levels 1 to 4 carry whole messages (the receiver ends the line); levels 5 and 6 carry the raw stream text of
/// scripts, so a line may come in several messages and one message may hold several lines.
///
/// Thread-safe: any thread may send. A sink is called on the sending thread, one call at a time, in the order of
/// sending; it must be quick, must not throw and must not send messages itself.
class HVEventBus
{
public:
    struct Message
    {
        int level;
        /// UTF-8, not terminated, valid only during the call.
        std::string_view text;
        /// The sender wants the user to look now: a message window shows itself.
        bool reveal;
    };

    class Sink
    {
    public:
        virtual void receive(const Message& message) = 0;
        /// True for a sink that writes to a pipe or a terminal: senders then give up locks that a reader may need.
        virtual bool mayBlock() const { return false; }
        /// The system's error number when the last receive() could not keep its text, else 0.
        virtual int failure() const { return 0; }

    protected:
        ~Sink() = default;
    };

    static HVEventBus& instance();

    void sendMessage(int level, const QString& text, bool reveal = false);
    void sendMessage(MessageLevel level, const QString& text, bool reveal = false);

    /// The path of captured streams: no conversion, no allocation here. `utf8` must be valid UTF-8. The failure of a
    /// sink, 0 when all have taken the text.
    int sendUtf8(int level, std::string_view utf8, bool reveal = false);

    /// Sinks are not owned. removeSink() returns only after a call that is under way has ended.
    void addSink(Sink* sink);
    void removeSink(Sink* sink);

    /// Whether any sink may block the sender.
    bool mayBlock() const { return m_blockingSinks.load(std::memory_order_relaxed) > 0; }

private:
    HVEventBus() = default;

    std::mutex m_mutex;
    std::vector<Sink*> m_sinks;
    std::atomic<int> m_blockingSinks = 0;
};
