#include "frame/Text.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QValidator>
#include <algorithm>

namespace {

/// Passes only some characters. The validator takes the others out of what is pasted, dropped or composed; the filter
/// swallows the keys, so that a stray letter does not replace a selection by nothing.
class CharacterFilter : public QValidator {
public:
    CharacterFilter(QLineEdit* box, QStringView allowed) : QValidator(box), m_allowed(allowed)
    {
        box->setValidator(this);
        box->installEventFilter(this);
        box->setInputMethodHints(Qt::ImhDigitsOnly);
    }

    State validate(QString& text, int& position) const override
    {
        const auto foreign = [this](QChar c) { return !m_allowed.contains(c); };
        position -= int(std::count_if(text.cbegin(), text.cbegin() + position, foreign));
        text.removeIf(foreign);
        return Acceptable;
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress) return false;
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool typed = !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
        return typed && !key->text().isEmpty() && key->text()[0].isPrint() && !m_allowed.contains(key->text()[0]);
    }

private:
    QStringView m_allowed;
};

}

QString CleanText(const QString& text)
{
    return QString(text).replace(u'"', u'\'').replace(u'[', u'(').replace(u']', u')');
}

QLocale RussianLocale()
{
    const QLocale users;
    return users.language() == QLocale::Russian ? users : QLocale(QLocale::Russian, QLocale::Russia);
}

QString FormatDate(QDate date, const QString& pattern)
{
    return date.isValid() ? RussianLocale().toString(date, pattern) : QString();
}

QString FormatNumber(double number, int decimals, bool grouped)
{
    QLocale locale = RussianLocale();
    locale.setNumberOptions(grouped ? QLocale::DefaultNumberOptions : QLocale::OmitGroupSeparator);
    return locale.toString(number, 'f', decimals);
}

int DiscNumber(const QString& text)
{
    const int number = text.trimmed().toInt();
    return number >= 1 && number <= 32767 ? number : 0;
}

void DigitKeys(QLineEdit* box) { new CharacterFilter(box, u"0123456789"); }

void TimeKeys(QLineEdit* box) { new CharacterFilter(box, u"0123456789:"); }

void DiscCountKeys(QLineEdit* box)
{
    box->setMaxLength(1);
    new CharacterFilter(box, u"123456");
}
