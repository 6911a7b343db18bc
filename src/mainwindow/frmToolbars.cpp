#include "mainwindow/frmToolbars.h"

#include "ui/Icons.h"
#include "ui/Lettering.h"

namespace {

QListWidgetItem* makeItem(const QString& tool)
{
    auto* item = new QListWidgetItem(icon(u"drive"_s), u"CD/DVD-ROM по умолчанию"_s);
    for (const Command& command : AllCommands()) {
        if (command.id != tool) continue;
        item->setIcon(icon(command.icon));
        item->setText(ToolText(command));
    }
    item->setData(Qt::UserRole, tool);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable | Qt::ItemIsDragEnabled);
    return item;
}

}

frmToolbars::frmToolbars(Program& program, ToolbarTools tools)
    : Screen(program, u"frmToolbars"_s, u"Настройка панелей инструментов"_s), m_tools(std::move(tools))
{
    for (const ToolbarDef& def : AllToolbars()) cmbToolbar->addItem(def.name);
    lvTools->setAccessibleName(u"Кнопки панели"_s);
    lvTools->setDragDropMode(QAbstractItemView::InternalMove);
    lvTools->setDefaultDropAction(Qt::MoveAction);
    lvTools->setMinimumHeight(fontMetrics().height() * 12);
    lvTools->setMinimumWidth(fontMetrics().averageCharWidth() * 36);
    cmdUp->setup(u"arrow-up"_s, u"&Выше"_s, u"Переместить кнопку ближе к началу панели"_s, Qt::CTRL | Qt::Key_Up);
    cmdDown->setup(u"arrow-down"_s, u"&Ниже"_s, u"Переместить кнопку ближе к концу панели"_s, Qt::CTRL | Qt::Key_Down);
    cmdReset->setup(u"restore"_s, u"&Исходный вид"_s, u"Вернуть кнопки и места всех панелей"_s);
    imgButton[0]->setup(u"ok"_s, u"ОК"_s, u"Применить"_s);
    imgButton[1]->setup(u"cancel"_s, u"Отмена"_s, u"Закрыть без изменений"_s);
    imgButton[0]->setDefault(true);

    QLabel* hint = lettered(
        label(u"Отмеченные кнопки стоят на панели в этом порядке. Их можно перетаскивать мышью, а сами "
              u"панели — за край в главном окне."_s),
        Lettering::Caption);
    hint->setWordWrap(true);
    setLayout(column(row(label(u"&Панель:"_s, cmbToolbar), cmbToolbar, stretch),
                     row(lvTools, column(cmdUp, cmdDown, stretch, cmdReset)), hint,
                     row(stretch, imgButton[0], imgButton[1])));
    resize(fontMetrics().averageCharWidth() * 78, fontMetrics().height() * 30);

    connect(cmbToolbar, &QComboBox::currentIndexChanged, this, &frmToolbars::show);
    connect(lvTools, &QListWidget::currentRowChanged, this, &frmToolbars::enableButtons);
    connect(lvTools->model(), &QAbstractItemModel::rowsMoved, this, &frmToolbars::enableButtons);
    connect(cmdUp, &QPushButton::clicked, this, [this] { move(-1); });
    connect(cmdDown, &QPushButton::clicked, this, [this] { move(1); });
    connect(cmdReset, &QPushButton::clicked, this, &frmToolbars::reset);
    connect(imgButton[0], &QPushButton::clicked, this, &frmToolbars::cmdOK);
    connect(imgButton[1], &QPushButton::clicked, this, &Form::reject);
}

void frmToolbars::Form_Load()
{
    show(0);
    lvTools->setFocus();
}

/// The tools of the toolbar in their order, then what else it may hold.
void frmToolbars::show(int toolbar)
{
    take();
    m_shown = toolbar;
    const ToolbarDef& def = AllToolbars()[toolbar];
    const QStringList held = m_tools.value(def.name);
    QStringList shown = held;
    for (const QString& tool : OfferedTools(def))
        if (!held.contains(tool)) shown += tool;
    lvTools->clear();
    for (const QString& tool : shown) {
        QListWidgetItem* item = makeItem(tool);
        item->setCheckState(held.contains(tool) ? Qt::Checked : Qt::Unchecked);
        lvTools->addItem(item);
    }
    lvTools->setCurrentRow(0);
}

void frmToolbars::take()
{
    if (m_shown < 0) return;
    QStringList held;
    for (int row = 0; row < lvTools->count(); ++row)
        if (const QListWidgetItem* item = lvTools->item(row); item->checkState() == Qt::Checked)
            held += item->data(Qt::UserRole).toString();
    m_tools[AllToolbars()[m_shown].name] = held;
}

void frmToolbars::move(int direction)
{
    const int row = lvTools->currentRow();
    QListWidgetItem* item = lvTools->takeItem(row);
    lvTools->insertItem(row + direction, item);
    lvTools->setCurrentItem(item);
}

void frmToolbars::enableButtons()
{
    cmdUp->setEnabled(lvTools->currentRow() > 0);
    cmdDown->setEnabled(lvTools->currentRow() < lvTools->count() - 1);
}

void frmToolbars::reset()
{
    for (const ToolbarDef& def : AllToolbars()) m_tools[def.name] = def.entries;
    m_shown = -1; // what the list shows is not wanted any more
    m_placesAreReset = true;
    show(cmbToolbar->currentIndex());
}

void frmToolbars::cmdOK()
{
    take();
    m_chosen = m_tools;
    Unload();
}
