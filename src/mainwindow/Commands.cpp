#include "mainwindow/Commands.h"

#include "ui/Icons.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

static QString plain(QString text) { return text.remove(u'&').remove(u"..."_s).remove(u'…'); }

QString ToolText(const Command& command)
{
    for (const MenuDef& menu : AllMenus())
        if (!menu.inMenuBar && !menu.text.isEmpty() && menu.entries.contains(command.id))
            return u"%1: %2"_s.arg(plain(menu.text), plain(command.text));
    return plain(command.text);
}

static QAction* makeAction(const Command& command, QObject* owner)
{
    auto* action = new QAction(command.text, owner);
    action->setObjectName(command.id);
    if (!command.icon.isEmpty()) action->setIcon(icon(command.icon));
    action->setShortcut(command.shortcut);
    action->setCheckable(command.checkable);
    action->setIconText(command.toolbarText.isEmpty() ? plain(command.text) : command.toolbarText);
    // On a toolbar the others show their icon alone.
    action->setPriority(command.toolbarText.isEmpty() ? QAction::LowPriority : QAction::NormalPriority);
    const QString keys = command.shortcut.toString(QKeySequence::NativeText);
    const QString text = ToolText(command);
    action->setToolTip(keys.isEmpty() ? text : u"%1 (%2)"_s.arg(text, keys));
    return action;
}

Commands::Commands(QObject* owner)
{
    for (const Command& command : AllCommands()) m_actions.insert(command.id, makeAction(command, owner));
    for (const MenuDef& def : AllMenus()) {
        auto* menu = new QMenu(def.text, qobject_cast<QWidget*>(owner));
        menu->setObjectName(def.id);
        m_menus.insert(def.id, menu);
    }
    for (const MenuDef& def : AllMenus()) {
        QMenu* menu = m_menus[def.id];
        for (const QString& entry : def.entries) {
            if (entry == u"-")
                menu->addSeparator();
            else if (QMenu* child = m_menus.value(entry))
                menu->addMenu(child);
            else
                menu->addAction(m_actions.value(entry));
        }
    }
    m_menus[u"ID_Catalog_AddCD"_s]->setIcon(icon(u"add-disc"_s));
}

QAction* Commands::action(QStringView id) const { return m_actions.value(id.toString()); }
QMenu* Commands::menu(QStringView id) const { return m_menus.value(id.toString()); }

void Commands::fill(QMenuBar& bar) const
{
    for (const MenuDef& def : AllMenus())
        if (def.inMenuBar) bar.addMenu(m_menus[def.id]);
}
