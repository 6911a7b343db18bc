#include "dao/Value.h"

#include <QLocale>
#include <cmath>
#include <limits>

namespace {

/// `count` decimal digits from `at` on; -1 when one of them is none.
int digits(QStringView text, qsizetype at, int count)
{
    int number = 0;
    for (QChar c : text.sliced(at, count)) {
        if (c < u'0' || c > u'9') return -1;
        number = number * 10 + c.unicode() - '0';
    }
    return number;
}

double number(const QString& text)
{
    bool ok = false;
    const double value = QStringView(text).trimmed().toDouble(&ok);
    return ok && std::isfinite(value) ? value : 0;
}

} // namespace

Value& Value::operator=(const Value&) = default;
Value& Value::operator=(Value&&) noexcept = default;

Value Value::fromIso(const QString& text)
{
    const bool timed = text.size() == 19;
    if ((text.size() != 10 && !timed) || text[4] != u'-' || text[7] != u'-') return text;
    if (timed && (text[10] != u' ' || text[13] != u':' || text[16] != u':')) return text;
    const QDate date(digits(text, 0, 4), digits(text, 5, 2), digits(text, 8, 2));
    const QTime time = timed ? QTime(digits(text, 11, 2), digits(text, 14, 2), digits(text, 17, 2)) : QTime(0, 0);
    if (!date.isValid() || !time.isValid()) return text;
    return {date, time};
}

qint64 Value::toLong() const
{
    if (const auto* whole = std::get_if<qint64>(&m_value)) return *whole;
    if (const auto* text = std::get_if<QString>(&m_value)) {
        bool ok = false;
        const qint64 whole = QStringView(*text).trimmed().toLongLong(&ok);
        if (ok) return whole;
    }
    const double value = std::nearbyint(toDouble());
    constexpr double limit = 9223372036854775808.0; // 2^63
    if (value >= limit) return std::numeric_limits<qint64>::max();
    if (value < -limit) return std::numeric_limits<qint64>::min();
    return static_cast<qint64>(value);
}

int Value::toInt() const
{
    return static_cast<int>(
        std::clamp<qint64>(toLong(), std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

double Value::toDouble() const
{
    if (const auto* whole = std::get_if<qint64>(&m_value)) return static_cast<double>(*whole);
    if (const auto* fraction = std::get_if<double>(&m_value)) return *fraction;
    if (const auto* text = std::get_if<QString>(&m_value)) return number(*text);
    return 0;
}

QString Value::text() const
{
    if (const auto* text = std::get_if<QString>(&m_value)) return *text;
    if (const auto* whole = std::get_if<qint64>(&m_value)) return QString::number(*whole);
    if (const auto* fraction = std::get_if<double>(&m_value))
        return QString::number(*fraction, 'f', QLocale::FloatingPointShortest);
    if (const auto* moment = std::get_if<Moment>(&m_value)) {
        const QString date = moment->date.toString(u"yyyy-MM-dd");
        return moment->time == QTime(0, 0) ? date : date + moment->time.toString(u" hh:mm:ss");
    }
    return {};
}

QDate Value::date() const
{
    if (const auto* moment = std::get_if<Moment>(&m_value)) return moment->date;
    if (const auto* text = std::get_if<QString>(&m_value)) {
        const Value parsed = fromIso(*text);
        if (const auto* moment = std::get_if<Moment>(&parsed.m_value)) return moment->date;
    }
    return {};
}

QDateTime Value::moment() const
{
    if (const auto* moment = std::get_if<Moment>(&m_value)) return {moment->date, moment->time};
    if (const auto* text = std::get_if<QString>(&m_value)) {
        const Value parsed = fromIso(*text);
        if (std::holds_alternative<Moment>(parsed.m_value)) return parsed.moment();
    }
    return {};
}
