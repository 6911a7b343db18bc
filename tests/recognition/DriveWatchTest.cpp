#include "recognition/DriveWatch.h"
#include "harness/ScreenTest.h"
#include "recognition/BoundDisc.h"

namespace {

/// What the window shows, one catalogue a line: "audio: [12] label, link", in brackets the picture, "hidden" before it.
class Watch : public ScreenTest {
protected:
    FakeDrive& d = drives.add('D');
    DriveWatch watch{program};

    Watch() { setOption("Drive", "D:\\"); }

    /// Ticks and prints; the first tick of the blinking is part of it.
    QString tick()
    {
        if (watch.tick()) blinkStarts = true;
        return signs();
    }
    QString signs()
    {
        const char* states[] = {"?", "no disc", "disc"};
        QString text = states[int(watch.signs().state)];
        for (std::size_t i = 0; i < 3; ++i) {
            const DriveSign& sign = watch.signs().catalogues[i];
            if (!sign.flagged && !sign.shown && !sign.linkShown) continue;
            text += u"; %1 %2%3 \"%4\""_s.arg(AllCatalogues()[i]->code, sign.shown ? "" : "hidden ",
                                              sign.numbered ? "known" : "unknown",
                                              QString(sign.label).replace('\r', '/'));
            if (sign.linkShown) text += u" <%1>"_s.arg(sign.link());
        }
        return text;
    }
    bool blinkStarts = false;
};

const QString Unbound = u"\"Диск (?)/не привязан не к одному номеру в каталоге\""_s;

}

TEST_F(Watch, ShowsAKnownDiscOfEachKindWithItsNumber)
{
    shelf.audio(7, "Кино", "Группа крови").bound(1, "A0D10");
    shelf.computer(12, "Debian").discs(3).bound(1, "F").bound(2, "12").bound(3, "12");
    shelf.dvd(5, "Солярис").bound(2, "DD"); // a binding left by a reduction to one disc

    d.medium = FakeDisc::data("Audio CD", 0xA0D10, 221);
    EXPECT_EQ(tick(), "disc; AD known \"Диск № 7:/Кино - Группа крови\" <Удалить привязку>");
    d.medium = FakeDisc::data("DEBIAN", 0x12);
    EXPECT_EQ(tick(), "disc; PC known \"Диск № 12 (CD3):/Debian\" <Удалить привязку>");
    d.medium = FakeDisc::dvd("FILM", 0xDD);
    EXPECT_EQ(tick(), "disc; DVD known \"Диск № 5:/Солярис\" <Удалить привязку>");
    const auto film = d.medium;
    d.medium.reset();
    EXPECT_EQ(tick(), "no disc");
    EXPECT_EQ(d.asked + film->touched, 0) << "the watch never asks the drive afresh nor touches the medium";

    d.glances = 0;
    program.settings().removeKey(u"Option", u"Drive");
    d.medium = film;
    EXPECT_EQ(tick(), "no disc");
    EXPECT_EQ(d.glances, 0) << "without the setting nothing happens";
}

TEST_F(Watch, OffersToBindAnUnknownDiscUnlessTheCatalogueIsEmpty)
{
    QString shown;
    shelf.dvd(1, "Солярис");
    d.medium = FakeDisc::data("GAMES", 0x12);
    EXPECT_EQ(tick(), "disc; PC hidden unknown " + Unbound);
    EXPECT_TRUE(blinkStarts);
    d.medium = FakeDisc::dvd("FILM", 0xDD);
    EXPECT_EQ(tick(), "disc; DVD hidden unknown " + Unbound + " <Привязать>");
    for (const bool steady : {false, false, true, true}) {
        watch.blink(steady);
        shown += watch.signs().catalogues[CatalogueIndex(Dvd())].shown ? '+' : '-';
    }
    EXPECT_EQ(shown, "+-++");
}

TEST_F(Watch, LooksADiscUpOnceUntilItIsReset)
{
    d.medium = FakeDisc::data("DEBIAN", 0x12);
    tick();
    shelf.computer(12, "Debian").bound(1, "12");
    blinkStarts = false;
    EXPECT_EQ(tick(), "disc; PC hidden unknown " + Unbound);
    EXPECT_FALSE(blinkStarts);
    watch.reset();
    EXPECT_EQ(signs(), "?");
    EXPECT_EQ(tick(), "disc; PC known \"Диск № 12:/Debian\" <Удалить привязку>");
}

TEST_F(Watch, CountsAnIgnoredDiscAsNoneAndLeavesOneWithoutIdentifierAlone)
{
    d.medium = FakeDisc::data("DEBIAN", 0x12);
    tick();
    d.medium = FakeDisc::data("NAMELESS", 0);
    EXPECT_EQ(tick(), "disc; PC hidden unknown " + Unbound) << "the sign stays as it was";
    d.medium = FakeDisc::data("ODD", 0, 64);
    EXPECT_EQ(tick(), "no disc") << "nothing would remember what the user says of it";
    program.skipcd().write(u"CD", u"12", "n/a");
    d.medium = FakeDisc::data("DEBIAN", 0x12);
    EXPECT_EQ(tick(), "no disc");
}

TEST_F(Watch, AsksForTheCategoryWhenNobodyIsDisturbed)
{
    d.medium = FakeDisc::data("ODD", 0xBAD, 64);
    Guarded(program, "frmDue, cmdAdd()"_L1, [&] { EXPECT_EQ(tick(), "?"); });
    program.shared.DriveWatchPaused = true;
    EXPECT_EQ(tick(), "?");
    program.shared.DriveWatchPaused = false;
    class Browser : public Screen {
    public:
        explicit Browser(Program& owner) : Screen(owner, "frmBrowser", "Каталог") {}
    };
    run<Browser>([&]() -> Script {
        co_await act([&] { EXPECT_EQ(tick(), "?"); });
        const auto odd = std::exchange(d.medium, FakeDisc::data("GAMES", 0x12));
        co_await act([&] { EXPECT_EQ(tick(), "disc; PC hidden unknown " + Unbound) << "no question, no wait"; });
        d.medium = odd;
    });
    play([&] { tick(); },
         [&]() -> Script {
             EXPECT_EQ(windowName(), "frmSelectCategory");
             co_await act([&] { EXPECT_FALSE(watch.tick()); }); // a tick under the dialog
             co_await click("optDVD");
             co_await click("imgButton_0");
         });
    EXPECT_EQ(signs(), "disc; DVD hidden unknown " + Unbound);
}

TEST_F(Watch, ReportsABrokenDatabaseOnceAsItsOwnFault)
{
    program.mainDatabase().DropTable("DVD");
    d.medium = FakeDisc::dvd("FILM", 0xDD);
    expectFault("frmMain, tmrCheckCD_Timer()");
    play([&] { tick(); });
}

using Bindings = ScreenTest;

TEST_F(Bindings, AreFoundInTheFirstRowAndThereInTheLastSlot)
{
    shelf.audio(1, "Первый").bound(1, "F00");
    shelf.audio(9, "Второй", "Альбом").discs(4).bound(2, "ABC").bound(5, "ABC");
    shelf.audio(3, "Третий").bound(1, "ABC");
    const Database main = program.mainDatabase();

    const auto found = FindBoundDisc(main, Audio(), "ABC");
    ASSERT_TRUE(found);
    EXPECT_EQ(std::tuple(found->number, found->disc, found->discs), std::tuple(9, 5, 4));
    EXPECT_EQ(found->title, "Второй - Альбом");
    EXPECT_EQ(FindBoundDisc(main, Audio(), "ABC", 4)->disc, 2);
    EXPECT_EQ(FindBoundDisc(main, Audio(), "ABC", 1)->number, 3);
    for (const char* id : {"", "AB", "\"", "%"}) EXPECT_FALSE(FindBoundDisc(main, Audio(), id)) << id;
    EXPECT_FALSE(FindBoundDisc(main, Dvd(), "ABC"));
}
