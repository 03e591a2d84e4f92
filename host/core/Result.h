#pragma once

#include <QString>

#include <optional>
#include <utility>
#include <variant>

/// How host functions fail: the value that they were asked for, or a sentence for the user. Nothing in the host throws
/// for what a user, a file or a disk can cause; exceptions stay what they are for defects and exhausted memory.
namespace hv {

/// Why something could not be done.
struct [[nodiscard]] Failure
{
    /// One sentence for the user, which begins with a capital letter and says what was tried and why it failed.
    QString sentence;
    /// Where the cause stands in a file; 0 when it stands in no line. The sentence names both already.
    QString file = {};
    int line = 0;
    /// The system's error number when it was the system that refused, for callers who hand it on; else 0.
    int systemError = 0;

    Failure(QString text) : sentence(std::move(text)) {}
    Failure(QString text, QString inFile, int inLine = 0)
        : sentence(std::move(text)), file(std::move(inFile)), line(inLine)
    {}
};

/// A value or a Failure. Functions return either by its plain form:
///
///     Result<ColorBar> read(const QString& path)
///     {
///         if (!exists(path))
///             return Failure(QStringLiteral("..."));
///         return ColorBar();
///     }
///
/// A failed call has changed nothing, unless its own comment says otherwise.
template <class T>
class [[nodiscard]] Result
{
public:
    Result(T value) : m_held(std::in_place_index<0>, std::move(value)) {}
    Result(Failure failure) : m_held(std::in_place_index<1>, std::move(failure)) {}

    explicit operator bool() const { return m_held.index() == 0; }

    /// Only of a success.
    T& operator*() & { return std::get<0>(m_held); }
    const T& operator*() const& { return std::get<0>(m_held); }
    T&& operator*() && { return std::get<0>(std::move(m_held)); }
    T* operator->() { return &std::get<0>(m_held); }
    const T* operator->() const { return &std::get<0>(m_held); }

    /// Only of a failure.
    const Failure& failure() const { return std::get<1>(m_held); }

private:
    std::variant<T, Failure> m_held;
};

/// Of functions that only do something.
template <>
class [[nodiscard]] Result<void>
{
public:
    Result() = default;
    Result(Failure failure) : m_failure(std::move(failure)) {}

    explicit operator bool() const { return !m_failure; }
    const Failure& failure() const { return *m_failure; }

private:
    std::optional<Failure> m_failure;
};

} // namespace hv
