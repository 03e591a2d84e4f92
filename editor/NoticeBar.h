#pragma once

#include <QFrame>

#include <functional>
#include <utility>
#include <vector>

class QHBoxLayout;
class QLabel;

/// A sentence at the foot of an editor with the answers to it as buttons, for what must not interrupt typing or a
/// running script as a dialog would. A later notice replaces the one that is shown. GUI thread only.
namespace editor {

class NoticeBar : public QFrame
{
    Q_OBJECT

public:
    using Answer = std::pair<QString, std::function<void()>>;

    explicit NoticeBar(QWidget* parent);

    /// Every answer hides the bar and then does its work; a button that only hides it is added.
    void show(const QString& sentence, const std::vector<Answer>& answers = {});
    QString sentence() const;

private:
    void addButton(const QString& text, const std::function<void()>& work);

    QHBoxLayout* m_row;
    QLabel* m_label;
};

} // namespace editor
