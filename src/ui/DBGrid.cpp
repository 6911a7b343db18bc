#include "ui/DBGrid.h"

#include "ui/ColumnWidths.h"
#include "ui/RowModel.h"
#include "ui/Theme.h"

#include <QCache>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>

/// The rows of the control's recordset, read in pages when a cell of them is asked for.
class DBGrid::Model final : public RowModel {
public:
    using RowModel::RowModel;

    void setColumns(const QList<Column>& columns)
    {
        beginResetModel();
        m_columns = columns;
        findFields();
        endResetModel();
    }
    const QList<Column>& columnList() const { return m_columns; }

    void setControl(DataControl* control)
    {
        m_control = control;
        reset();
    }

    void reset()
    {
        beginResetModel();
        m_pages.clear();
        m_rows = m_control ? m_control->recordCount() : 0;
        findFields();
        endResetModel();
    }

protected:
    int rows() const override { return m_rows; }
    int columns() const override { return int(m_columns.size()); }

    QVariant cell(int row, int column, int role) const override
    {
        if (role == Qt::TextAlignmentRole) return int(m_columns[column].alignment | Qt::AlignVCenter);
        const bool wantsIcon = role == Qt::DecorationRole && m_columns[column].icon;
        const bool wantsColour = role == Qt::ForegroundRole && m_columns[column].danger;
        if (role != Qt::DisplayRole && role != Qt::ToolTipRole && !wantsIcon && !wantsColour) return {};
        const Cell known = page(row / PageRows).at(row % PageRows).value(column);
        if (wantsColour) return known.danger ? QVariant(dangerColour()) : QVariant();
        return wantsIcon ? QVariant(known.icon) : QVariant(known.text);
    }

    QVariant caption(int column, int role) const override
    {
        if (role == Qt::TextAlignmentRole) return int(m_columns[column].alignment | Qt::AlignVCenter);
        return role == Qt::DisplayRole ? m_columns[column].caption : QVariant();
    }

private:
    static constexpr int PageRows = 64, PagesKept = 32;
    struct Cell {
        QString text;
        QIcon icon;
        bool danger = false;
    };
    using Page = QList<QList<Cell>>;

    void findFields()
    {
        m_fields.clear();
        if (!m_control || m_rows == 0) return;
        const QStringList names = m_control->recordset().FieldNames();
        for (const Column& column : m_columns) m_fields << names.indexOf(column.field);
    }

    QColor dangerColour() const { return Theme::danger(static_cast<QWidget*>(QObject::parent())->palette()); }

    Page page(int number) const
    {
        if (const Page* known = m_pages.object(number)) return *known;
        Page fresh;
        try {
            read(number * PageRows, fresh);
        } catch (const RuntimeError& error) {
            // Nothing may leave a painting view. The page stays blank, and the error comes up from the event loop.
            QMetaObject::invokeMethod(
                m_control, [error] { throw error; }, Qt::QueuedConnection);
        }
        fresh.resize(PageRows);
        m_pages.insert(number, new Page(fresh));
        return fresh;
    }

    void read(int first, Page& page) const
    {
        // The recordset may have been closed or cut short since the rows were counted.
        const int behind = std::min(first + PageRows, m_control ? m_control->recordCount() : 0);
        for (int row = first; row < behind; ++row) page.append(cells(m_control->recordset().row(row)));
    }

    QList<Cell> cells(const QList<Value>& values) const
    {
        QList<Cell> result;
        for (int i = 0; i < m_fields.size(); ++i) {
            const Value value = values.value(m_fields[i]);
            const Column& column = m_columns[i];
            result += value.isNull() ? Cell()
                                     : Cell{.text = column.format ? column.format(value) : value.text(),
                                            .icon = column.icon ? column.icon(value) : QIcon(),
                                            .danger = column.danger && column.danger(value)};
        }
        return result;
    }

    QPointer<DataControl> m_control;
    QList<Column> m_columns;
    QList<qsizetype> m_fields; ///< of each column in the recordset
    int m_rows = 0;
    mutable QCache<int, Page> m_pages{PagesKept};
};

DBGrid::DBGrid(QWidget* parent) : RowTable(parent), m_model(new Model(this))
{
    setModel(m_model);
    horizontalHeader()->setSectionsClickable(false);
    DBGrid::sizeColumns();
}

DBGrid::~DBGrid() = default;

void DBGrid::setColumns(const QList<Column>& columns)
{
    m_model->setColumns(columns);
    sizeColumns();
    followControl();
}

void DBGrid::setDataControl(DataControl* control)
{
    if (m_control) disconnect(m_control, nullptr, this, nullptr);
    m_control = control;
    m_model->setControl(control);
    followControl();
    if (!control) return;
    connect(control, &DataControl::refreshed, this, [this] {
        m_model->reset();
        followControl();
    });
    connect(control, &DataControl::moved, this, [this] { followControl(); });
}

void DBGrid::setEmptyText(const QString& text)
{
    m_emptyText = text;
    setAccessibleDescription(text);
    viewport()->update();
}

void DBGrid::paintEvent(QPaintEvent* event)
{
    RowTable::paintEvent(event);
    if (m_emptyText.isEmpty() || m_model->rowCount() > 0) return;
    const int margin = Theme::Inside;
    QPainter painter(viewport());
    painter.setPen(Theme::subdued(palette()));
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin), Qt::AlignCenter | Qt::TextWordWrap,
                     m_emptyText);
}

void DBGrid::followControl()
{
    const int row = m_control ? m_control->position() : -1;
    if (row == currentIndex().row()) return;
    const QScopedValueRollback following(m_following, true);
    setCurrentIndex(m_model->index(row, std::max(0, currentIndex().column())));
}

void DBGrid::rowChanged(int row)
{
    if (!m_following && m_control && row >= 0 && row != m_control->position()) m_control->MoveTo(row);
}

void DBGrid::sizeColumns()
{
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 7 / 4);
    horizontalHeader()->setStretchLastSection(!SizeColumns(*horizontalHeader(), m_model->columnList()));
}

void DBGrid::keyPressEvent(QKeyEvent* event)
{
    if (!handleKey(event)) RowTable::keyPressEvent(event);
}

bool DBGrid::handleKey(QKeyEvent* event)
{
    if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
    const QString text = event->text();
    switch (event->key()) {
    case Qt::Key_Home:
        if (m_control) m_control->MoveFirst();
        return true;
    case Qt::Key_End:
        if (m_control) m_control->MoveLast();
        return true;
    case Qt::Key_Insert: emit insertPressed(); return true;
    case Qt::Key_Delete: emit deletePressed(); return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!currentIndex().isValid()) return false;
        emit rowDoubleClicked();
        return true;
    default: break;
    }
    if (text.size() != 1 || !text[0].isLetterOrNumber()) return false;
    emit typed(text);
    return true;
}
