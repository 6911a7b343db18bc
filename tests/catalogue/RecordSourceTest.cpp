#include "catalogue/RecordSource.h"
#include "harness/ScreenTest.h"

namespace {
class RecordSources : public ScreenTest {};

TEST_F(RecordSources, EveryItemOfEveryCatalogueOpens)
{
    for (const CatalogueKind* kind : AllCatalogues()) {
        shelf.disc(*kind, 1, "Диск");
        for (const SortOrder& order : kind->sortOrders)
            EXPECT_EQ(rows(RecordSource(*kind, {}, order.item, true)).count('\n'), 1)
                << qPrintable(kind->code + order.item);
    }
}

TEST_F(RecordSources, BreakTiesByNumberInTheDirectionOfTheMainKey)
{
    const struct {
        const CatalogueKind& kind;
        const char* item;
        bool descending;
        const char* order;
    } orders[] = {
        {Computer(), "по номеру", false, " ORDER BY Номер"},
        {Computer(), "по номеру", true, " ORDER BY Номер DESC"},
        {Computer(), "по году", true, " ORDER BY Год DESC, Номер DESC"},
        {Computer(), "по дате изменению", false, " ORDER BY ДатаИзменения, Номер"},
        {Audio(), "по дате изменения", false, " ORDER BY ДатаИзменения, Номер"},
    };
    for (const auto& [kind, item, descending, order] : orders)
        EXPECT_EQ(RecordSource(kind, {}, QString(item), descending), kind.join() + order) << item;
    EXPECT_EQ(RecordSource(Computer(), {}, u"по альбому", false), "") << "an item of another catalogue";
}

TEST_F(RecordSources, PutTheFilterAsItStandsBetweenJoinAndOrder)
{
    EXPECT_EQ(RecordSource(Computer(), u"AND Год > \"1999\""_s, u"по номеру", false),
              "SELECT * FROM Компьютер, Описание WHERE Компьютер.КодОписания = Описание.КодОписания "
              "AND Год > \"1999\" ORDER BY Номер");
    EXPECT_EQ(ContainsFilter("Название", "win*95"), "AND Название LIKE \"*win*95*\"");
    EXPECT_EQ(EqualsFilter("Описание", "Quest \"II\""), "AND Описание = \"Quest \"\"II\"\"\"");
}
}
