#include "editor/HVPythonLineNumberArea.h"

HVPythonLineNumberArea::HVPythonLineNumberArea(QWidget* editor, Content& content) : QWidget(editor), m_content(content)
{
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, Qt::black);
    setPalette(colours);
    setCursor(Qt::ArrowCursor);
    setContextMenuPolicy(Qt::PreventContextMenu); // the menu comes with the click
    setToolTip(tr("Click to set or remove a breakpoint (F9); the right button shows what else there is"));
}

QSize HVPythonLineNumberArea::sizeHint() const
{
    return {m_content.lineNumberAreaWidth(), 0};
}

void HVPythonLineNumberArea::paintEvent(QPaintEvent* event)
{
    m_content.lineNumberAreaPaintEvent(event);
}

void HVPythonLineNumberArea::mousePressEvent(QMouseEvent* event)
{
    m_content.lineNumberMousePressEvent(event);
}
