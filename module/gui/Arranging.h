#pragma once

#include "module/gui/Handlers.h"

#include <QWidget>

/// Places that Qt is just going through. Layouts and containers lay out, show and hide one part after the other, and
/// would lose their way if a handler of one of them took parts out of the place.
namespace python {

/// The time in which a handler of `widget` runs. On the GUI thread; nests.
class ArrangingScope
{
public:
    ArrangingScope(Handler handler, const QWidget& widget);
    ~ArrangingScope();
    ArrangingScope(const ArrangingScope&) = delete;
    ArrangingScope& operator=(const ArrangingScope&) = delete;

private:
    const bool m_counts;
};

/// The time in which a part is taken out of `place` (null: out of nothing). Qt goes on with the others then, whose tabs
/// and signals may call Python code.
class RemovalScope
{
public:
    explicit RemovalScope(const QWidget* place);
    ~RemovalScope();
    RemovalScope(const RemovalScope&) = delete;
    RemovalScope& operator=(const RemovalScope&) = delete;
};

/// RuntimeError while a handler for size, place or visibility of something in the same place as `part` runs, or of
/// `part` itself, and while another part of that place is being taken out.
void requireSettled(const QWidget& part, const char* method);

} // namespace python
