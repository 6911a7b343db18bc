#include "catalogue/PickerMode.h"

#include "platform/RuntimeError.h"

#include <array>

QString PickerMode::source(const QString& text) const
{
    QStringList conditions;
    if (!condition.isEmpty()) conditions += condition;
    if (!text.isEmpty()) conditions += u"Название LIKE \"*"_s + text + u"*\""_s;
    const QString where = conditions.isEmpty() ? QString() : u" WHERE "_s + conditions.join(u" AND "_s);
    return u"SELECT * FROM "_s + kind.table + where + u" ORDER BY Номер"_s;
}

PickerMode PickerModeOf(QStringView word)
{
    struct Prefix {
        QString word, condition;
    };
    static const std::array<Prefix, 3> prefixes{
        {{u"full"_s, {}}, {u"add"_s, u"Должник = False"_s}, {u"del"_s, u"Должник = True"_s}}};
    for (const Prefix& prefix : prefixes) {
        const CatalogueKind* kind = CatalogueByCode(word.mid(prefix.word.size()));
        if (kind && word.startsWith(prefix.word)) return {*kind, prefix.condition};
    }
    throw RuntimeError(5, u"Окно выбора диска не знает режима '%1'."_s.arg(word));
}
