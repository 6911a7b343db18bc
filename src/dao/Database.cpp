#include "dao/Database.h"

#include "dao/Connection.h"
#include "dao/DBEngine.h"
#include "dao/RecordsetImpl.h"

namespace {

Connection& opened(const std::shared_ptr<Connection>& connection)
{
    if (!connection) throw RuntimeError(DaoErrorNumber::Closed, u"База данных уже закрыта."_s);
    return *connection;
}

} // namespace

Database::Database(std::shared_ptr<Connection> connection) : m_connection(std::move(connection)) {}
Database::~Database() = default;
Database::Database(const Database&) = default;
Database& Database::operator=(const Database&) = default;

QString Database::path() const { return opened(m_connection).path(); }

Recordset Database::OpenRecordset(QStringView nameOrSelect, const QList<Value>& parameters) const
{
    opened(m_connection);
    return Recordset(std::make_unique<RecordsetImpl>(m_connection, nameOrSelect, parameters));
}

Value Database::Scalar(QStringView select, const QList<Value>& parameters) const
{
    Connection& connection = opened(m_connection);
    const auto statement = connection.prepare(TranslateSelect(select, connection).rows());
    const Running running(*statement);
    statement->bindAll(parameters);
    if (!statement->step()) return {};
    return Shown({{}, {}, {}, DeclaredType(statement->declaredType(0))}, statement->value(0));
}

int Database::Execute(QStringView sql, const QList<Value>& parameters) const
{
    Connection& connection = opened(m_connection);
    const ActionSql action = TranslateAction(sql, connection);
    const auto statement = connection.prepare(action.sql, action.table);
    statement->bindAll(parameters);
    int touched = 0;
    connection.writing([&] {
        statement->run();
        touched = connection.changes();
    });
    return touched;
}

void Database::CreateTable(const TableDef& table) const { opened(m_connection).createTable(table); }
void Database::DropTable(const QString& name) const { opened(m_connection).dropTable(name); }
bool Database::HasTable(const QString& name) const { return opened(m_connection).hasTable(name); }
QStringList Database::TableNames() const { return opened(m_connection).tableNames(); }
void Database::Close() { m_connection.reset(); }
