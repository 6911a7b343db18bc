#include "mainwindow/Toolbars.h"

#include <QAction>
#include <QComboBox>
#include <QLayout>
#include <QMainWindow>
#include <QSet>
#include <QToolBar>
#include <QToolButton>
#include <QWidgetAction>

namespace {
const QString addTool = u"ID_AddCD"_s;
const QString driveTool = u"ID_DB_DefaultCDDVDROM"_s;

const ToolbarDef* find(const QString& name)
{
    for (const ToolbarDef& def : AllToolbars())
        if (def.name == name) return &def;
    return nullptr;
}
}

QStringList OfferedTools(const ToolbarDef& toolbar)
{
    QSet<QString> inMenus{addTool};
    for (const MenuDef& menu : AllMenus())
        if (menu.inMenuBar || !menu.text.isEmpty())
            for (const QString& entry : menu.entries) inMenus += entry;
    QStringList offered;
    if (toolbar.entries.contains(driveTool)) offered += driveTool;
    for (const Command& command : AllCommands())
        if (!command.icon.isEmpty() && inMenus.contains(command.id)) offered += command.id;
    return offered;
}

QStringList KnownTools(const ToolbarDef& toolbar, const QStringList& tools)
{
    const QStringList offered = OfferedTools(toolbar);
    QStringList known;
    for (const QString& tool : tools)
        if (offered.contains(tool) && !known.contains(tool)) known += tool;
    return known;
}

Toolbars::Toolbars(QMainWindow& window, const Commands& commands, QComboBox* driveSelector)
    : m_window(window), m_commands(commands), m_driveSelector(new QWidgetAction(&window))
{
    m_driveSelector->setObjectName(driveTool);
    m_driveSelector->setDefaultWidget(driveSelector);
    for (const ToolbarDef& def : AllToolbars()) {
        auto* bar = new QToolBar(def.name);
        bar->setObjectName(def.name);
        bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        bar->setFloatable(false);
        m_window.addToolBar(bar);
        fill(def, def.entries);
        QAction* toggle = m_commands.action(def.toggle);
        QObject::connect(toggle, &QAction::toggled, bar, &QToolBar::setVisible);
        toggle->setChecked(true);
    }
    m_window.addAction(m_commands.action(addTool)); // its keys also while no toolbar holds it
    m_designed = places();
}

QToolBar* Toolbars::bar(const QString& name) const { return m_window.findChild<QToolBar*>(name); }

QAction* Toolbars::action(const QString& id) const { return id == driveTool ? m_driveSelector : m_commands.action(id); }

void Toolbars::fill(const ToolbarDef& def, const QStringList& tools)
{
    QToolBar* bar = this->bar(def.name);
    bar->clear();
    for (const QString& tool : KnownTools(def, tools)) bar->addAction(action(tool));
    if (auto* add = qobject_cast<QToolButton*>(bar->widgetForAction(action(addTool)))) {
        add->setMenu(m_commands.menu(u"ID_Catalog_AddCD"));
        add->setPopupMode(QToolButton::MenuButtonPopup);
    }
}

QList<ToolbarPlace> Toolbars::places() const
{
    QList<ToolbarPlace> places;
    const ToolbarTools held = tools();
    // The window's layout holds its toolbars in the order of areas, lines and places, those out of sight too.
    for (int i = 0; i < m_window.layout()->count(); ++i) {
        auto* bar = qobject_cast<QToolBar*>(m_window.layout()->itemAt(i)->widget());
        if (!bar) continue;
        places.append({.name = bar->objectName(),
                       .area = m_window.toolBarArea(bar),
                       .newLine = m_window.toolBarBreak(bar),
                       .visible = !bar->isHidden(),
                       .tools = held.value(bar->objectName())});
    }
    return places;
}

void Toolbars::restore(const QList<ToolbarPlace>& places)
{
    QSet<QString> placed;
    for (const ToolbarPlace& place : places) {
        const ToolbarDef* def = find(place.name);
        if (!def || placed.contains(place.name)) continue;
        placed += place.name;
        QToolBar* bar = this->bar(place.name);
        m_window.removeToolBar(bar);
        if (place.newLine) m_window.addToolBarBreak(place.area);
        m_window.addToolBar(place.area, bar);
        fill(*def, place.tools);
        bar->setVisible(place.visible);
    }
    tick();
}

ToolbarTools Toolbars::tools() const
{
    ToolbarTools tools;
    for (const ToolbarDef& def : AllToolbars())
        for (const QAction* action : bar(def.name)->actions()) tools[def.name] += action->objectName();
    return tools;
}

void Toolbars::setTools(const ToolbarTools& tools)
{
    for (const ToolbarDef& def : AllToolbars()) fill(def, tools.value(def.name));
}

void Toolbars::tick() const
{
    for (const ToolbarDef& def : AllToolbars()) m_commands.action(def.toggle)->setChecked(!bar(def.name)->isHidden());
}
