#include "editor/HVPythonLineNumberArea.h"

#include "editor/HVPythonTextEdit.h"

HVPythonLineNumberArea::HVPythonLineNumberArea(HVPythonTextEdit* editor) : QWidget(editor), m_editor(editor)
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
    return {m_editor->lineNumberAreaWidth(), 0};
}

void HVPythonLineNumberArea::paintEvent(QPaintEvent* event)
{
    m_editor->lineNumberAreaPaintEvent(event);
}

void HVPythonLineNumberArea::mousePressEvent(QMouseEvent* event)
{
    m_editor->lineNumberMousePressEvent(event);
}
