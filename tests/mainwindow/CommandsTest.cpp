#include "mainwindow/Commands.h"

#include "ui/Icons.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <QWidget>
#include <gtest/gtest.h>

TEST(Commands, EveryEntryOfAMenuOrToolbarIsSomething)
{
    QWidget owner;
    const Commands commands(&owner);
    QSet<QString> known{u"-"_s, u"ID_DB_DefaultCDDVDROM"_s};
    for (const Command& command : AllCommands()) {
        EXPECT_FALSE(known.contains(command.id)) << command.id.toStdString();
        known += command.id;
        EXPECT_TRUE(command.icon.isEmpty() || iconNames().contains(command.icon)) << command.icon.toStdString();
    }
    for (const MenuDef& menu : AllMenus()) known += menu.id;

    const auto check = [&](const QString& where, const QStringList& entries) {
        for (const QString& entry : entries)
            EXPECT_TRUE(known.contains(entry)) << (where + u": "_s + entry).toStdString();
    };
    for (const MenuDef& menu : AllMenus()) check(menu.id, menu.entries);
    for (const ToolbarDef& bar : AllToolbars()) {
        check(bar.name, bar.entries);
        EXPECT_TRUE(bar.toggle.isEmpty() || commands.action(bar.toggle)->isCheckable()) << bar.name.toStdString();
    }
}

TEST(Commands, NoTwoShareAShortcutOrAMnemonicOfTheirMenu)
{
    QSet<QString> shortcuts;
    for (const Command& command : AllCommands()) {
        if (command.shortcut.isEmpty()) continue;
        const QString keys = command.shortcut.toString();
        EXPECT_FALSE(shortcuts.contains(keys)) << keys.toStdString();
        shortcuts += keys;
    }

    QWidget owner;
    const Commands commands(&owner);
    for (const MenuDef& def : AllMenus()) {
        QString taken;
        for (const QAction* action : commands.menu(def.id)->actions()) {
            const qsizetype at = action->text().indexOf(u'&');
            if (at < 0) continue;
            const QChar letter = action->text().at(at + 1).toLower();
            EXPECT_FALSE(taken.contains(letter)) << (def.id + u": "_s + action->text()).toStdString();
            taken += letter;
        }
    }
}
