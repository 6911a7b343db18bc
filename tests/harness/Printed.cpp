#include "harness/Printed.h"

#include "platform/Literals.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableView>
#include <QTextEdit>
#include <QTreeView>

namespace {
bool hiddenColumn(const QAbstractItemView& view, int column)
{
    if (auto* table = qobject_cast<const QTableView*>(&view)) return table->isColumnHidden(column);
    if (auto* tree = qobject_cast<const QTreeView*>(&view)) return tree->isColumnHidden(column);
    if (auto* list = qobject_cast<const QListView*>(&view)) return column != list->modelColumn();
    return false;
}

QStringList cells(const QAbstractItemView& view, const QModelIndex& row, int level)
{
    QStringList texts;
    for (int column = 0; column < view.model()->columnCount(row.parent()); ++column)
        if (!hiddenColumn(view, column)) texts << row.siblingAtColumn(column).data().toString();
    const QVariant check = row.siblingAtColumn(0).data(Qt::CheckStateRole);
    if (texts.isEmpty()) return texts;
    if (check.isValid()) texts[0].prepend(check.toInt() == Qt::Checked ? u"[x] "_s : u"[ ] "_s);
    texts[0].prepend(QString(level * 2, u' '));
    return texts;
}

void collect(const QAbstractItemView& view, const QModelIndex& parent, int level, QList<QStringList>& rows)
{
    auto* tree = qobject_cast<const QTreeView*>(&view);
    for (int row = 0; row < view.model()->rowCount(parent); ++row) {
        const QModelIndex index = view.model()->index(row, 0, parent);
        rows << cells(view, index, level);
        if (tree && tree->isExpanded(index)) collect(view, index, level + 1, rows);
    }
}

QString printedRows(const QAbstractItemView& view)
{
    if (!view.model()) return {};
    QList<QStringList> rows;
    collect(view, view.rootIndex(), 0, rows);
    QList<qsizetype> widths;
    for (const QStringList& row : rows)
        for (qsizetype i = 0; i < row.size(); ++i) {
            if (i == widths.size()) widths << 0;
            widths[i] = qMax(widths[i], row[i].size());
        }
    QString text;
    for (QStringList row : rows) {
        for (qsizetype i = 0; i + 1 < row.size(); ++i) row[i] = row[i].leftJustified(widths[i]);
        text += row.join(u" | ") + u'\n';
    }
    return text;
}

QString printedTabs(const QTabBar& tabs)
{
    QStringList texts;
    for (int i = 0; i < tabs.count(); ++i) texts << tabs.tabText(i).remove(u'&');
    return texts.join(u" | ");
}

QString printedLabel(const QLabel& label)
{
    const QPixmap picture = label.pixmap(Qt::ReturnByValue);
    if (!picture.isNull()) return u"[picture %1x%2]"_s.arg(picture.width()).arg(picture.height());
    return label.buddy() ? label.text().remove(u'&') : label.text();
}

QModelIndex find(const QAbstractItemView& view, const QModelIndex& parent, const QString& item)
{
    const QAbstractItemModel& model = *view.model();
    for (int row = 0; row < model.rowCount(parent); ++row) {
        for (int column = 0; column < model.columnCount(parent); ++column) {
            const QModelIndex index = model.index(row, column, parent);
            if (!hiddenColumn(view, column) && index.data().toString() == item) return index;
        }
        const QModelIndex below = find(view, model.index(row, 0, parent), item);
        if (below.isValid()) return below;
    }
    return {};
}
}

QString Printed(const QWidget& control)
{
    if (auto* label = qobject_cast<const QLabel*>(&control)) return printedLabel(*label);
    if (auto* line = qobject_cast<const QLineEdit*>(&control)) return line->text();
    if (auto* combo = qobject_cast<const QComboBox*>(&control)) return combo->currentText();
    if (auto* spin = qobject_cast<const QAbstractSpinBox*>(&control)) return spin->text();
    if (auto* plain = qobject_cast<const QPlainTextEdit*>(&control)) return plain->toPlainText();
    if (auto* rich = qobject_cast<const QTextEdit*>(&control)) return rich->toPlainText();
    if (auto* button = qobject_cast<const QAbstractButton*>(&control)) return button->text().remove(u'&');
    if (auto* group = qobject_cast<const QGroupBox*>(&control)) return group->title();
    if (auto* bar = qobject_cast<const QProgressBar*>(&control)) return QString::number(bar->value());
    if (auto* status = qobject_cast<const QStatusBar*>(&control)) return status->currentMessage();
    if (auto* tabs = qobject_cast<const QTabBar*>(&control)) return printedTabs(*tabs);
    if (auto* tabs = qobject_cast<const QTabWidget*>(&control)) return printedTabs(*tabs->tabBar());
    if (auto* view = qobject_cast<const QAbstractItemView*>(&control)) return printedRows(*view);
    return control.windowTitle();
}

QString PrintedRow(const QAbstractItemView& view, const QModelIndex& index)
{
    return index.isValid() ? cells(view, index, 0).join(u" | ") : QString();
}

QModelIndex FindPrinted(const QAbstractItemView& view, const QString& item)
{
    if (!view.model()) return {};
    const QModelIndex whole = find(view, view.rootIndex(), item);
    if (whole.isValid() || !item.contains(u'/')) return whole;
    QModelIndex found = view.rootIndex();
    for (const QString& name : item.split(u'/')) {
        QModelIndex child;
        for (int row = 0; row < view.model()->rowCount(found) && !child.isValid(); ++row)
            if (const QModelIndex at = view.model()->index(row, 0, found); at.data().toString() == name) child = at;
        if (!child.isValid()) return {};
        found = child;
    }
    return found;
}

QHeaderView* HeaderOf(const QWidget& view)
{
    if (auto* table = qobject_cast<const QTableView*>(&view)) return table->horizontalHeader();
    if (auto* tree = qobject_cast<const QTreeView*>(&view)) return tree->header();
    return nullptr;
}
