#pragma once

#include <QFrame>
#include <QTimer>

class HVProjectFilter;
class HVProjectModel;
class HVProjectObjects;
class QLabel;
class QLineEdit;
class QStackedWidget;
class QTreeView;

/// A tree of the project's suitable objects with a search field, to choose one of them; drops down from a widget.
/// Typing searches, the arrow keys move in the tree, Return or a click chooses, Escape closes. Reads the project only
/// while it is open.
class HVObjectPopup : public QFrame
{
    Q_OBJECT

public:
    /// `parent` is the widget it drops down from.
    HVObjectPopup(HVProjectObjects* objects, QWidget* parent);

    /// Shows the tree below its parent with `path` current, searching for `text`.
    void open(const QString& path, const QString& text = {});

    QLineEdit* searchField() const { return m_search; }
    QTreeView* view() const { return m_view; }

Q_SIGNALS:
    void chosen(const QString& path);

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void place();
    void search();
    void choose(const QModelIndex& index);
    QModelIndex find(const QModelIndex& parent, const QString& path) const;
    void makeCurrent(const QString& path);

    HVProjectObjects* m_objects;
    HVProjectModel* m_model;
    HVProjectFilter* m_filter;
    QLineEdit* m_search;
    QTreeView* m_view;
    QLabel* m_hint;
    QStackedWidget* m_pages;
    QTimer m_searchSoon;
};
