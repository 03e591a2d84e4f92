#pragma once

#include <boost/python/detail/wrap_python.hpp>

#include <QString>

#include <chrono>

namespace debugger {

/// Writes values for the user, whatever they do to prevent it: a repr that raises, recurses or does not come to an end
/// gives a remark in angle brackets instead, and long ones are cut. Large arrays and images, whatever module they come
/// from, are told by element type, shape and range, read in place.
///
/// One object serves the variables of one stop, so that the time for all of them is limited too. GUI thread with the
/// interpreter lock; no exception is pending afterwards.
class ValueText
{
public:
    QString of(PyObject* value);

private:
    QString limitedRepr(PyObject* value);

    std::chrono::milliseconds m_left{1000};
};

/// "float32 (600, 800), 0.5 to 99.1" for what exports a buffer of more than a few numbers; otherwise empty. Values
/// that are not finite do not count, nor, for classes of the scripting module, its no-value marker.
QString bufferSummary(PyObject* value);

} // namespace debugger
