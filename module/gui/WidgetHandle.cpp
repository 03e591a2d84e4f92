#include "module/gui/WidgetHandle.h"

#include "module/gui/WidgetPeer.h"
#include "runtime/QtCall.h"

#include <QThread>

namespace python {

WidgetHandle::~WidgetHandle()
{
    if (!m_peer)
        return;
    QWidget& widget = m_peer->widget();
    m_peer->detach();
    const bool isHere = QThread::currentThread() == widget.thread();
    if (isHere && widget.parentWidget())
        return; // goes with the parent
    if (isHere && !QtCall::isUnderWay())
        delete &widget;
    else
        widget.deleteLater();
}

void WidgetHandle::forgetPeer()
{
    m_peer = nullptr;
    forgetObject();
}

} // namespace python
