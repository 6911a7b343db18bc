#include "catalogue/Dictionary.h"

#include "store/Schema.h"

QString ObjectionTo(const QString& name, const DictionaryKind& dictionary)
{
    if (name.size() > FieldLength::DictionaryName) return dictionary.lengthMessage;
    return name.contains(u'"') ? dictionary.screen.quotationMarkMessage : QString();
}

bool HasName(const Database& main, const DictionaryKind& dictionary, const QString& name)
{
    return main.Scalar(u"SELECT COUNT(*) FROM %1 WHERE %1 = ?"_s.arg(dictionary.table), {name}).toBool();
}

void RenameName(const Database& main, const DictionaryKind& dictionary, qint64 key, const QString& name)
{
    main.Execute(u"UPDATE %1 SET %1 = ? WHERE %2 = ?"_s.arg(dictionary.table, dictionary.key), {name, key});
}

void RemoveName(const Database& main, const DictionaryKind& dictionary, qint64 key)
{
    main.Execute(u"DELETE FROM %1 WHERE %2 = ?"_s.arg(dictionary.table, dictionary.key), {key});
}
