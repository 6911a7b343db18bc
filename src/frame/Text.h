#pragma once

#include "platform/Literals.h"

#include <QDateTime>
#include <QLocale>

class QLineEdit;

/// A double quotation mark becomes an apostrophe, "[" becomes "(", "]" becomes ")": free text on its way into a table or
/// a criterion.
QString CleanText(const QString& text);

/// The user's locale when it is a Russian one, else ru_RU.
QLocale RussianLocale();
/// Dates in the fixed patterns of the program, months and days in Russian: "d MMMM (dddd)", "d MMMM yyyy г.",
/// "dd-MMM-yyyy". Empty for an invalid date.
QString FormatDate(QDate date, const QString& pattern);
/// A number with exactly `decimals` places; grouped by thousands from 1000 on if `grouped`.
QString FormatNumber(double number, int decimals, bool grouped);

/// What a number box holds as a disc's number: 1 to 32767, or 0 for anything else.
int DiscNumber(const QString& text);
/// Lets only digits into the box, by keyboard, pasting and input method alike (`DigitKeys`).
void DigitKeys(QLineEdit* box);
/// Lets only digits and colons into the box.
void TimeKeys(QLineEdit* box);
/// Lets only one digit 1 to 6 into the box (`DiscCountKeys`).
void DiscCountKeys(QLineEdit* box);
