#pragma once

#include "store/CatalogueKind.h"

#include <QHash>
#include <QKeySequence>
#include <QList>

class QAction;
class QMenu;
class QMenuBar;
class QObject;

/// One command of the program: the menu, the toolbars, the list bar and the logos' menus all show it as one QAction,
/// which is named by its identifier.
struct Command {
    QString id;   ///< "ID_Catalog_PCCD"
    QString text; ///< with its mnemonic, as the menu shows it
    QString icon; ///< of Icons, may be empty
    QKeySequence shortcut = {};
    QString needs = {};       ///< the screen or routine that it is nothing without, see Screens::offers
    QString toolbarText = {}; ///< beside the icon on a toolbar; empty: icon alone, the text is its tooltip
    bool checkable = false;
};
const QList<Command>& AllCommands();
/// What it is called where its menu is not in sight: without mnemonic, and after the name of its submenu, which its own
/// text alone would not tell from others: "Добавить: Аудио диск".
QString ToolText(const Command& command);

/// The commands of one catalogue.
struct CatalogueCommands {
    const CatalogueKind& kind;
    QString open, add;
    QString logoMenu, quickOpen, quickAdd; ///< the menu of its logo, and the same two commands there
};
/// In the order of AllCatalogues().
const std::array<CatalogueCommands, 3>& CommandsOfCatalogues();

/// A menu: entries are identifiers of commands or of other menus, "-" a separator.
struct MenuDef {
    QString id; ///< "ID_Catalog"
    QString text;
    QStringList entries;
    bool inMenuBar = false;
};
const QList<MenuDef>& AllMenus();

struct ToolbarDef {
    QString name;   ///< its caption and its name in the stored layout: "Каталоги"
    QString toggle; ///< the command that shows and hides it
    QStringList entries;
};
const QList<ToolbarDef>& AllToolbars();

/// The actions and menus made from the tables.
class Commands {
public:
    explicit Commands(QObject* owner);

    /// Null for an identifier outside of the vocabulary.
    QAction* action(QStringView id) const;
    QMenu* menu(QStringView id) const;
    void fill(QMenuBar& bar) const;
    const QHash<QString, QAction*>& actions() const { return m_actions; }

private:
    QHash<QString, QAction*> m_actions;
    QHash<QString, QMenu*> m_menus;
};
