#include "catalogue/RecordSource.h"

#include <gtest/gtest.h>

namespace {
const QString PcJoin = u"SELECT * FROM Компьютер, Описание WHERE Компьютер.КодОписания = Описание.КодОписания "_s;

TEST(RecordSource, BreaksTiesByNumberInTheDirectionOfTheMainKey)
{
    const struct {
        const CatalogueKind& kind;
        const char* item;
        bool descending;
        const char* order;
    } orders[] = {
        {Computer(), "по номеру", false, " ORDER BY Номер"},
        {Computer(), "по номеру", true, " ORDER BY Номер DESC"},
        {Computer(), "по описанию", false, " ORDER BY Описание, Номер"},
        {Computer(), "по году", true, " ORDER BY Год DESC, Номер DESC"},
        {Computer(), "по дате изменению", false, " ORDER BY ДатаИзменения, Номер"},
        {Audio(), "по группе/исполнителю", true, " ORDER BY Название DESC, Номер DESC"},
        {Audio(), "по дате изменения", false, " ORDER BY ДатаИзменения, Номер"},
        {Dvd(), "по зоне", false, " ORDER BY Зона, Номер"},
    };
    for (const auto& [kind, item, descending, order] : orders)
        EXPECT_EQ(RecordSource(kind, {}, QString(item), descending), kind.join() + order) << item;
}

TEST(RecordSource, PutsTheFilterAsItStandsBetweenJoinAndOrder)
{
    EXPECT_EQ(RecordSource(Computer(), u"AND Год > \"1999\""_s, u"по номеру", false),
              PcJoin + "AND Год > \"1999\" ORDER BY Номер");
    EXPECT_EQ(ContainsFilter("Название", "win*95"), "AND Название LIKE \"*win*95*\"");
    EXPECT_EQ(EqualsFilter("Описание", "Quest \"II\""), "AND Описание = \"Quest \"\"II\"\"\"");
}

TEST(RecordSource, IsEmptyForAnItemOfAnotherCatalogue)
{
    EXPECT_EQ(RecordSource(Computer(), {}, u"по альбому", false), "");
    EXPECT_EQ(RecordSource(Computer(), {}, u"по дате изменения", false), "");
}
}
