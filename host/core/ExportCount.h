#pragma once

#include <cstdint>

namespace core {

/// How many others use the memory of an object by its address (a numpy view, a thread without the interpreter lock).
/// While there are any the object neither moves the memory nor changes its size; the numbers in it may change. Not
/// thread-safe.
class ExportCount
{
public:
    void add() { ++m_count; }
    void release() { --m_count; }
    bool isNone() const { return m_count == 0; }

private:
    std::int64_t m_count = 0;
};

/// One such user, for as long as it lives.
class Pin
{
public:
    explicit Pin(ExportCount& exports) : m_exports(exports) { m_exports.add(); }
    ~Pin() { m_exports.release(); }
    Pin(const Pin&) = delete;
    Pin& operator=(const Pin&) = delete;

private:
    ExportCount& m_exports;
};

} // namespace core
