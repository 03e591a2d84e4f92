#pragma once

#include <QObject>

class QMdiArea;
class QTabBar;

namespace workbench {

/// Tool tips of the document area's tabs: the file behind a document, and whether it is read-only. They are made when
/// they are asked for.
class TabTips : public QObject
{
    Q_OBJECT

public:
    /// The tabs own the object.
    TabTips(const QMdiArea& area, QTabBar* tabs);

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    const QMdiArea& m_area;
    QTabBar* m_tabs;
};

} // namespace workbench
