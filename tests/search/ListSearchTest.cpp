#include "search/ListSearch.h"
#include "dao/Collation.h"
#include "harness/ScreenTest.h"

#include <random>

namespace {

class Searching : public ScreenTest {
protected:
    /// What is found, as "name | number | path" lines, and the numbers of the errors behind them.
    QString find(const ListQuery& query)
    {
        const bool tracks = query.kind == ListQuery::Tracks;
        const std::vector<ListedDisc> discs = ListedDiscs(program.mainDatabase(), query.catalogue());
        Hits hits(discs);
        ListSearch search(tracks ? program.tracksDatabase() : program.filesDatabase(), [] {});
        search.start(query, discs);
        search.wait();
        const ListSearch::Step step = search.take(hits);
        EXPECT_TRUE(step.finished && !search.running());
        QString found;
        for (std::size_t i = 0; i < hits.size(); ++i)
            found += hits.name(i) + " | " + hits.number(i) + (tracks ? QString() : " | " + hits.path(i)) + '\n';
        for (const ListSearch::Unread& unread : step.unread)
            found += QString("%1: %2\n").arg(discs[unread.disc].list).arg(unread.error.number());
        return found;
    }
};

}

TEST_F(Searching, FindsByTheFieldTheKindOfRowAndTheWholeOrPartOfIt)
{
    shelf.computer(7, "Debian").discs(3).list(1, "A1", {"\\", "\\Readme.txt | 1 | Прочти меня", "\\Docs\\ |  | все"});
    shelf.computer(9, "Игры").list(2, "B2", {"\\docs.zip | 1", "\\Docs\\a.txt | 1 | меня", "\\Docs\\"});
    const ListQuery::Kind files = ListQuery::Files, folders = ListQuery::Folders;

    EXPECT_EQ(find({files, "DOCS"}), "docs.zip | 9 (2) | \\\n");
    EXPECT_EQ(find({files, ""}), "Readme.txt | 7 | \\\ndocs.zip | 9 (2) | \\\na.txt | 9 (2) | \\Docs\\\n");
    EXPECT_EQ(find({files, "docs", true}), "");
    EXPECT_EQ(find({files, "DOCS.zip", true}), "docs.zip | 9 (2) | \\\n");
    EXPECT_EQ(find({files, "МЕНЯ", false, true}), "Readme.txt | 7 | \\\na.txt | 9 (2) | \\Docs\\\n");
    EXPECT_EQ(find({files, "МЕНЯ", true, true}), "a.txt | 9 (2) | \\Docs\\\n");
    EXPECT_EQ(find({folders, "docs"}), "\\Docs\\ | 7 | \\Docs\\\n\\Docs\\ | 9 (2) | \\Docs\\\n");
    EXPECT_EQ(find({folders, "\\docs\\", true}), find({folders, "docs"}));
    EXPECT_EQ(find({folders, "все", false, true}), "\\Docs\\ | 7 | \\Docs\\\n");
    EXPECT_EQ(find({folders, "ВСЕ", true, true}), "\\Docs\\ | 7 | \\Docs\\\n");
    EXPECT_EQ(find({folders, "вс", true, true}), "");
    EXPECT_EQ(find({folders, "\\", true}), "\\ | 7 | \\\n");
    EXPECT_EQ(find({files, "R*e.t?t"}), "Readme.txt | 7 | \\\n");
    EXPECT_EQ(find({files, "o'zip"}), "");
}

TEST_F(Searching, TracksHaveNoCommentsToSearchAndASetSaysWhichDisc)
{
    shelf.audio(1, "Кино").discs(3).list(1, "C1", {"Мама | рок", "Rock Ballads"}).list(3, "C3", {"мамА мы"});
    shelf.computer(2, "Файлы").list(1, "A1", {"\\мама | 1"});
    const ListQuery::Kind tracks = ListQuery::Tracks;
    EXPECT_EQ(find({tracks, "мама"}), "Мама | 1\nмамА мы | 1 (3)\n");
    EXPECT_EQ(find({tracks, "мама", true, true}), "Мама | 1\n");
    EXPECT_EQ(find({tracks, "rock", true}), "");
}

TEST_F(Searching, GoesOnBehindListsThatAreMissingOrHaveOtherFields)
{
    shelf.computer(1, "a").list(1, "A1", {"\\x1 | 1"}).set("ДискID2", u"нет").set("ДискID3", u"Фильтр1");
    shelf.computer(2, "b").set("ДискID1", u"").list(2, "B2", {"\\x2 | 1"});
    EXPECT_EQ(find({ListQuery::Files, "x"}), "x1 | 1 | \\\nx2 | 2 (2) | \\\nнет: 3078\nФильтр1: 3061\n");
}

TEST_F(Searching, AQuotationMarkIsAnErrorOfTheCriterion)
{
    for (const bool whole : {false, true})
        EXPECT_THROW(RequireCriterion({ListQuery::Files, "3\"\"", whole}), RuntimeError);
}

TEST_F(Searching, ComesOutInTheOrderOfTheCatalogueWhateverThreadIsFirst)
{
    QString all;
    for (int number = 1; number <= 60; ++number) {
        QStringList lines; // the first lists take longest
        for (int i = 0; i < 120 / number; ++i) lines += QString("\\x%1 | 1").arg(i);
        shelf.computer(number, "x").list(1, QString("L%1").arg(number), lines);
        for (int i = 0; i < lines.size(); ++i) all += QString("x%1 | %2 | \\\n").arg(i).arg(number);
    }
    EXPECT_EQ(find({ListQuery::Files, "x"}), all);
}

TEST_F(Searching, AStoppedWalkKeepsWhatItFoundAndAnotherCanBegin)
{
    for (int number = 1; number <= 50; ++number)
        shelf.computer(number, "x").list(1, QString("L%1").arg(number), {"\\x | 1"});
    const std::vector<ListedDisc> discs = ListedDiscs(program.mainDatabase(), Computer());
    std::atomic<int> woken = 0;
    ListSearch search(program.filesDatabase(), [&] { ++woken; });
    for (int i = 0; i < 20; ++i) {
        Hits hits(discs);
        search.start({ListQuery::Files, "x"}, discs);
        search.stop();
        const ListSearch::Step step = search.take(hits);
        EXPECT_TRUE(step.finished && step.unread.empty());
        EXPECT_EQ(hits.size(), step.walked);
    }
    EXPECT_GE(woken, 20);
}

TEST(Hits, AreSortedAsTitlesAndNumbersAreAndEqualOnesStayInTheirOrder)
{
    std::mt19937 random(3);
    std::vector<ListedDisc> discs;
    for (const int number : {10, 9, 9, 100}) discs.push_back({number, number, int(discs.size()) % 2 + 1, {}});
    Hits hits(discs);
    for (std::size_t disc = 0; disc < discs.size(); ++disc) {
        ListHits list;
        for (int i = 0; i < 50; ++i) {
            const std::string name =
                QString("%1а%2").arg(QChar(u"БбaЖж"[random() % 5])).arg(random() % 4).toStdString();
            list.add(name, i % 2 ? "\\" : "\\я\\");
        }
        hits.append(disc, std::move(list));
    }
    const std::atomic<bool> never = false, atOnce = true;
    const auto printed = [&](Hits::Column column, bool descending) {
        Hits sorted = hits;
        sorted.setOrder(hits.sorted(column, descending, never));
        QStringList texts;
        for (std::size_t i = 0; i < sorted.size(); ++i)
            texts += column == Hits::Number ? sorted.number(i) : column == Hits::Name ? sorted.name(i) : sorted.path(i);
        return texts;
    };
    for (const Hits::Column column : {Hits::Name, Hits::Path}) {
        const QStringList up = printed(column, false), down = printed(column, true);
        for (qsizetype i = 1; i < up.size(); ++i) {
            EXPECT_LE(CompareText(up[i - 1].toStdString(), up[i].toStdString()), 0);
            EXPECT_GE(CompareText(down[i - 1].toStdString(), down[i].toStdString()), 0);
        }
    }
    QStringList numbers = printed(Hits::Number, false);
    numbers.removeDuplicates();
    EXPECT_EQ(numbers.join(' '), "9 9 (2) 10 100 (2)");
    const Hits::Order byNumber = hits.sorted(Hits::Number, true, never);
    for (std::size_t i = 1; i < byNumber.size(); ++i)
        EXPECT_TRUE(byNumber[i].disc != byNumber[i - 1].disc || byNumber[i].row == byNumber[i - 1].row + 1);
    EXPECT_TRUE(hits.sorted(Hits::Name, false, atOnce).empty());
}
