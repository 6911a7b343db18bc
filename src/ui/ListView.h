#pragma once

#include "ui/SteadyView.h"

#include <QIcon>
#include <QTreeView>
#include <functional>

/// A report list: rows of texts under captions, with an icon and, where wanted, a check box. Rows are counted from 0 in
/// the order in which they are shown; -1 is none. Filling and sorting are quick with 100,000 rows.
class ListView : public SteadyView<QTreeView> {
    Q_OBJECT
public:
    struct Column {
        QString caption;
        int width = 0; ///< in average characters; 0 takes what is left
        Qt::Alignment alignment = Qt::AlignLeft;
    };
    struct Row {
        QStringList texts;
        QIcon icon = {};
        QVariant data = {}; ///< the owner's: a key, a path
        bool checked = false;
        bool bold = false;
    };
    using Comparer = std::function<int(const QString&, const QString&)>;

    explicit ListView(QWidget* parent = nullptr);
    ~ListView() override;

    void setColumns(const QList<Column>& columns);
    void setCaption(int column, const QString& caption);
    void setCheckable(bool checkable);
    /// A click on a caption makes it the sort key, ascending, and flips the order of the column that is it already.
    void setSortable(bool sortable);

    /// All rows anew; sorted when there is a sort key, and without a current row.
    void setRows(const QList<Row>& rows);
    void addRow(const Row& row);
    void removeRow(int row);
    void clear() { setRows({}); }

    int rowCount() const;
    /// An empty row outside of the rows.
    Row row(int row) const;
    QString text(int row, int column = 0) const { return this->row(row).texts.value(column); }
    void setText(int row, int column, const QString& text);
    void setData(int row, const QVariant& data);
    void setBold(int row, bool bold);
    /// The first row with this text in this column.
    int find(const QString& text, int column = 0) const;
    int findData(const QVariant& data) const;
    bool isChecked(int row) const { return this->row(row).checked; }
    /// Raises nothing.
    void setChecked(int row, bool checked);
    void checkAll(bool checked);

    int currentRow() const { return currentIndex().row(); }
    void setCurrentRow(int row);

    /// -1 while the rows stand as they were given.
    int SortKey() const;
    Qt::SortOrder SortOrder() const;
    /// Sorts by the texts of a column, equal ones as they stood. The current row stays current.
    void sortBy(int column, Qt::SortOrder order);
    /// In place of the order of catalogues. Negative, 0 or positive.
    void setComparer(Comparer comparer);

signals:
    /// The user chose the row, by mouse or keys; again at a click on the current one.
    void rowClicked(int row);
    /// Double click or Enter.
    void rowActivated(int row);
    void rowChecked(int row, bool checked);
    void columnClicked(int column);
    /// By whatever means.
    void currentRowChanged(int row);

protected:
    void rowChanged(int row) override { emit currentRowChanged(row); }
    void rowDoubleClick(int row) override { emit rowActivated(row); }
    void sizeColumns() override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    class Model;
    void clickColumn(int column);

    Model* m_model;
    bool m_sortable = false;
};
