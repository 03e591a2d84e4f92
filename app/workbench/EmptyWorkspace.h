#pragma once

#include <QWidget>

class QLabel;
class QMdiArea;

namespace workbench {

class Commands;

/// What the document area shows while no document is open: how to begin. Covers the area's viewport and shows and
/// hides itself.
class EmptyWorkspace : public QWidget
{
    Q_OBJECT

public:
    EmptyWorkspace(QMdiArea* area, const Commands& commands);

Q_SIGNALS:
    void newScriptRequested();
    void openScriptRequested();
    void recentScriptRequested(const QString& path);

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void fill();
    void followLink(const QString& link);

    QMdiArea* m_area;
    const Commands& m_commands;
    QLabel* m_text;
};

} // namespace workbench
