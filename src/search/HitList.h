#pragma once

#include "search/Hits.h"
#include "ui/RowTable.h"

#include <functional>
#include <memory>

/// Hits of a search in a table. A row is made into texts when it comes into view, so that a million of them scroll as
/// fast as ten. A click on a caption sorts on a thread of its own; the rows keep their places meanwhile.
class HitList : public RowTable {
    Q_OBJECT
public:
    explicit HitList(QWidget* parent = nullptr);
    ~HitList() override;

    /// "Имя файла", "№", "Путь"; two captions for hits without folders.
    void setCaptions(const QStringList& captions);
    /// Begins anew, without a sort key.
    void setHits(Hits hits);
    /// Changes the hits by `add`, which may only append.
    void append(const std::function<void(Hits&)>& add);
    const Hits& hits() const;

    int currentRow() const { return currentIndex().row(); }
    void setCurrentRow(int row);
    /// Clicks on captions sort.
    void setSortable(bool sortable);
    bool sorting() const { return m_sorting != nullptr; }
    /// The last click on a caption could not be followed; the rows are where they were.
    bool sortFailed() const { return m_sortFailed; }

    /// Type-ahead would read every row.
    void keyboardSearch(const QString&) override {}

signals:
    /// Double click or Enter.
    void rowActivated(int row);
    void currentRowChanged(int row);
    void sortingChanged(bool sorting);

protected:
    void rowChanged(int row) override { emit currentRowChanged(row); }
    void rowDoubleClick(int row) override { emit rowActivated(row); }
    void sizeColumns() override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    class Model;
    struct Sorting;
    void clickColumn(int column);
    void stopSorting();
    void takeOrder(int sorting);
    void giveUpSorting();
    void showSortKey(int column, bool descending);

    Model* m_model;
    int m_sortKey = -1;
    bool m_descending = false;
    std::unique_ptr<Sorting> m_sorting;
    int m_sortings = 0; ///< begun so far
    bool m_sortFailed = false;
};
