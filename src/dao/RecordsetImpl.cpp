#include "dao/RecordsetImpl.h"

#include "dao/DBEngine.h"

#include <algorithm>

using namespace DaoErrorNumber;

namespace {

RuntimeError noCurrentRecord() { return {NoCurrentRecord, u"Нет текущей записи."_s}; }

} // namespace

RecordsetImpl::RecordsetImpl(std::shared_ptr<Connection> connection, QStringView nameOrSelect,
                             const QList<Value>& parameters)
    : m_connection(std::move(connection)), m_rows(OpenRows(*m_connection, nameOrSelect, parameters))
{}

void RecordsetImpl::requirePosition(int position) const
{
    if (position < 0 || position >= count()) throw noCurrentRecord();
}

Row RecordsetImpl::rowAt(int position) const
{
    requirePosition(position);
    return m_rows->row(position);
}

QList<qint64> RecordsetImpl::keyAt(int position) const
{
    requirePosition(position);
    return m_rows->key(position);
}

void RecordsetImpl::moveTo(int position)
{
    requirePosition(position);
    m_position = position;
    m_gap = false;
    m_editing = Editing::None;
}

void RecordsetImpl::moveBy(int step)
{
    const int rows = count();
    // Nothing lies beyond either end; from a gap the next row is the one that stands there now.
    if (!m_gap && (step > 0 ? m_position >= rows : m_position < 0)) throw noCurrentRecord();
    if (!m_gap || step < 0) m_position += step;
    m_gap = false;
    m_editing = Editing::None;
}

void RecordsetImpl::find(From from, QStringView criterion, const QList<Value>& parameters)
{
    const std::vector<int>& found = m_rows->matches(criterion, parameters);
    auto at = found.end();
    if (from == From::First)
        at = found.begin();
    else if (from == From::Last && !found.empty())
        at = found.end() - 1;
    else if (from == From::Next)
        at = std::lower_bound(found.begin(), found.end(), m_gap ? m_position : m_position + 1);
    m_noMatch = at == found.end();
    if (!m_noMatch) moveTo(*at);
}

int RecordsetImpl::indexOf(QStringView field) const
{
    const QList<FieldInfo>& all = fields();
    for (int i = 0; i < all.size(); ++i)
        if (all[i].name == field) return i;
    for (int i = 0; i < all.size(); ++i)
        if (all[i].name.compare(field, Qt::CaseInsensitive) == 0) return i;
    if (const qsizetype dot = field.indexOf(u'.'); dot > 0)
        for (int i = 0; i < all.size(); ++i)
            if (all[i].table.compare(field.first(dot), Qt::CaseInsensitive) == 0 &&
                all[i].name.compare(field.sliced(dot + 1), Qt::CaseInsensitive) == 0)
                return i;
    throw RuntimeError(NoSuchItem, u"В наборе записей нет поля «%1»."_s.arg(field));
}

void RecordsetImpl::requireRow() const
{
    if (!onRow()) throw noCurrentRecord();
}

Value RecordsetImpl::value(QStringView field) const
{
    const int column = indexOf(field);
    if (m_editing != Editing::None) return m_buffer[column];
    if (m_gap) return {};
    requireRow();
    return m_rows->row(m_position)[column];
}

void RecordsetImpl::setValue(QStringView field, const Value& value)
{
    if (m_editing == Editing::None)
        throw RuntimeError(NotEditing, u"Поле «%1» можно изменить только после AddNew или Edit."_s.arg(field));
    const int column = indexOf(field);
    m_buffer[column] = Storable(fields()[column], value);
    m_changed[column] = true;
}

const TableInfo& RecordsetImpl::editableTable() const
{
    const TableInfo* table = m_rows->editable();
    if (!table) throw RuntimeError(NotUpdatable, u"Этот набор записей доступен только для чтения."_s);
    return *table;
}

Value RecordsetImpl::defaultOf(const TableInfo& table, const FieldInfo& field) const
{
    const int index = table.indexOf(field.origin);
    const QString sql = index >= 0 ? table.defaults[index] : QString();
    bool whole = false;
    const int number = sql.toInt(&whole);
    if (whole) return Storable(field, number);
    return Shown(field, {});
}

void RecordsetImpl::readBlank()
{
    const TableInfo& table = editableTable();
    m_blank = Row(fields().size());
    QStringList names, marks;
    for (int i = 0; i < fields().size(); ++i) {
        const FieldInfo& field = fields()[i];
        const int index = table.indexOf(field.origin);
        if (index < 0 || names.contains(QuotedName(field.origin))) continue;
        (*m_blank)[i] = defaultOf(table, field);
        if (table.defaults[index].startsWith(u"date(")) m_today.push_back(i);
        if (table.counter && index == table.key) m_counter = i;
        names += QuotedName(field.origin);
        marks += u"?"_s;
        m_columns.push_back(i);
    }
    if (names.isEmpty()) throw RuntimeError(NotUpdatable, u"Этот набор записей доступен только для чтения."_s);
    m_insert = m_connection->prepare(
        u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(QuotedName(table.name), names.join(u','), marks.join(u',')),
        table.name);
}

void RecordsetImpl::addNew()
{
    const TableInfo& table = editableTable();
    if (!m_blank) readBlank();
    m_buffer = *m_blank;
    for (const int column : m_today) m_buffer[column] = m_connection->today();
    if (m_counter >= 0) m_buffer[m_counter] = m_connection->nextCounter(table);
    m_changed.assign(fields().size(), false);
    m_editing = Editing::New;
}

void RecordsetImpl::edit()
{
    editableTable();
    requireRow();
    m_buffer = m_rows->row(m_position);
    m_changed.assign(fields().size(), false);
    m_editing = Editing::Existing;
}

void RecordsetImpl::update()
{
    if (m_editing == Editing::None) throw RuntimeError(NotEditing, u"Update возможен только после AddNew или Edit."_s);
    const TableInfo& table = editableTable();
    if (m_editing == Editing::New)
        insert();
    else
        change(table);
    m_editing = Editing::None;
}

void RecordsetImpl::insert()
{
    int parameter = 0;
    for (const int column : m_columns) m_insert->bind(++parameter, m_buffer[column]);
    m_connection->writing([this] { m_insert->run(); });
    const bool behindLast = m_rows->known() && !m_gap && m_position >= count();
    m_rows->append(m_connection->lastRowId());
    if (behindLast) ++m_position;
}

void RecordsetImpl::change(const TableInfo& table)
{
    if (!m_update || m_updateFor != m_changed) {
        QStringList settings;
        for (int i = 0; i < fields().size(); ++i)
            if (m_changed[i]) settings += QuotedName(fields()[i].origin) + u"=?"_s;
        if (settings.isEmpty()) return;
        m_update = m_connection->prepare(
            u"UPDATE %1 SET %2 WHERE _rowid_=?"_s.arg(QuotedName(table.name), settings.join(u',')), table.name);
        m_updateFor = m_changed;
    }
    int parameter = 0;
    qint64 key = m_rows->key(m_position).first();
    for (int i = 0; i < fields().size(); ++i)
        if (m_changed[i]) m_update->bind(++parameter, m_buffer[i]);
    m_update->bind(++parameter, key);
    m_connection->writing([this] {
        m_update->run();
        if (m_connection->changes() == 0)
            throw RuntimeError(NoCurrentRecord, u"Запись была удалена, изменить ее нельзя."_s);
    });
    for (int i = 0; i < fields().size(); ++i) {
        if (!m_changed[i]) continue;
        if (table.key >= 0 && fields()[i].origin == table.fields[table.key].name) key = m_buffer[i].toLong();
    }
    m_rows->replace(m_position, key, m_buffer);
}

void RecordsetImpl::remove()
{
    const TableInfo& table = editableTable();
    requireRow();
    const auto statement = m_connection->prepare(u"DELETE FROM %1 WHERE _rowid_=?"_s.arg(QuotedName(table.name)),
                                                 table.name);
    statement->bind(1, m_rows->key(m_position).first());
    m_connection->writing([&] { statement->run(); });
    m_rows->remove(m_position);
    m_gap = true;
    m_editing = Editing::None;
}
