#include "ui/DataControl.h"

#include "ui/FocusMoves.h"

#include <QTextDocument>
#include <algorithm>

namespace {
QString shownAs(const Value& value, const DataControl::Format& format)
{
    if (value.isNull()) return {};
    return format ? format(value) : value.text();
}
}

DataControl::DataControl(QObject* parent) : QObject(parent) {}

void DataControl::setDatabase(const Database& database) { m_database = database; }

void DataControl::close()
{
    m_recordset.reset();
    m_database.reset();
    emit refreshed();
    showRow();
}

void DataControl::setRecordSource(const QString& select) { m_recordSource = select; }

void DataControl::open()
{
    if (!m_database) throw RuntimeError(DaoErrorNumber::NoCurrentRecord, u"Источник записей не открыт."_s);
    m_recordset.emplace(m_database->OpenRecordset(m_recordSource));
}

void DataControl::Refresh()
{
    open();
    emit refreshed();
    afterMove();
}

void DataControl::RefreshInPlace()
{
    const QList<qint64> key = hasRow() ? m_recordset->key(position()) : QList<qint64>();
    open();
    if (!key.isEmpty()) m_recordset->FindKey(key);
    emit refreshed();
    afterMove();
}

Recordset& DataControl::recordset()
{
    if (!m_recordset) throw RuntimeError(DaoErrorNumber::NoCurrentRecord, u"Нет текущей записи."_s);
    return *m_recordset;
}

int DataControl::recordCount() const { return m_recordset ? m_recordset->RecordCount() : 0; }
int DataControl::position() const { return m_recordset ? m_recordset->AbsolutePosition() : -1; }
Value DataControl::value(QStringView field) const { return hasRow() ? m_recordset->value(field) : Value(); }

void DataControl::MoveFirst() { MoveTo(0); }
void DataControl::MoveLast() { MoveTo(recordCount() - 1); }

void DataControl::MoveTo(int position)
{
    if (recordCount() == 0) return;
    m_recordset->SetAbsolutePosition(std::clamp(position, 0, recordCount() - 1));
    afterMove();
}

bool DataControl::FindFirst(const QString& criterion, const QList<Value>& parameters)
{
    recordset().FindFirst(criterion, parameters);
    return arrived(!m_recordset->NoMatch());
}

bool DataControl::FindNext(const QString& criterion, const QList<Value>& parameters)
{
    recordset().FindNext(criterion, parameters);
    return arrived(!m_recordset->NoMatch());
}

bool DataControl::FindKey(const QList<qint64>& key) { return arrived(recordset().FindKey(key)); }

bool DataControl::arrived(bool found)
{
    if (found) afterMove();
    return found;
}

void DataControl::bind(QLineEdit* box, const QString& field, Format format) { bindBox(box, field, std::move(format)); }
void DataControl::bind(QPlainTextEdit* box, const QString& field) { bindBox(box, field, {}); }

void DataControl::bindBox(QWidget* box, const QString& field, Format format)
{
    m_bindings.removeIf([box](const Binding& binding) { return !binding.box || binding.box == box; });
    m_bindings.append({box, field, std::move(format)});
    box->installEventFilter(this);
    show(m_bindings.constLast(), true);
}

void DataControl::showRow()
{
    for (const Binding& binding : QList(m_bindings)) show(binding, true);
}

bool DataControl::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::FocusOut) return false;
    const bool moves = FocusMoves(*static_cast<QFocusEvent*>(event));
    if (moves && static_cast<QWidget*>(watched)->isVisible()) left(watched);
    return false;
}

/// What was typed in the box and led nowhere goes.
void DataControl::left(const QObject* box)
{
    for (const Binding& binding : QList(m_bindings)) {
        if (binding.box != box) continue;
        const auto* line = qobject_cast<QLineEdit*>(binding.box);
        const auto* plain = qobject_cast<QPlainTextEdit*>(binding.box);
        if ((line && line->isModified()) || (plain && plain->document()->isModified())) show(binding, true);
    }
}

void DataControl::afterMove()
{
    emit moved(position());
    for (const Binding& binding : QList(m_bindings)) show(binding, false);
    emit Reposition();
}

void DataControl::show(const Binding& binding, bool alsoEdited)
{
    const QString text = shownAs(value(binding.field), binding.format);
    if (auto* line = qobject_cast<QLineEdit*>(binding.box)) {
        if (!alsoEdited && line->hasFocus() && line->isModified()) return;
        line->setText(text);
        line->setCursorPosition(0); // a long text shows its beginning
    } else if (auto* plain = qobject_cast<QPlainTextEdit*>(binding.box)) {
        if (!alsoEdited && plain->hasFocus() && plain->document()->isModified()) return;
        plain->setPlainText(text);
        plain->document()->setModified(false);
    }
}
