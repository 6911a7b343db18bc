#include "lending/Ledger.h"
#include "catalogue/DiscRemoval.h"
#include "catalogue/NumberChange.h"
#include "harness/ScreenTest.h"
#include "lending/Borrowers.h"
#include "lending/DiscHistory.h"
#include "lending/LoanList.h"
#include "lending/Rating.h"
#include "store/Summary.h"

#include <QRandomGenerator>
#include <cmath>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {
class Ledger : public ScreenTest {
protected:
    Database main() { return program.mainDatabase(); }
    /// Discs are marked as lent exactly where the ledger has an open loan of them.
    void compareMarks()
    {
        for (const CatalogueKind* kind : AllCatalogues()) {
            const QString marked = u"SELECT %1 FROM %2 WHERE Должник = True ORDER BY %1"_s.arg(kind->key, kind->table);
            const QString open =
                u"SELECT КодДиска FROM Должники WHERE Долг = True AND Категория = '%1' ORDER BY КодДиска"_s.arg(
                    kind->code);
            EXPECT_EQ(rows(marked), rows(open)) << qPrintable(kind->code);
        }
    }
};

TEST_F(Ledger, AMarkWithoutAnOpenLoanGoesWithTheReturn)
{
    const qint64 marked = shelf.computer(2, "Без записи в книге").set("Должник", true).key();
    EXPECT_EQ(BorrowerOf(main(), Computer(), marked), "");
    TakeBack(main(), Computer(), marked, clock.today());
    EXPECT_EQ(rows("SELECT Должник FROM Компьютер"), "0\n");
    EXPECT_TRUE(IssueDisc(main(), Computer(), marked, shelf.borrower("Иванов"), {}));
    EXPECT_FALSE(IssueDisc(main(), Computer(), marked, shelf.borrower("Петрова"), {})) << "it is out already";

    // A return that looks at the newest loan dates it anew, one that looks at open ones leaves it.
    ShelfDisc disc = shelf.audio(3, "Вернулся").lent("Иванов", "2003-01-02", "2003-02-01");
    const QString day = "SELECT ДатаВозвратаРеальная FROM Должники WHERE Категория = 'AD'";
    EXPECT_EQ(CloseLoan(main(), Audio(), disc.key(), clock.today(), Closes::NewestOpen), "");
    EXPECT_EQ(rows(day), "2003-02-01\n");
    EXPECT_EQ(CloseLoan(main(), Audio(), disc.key(), clock.today()), "Иванов");
    EXPECT_EQ(rows(day), "2003-11-14\n");
}

TEST_F(Ledger, BorrowersAreOnePerNameAndGoWithTheirLoans)
{
    const qint64 one = FindOrAddBorrower(main(), "Иванов");
    EXPECT_EQ(FindOrAddBorrower(main(), "ИВАНОВ"), one);
    EXPECT_NE(FindOrAddBorrower(main(), "Иванов \"младший\""), one);
    EXPECT_EQ(PhoneOf(main(), one), "нет");
    EXPECT_EQ(ChangePhone(main(), one, "123-45-67"), "123-45-67");
    EXPECT_EQ(ChangePhone(main(), one, ""), "нет");
    RenameBorrower(main(), one, "Яковлев");
    EXPECT_EQ(BorrowerNames(main()).join('|'), "Яковлев|Иванов \"младший\"");
    EXPECT_THROW(AddBorrower(main(), QString(LongestName + 1, u'я')), RuntimeError);

    const qint64 disc = shelf.dvd(1, "Фильм").lent("Яковлев", "2003-01-02", "2003-02-01").lent("Б", "2003-03-01").key();
    EXPECT_FALSE(DeleteBorrower(main(), shelf.borrower("Б"))) << "who has a disc";
    EXPECT_TRUE(DeleteBorrower(main(), one));
    QStringList history;
    for (const HistoryEntry& entry : HistoryOf(main(), Dvd(), disc))
        history += entry.borrower + entry.given.toString(u" d.M") + entry.returned.toString(u" d.M");
    EXPECT_EQ(history, QStringList("Б 1.3"));
}

/// The shelf and its ledger as a person would keep them on paper, and the same done by the program.
class LedgerLife : public Ledger, public testing::WithParamInterface<int> {
protected:
    struct Disc {
        const CatalogueKind* kind;
        qint64 key;
        int number;
        bool operator==(const Disc& other) const { return kind == other.kind && key == other.key; }
    };
    struct PaperLoan {
        QString borrower;
        const CatalogueKind* kind;
        qint64 disc;
        QDate given, due, returned;
    };

    int below(qsizetype limit) { return random.bounded(int(limit)); }
    QString name() { return u"Должник %1"_s.arg(below(7)); }
    QDate term() { return below(4) == 0 ? QDate() : clock.today().addDays(below(25)); }
    PaperLoan* openLoan(const Disc& disc)
    {
        for (PaperLoan& loan : loans)
            if (loan.kind == disc.kind && loan.disc == disc.key && !loan.returned.isValid()) return &loan;
        return nullptr;
    }
    NumberedDisc numbered(const Disc& disc) { return *DiscWithKey(main(), *disc.kind, disc.key); }

    void step()
    {
        const CommandScope command(engine);
        if (discs.size() < 4 || below(12) == 0) return addDisc();
        Disc& disc = discs[below(discs.size())];
        switch (below(15)) {
        case 0: return changeTerm(disc);
        case 1: return removeDisc(disc);
        case 2: return removeBorrower(name());
        case 3: return renumber(disc);
        case 4: return moveNumbers(*disc.kind, disc.number);
        case 5: return clock.pass(below(30));
        case 6: return engine.ReleaseAll(); // what the next step finds is what the files hold
        case 7: return breakOffQuickReturn(disc);
        case 8: return swapNumbers(disc);
        default: return openLoan(disc) ? takeBack(disc) : issue(disc);
        }
    }
    void addDisc()
    {
        const CatalogueKind& kind = *AllCatalogues()[std::size_t(below(3))];
        const int number = *FirstFreeNumber(main(), kind);
        discs += {&kind, shelf.disc(kind, number, "Диск").key(), number};
        const auto before = std::ranges::count_if(
            loans, [&](const PaperLoan& loan) { return loan.kind == &kind && loan.disc == discs.last().key; });
        EXPECT_EQ(before, 0) << "a new disc has a history";
    }
    void issue(const Disc& disc)
    {
        const QString borrower = name();
        const QDate due = term();
        EXPECT_TRUE(IssueDisc(main(), *disc.kind, disc.key, FindOrAddBorrower(main(), borrower), due));
        loans += {borrower, disc.kind, disc.key, clock.today(), due, {}};
    }
    void takeBack(const Disc& disc)
    {
        PaperLoan* loan = openLoan(disc);
        switch (below(3)) {
        case 0: TakeBack(main(), *disc.kind, disc.key, clock.today()); break;                     // by its catalogue
        case 1: TakeBack(main(), *disc.kind, disc.key, clock.today(), Closes::NewestOpen); break; // by the list
        default:                                                                                  // by its number
            EXPECT_EQ(CloseLoan(main(), *disc.kind, disc.key, clock.today()), loan->borrower);
            MarkLent(main(), *disc.kind, disc.key, false);
        }
        loan->returned = clock.today();
    }
    void changeTerm(const Disc& disc)
    {
        const QDate due = term();
        PaperLoan* loan = openLoan(disc);
        EXPECT_EQ(ChangeTerm(main(), *disc.kind, disc.key, due), loan != nullptr);
        if (loan) loan->due = due;
    }
    void removeDisc(const Disc& disc)
    {
        const bool out = openLoan(disc);
        EXPECT_EQ(RemoveDisc(program, *disc.kind, disc.key), !out);
        if (out) return;
        ++discsGone;
        discs.removeOne(Disc(disc));
    }
    void removeBorrower(const QString& borrower)
    {
        const auto key = FindBorrower(main(), borrower);
        const auto his = [&](const PaperLoan& loan) { return loan.borrower == borrower; };
        const bool owes = std::ranges::any_of(
            loans, [&](const PaperLoan& loan) { return his(loan) && !loan.returned.isValid(); });
        if (!key) return;
        EXPECT_EQ(DeleteBorrower(main(), *key), !owes);
        if (owes) return;
        borrowersGone += loans.removeIf(his) > 0;
    }
    /// Broken off at the question: the ledger has the disc back, its mark stays until another return.
    void breakOffQuickReturn(const Disc& disc)
    {
        PaperLoan* loan = openLoan(disc);
        if (!loan) return;
        CloseLoan(main(), *disc.kind, disc.key, clock.today());
        loan->returned = clock.today();
        EXPECT_FALSE(IssueDisc(main(), *disc.kind, disc.key, FindOrAddBorrower(main(), loan->borrower), {}));
        EXPECT_FALSE(HasOpenLoan(main(), *disc.kind, disc.key));
        TakeBack(main(), *disc.kind, disc.key, clock.today());
    }
    void renumber(Disc& disc)
    {
        const int number = *FirstFreeNumber(main(), *disc.kind, below(20));
        ChangeNumber(program, *disc.kind, numbered(disc), number);
        disc.number = number;
    }
    void swapNumbers(Disc& one)
    {
        const auto other = std::ranges::find_if(
            discs, [&](const Disc& each) { return each.kind == one.kind && each.key != one.key; });
        if (other == discs.end()) return;
        SwapNumbers(program, *one.kind, numbered(one), numbered(*other));
        std::swap(one.number, other->number);
        ++swaps;
    }
    void moveNumbers(const CatalogueKind& kind, int start)
    {
        int from = start;
        EXPECT_TRUE(MoveNumbers(program, kind, from));
        for (Disc& disc : discs)
            if (disc.kind == &kind && disc.number >= start) ++disc.number;
    }

    void compareDiscs()
    {
        for (const Disc& disc : discs) {
            const PaperLoan* loan = openLoan(disc);
            EXPECT_EQ(BorrowerOf(main(), *disc.kind, disc.key), loan ? loan->borrower : QString());
            EXPECT_EQ(numbered(disc).number, disc.number);
            QString told, expected;
            for (const HistoryEntry& entry : HistoryOf(main(), *disc.kind, disc.key))
                told += entry.borrower + entry.given.toString() + entry.returned.toString();
            for (const PaperLoan& past : loans)
                if (past.kind == disc.kind && past.disc == disc.key)
                    expected += past.borrower + past.given.toString() + past.returned.toString();
            EXPECT_EQ(told, expected);
        }
    }
    void compareList()
    {
        QStringList told, expected;
        Recordset list = main().OpenRecordset(LoanListSource({}, 0, false));
        for (; !list.AtEOF(); list.MoveNext()) {
            const ListedLoan loan = LoanWithKey(main(), list[u"КодДолжника"].toInt());
            told += list[u"Имя"].text() + loan.kind->code + loan.discText() + loan.due.toString();
        }
        for (const Disc& disc : discs)
            if (const PaperLoan* loan = openLoan(disc))
                expected += u"%1%2%3. Диск"_s.arg(loan->borrower, disc.kind->code).arg(disc.number) +
                            loan->due.toString();
        told.sort();
        expected.sort();
        EXPECT_EQ(told, expected);
    }
    void compareCounters()
    {
        const auto summary = Summarise(main());
        const PerCatalogue overdue = OverdueLoans(main(), clock.today());
        for (std::size_t i = 0; i < 3; ++i) {
            const CatalogueKind* kind = AllCatalogues()[i];
            const auto open = [&](const PaperLoan& loan) { return loan.kind == kind && !loan.returned.isValid(); };
            const auto late = [&](const PaperLoan& loan) {
                return open(loan) && loan.due.isValid() && loan.due <= clock.today();
            };
            EXPECT_EQ(summary[i].discs, std::ranges::count(discs, kind, &Disc::kind));
            EXPECT_EQ(summary[i].lent, std::ranges::count_if(loans, open));
            EXPECT_EQ(overdue[i], std::ranges::count_if(loans, late));
        }
    }
    void compareRatings()
    {
        for (int i = 0; i < 7; ++i) {
            const QString borrower = u"Должник %1"_s.arg(i);
            int all = 0, out = 0, days = 0;
            QString expected, told;
            for (const PaperLoan& loan : loans) {
                if (loan.borrower != borrower) continue;
                const bool back = loan.returned.isValid();
                const qint64 late = back && loan.due.isValid() ? qMax(qint64(0), loan.due.daysTo(loan.returned)) : 0;
                const auto disc = std::ranges::find(discs, Disc{loan.kind, loan.disc, 0});
                expected += u"%1 %2 %3;"_s.arg(loan.kind->code).arg(disc == discs.end() ? 0 : disc->number).arg(late);
                ++all;
                out += !back;
                days += int(late);
            }
            const int mean = all == 0 ? 0 : int(std::nearbyint(double(days) / all));
            const auto key = FindBorrower(main(), borrower);
            const auto record = key ? RecordOf(main(), *key, clock.today()) : QList<RecordedLoan>();
            for (const RecordedLoan& loan : record)
                told += u"%1 %2 %3;"_s.arg(loan.kind->code).arg(loan.number).arg(loan.daysLate);
            EXPECT_EQ(told, expected) << qPrintable(borrower);
            const Standing standing = StandingOf(record);
            EXPECT_EQ(standing.rating, qMin(mean, 80));
            EXPECT_EQ(standing.totalDays, days);
            EXPECT_EQ(standing.out, out);
            EXPECT_EQ(WarningAbout(main(), borrower, clock.today()), mean > 5 ? RatingWord(mean) : QString());
            warned += mean > 5;
        }
    }

    void compareReaders()
    {
        compareDiscs();
        compareList();
        compareCounters();
        compareRatings();
    }

    QRandomGenerator random;
    QList<Disc> discs;
    QList<PaperLoan> loans;
    qsizetype borrowersGone = 0, discsGone = 0, swaps = 0, warned = 0;
};

TEST_P(LedgerLife, LedgerMarksCountersAndRatingsAgreeAfterWhateverIsDone)
{
    random.seed(GetParam());
    for (int done = 1; done <= 150 && !HasFailure(); ++done) {
        SCOPED_TRACE(done);
        step();
        compareMarks();
        if (done % 6 == 0) compareReaders(); // what is wrong in the ledger stays there
    }
    EXPECT_TRUE(loans.size() > 20 && borrowersGone > 0 && discsGone > 0 && swaps > 0 && warned > 0)
        << "a life in which nothing happens proves nothing: " << loans.size() << ' ' << borrowersGone << ' '
        << discsGone << ' ' << swaps << ' ' << warned;
}
INSTANTIATE_TEST_SUITE_P(Seeds, LedgerLife, testing::Values(1, 2, 3));

/// Lends, takes back and forgets for ever, a command at a time.
[[noreturn]] void lendUntilKilled(const QString& path, int discs)
{
    const SystemClock clock;
    DBEngine engine(clock);
    const Database main = engine.OpenDatabase(path);
    auto& random = *QRandomGenerator::system();
    for (;;) {
        CommandScope command(engine);
        const CatalogueKind& kind = *AllCatalogues()[std::size_t(random.bounded(3))];
        const qint64 disc = random.bounded(discs) + 1;
        const QString name = u"Должник %1"_s.arg(random.bounded(9));
        const auto known = FindBorrower(main, name);
        if (known && !HasOpenLoans(main, *known))
            DeleteBorrower(main, *known);
        else if (!IssueDisc(main, kind, disc, FindOrAddBorrower(main, name), clock.today()))
            TakeBack(main, kind, disc, clock.today());
        command.end();
    }
}

TEST_F(Ledger, AKillInACommandLeavesMarksAndLoansAgreed)
{
    constexpr int discs = 12;
    for (const CatalogueKind* kind : AllCatalogues())
        for (int number = 1; number <= discs; ++number) shelf.disc(*kind, number, "Диск");
    qint64 lent = 0;
    // On a busy machine a child may be killed before it has done anything.
    for (int kills = 0; (kills < 30 || lent <= 30) && kills < 300 && !HasFailure(); ++kills) {
        engine.ReleaseAll();
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) lendUntilKilled(path("vinora.db"), discs);
        ::usleep(QRandomGenerator::global()->bounded(5'000, 30'000));
        ::kill(child, SIGKILL);
        ASSERT_EQ(::waitpid(child, nullptr, 0), child);
        compareMarks();
        lent = main().Scalar(u"SELECT MAX(КодДолжника) FROM Должники").toLong();
    }
    EXPECT_GT(lent, 30) << "no command was ever finished";
}
}
