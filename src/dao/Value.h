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
    Value(QDate date) : m_value(QDateTime(date, QTime(0, 0))) {}
    Value(const QDateTime& moment) : m_value(moment) {}
    Value(const char16_t* text) : m_value(QString::fromUtf16(text)) {}
    Value(const char*) = delete;

    bool isNull() const { return m_value.index() == 0; }
    /// Null, and a text without a number, are 0; out of range is cut to the range of int.
    int toInt() const;
    qint64 toLong() const;
    double toDouble() const;
    /// False only for 0 and Null.
    bool toBool() const { return toDouble() != 0; }
    /// Null is empty; a date is ISO; a number is plain decimal.
    QString text() const;
    /// Invalid for Null and for what is no date.
    QDate date() const { return moment().date(); }
    QDateTime moment() const;

    bool operator==(const Value&) const = default;

private:
    std::variant<std::monostate, qint64, double, QString, QDateTime> m_value;
};
