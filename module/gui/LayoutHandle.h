#pragma once

#include "module/gui/ObjectPeer.h"

#include <QLayout>

namespace python {

/// A handle on a layout. All of them are made by scripts: the ones inside the application's widgets do not show.
///
/// Before a layout is in a window it has no parent and belongs to its Python object, and so do the widgets in it (see
/// LayoutParts.h). From then on it belongs to the widget or layout that it is in.
class LayoutHandle : public OwningHandle
{
public:
    LayoutHandle(QLayout* layout, const char* className) : OwningHandle(layout, className) {}
    QLayout& layout() const { return alive<QLayout>(); }
};

/// Lets go of the widgets that wait in a layout and those inside it: it comes into a window, whose widgets have parents
/// that keep them, or goes.
void endWaiting(QLayout& layout);

/// A layout that a script made. Its parents come from the functions in LayoutParts.h alone, which call
/// updateKeeping().
template <typename Q>
class ScriptLayout final : public Q, public ObjectPeer
{
public:
    ~ScriptLayout() override { endWaiting(*this); } // as long as it is whole: widgets that go leave it
    QObject& object() override { return *this; }

protected:
    bool isOwnedByQt() override { return this->parent() != nullptr; }
};

} // namespace python
