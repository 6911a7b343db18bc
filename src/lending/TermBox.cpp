#include "lending/TermBox.h"

#include "frame/Text.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

TermBox::TermBox(QWidget* parent) : QDateEdit(parent)
{
    setLocale(RussianLocale());
    setDisplayFormat(u"dd.MM.yyyy"_s);
    setCalendarPopup(true);
    connect(this, &QDateEdit::editingFinished, this, [this] { bound(); });
}

void TermBox::setFirstDay(QDate day)
{
    m_first = day;
    bound();
    setDate(day);
}

/// A date is typed from its day on, from whichever side the box was reached.
void TermBox::focusInEvent(QFocusEvent* event)
{
    QDateEdit::focusInEvent(event);
    if (event->reason() == Qt::BacktabFocusReason) setSelectedSection(DaySection);
}

void TermBox::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    const bool steps = key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    if (steps)
        bound();
    else
        clearMinimumDate();
    const bool wentOn = std::exchange(m_wentOn, false);
    if (wentOn && event->text() == u"."_s) return; // it would go on once more
    const Section before = currentSection();
    const QScopedValueRollback inKey(m_inKey, true);
    QDateEdit::keyPressEvent(event);
    m_wentOn = event->text() >= u"0"_s && event->text() <= u"9"_s && currentSection() != before;
}

/// Of the arrow that opens the calendar: it greys what is not allowed.
void TermBox::mousePressEvent(QMouseEvent* event)
{
    bound();
    QDateEdit::mousePressEvent(event);
}

void TermBox::wheelEvent(QWheelEvent* event)
{
    bound();
    QDateEdit::wheelEvent(event);
}
