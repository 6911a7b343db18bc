#include "dao/Recordset.h"

#include "dao/DBEngine.h"
#include "dao/RecordsetImpl.h"

namespace {

template<class Impl> Impl& opened(const std::unique_ptr<Impl>& impl)
{
    if (!impl) throw RuntimeError(DaoErrorNumber::Closed, u"Набор записей уже закрыт."_s);
    return *impl;
}

} // namespace

Recordset::Recordset(std::unique_ptr<RecordsetImpl> impl) : m_impl(std::move(impl)) {}
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

int Recordset::RecordCount() const { return opened(m_impl).count(); }

int Recordset::AbsolutePosition() const
{
    const RecordsetImpl& impl = opened(m_impl);
    return impl.onRow() || impl.onGap() ? impl.position() : -1;
}

void Recordset::SetAbsolutePosition(int position) { opened(m_impl).moveTo(position); }

bool Recordset::AtBOF() const
{
    const RecordsetImpl& impl = opened(m_impl);
    return !impl.onGap() && (impl.position() < 0 || impl.count() == 0);
}

bool Recordset::AtEOF() const
{
    const RecordsetImpl& impl = opened(m_impl);
    return !impl.onGap() && (impl.position() >= impl.count());
}

void Recordset::MoveFirst() { opened(m_impl).moveTo(0); }
void Recordset::MoveLast() { opened(m_impl).moveTo(opened(m_impl).count() - 1); }
void Recordset::MoveNext() { opened(m_impl).moveBy(1); }
void Recordset::MovePrevious() { opened(m_impl).moveBy(-1); }

void Recordset::FindFirst(QStringView criterion, const QList<Value>& parameters)
{
    opened(m_impl).find(RecordsetImpl::From::First, criterion, parameters);
}

void Recordset::FindNext(QStringView criterion, const QList<Value>& parameters)
{
    opened(m_impl).find(RecordsetImpl::From::Next, criterion, parameters);
}

void Recordset::FindLast(QStringView criterion, const QList<Value>& parameters)
{
    opened(m_impl).find(RecordsetImpl::From::Last, criterion, parameters);
}

bool Recordset::NoMatch() const { return opened(m_impl).noMatch(); }

QStringList Recordset::FieldNames() const
{
    QStringList names;
    for (const FieldInfo& field : opened(m_impl).fields()) names += field.name;
    return names;
}

Value Recordset::value(QStringView field) const { return opened(m_impl).value(field); }
void Recordset::setValue(QStringView field, const Value& value) { opened(m_impl).setValue(field, value); }

void Recordset::AddNew() { opened(m_impl).addNew(); }
void Recordset::Edit() { opened(m_impl).edit(); }
void Recordset::Update() { opened(m_impl).update(); }
void Recordset::CancelUpdate() { opened(m_impl).cancelUpdate(); }
void Recordset::Delete() { opened(m_impl).remove(); }

QList<Value> Recordset::row(int position) const { return opened(m_impl).rowAt(position); }
QList<qint64> Recordset::key(int position) const { return opened(m_impl).keyAt(position); }

bool Recordset::FindKey(const QList<qint64>& key)
{
    const int position = opened(m_impl).find(key);
    if (position >= 0) m_impl->moveTo(position);
    return position >= 0;
}

void Recordset::Close() { m_impl.reset(); }
