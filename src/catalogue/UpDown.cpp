#include "catalogue/UpDown.h"

#include "platform/Literals.h"
#include "platform/Profile.h"

#include <QKeyEvent>
#include <QStyleOptionSpinBox>

UpDown::UpDown(QWidget* parent) : QAbstractSpinBox(parent) {}

void UpDown::setup(QLineEdit* box, int columns, Step step)
{
    m_columns = columns;
    m_step = std::move(step);
    setLineEdit(box);
    box->setValidator(nullptr);
    connect(box, &QLineEdit::textChanged, this, [this] { update(); });
}

QSize UpDown::sizeHint() const
{
    ensurePolished();
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    const QSize text(fontMetrics().horizontalAdvance(QString(m_columns + 1, u'0')), lineEdit()->sizeHint().height());
    return style()->sizeFromContents(QStyle::CT_SpinBox, &option, text, this);
}

void UpDown::stepBy(int steps)
{
    const int direction = steps > 0 ? 1 : -1;
    for (; steps != 0; steps -= direction) lineEdit()->setText(m_step(lineEdit()->text(), direction));
    lineEdit()->selectAll();
}

QAbstractSpinBox::StepEnabled UpDown::stepEnabled() const
{
    const QString text = lineEdit()->text();
    StepEnabled enabled = StepNone;
    if (m_step(text, 1) != text) enabled |= StepUpEnabled;
    if (m_step(text, -1) != text) enabled |= StepDownEnabled;
    return enabled;
}

void UpDown::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->accept();
        emit lineEdit()->returnPressed();
        return;
    }
    // A spin box hands keys to its line edit past the filters that watch it: what the validator would take out again
    // must not replace a selection first.
    QString typed = event->text();
    int position = 0;
    if (lineEdit()->validator() && !typed.isEmpty() && typed[0].isPrint()) {
        lineEdit()->validator()->validate(typed, position);
        if (typed.isEmpty()) return;
    }
    QAbstractSpinBox::keyPressEvent(event);
}

UpDown::Step CountBetween(int low, int high, int digits)
{
    return [=](const QString& text, int direction) {
        const double number = Val(text);
        if (direction > 0 ? number >= high : number <= low) return text;
        return u"%1"_s.arg(qMax(low, int(number) + direction), digits, 10, QChar(u'0'));
    };
}

QString CountTime(const QString& text, int direction)
{
    const auto counter = [&](int part) { return BoundedInt(Val(text.section(u':', part, part)), 0, 99); };
    const int both = qBound(0, counter(0) * 100 + counter(1) + direction, 9999);
    return u"%1:%2"_s.arg(both / 100, 2, 10, QChar(u'0')).arg(both % 100, 2, 10, QChar(u'0'));
}
