#pragma once

#include <QWidget>

/// The gutter of a script editor.
class HVPythonLineNumberArea : public QWidget
{
    Q_OBJECT

public:
    /// Draws the gutter and takes its clicks.
    class Content
    {
    public:
        virtual int lineNumberAreaWidth() const = 0;
        virtual void lineNumberAreaPaintEvent(QPaintEvent* event) = 0;
        virtual void lineNumberMousePressEvent(QMouseEvent* event) = 0;

    protected:
        ~Content() = default;
    };

    /// A child of `editor`; `content` lives as long as there are events.
    HVPythonLineNumberArea(QWidget* editor, Content& content);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    Content& m_content;
};
