#include "search/HitList.h"

#include "ui/RowModel.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>
#include <thread>

namespace {
const QString Root = u"\\"_s; // the path of a disc's root, which is shown as
const QString RootShown = u"..."_s;

constexpr int NumberWidth = 10; // characters
}

class HitList::Model final : public RowModel {
public:
    using RowModel::RowModel;

    QStringList captions;
    Hits hits;

    void reset(const std::function<void()>& change)
    {
        beginResetModel();
        change();
        m_rows = int(hits.size());
        endResetModel();
    }

    void append(const std::function<void(Hits&)>& add)
    {
        add(hits);
        const int rows = int(hits.size());
        if (rows == m_rows) return;
        beginInsertRows({}, m_rows, rows - 1);
        m_rows = rows;
        endInsertRows();
    }

    /// The same rows in another order; where row `followed` has gone.
    int reorder(Hits::Order order, int followed)
    {
        const Hits::Place place = followed < 0 ? Hits::Place{} : hits.order()[std::size_t(followed)];
        emit layoutAboutToBeChanged({}, VerticalSortHint);
        hits.setOrder(std::move(order));
        emit layoutChanged({}, VerticalSortHint);
        if (followed < 0) return -1;
        return int(std::ranges::find(hits.order(), place) - hits.order().begin());
    }

protected:
    int rows() const override { return m_rows; }
    int columns() const override { return int(captions.size()); }

    QVariant cell(int row, int column, int role) const override
    {
        if (role == Qt::TextAlignmentRole) return alignment(column);
        if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
        const auto hit = std::size_t(row);
        if (column == Hits::Number) return hits.number(hit);
        if (column == Hits::Name) return hits.name(hit);
        const QString path = hits.path(hit);
        return path == Root ? RootShown : path;
    }

    QVariant caption(int column, int role) const override
    {
        if (role == Qt::TextAlignmentRole) return alignment(column);
        return role == Qt::DisplayRole ? captions[column] : QVariant();
    }

private:
    static QVariant alignment(int column)
    {
        return int((column == Hits::Number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }

    int m_rows = 0; ///< that the view knows of
};

/// An order in the making.
struct HitList::Sorting {
    std::atomic<bool> stopped = false;
    Hits::Order order;
    std::thread thread;

    ~Sorting()
    {
        stopped = true;
        if (thread.joinable()) thread.join();
    }
};

HitList::HitList(QWidget* parent) : RowTable(parent), m_model(new Model(this))
{
    setModel(m_model);
    setTextElideMode(Qt::ElideMiddle); // paths and names differ at their ends
    horizontalHeader()->setStretchLastSection(false);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &HitList::clickColumn);
    setSortable(true);
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    HitList::sizeColumns();
}

HitList::~HitList() = default;

const Hits& HitList::hits() const { return m_model->hits; }

void HitList::setCaptions(const QStringList& captions)
{
    if (captions == m_model->captions) return;
    m_model->reset([&] { m_model->captions = captions; });
    sizeColumns();
}

void HitList::setHits(Hits hits)
{
    stopSorting();
    m_sortFailed = false;
    showSortKey(-1, false);
    m_model->reset([&] { m_model->hits = std::move(hits); });
}

void HitList::append(const std::function<void(Hits&)>& add) { m_model->append(add); }

void HitList::setCurrentRow(int row) { setCurrentIndex(m_model->index(row, 0)); }

void HitList::setSortable(bool sortable)
{
    horizontalHeader()->setSectionsClickable(sortable);
    horizontalHeader()->setSortIndicatorShown(true);
}

void HitList::clickColumn(int column)
{
    stopSorting();
    showSortKey(column, column == m_sortKey && !m_descending);
    m_sortFailed = false;
    m_sorting = std::make_unique<Sorting>();
    emit sortingChanged(true);
    const auto sort = [this, &sorting = *m_sorting, column, descending = m_descending, number = ++m_sortings] {
        try {
            sorting.order = m_model->hits.sorted(Hits::Column(column), descending, sorting.stopped);
        } catch (const std::exception&) { // no memory; the order stays empty
        }
        QMetaObject::invokeMethod(
            this, [this, number] { takeOrder(number); }, Qt::QueuedConnection);
    };
    try {
        m_sorting->thread = std::thread(sort);
    } catch (const std::system_error&) {
        giveUpSorting();
    }
}

void HitList::giveUpSorting()
{
    m_sortFailed = true;
    showSortKey(-1, false);
    stopSorting();
}

void HitList::showSortKey(int column, bool descending)
{
    m_sortKey = column;
    m_descending = descending;
    horizontalHeader()->setSortIndicator(column, descending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void HitList::stopSorting()
{
    if (!m_sorting) return;
    m_sorting.reset();
    emit sortingChanged(false);
}

void HitList::takeOrder(int sorting)
{
    if (!m_sorting || sorting != m_sortings) return; // given up
    m_sorting->thread.join();
    if (m_sorting->order.size() != hits().size()) return giveUpSorting();
    const int row = m_model->reorder(std::move(m_sorting->order), currentRow());
    m_sorting.reset();
    {
        const QSignalBlocker quiet(this); // the row stays current, whatever its place
        setCurrentRow(row);
    }
    emit sortingChanged(false);
}

void HitList::sizeColumns()
{
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 7 / 4);
    QHeaderView* header = horizontalHeader();
    for (int i = 0; i < m_model->captions.size(); ++i) {
        const bool number = i == Hits::Number;
        header->setSectionResizeMode(i, number ? QHeaderView::Interactive : QHeaderView::Stretch);
        if (number) header->resizeSection(i, NumberWidth * fontMetrics().averageCharWidth());
    }
}

void HitList::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const int last = model()->rowCount() - 1;
    if (enter && currentRow() >= 0)
        emit rowActivated(currentRow());
    else if (event->modifiers() == Qt::NoModifier && event->key() == Qt::Key_Home && last >= 0)
        setCurrentRow(0);
    else if (event->modifiers() == Qt::NoModifier && event->key() == Qt::Key_End && last >= 0)
        setCurrentRow(last);
    else
        RowTable::keyPressEvent(event);
}
