#pragma once

#include <QObject>

/// Swallows Return with Shift held, which would put a line separator into the text: Python knows no such line end.
class ShiftEnterFilter : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;
};
