#include "ui/ListView.h"

#include "dao/Collation.h"
#include "ui/ColumnWidths.h"
#include "ui/RowModel.h"
#include "ui/Theme.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

class ListView::Model final : public RowModel {
public:
    explicit Model(ListView* view) : RowModel(view), m_view(view) {}

    QList<Column> columnList;
    QList<Row> rowList;
    bool checkable = false;
    int sortKey = -1;
    Qt::SortOrder sortOrder = Qt::AscendingOrder;
    Comparer comparer;

    void reset(const std::function<void()>& change)
    {
        beginResetModel();
        change();
        endResetModel();
    }

    void insert(const Row& row)
    {
        const int at = sortKey < 0 ? int(rowList.size()) : placeOf(row);
        beginInsertRows({}, at, at);
        rowList.insert(at, row);
        endInsertRows();
    }

    void remove(int row)
    {
        beginRemoveRows({}, row, row);
        rowList.removeAt(row);
        endRemoveRows();
    }

    void changed(int row) { emit dataChanged(index(row, 0), index(row, columns() - 1)); }
    void captionChanged(int column) { emit headerDataChanged(Qt::Horizontal, column, column); }

    /// Sorts and says where row `followed` has gone.
    int sort(int followed)
    {
        if (sortKey < 0 || rowList.isEmpty()) return followed;
        QList<int> order(rowList.size());
        std::iota(order.begin(), order.end(), 0);
        sortRows(order);
        QList<Row> sorted;
        sorted.reserve(rowList.size());
        for (int row : order) sorted.append(std::move(rowList[row]));
        rowList = std::move(sorted);
        return followed < 0 ? -1 : int(order.indexOf(followed));
    }

protected:
    int rows() const override { return int(rowList.size()); }
    int columns() const override { return int(columnList.size()); }

    QVariant cell(int row, int column, int role) const override
    {
        const Row& r = rowList[row];
        switch (role) {
        case Qt::DisplayRole:
        case Qt::ToolTipRole: return r.texts.value(column);
        case Qt::TextAlignmentRole: return int(columnList[column].alignment | Qt::AlignVCenter);
        case Qt::DecorationRole: return column == 0 && !r.icon.isNull() ? QVariant(r.icon) : QVariant();
        case Qt::CheckStateRole:
            return checkable && column == 0 ? QVariant(r.checked ? Qt::Checked : Qt::Unchecked) : QVariant();
        case Qt::UserRole: return r.data;
        case Qt::FontRole: return r.bold ? QVariant(Theme::heading(m_view->font())) : QVariant();
        default: return {};
        }
    }

    bool setCell(int row, int column, const QVariant& value, int role) override
    {
        if (role != Qt::CheckStateRole || !checkable || column != 0) return false;
        rowList[row].checked = value.toInt() == Qt::Checked;
        changed(row);
        emit m_view->rowChecked(row, rowList[row].checked);
        return true;
    }

    QVariant caption(int column, int role) const override
    {
        if (role == Qt::TextAlignmentRole) return int(columnList[column].alignment | Qt::AlignVCenter);
        return role == Qt::DisplayRole ? columnList[column].caption : QVariant();
    }

    Qt::ItemFlags cellFlags(int column) const override
    {
        const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
        return checkable && column == 0 ? flags | Qt::ItemIsUserCheckable : flags;
    }

private:
    bool before(int order) const { return sortOrder == Qt::AscendingOrder ? order < 0 : order > 0; }

    void sortRows(QList<int>& order) const
    {
        if (comparer) {
            std::stable_sort(order.begin(), order.end(), [this](int a, int b) {
                return before(comparer(rowList[a].texts.value(sortKey), rowList[b].texts.value(sortKey)));
            });
            return;
        }
        std::vector<std::string> texts; // as the collation takes them, made once a row
        texts.reserve(size_t(rowList.size()));
        for (const Row& row : rowList) texts.push_back(row.texts.value(sortKey).toStdString());
        std::stable_sort(order.begin(), order.end(),
                         [&](int a, int b) { return before(CompareText(texts[size_t(a)], texts[size_t(b)])); });
    }

    int placeOf(const Row& row) const
    {
        const QString text = row.texts.value(sortKey);
        const auto place = std::upper_bound(
            rowList.begin(), rowList.end(), text,
            [this](const QString& t, const Row& r) { return before(compare(t, r.texts.value(sortKey))); });
        return int(place - rowList.begin());
    }

    int compare(const QString& left, const QString& right) const
    {
        return comparer ? comparer(left, right) : CompareText(left.toStdString(), right.toStdString());
    }

    ListView* m_view;
};

ListView::ListView(QWidget* parent) : SteadyView(parent), m_model(new Model(this))
{
    setModel(m_model);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    header()->setSectionsMovable(false);
    header()->setSectionsClickable(true);
    header()->setHighlightSections(false);
    header()->setStretchLastSection(false);
    connect(header(), &QHeaderView::sectionClicked, this, &ListView::clickColumn);
    connect(this, &QTreeView::clicked, this, [this](const QModelIndex& index) { emit rowClicked(index.row()); });
}

ListView::~ListView() = default;

void ListView::setColumns(const QList<Column>& columns)
{
    m_model->reset([&] { m_model->columnList = columns; });
    sizeColumns();
}

void ListView::setCaption(int column, const QString& caption)
{
    if (column < 0 || column >= m_model->columnList.size()) return;
    m_model->columnList[column].caption = caption;
    m_model->captionChanged(column);
}

void ListView::setCheckable(bool checkable)
{
    m_model->reset([&] { m_model->checkable = checkable; });
}

void ListView::setSortable(bool sortable)
{
    m_sortable = sortable;
    header()->setSortIndicatorShown(sortable);
    header()->setSortIndicator(m_model->sortKey, m_model->sortOrder);
}

void ListView::setRows(const QList<Row>& rows)
{
    m_model->reset([&] {
        m_model->rowList = rows;
        m_model->sort(-1);
    });
}

void ListView::addRow(const Row& row) { m_model->insert(row); }

void ListView::removeRow(int row)
{
    if (row >= 0 && row < rowCount()) m_model->remove(row);
}

int ListView::rowCount() const { return int(m_model->rowList.size()); }
ListView::Row ListView::row(int row) const { return m_model->rowList.value(row); }

void ListView::setText(int row, int column, const QString& text)
{
    if (row < 0 || row >= rowCount() || column < 0) return;
    QStringList& texts = m_model->rowList[row].texts;
    while (texts.size() <= column) texts << QString();
    texts[column] = text;
    m_model->changed(row);
}

void ListView::setData(int row, const QVariant& data)
{
    if (row < 0 || row >= rowCount()) return;
    m_model->rowList[row].data = data;
    m_model->changed(row);
}

void ListView::setBold(int row, bool bold)
{
    if (row < 0 || row >= rowCount()) return;
    m_model->rowList[row].bold = bold;
    m_model->changed(row);
}

int ListView::find(const QString& text, int column) const
{
    const QList<Row>& rows = m_model->rowList;
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&](const Row& row) { return row.texts.value(column) == text; });
    return found == rows.end() ? -1 : int(found - rows.begin());
}

int ListView::findData(const QVariant& data) const
{
    const QList<Row>& rows = m_model->rowList;
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const Row& row) { return row.data == data; });
    return found == rows.end() ? -1 : int(found - rows.begin());
}

void ListView::setChecked(int row, bool checked)
{
    if (row < 0 || row >= rowCount()) return;
    m_model->rowList[row].checked = checked;
    m_model->changed(row);
}

void ListView::checkAll(bool checked)
{
    for (int row = 0; row < rowCount(); ++row) setChecked(row, checked);
}

void ListView::setCurrentRow(int row) { setCurrentIndex(m_model->index(row, 0)); }

int ListView::SortKey() const { return m_model->sortKey; }
Qt::SortOrder ListView::SortOrder() const { return m_model->sortOrder; }

void ListView::sortBy(int column, Qt::SortOrder order)
{
    const int current = currentRow();
    int followed = -1;
    const QSignalBlocker quiet(this); // the row stays current, whatever its place
    m_model->reset([&] {
        m_model->sortKey = column;
        m_model->sortOrder = order;
        followed = m_model->sort(current);
    });
    header()->setSortIndicator(column, order);
    setCurrentRow(followed);
}

void ListView::setComparer(Comparer comparer)
{
    m_model->comparer = std::move(comparer);
    if (SortKey() >= 0) sortBy(SortKey(), SortOrder());
}

void ListView::clickColumn(int column)
{
    if (m_sortable) {
        const bool flips = column == SortKey() && SortOrder() == Qt::AscendingOrder;
        sortBy(column, flips ? Qt::DescendingOrder : Qt::AscendingOrder);
    }
    emit columnClicked(column);
}

void ListView::sizeColumns() { SizeColumns(*header(), m_model->columnList); }

void ListView::keyPressEvent(QKeyEvent* event)
{
    const int row = currentRow();
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (row >= 0 && enter) {
        emit rowActivated(row);
    } else if (row >= 0 && m_model->checkable && event->key() == Qt::Key_Space) {
        m_model->setData(m_model->index(row, 0), isChecked(row) ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    } else {
        QTreeView::keyPressEvent(event);
        if (currentRow() != row && currentRow() >= 0) emit rowClicked(currentRow());
    }
}
