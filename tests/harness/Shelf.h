#pragma once

#include "frame/Program.h"
#include "store/CatalogueKind.h"

#include <QStringList>

/// One row of a catalogue; every word about it is written at once.
class ShelfDisc {
public:
    ShelfDisc(Program& program, const CatalogueKind& kind, qint64 key) : m_program(program), m_kind(kind), m_key(key) {}

    qint64 key() const { return m_key; }
    int number() const;

    ShelfDisc& year(const QString& year) { return set(u"Год"_s, year); }
    ShelfDisc& discs(int count) { return set(u"Дисков"_s, count); }
    /// The style, description or genre, added when the dictionary lacks it.
    ShelfDisc& of(const QString& name);
    ShelfDisc& added(const QString& isoDate) { return set(u"ДатаЗаписи"_s, QDate::fromString(isoDate, Qt::ISODate)); }
    ShelfDisc& changed(const QString& isoDate)
    {
        return set(u"ДатаИзменения"_s, QDate::fromString(isoDate, Qt::ISODate));
    }
    /// Tracks and playing time of one disc of an audio set.
    ShelfDisc& playing(int disc, int tracks, const QString& time);
    /// The disc's list, whose lines are tracks, "title" or "title | comment", or files, "\\folder\\name",
    /// "\\folder\\name | size" or "\\folder\\name | size | comment"; what ends in a backslash is a folder.
    ShelfDisc& list(int disc, const QString& id, const QStringList& lines);
    /// The identifier by which a disc of the set is recognised.
    ShelfDisc& bound(int disc, const QString& id) { return set(CatalogueKind::bindingField(disc), id); }
    /// A loan; without `returned` the disc is out. `due` is the promised day.
    ShelfDisc& lent(const QString& borrower, const QString& given, const QString& returned = {},
                    const QString& due = {});
    /// Any other field.
    ShelfDisc& set(const QString& field, const Value& value);

private:
    Program& m_program;
    const CatalogueKind& m_kind;
    qint64 m_key;
};

/// Fills the catalogues of a test in a few words:
///
///     shelf.audio(7, "Кино", "Группа крови").year("1988").lent("Иванов", "2003-01-02", "2003-02-01");
///     shelf.computer(3, "Debian").discs(2).list(1, "1A2B3C4D", {"\\dists\\", "\\README | 12,50"});
class Shelf {
public:
    explicit Shelf(Program& program) : m_program(program) {}

    ShelfDisc audio(int number, const QString& name, const QString& album = {});
    ShelfDisc computer(int number, const QString& name);
    ShelfDisc dvd(int number, const QString& name);
    ShelfDisc disc(const CatalogueKind& kind, int number, const QString& name);
    /// The key of the borrower, who is added when he is new.
    qint64 borrower(const QString& name, const QString& phone = {});

private:
    Program& m_program;
};
