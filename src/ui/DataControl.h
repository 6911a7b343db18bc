#pragma once

#include "dao/DBEngine.h"

#include <QLineEdit>
#include <QObject>
#include <QPlainTextEdit>
#include <QPointer>
#include <functional>
#include <optional>

/// Binds a record source to a grid and to text boxes. It owns the recordset and its current row; every move, and every
/// Refresh, shows the row in the bound boxes and then raises Reposition.
class DataControl : public QObject {
    Q_OBJECT
public:
    /// How a value other than Null is shown; nothing given, as plain text. Null shows as the empty text.
    using Format = std::function<QString(const Value&)>;

    explicit DataControl(QObject* parent);

    void setDatabase(const Database& database);
    /// Lets go of database and recordset, so that the file can be released. The grid is empty then.
    void close();
    void setRecordSource(const QString& select);
    /// Opens the record source anew and goes to its first row. Without a database: throws 3021.
    void Refresh();
    /// Opens it anew and stays on the row with the same key, or on the first when it is gone.
    void RefreshInPlace();

    /// Without an open record source: throws 3021.
    Recordset& recordset();
    int recordCount() const;
    /// 0-based, -1 without a row.
    int position() const;
    bool hasRow() const { return position() >= 0; }
    /// Null without a row.
    Value value(QStringView field) const;

    // Moves. Those that find nothing stay where they are, say false and raise nothing.
    void MoveFirst();
    void MoveLast();
    /// Positions outside of the rows are cut to the first and last one.
    void MoveTo(int position);
    bool FindFirst(const QString& criterion, const QList<Value>& parameters = {});
    bool FindNext(const QString& criterion, const QList<Value>& parameters = {});
    bool FindKey(const QList<qint64>& key);

    /// The box shows the field from now on. What the user types in it stands until he goes to another control of the
    /// window: no move overwrites it meanwhile.
    void bind(QLineEdit* box, const QString& field, Format format = {});
    void bind(QPlainTextEdit* box, const QString& field);
    /// Shows the bound boxes again, also one that is being edited.
    void showRow();

signals:
    void Reposition();
    /// The rows themselves are others: grids reset. The current row is known already; the boxes follow.
    void refreshed();
    /// The current row is another one of the same rows.
    void moved(int position);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Binding {
        QPointer<QWidget> box;
        QString field;
        Format format;
    };
    void open();
    void bindBox(QWidget* box, const QString& field, Format format);
    bool arrived(bool found);
    void afterMove();
    void left(const QObject* box);
    void show(const Binding& binding, bool alsoEdited);

    std::optional<Database> m_database;
    std::optional<Recordset> m_recordset;
    QString m_recordSource;
    QList<Binding> m_bindings;
};
