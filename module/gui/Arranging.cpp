#include "module/gui/Arranging.h"

#include "runtime/Errors.h"

#include <algorithm>
#include <vector>

namespace python {

namespace {

/// Those whose handlers run, the innermost last. They outlive their handlers.
std::vector<const QWidget*>& handled()
{
    static std::vector<const QWidget*> all;
    return all;
}

/// The places that lose a part, the innermost last; some are null.
std::vector<const QWidget*>& losing()
{
    static std::vector<const QWidget*> all;
    return all;
}

bool isSentWhileArranging(Handler handler)
{
    return handler == Handler::Resize || handler == Handler::Move || handler == Handler::Show ||
           handler == Handler::Hide;
}

} // namespace

ArrangingScope::ArrangingScope(Handler handler, const QWidget& widget) : m_counts(isSentWhileArranging(handler))
{
    if (m_counts)
        handled().push_back(&widget);
}

ArrangingScope::~ArrangingScope()
{
    if (m_counts)
        handled().pop_back();
}

RemovalScope::RemovalScope(const QWidget* place)
{
    losing().push_back(place);
}

RemovalScope::~RemovalScope()
{
    losing().pop_back();
}

void requireSettled(const QWidget& part, const char* method)
{
    const auto refuse = [method] { raise(PyExc_RuntimeError, "%s, Qt is just arranging these widgets", method); };
    const QWidget* place = part.parentWidget();
    if (place && std::find(losing().begin(), losing().end(), place) != losing().end())
        refuse();
    for (const QWidget* widget : handled()) {
        if (widget == &part)
            refuse();
        while (place && widget && !widget->isWindow()) { // windows are in nobody's layout
            widget = widget->parentWidget();
            if (widget == place)
                refuse();
        }
    }
}

} // namespace python
