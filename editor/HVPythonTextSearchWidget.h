#pragma once

#include <QFrame>

class QLabel;
class QLineEdit;

/// The search bar in the corner of a script editor. It only asks; the editor searches. GUI thread only.
class HVPythonTextSearchWidget : public QFrame
{
    Q_OBJECT

public:
    explicit HVPythonTextSearchWidget(QWidget* parent);

    QString text() const;
    void setText(const QString& text);
    /// Puts the keyboard into the line and selects its text.
    void activate();
    /// Which of the matches is the current one, counted from 1.
    void showCount(int current, int count);

Q_SIGNALS:
    void startSearch(const QString& target);
    void nextRequested();
    void previousRequested();
    void replaceRequested();
    void closeRequested();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLineEdit* m_line;
    QLabel* m_count;
};
