#pragma once

#include "host/kinds/ObjectKind.h"

#include <QWidget>

#include <set>

class HVObjectPopup;
class HVProject;
class HVProjectObjects;
class QAction;
class QLineEdit;
class QToolButton;

/// A line that shows the project object chosen as an input, with its icon. A button, a click on the line, the Down
/// arrow, Space or F4 opens a tree to choose from; typing opens it searching. An object dragged from the project
/// browser is taken. Delete or the cross at the end of the line clears it.
///
/// It follows the project: a renamed object stays chosen; an object that is removed is chosen no more.
class HVInputSelectionLineEdit : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString object READ object WRITE setObject NOTIFY selectionChanged)

public:
    /// Of all kinds that scripts know.
    explicit HVInputSelectionLineEdit(QWidget* parent = nullptr);
    ~HVInputSelectionLineEdit() override;

    const std::set<ObjectKind>& kinds() const;
    /// All kinds that scripts know for an empty set. An object of another kind is chosen no more.
    void setKinds(std::set<ObjectKind> kinds);
    /// Null when there is none.
    HVProject* project() const;
    /// This project instead of the application's, which the widget follows by itself.
    void setProject(HVProject* project);

    /// Absolute path of the chosen object's file; empty for none.
    QString object() const { return m_object; }
    /// False, and nothing has changed, for what is no such object of the project. Empty for none.
    bool setObject(const QString& path);

    /// Shown when nothing is chosen; empty for the usual text.
    QString placeholderText() const { return m_placeholder; }
    void setPlaceholderText(const QString& text);

    QLineEdit* line() const { return m_line; }
    QToolButton* button() const { return m_button; }
    /// Made when it opens for the first time, null before.
    HVObjectPopup* popup() const { return m_popup; }

public Q_SLOTS:
    void clear() { setObject({}); }
    /// Opens the tree, searching for `text`.
    void choose(const QString& text = {});

Q_SIGNALS:
    void selectionChanged(const QString& path);

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void check();
    void take(const QString& path);
    void showObject();
    bool handleKey(const QKeyEvent& event);

    HVProjectObjects* m_objects;
    HVObjectPopup* m_popup = nullptr;
    QLineEdit* m_line;
    QToolButton* m_button;
    QAction* m_icon = nullptr;
    QAction* m_clear;
    QString m_object;
    QString m_placeholder;
};
