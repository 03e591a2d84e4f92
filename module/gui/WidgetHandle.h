#pragma once

#include "module/gui/ObjectPeer.h"

#include <QWidget>

namespace python {

class WidgetPeer;

/// A handle on any widget.
class WidgetHandle : public OwningHandle
{
public:
    explicit WidgetHandle(QWidget* widget, const char* className = "Widget") : OwningHandle(widget, className) {}

    QWidget& widget() const { return alive<QWidget>(); }
    /// Null for widgets that the application made.
    WidgetPeer* peer() const;
};

} // namespace python
