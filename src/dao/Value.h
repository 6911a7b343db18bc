#pragma once

#include "platform/Literals.h"

#include <QDateTime>
#include <QString>
#include <cstddef>
#include <variant>

/// What a field holds: Null, a whole number (booleans are -1 and 0), a fraction, a text, a date.
class Value {
public:
    Value() = default;
    Value(std::nullptr_t) {} ///< Null
    Value(int number) : m_value(qint64(number)) {}
    Value(qint64 number) : m_value(number) {}
    Value(double number) : m_value(number) {}
    Value(bool truth) : m_value(qint64(truth ? -1 : 0)) {}
    Value(const QString& text) : m_value(text) {}
    Value(QStringView text) : m_value(text.toString()) {}
    Value(QDate date) : Value(date, QTime(0, 0)) {} ///< an invalid date is Null
    Value(const QDateTime& moment) : Value(moment.date(), moment.time()) {}
    Value(const char16_t* text) : m_value(QString::fromUtf16(text)) {}
    Value(const char*) = delete;
    Value(const Value&) = default;
    Value(Value&&) noexcept = default;
    // Not inline: GCC 12 takes a variant that is assigned to for an uninitialized one.
    Value& operator=(const Value&);
    Value& operator=(Value&&) noexcept;
    ~Value() = default;

    /// The date that "yyyy-MM-dd", alone or with " hh:mm:ss" behind it, says; any other text as it is.
    static Value fromIso(const QString& text);

    bool isNull() const { return m_value.index() == 0; }
    bool isWhole() const { return std::holds_alternative<qint64>(m_value); }
    bool isText() const { return std::holds_alternative<QString>(m_value); }
    /// Null, and a text without a number, are 0; out of range is cut to the range of int.
    int toInt() const;
    qint64 toLong() const;
    double toDouble() const;
    /// False only for 0 and Null.
    bool toBool() const { return toDouble() != 0; }
    /// Null is empty; a date is ISO, with its time unless that is midnight; a number is plain decimal.
    QString text() const;
    /// Invalid for Null and for what is no date.
    QDate date() const;
    QDateTime moment() const;

    bool operator==(const Value&) const = default;

private:
    /// As the calendar and the clock on the wall say it, so that no time zone ever moves a date.
    struct Moment {
        QDate date;
        QTime time;
        bool operator==(const Moment&) const = default;
    };
    friend class Statement;
    Value(QDate date, QTime time)
    {
        if (date.isValid()) m_value = Moment{date, time};
    }

    std::variant<std::monostate, qint64, double, QString, Moment> m_value;
};
