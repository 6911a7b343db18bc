#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <ostream>

// What GoogleTest shows of Qt's values when a comparison fails.
inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QStringList& texts, std::ostream* out)
{
    *out << '[' << texts.join(u", ").toStdString() << ']';
}
inline void PrintTo(const QDate& date, std::ostream* out) { *out << date.toString(Qt::ISODate).toStdString(); }
