#pragma once

#include <QWidget>

class HVPythonTextEdit;

/// The gutter of a script editor, which draws it and takes its clicks.
class HVPythonLineNumberArea : public QWidget
{
    Q_OBJECT

public:
    /// A child of `editor`.
    explicit HVPythonLineNumberArea(HVPythonTextEdit* editor);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    HVPythonTextEdit* m_editor;
};
