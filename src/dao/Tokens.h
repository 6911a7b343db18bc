#pragma once

#include <QList>
#include <QString>

/// A piece of a statement:
///
///     word      = letter / digit / "_" , then more of them        ; Номер, SELECT, 1A2B, 12345
///     name      = "[" anything but "]" "]"
///     text      = '"' … '"' / "'" … "'"                           ; the quotation mark doubled stands for itself
///     number    = digits [ "." digits ]                           ; whole numbers alone are words
///     parameter = "?"
///     symbol    = "(" ")" "," "." ";" "=" "<>" "!=" "<" "<=" ">" ">=" "+" "-" "*" "/" "&"
struct Token {
    enum Kind { Word, Name, Text, Number, Parameter, Symbol } kind;
    QString text; ///< without brackets and quotation marks

    bool is(QStringView symbol) const { return kind == Symbol && text == symbol; }
    bool isWord(QStringView word) const { return kind == Word && text.compare(word, Qt::CaseInsensitive) == 0; }
};

/// Throws RuntimeError with `malformed` as its number for text that ends within quotation marks or brackets, for a
/// character that begins nothing, and for round brackets that do not match.
QList<Token> Tokenize(QStringView statement, int malformed);

/// The error for a statement (3075) or criterion (3077) that is not well-formed, with its text.
class RuntimeError MalformedText(int number, QStringView statement);
