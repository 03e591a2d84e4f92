#pragma once

#include "module/gui/Collection.h"
#include "module/gui/Conversion.h"
#include "module/gui/HandleInstance.h"
#include "module/gui/WidgetClasses.h"
#include "runtime/Callback.h"

#include <boost/python.hpp>

/// Signals as methods that take a callable.
namespace python {

/// The callable in the hands of `sender`, which lets it go when it is destroyed. `method` is what scripts call, with
/// its class and brackets, and stays valid. Raises TypeError for what can not be called, for example
/// "Button.clicked(), expected callable object, but got '%s' instead".
struct Connection
{
    Connection(QObject& sender, const boost::python::object& callable, const char* method);

    Callback callback;
    QObject* receiver; // as long as the connection lives
};

/// Calls `callable` without arguments when `sender` emits `signal`.
template <typename Sender, typename Signal>
void connectCall(Sender& sender, Signal signal, const boost::python::object& callable, const char* method)
{
    const Connection connection(sender, callable, method);
    QObject::connect(&sender, signal, connection.receiver, [callback = connection.callback] { callback(); });
}

/// Calls `callable` with the signal's value when `sender` emits `signal`.
template <typename Value, typename Sender, typename Signal>
void connectValue(Sender& sender, Signal signal, const boost::python::object& callable, const char* method)
{
    const Connection connection(sender, callable, method);
    QObject::connect(&sender, signal, connection.receiver,
                     [callback = connection.callback](Value value) { callback.with([&] { return toPython(value); }); });
}

} // namespace python
