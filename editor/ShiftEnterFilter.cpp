#include "editor/ShiftEnterFilter.h"

#include <QKeyEvent>

bool ShiftEnterFilter::eventFilter(QObject* receiver, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) &&
            key->modifiers().testFlag(Qt::ShiftModifier))
            return true;
    }
    return QObject::eventFilter(receiver, event);
}
