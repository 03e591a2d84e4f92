#pragma once

#include "app/workbench/CommandTable.h"

#include <QAction>
#include <QMenu>
#include <QPointer>

#include <functional>
#include <map>
#include <string_view>

class QMenuBar;
class QToolBar;

namespace workbench {

/// The application's commands as actions, and the menus and buttons that offer them. Ids are those of the table; asking
/// for another one is a mistake of the program. GUI thread only.
///
/// A command that nobody carries out is not shown.
class Commands : public QObject
{
    Q_OBJECT

public:
    explicit Commands(QObject* parent);

    /// What is the case now; commands that need something else are disabled.
    void setContexts(Contexts contexts);

    /// Also what adopt() put in its place; null once that has gone.
    QAction* action(std::string_view id) const { return entry(id).action; }
    /// `receiver` carries the command out, as long as it lives.
    template <typename Receiver, typename Function>
    QAction* handle(std::string_view id, Receiver* receiver, Function function)
    {
        QAction* action = showWhileAlive(id, receiver);
        connect(action, &QAction::triggered, receiver, function);
        return action;
    }
    /// The command is another object's action, which gets the looks of the table, stands in the command's place and
    /// leaves it when it is destroyed. Its owner enables it.
    void adopt(std::string_view id, QAction* action);

    /// The keys as the user sees them, the first only.
    QString keyText(std::string_view id) const;

    /// Adds the menus of the table to the bar, which owns them; once.
    void fill(QMenuBar& bar);
    void fill(QToolBar& bar);
    /// After fill().
    QMenu* menu(std::string_view id) const;
    /// After fill(): `receiver` fills the menu each time it is about to be shown. An empty sub-menu that nobody fills
    /// is not shown either.
    template <typename Receiver, typename Function>
    QMenu* handleMenu(std::string_view id, Receiver* receiver, Function function)
    {
        QMenu* menu = this->menu(id);
        menu->menuAction()->setVisible(true);
        connect(menu, &QMenu::aboutToShow, receiver, [=] { std::invoke(function, receiver, menu); });
        return menu;
    }

private:
    struct Entry
    {
        const Command* command = nullptr;
        QPointer<QAction> action;
        bool adopted = false;
    };

    const Entry& entry(std::string_view id) const;
    QAction* showWhileAlive(std::string_view id, QObject* receiver);
    void update(const Entry& entry) const;
    void make(QMenu* menu, const MenuTable& table);
    void makeSubMenu(const QString& id, QMenu& menu);

    std::map<std::string_view, Entry> m_entries;
    std::map<std::string_view, QMenu*> m_menus;
    Contexts m_contexts;
};

} // namespace workbench
