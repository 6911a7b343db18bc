#pragma once

#include "ui/DataControl.h"

/// Typing in a list: a letter leads to the first row whose field begins with it. Again and again the same letter walks
/// through those rows and comes back to the first.
class TypeAhead {
public:
    explicit TypeAhead(const QString& field) : m_field(field) {}

    /// `character` is a letter or a digit. One that begins no row leaves the list where it is, and is remembered too.
    void typed(DataControl& list, const QString& character);

private:
    QString m_field;
    QString m_last;
};
