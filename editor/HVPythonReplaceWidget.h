#pragma once

#include <QFrame>

class QLineEdit;

/// The line below the search bar with the text that matches are replaced by. It only asks; the editor replaces.
/// GUI thread only.
class HVPythonReplaceWidget : public QFrame
{
    Q_OBJECT

public:
    explicit HVPythonReplaceWidget(QWidget* parent);
    void activate();

Q_SIGNALS:
    void replaceRequested(const QString& replacement);
    void replaceAllRequested(const QString& replacement);
    void closeRequested();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLineEdit* m_line;
};
