#include "store/ExternalDatabase.h"

#include "store/Schema.h"
#include "store/Updates.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace {

// Numbers end at 32767, and no row of ours has more than 800 characters.
constexpr qint64 MostDiscs = 1'000'000;
constexpr qint64 LongestRow = 10'000;
constexpr qint64 LongestDictionary = 1'000'000; ///< all names together

[[noreturn]] void refuseAmount(const QString& table)
{
    throw RuntimeError(DaoErrorNumber::TextTooLong,
                       u"В таблице «%1» больше данных, чем бывает в каталоге."_s.arg(table));
}

/// `permissions` tell of the attribute, also to who may write whatever it says; `isWritable` of a disc that is read-only.
void requireWritable(const QString& path)
{
    constexpr QFile::Permissions anybody = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    const QFileInfo file(path);
    if (file.exists() && (!(file.permissions() & anybody) || !file.isWritable()))
        throw RuntimeError(DaoErrorNumber::CannotOpenOrWrite,
                           u"Файл «%1» доступен только для чтения."_s.arg(QDir::toNativeSeparators(path)));
}

const TableDef& definitionOf(const QString& name)
{
    static const QList<TableDef> schema = MainSchema();
    return *std::ranges::find(schema, name, &TableDef::name);
}

/// A sum over the lengths of all fields that the program knows, for one row.
QString rowLength(const Database& main, const QString& table)
{
    const QStringList there = main.OpenRecordset(table).FieldNames();
    QStringList lengths;
    for (const FieldDef& field : definitionOf(table).fields) {
        if (!there.contains(field.name, Qt::CaseInsensitive))
            throw RuntimeError(DaoErrorNumber::NoSuchItem, u"В таблице «%1» нет поля «%2»."_s.arg(table, field.name));
        lengths += u"IFNULL(LENGTH([%1]), 0)"_s.arg(field.name);
    }
    return lengths.join(u" + "_s);
}

int countDiscs(const Database& main, const CatalogueKind& kind) { return main.OpenRecordset(kind.table).RecordCount(); }

}

const std::array<const CatalogueKind*, 2>& ExternalCatalogues()
{
    static const std::array<const CatalogueKind*, 2> kinds{&Audio(), &Computer()};
    return kinds;
}

void RequireCatalogue(const Database& main, const CatalogueKind& kind)
{
    const auto scalar = [&](const QString& function, const QString& table) {
        return main.Scalar(u"SELECT %1(%2) FROM %3"_s.arg(function, rowLength(main, table), table)).toLong();
    };
    if (scalar(u"MAX"_s, kind.table) > LongestRow) refuseAmount(kind.table);
    QStringList dictionaries{kind.dictionary.table};
    if (const auto formats = u"ФорматЗвука"_s; kind.extraFields.contains(formats)) dictionaries += formats;
    for (const QString& table : dictionaries)
        if (scalar(u"SUM"_s, table) > LongestDictionary) refuseAmount(table);
    if (countDiscs(main, kind) > MostDiscs || main.OpenRecordset(kind.join()).RecordCount() > MostDiscs)
        refuseAmount(kind.table);
}

ExternalSummary ViewExternalDatabase(Program& program, const QString& path)
{
    requireWritable(path);
    const Database main = program.engine.OpenDatabaseReadOnly(path);
    ExternalSummary summary;
    for (std::size_t i = 0; i < summary.size(); ++i) {
        const CatalogueKind& kind = *ExternalCatalogues()[i];
        RequireCatalogue(main, kind);
        summary[i] = {.discs = countDiscs(main, kind), .lastUpdate = LastUpdate(main, kind), .lent = 0};
    }
    program.shared.MainDBPath = path;
    program.shared.ExternalDBOpen = true;
    return summary;
}
