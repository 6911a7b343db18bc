#pragma once

#include "dao/Database.h"

/// The sound formats that a DVD can have, and the field ФорматЗвука of its row, which keeps some of them: the code of each
/// and a comma, "1,3,". The field is read one character at a time, so a code has one digit; what is no known code is
/// passed over.
class SoundFormats {
public:
    explicit SoundFormats(const Database& main);

    /// All of them in stored order.
    QStringList names() const;
    /// What the field of a row names.
    QStringList namesOf(const QString& field) const;
    /// The field for these names, which are some of names().
    QString fieldOf(const QStringList& names) const;
    /// How many a field is said to hold: half of its length.
    static int countOf(const QString& field) { return int(field.size() / 2); }

private:
    int GetSoundFormatID(const QString& name) const;

    struct Format {
        int code;
        QString name;
    };
    QList<Format> m_formats;
};
