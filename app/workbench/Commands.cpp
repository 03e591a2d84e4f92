#include "app/workbench/Commands.h"

#include "host/icons/HVIconStore.h"
#include "host/widgets/HVPluginContributions.h"

#include <QCoreApplication>
#include <QMenuBar>
#include <QToolBar>

namespace workbench {

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("Commands", text);
}

QIcon iconOf(const char* name)
{
    return *name ? HVIconStore::icon(QLatin1String(name)) : QIcon();
}

void dress(QAction& action, const Command& command)
{
    action.setText(translated(command.text));
    action.setIcon(iconOf(command.icon));
    action.setShortcuts(command.keys.sequences());
    if (command.keysOfDocument)
        action.setShortcutContext(Qt::WidgetShortcut);
    QStringList keys;
    for (const QKeySequence& sequence : action.shortcuts())
        keys << sequence.toString(QKeySequence::NativeText);
    const QString tip = translated(command.tip);
    action.setToolTip(keys.isEmpty() ? tip : QStringLiteral("%1 (%2)").arg(tip, keys.join(QStringLiteral(", "))));
    action.setStatusTip(tip);
}

QStringList words(const char* entries)
{
    return QString::fromLatin1(entries).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

Commands::Commands(QObject* parent) : QObject(parent)
{
    for (const Command& command : commandTable()) {
        auto* action = new QAction(this);
        dress(*action, command);
        action->setVisible(false);
        const Entry& added = m_entries.emplace(command.id, Entry{&command, action}).first->second;
        update(added);
    }
}

const Commands::Entry& Commands::entry(std::string_view id) const
{
    return m_entries.at(id);
}

void Commands::update(const Entry& entry) const
{
    if (entry.action && !entry.adopted)
        entry.action->setEnabled(!(entry.command->needs & ~m_contexts));
}

void Commands::setContexts(Contexts contexts)
{
    m_contexts = contexts;
    for (const auto& [id, entry] : m_entries)
        update(entry);
}

QAction* Commands::showWhileAlive(std::string_view id, QObject* receiver)
{
    QAction* action = entry(id).action;
    action->setVisible(true);
    connect(receiver, &QObject::destroyed, action, [action] { action->setVisible(false); });
    return action;
}

void Commands::adopt(std::string_view id, QAction* action)
{
    Entry& entry = m_entries.at(id);
    dress(*action, *entry.command);
    if (entry.action)
        for (QWidget* place : entry.action->associatedWidgets())
            place->insertAction(entry.action, action);
    delete entry.action;
    entry.action = action;
    entry.adopted = true;
}

QString Commands::keyText(std::string_view id) const
{
    const QAction* action = entry(id).action;
    return action ? action->shortcut().toString(QKeySequence::NativeText) : QString();
}

void Commands::make(QMenu* menu, const MenuTable& table)
{
    // Scripts do not find it by its title.
    menu->setObjectName(hv::ownPartName(table.id));
    menu->setIcon(iconOf(table.icon));
    menu->setToolTipsVisible(true);
    m_menus[table.id] = menu;
    for (const QString& word : words(table.entries)) {
        if (word == QLatin1String("-"))
            menu->addSeparator();
        else if (word.startsWith(QLatin1Char('>')))
            makeSubMenu(word.mid(1), *menu);
        else
            menu->addAction(action(word.toStdString()));
    }
}

void Commands::makeSubMenu(const QString& id, QMenu& menu)
{
    for (const MenuTable& table : subMenuTable()) {
        if (id != QLatin1String(table.id))
            continue;
        QMenu* subMenu = menu.addMenu(translated(table.title));
        subMenu->menuAction()->setVisible(*table.entries);
        make(subMenu, table);
    }
}

void Commands::fill(QMenuBar& bar)
{
    for (const MenuTable& table : menuBarTable())
        make(bar.addMenu(translated(table.title)), table);
}

void Commands::fill(QToolBar& bar)
{
    for (const QString& word : words(toolBarEntries())) {
        if (word == QLatin1String("-"))
            bar.addSeparator();
        else
            bar.addAction(action(word.toStdString()));
    }
}

QMenu* Commands::menu(std::string_view id) const
{
    return m_menus.at(id);
}

} // namespace workbench
