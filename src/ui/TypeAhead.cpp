#include "ui/TypeAhead.h"

#include "platform/Literals.h"

void TypeAhead::typed(DataControl& list, const QString& character)
{
    if (!list.hasRow()) return;
    const QString key = character.toUpper();
    const QString criterion = m_field + u" LIKE \""_s + key + u"*\""_s;
    if (key != m_last || !list.FindNext(criterion)) list.FindFirst(criterion);
    m_last = key;
}
