#include "lending/Rating.h"
#include "harness/ScreenTest.h"
#include "lending/DaysOverdue.h"

namespace {
const QDate Today(2003, 11, 14);

TEST(DaysOverdue, AreTold)
{
    const std::pair<int, const char*> told[] = {
        {0, "нет"},      {1, "1 день"},   {2, "2 дня"},   {5, "5 дней"},     {10, "10 дней"},  {11, "11 дней"},
        {19, "19 дней"}, {21, "21 день"}, {22, "22 дня"}, {111, "111 день"}, {112, "112 дня"}, {115, "115 дней"}};
    for (const auto& [days, text] : told) EXPECT_EQ(DaysOverdueText(days), text);

    const struct {
        QDate due;
        bool isDue;
        int days;
    } terms[] = {{{}, false, 0}, {Today.addDays(1), false, 0}, {Today, true, 0}, {Today.addDays(-1), true, 1}};
    for (const auto& [due, isDue, days] : terms) {
        EXPECT_EQ(IsDue(due, Today), isDue) << qPrintable(due.toString());
        EXPECT_EQ(DaysOverdue(due, Today), days) << qPrintable(due.toString());
    }
}

TEST(RatingMean, RoundsHalvesToTheEvenNumber)
{
    for (const auto& [days, loans, mean] :
         {std::array{5, 2, 2}, {7, 2, 4}, {1, 3, 0}, {2, 3, 1}, {11, 2, 6}, {13, 2, 6}})
        EXPECT_EQ(MeanDays(days, loans), mean) << days << '/' << loans;
    QStringList words;
    for (const int edge : {0, 1, 5, 6, 20, 21, 50, 51}) words += RatingWord(edge);
    EXPECT_EQ(words.join(' '), "Хороший Нормальный Нормальный Плохой Плохой Ужасный!!! Ужасный!!! Хуже некуда...");
}

class Rating : public ScreenTest {
protected:
    QList<RecordedLoan> record(const CatalogueKind* kind = nullptr, bool outOnly = false)
    {
        return RecordOf(program.mainDatabase(), shelf.borrower("Иванов"), clock.today(), kind, outOnly);
    }
    QString warning(const QString& name = "Иванов")
    {
        return WarningAbout(program.mainDatabase(), name, clock.today());
    }
    void lateBy(int days) { lent(QDate(2003, 1, 1).addDays(days)); }
    void lent(QDate returned)
    {
        shelf.computer(1, "Диск").lent("Иванов", "2002-12-01", returned.toString(Qt::ISODate), "2003-01-01");
    }
};

TEST_F(Rating, OneCatalogueAloneHasARatingOfItsOwn)
{
    shelf.audio(7, "Поздно").lent("Иванов", "2003-01-01", "2003-02-20", "2003-01-31").lent("Иванов", "2003-03-01");
    shelf.computer(8, "Раньше срока").lent("Иванов", "2003-01-01", "2003-01-02", "2003-01-31");
    EXPECT_EQ(StandingOf(record()).rating, 7);
    EXPECT_EQ(StandingOf(record(&Audio())).rating, 10);
    EXPECT_EQ(record(&Audio(), true).size(), 1);
    EXPECT_EQ(StandingOf(record(&Dvd())).rating, 0);
    shelf.borrower("Ничего не брал");
    EXPECT_EQ(warning("ИВАНОВ") + warning("Ничего не брал") + warning("Новый \" должник"), "Плохой");
}

TEST_F(Rating, OnlyTheWindowStopsAtEighty)
{
    lateBy(5);
    EXPECT_EQ(warning(), "");
    lateBy(8); // 6,5 to 6
    EXPECT_EQ(warning(), "Плохой");
    lateBy(587);
    EXPECT_EQ(StandingOf(record()).rating, LargestRating);
    EXPECT_EQ(warning(), "Хуже некуда...");
}
}
