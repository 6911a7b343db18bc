#include "harness/ScreenTest.h"
#include "recognition/DiscIdentity.h"

#include <QDir>

namespace {

/// A drive D with a disc that only the user can tell: a volume of 64 characters per name.
class Category : public ScreenTest {
protected:
    const QString drive = u"D:\\"_s;
    FakeDrive& d = drives.add('D', FakeDisc::data("ODD", 0x0BADD15C, 64));

    void expectDoubt(Answer answer)
    {
        expectBox("Вы не указали категорию диска, он не будет привязан не к одной из категорий. Продолжить?",
                  Box::Question, answer);
    }
    void expectChangeQuestion(Answer answer)
    {
        expectBox("Используйте эту функцию для корректировки принадлежности диска к какой-либо категории при "
                  "невозможности определить ее верно в автоматическом режиме! Продолжить?",
                  Box::Question, answer);
    }
    QString stored() { return ReadSkipCD(program, "BADD15C"); }
};

}

TEST_F(Category, IsAskedOnceAndRemembered)
{
    play([&] { EXPECT_EQ(GetDiskIDcheck(program, drive), "DVD"); },
         [&]() -> Script {
             EXPECT_EQ(windowName(), "frmSelectCategory");
             EXPECT_EQ(shown("lblInfo"), "Укажите верную категорию:");
             EXPECT_TRUE(checked("optAD"));
             co_await picture("frmSelectCategory");
             co_await click("optDVD");
             co_await click("imgButton_0");
         });
    EXPECT_EQ(stored(), "DVD");
    EXPECT_FALSE(program.shared.DialogDone);
    play([&] {
        EXPECT_EQ(GetDiskID(program, drive), "BADD15C");
        EXPECT_EQ(GetDiskIDcheck(program, drive), "DVD");
    });
    EXPECT_EQ(program.shared.CurrentDiscID, "");
}

TEST_F(Category, IsAskedOnceEvenWhereTheAnswerCannotBeStored)
{
    QDir(folder.path()).mkdir("skipcd.ini");
    expectDoubt(Answer::Yes);
    play([&] { EXPECT_EQ(GetDiskID(program, drive), ""); }, [&]() -> Script { co_await key(Qt::Key_Escape); });
    play([&] { EXPECT_EQ(GlanceAt(program, drive).disc.kind, ""); });
}

TEST_F(Category, RefusedAndConfirmedMakesTheDiscNoMedium)
{
    expectDoubt(Answer::Yes);
    play([&] { EXPECT_EQ(GetDiskID(program, drive), ""); }, [&]() -> Script { co_await key(Qt::Key_Escape); });
    EXPECT_EQ(stored(), "n/a");
    play([&] { EXPECT_EQ(GetDiskIDcheck(program, drive), ""); });
}

TEST_F(Category, RefusedByMistakeIsAskedAgainWithTheSameChoice)
{
    expectDoubt(Answer::No);
    play([&] { Guarded(program, "test"_L1, [&] { EXPECT_EQ(GetDiskIDcheck(program, drive), "PcCD"); }); },
         [&]() -> Script {
             co_await click("optPC");
             co_await click("imgButton_1");
             EXPECT_TRUE(checked("optPC"));
             co_await click("imgButton_0");
         });
    EXPECT_EQ(stored(), "PC");
}

TEST_F(Category, ADiscWithoutSerialIsAskedAboutEachTimeAndNothingIsStored)
{
    d.medium->properties.serial = 0;
    const auto choose = [&]() -> Script { co_await click("imgButton_0"); };
    for (int time = 0; time < 2; ++time)
        play(
            [&] {
                const DiscInDrive disc = ReadDisc(program, drive);
                EXPECT_EQ(disc.kind, "AudioCD");
                EXPECT_EQ(disc.id, "");
            },
            choose);
    EXPECT_TRUE(program.skipcd().keys(u"CD").isEmpty());
}

TEST_F(Category, IsTakenFromTheDriveAfreshAndEmptyWithoutOne)
{
    d.medium = FakeDisc::data("GAMES", 0x12);
    EXPECT_EQ(GetDiskIDcheck(program, drive), "PcCD");
    d.medium.reset();
    EXPECT_EQ(GetDiskID(program, drive), "");
    EXPECT_EQ(GetDiskID(program, "Q:\\"), "");
    EXPECT_EQ(GetDiskID(program, ""), "");
    EXPECT_EQ(d.glances, 0);
    EXPECT_EQ(GetCDDrives(program), "DV");
}

TEST_F(Category, CorrectedByHandStopsTheWatchAndStoresTheAnswer)
{
    d.medium = FakeDisc::dvd("FILM", 0xF11);
    program.shared.CurrentDiscID = u"OTHER"_s;
    int stops = 0;
    bool asked = false;
    const auto change = [&] { asked = ChangeCategory(program, drive, [&] { ++stops; }); };

    expectChangeQuestion(Answer::No);
    play(change);
    EXPECT_EQ(stops, 0);
    EXPECT_FALSE(asked);

    expectChangeQuestion(Answer::Yes);
    play(change, [&]() -> Script {
        co_await click("optPC");
        co_await click("imgButton_0");
    });
    EXPECT_EQ(stops, 1);
    EXPECT_TRUE(asked);
    EXPECT_EQ(program.skipcd().keys(u"CD"), QStringList{"F11"}) << "no other disc is touched";
    EXPECT_EQ(GetDiskIDcheck(program, drive), "PcCD");

    program.skipcd().write(u"CD", u"F11", "n/a");
    expectChangeQuestion(Answer::Yes);
    expectBox("В устройстве D:\\ компакт-диск не обнаружен!");
    play(change);
    EXPECT_FALSE(asked);
    EXPECT_EQ(stops, 2) << "the watch stays stopped";
}
