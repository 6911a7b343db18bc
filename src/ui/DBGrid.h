#pragma once

#include "ui/DataControl.h"
#include "ui/RowTable.h"

#include <QIcon>

/// A table of a DataControl's rows. Rows are read as they come into view, counts are exact, nothing is read in full. The
/// current row of the grid and of the control are one. Nothing is edited in it. An error while rows are read for painting
/// leaves them blank and is thrown from the event loop.
class DBGrid : public RowTable {
    Q_OBJECT
public:
    struct Column {
        QString field;
        QString caption;
        DataControl::Format format = {};
        Qt::Alignment alignment = Qt::AlignLeft;
        int width = 0;                                 ///< in average characters; 0 takes what is left
        std::function<QIcon(const Value&)> icon = {};  ///< before the text
        std::function<bool(const Value&)> danger = {}; ///< what is shown in the colour of what is overdue
    };

    explicit DBGrid(QWidget* parent = nullptr);
    ~DBGrid() override;

    void setColumns(const QList<Column>& columns);
    void setDataControl(DataControl* control);
    /// Stands in the middle of the grid while it has no rows.
    void setEmptyText(const QString& text);
    const QString& emptyText() const { return m_emptyText; }
    /// Type-ahead is the screen's: the view's own would read every row.
    void keyboardSearch(const QString&) override {}

signals:
    /// Keys that the grid does not handle itself: Insert, Delete, and text for type-ahead. Home and End go to the first
    /// and last row, arrows and pages move as everywhere.
    void insertPressed();
    void deletePressed();
    void typed(const QString& character);
    /// By a double click, or by Enter on the current row.
    void rowDoubleClicked();

protected:
    void rowChanged(int row) override;
    void rowDoubleClick(int) override { emit rowDoubleClicked(); }
    void sizeColumns() override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    class Model;
    void followControl();
    bool handleKey(QKeyEvent* event);

    Model* m_model;
    QPointer<DataControl> m_control;
    QString m_emptyText;
    bool m_following = false;
};
