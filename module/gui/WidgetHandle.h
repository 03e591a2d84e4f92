#pragma once

#include "module/gui/ObjectHandle.h"

#include <QWidget>

namespace python {

class WidgetPeer;

/// A handle on any widget. What a script made is destroyed with it, as long as no parent owns it.
class WidgetHandle : public ObjectHandle
{
public:
    explicit WidgetHandle(QWidget* widget, const char* className = "Widget") : ObjectHandle(widget, className) {}
    ~WidgetHandle() override;

    QWidget& widget() const { return alive<QWidget>(); }

    /// Null for widgets that the application made.
    WidgetPeer* peer() const { return m_peer; }
    void setPeer(WidgetPeer& peer) { m_peer = &peer; }
    /// The widget is being destroyed.
    void forgetPeer();

    bool isScriptMade() const override { return m_peer != nullptr; }

private:
    WidgetPeer* m_peer = nullptr;
};

} // namespace python
