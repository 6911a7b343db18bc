#include "platform/disc/CueSheet.h"
#include "LayoutText.h"
#include "platform/CodePage1251.h"

namespace {
std::string cue(const QByteArray& sheet, const FindSectorFile& files)
{
    return outcome([&] { return ReadCueSheet(sheet, files); });
}

const QByteArray MixedSheet = R"(CATALOG 0000000000000
PERFORMER "Кино"
TITLE "Группа крови"
FILE "disc.bin" BINARY
  TRACK 01 MODE1/2048
    INDEX 01 00:00:00
  TRACK 02 AUDIO
    FLAGS DCP
    TITLE "Закрой за мной дверь"
    PERFORMER "В. Цой"
    PREGAP 00:02:00
    INDEX 01 00:10:00
  TRACK 03 AUDIO
    INDEX 00 01:00:00
    INDEX 01 01:02:00
    TITLE "Война"
)";
const auto MixedFiles = NamedFiles().raw("disc.bin", 750 * 2048 + 6000 * 2352);
const char* const MixedLayout = "1 data 00:02:00\n"
                                "2 audio 00:14:00 В. Цой - Закрой за мной дверь\n"
                                "3 audio 01:06:00  - Война\n"
                                "out 01:34:00 Кино - Группа крови\n"
                                "150+750 disc.bin@0 2048/0\n";
}

TEST(CueSheet, SectorsOfDifferentSizesShareAFile) { EXPECT_EQ(cue(MixedSheet, MixedFiles), MixedLayout); }

TEST(CueSheet, TakesBothEncodingsAByteOrderMarkAndAnyLineEnd)
{
    EXPECT_EQ(cue("\xEF\xBB\xBF" + MixedSheet, MixedFiles), MixedLayout);
    EXPECT_EQ(cue(EncodeCp1251(QString::fromUtf8(MixedSheet)), MixedFiles), MixedLayout);
    EXPECT_EQ(cue(QByteArray(MixedSheet).replace("\n", "\r\n"), MixedFiles), MixedLayout);
    EXPECT_EQ(cue(QByteArray(MixedSheet).replace("\n", "\r"), MixedFiles), MixedLayout);
    EXPECT_EQ(
        cue(QByteArray(MixedSheet).replace("TRACK", "track").replace("FILE \"disc.bin\"", "File disc.bin"), MixedFiles),
        MixedLayout);
}

TEST(CueSheet, FilePerTrackWithThePauseAtTheEndOfTheOneBefore)
{
    const auto files = NamedFiles().sound("01 first.wav", 1000).sound("02.wav", 2000).raw("03.bin", 2352 * 500 + 17);
    EXPECT_EQ(cue("FILE 01 first.wav WAVE\nTRACK 01 AUDIO\nINDEX 00 00:00:00\nINDEX 01 00:00:33\n"
                  "TRACK 02 AUDIO\nINDEX 00 00:12:00\n"
                  "FILE \"02.wav\" WAVE\nINDEX 01 00:00:00\nINDEX 02 00:05:00\nPOSTGAP 00:01:00\n"
                  "TRACK 03 AUDIO\nFILE \"03.bin\" MOTOROLA\nPREGAP 00:00:10\nINDEX 01 00:00:00\n",
                  files),
              "1 audio 00:02:33\n2 audio 00:15:25\n3 audio 00:43:10\nout 00:49:60\n");
}

TEST(CueSheet, DataTracksOfEveryKindAndTheLastSession)
{
    const auto files =
        NamedFiles().raw("a.bin", 100 * 2352).raw("x.bin", 40 * 2352 + 20 * 2336).raw("y.bin", 30 * 2448);
    EXPECT_EQ(cue("REM SESSION 01\nFILE \"a.bin\" BINARY\nTRACK 01 AUDIO\nINDEX 01 00:00:00\nREM LEAD-OUT 00:03:25\n"
                  "REM SESSION 02\nFILE \"x.bin\" BINARY\nTRACK 02 MODE2/2352\nINDEX 01 00:00:00\n"
                  "TRACK 03 MODE2/2336\nINDEX 01 00:00:40\n"
                  "REM SESSION 03\nFILE \"y.bin\" BINARY\nTRACK 04 MODE1/2448\nINDEX 00 00:00:00\nINDEX 01 00:00:05\n",
                  files),
              "1 audio 00:02:00\n2 data 02:35:25\n3 data 02:35:65\n4 data 04:08:15\nout 04:08:40\n"
              "11650+40 x.bin@0 2352/24\n11690+20 x.bin@94080 2336/8\n18615+25 y.bin@12240 2448/16\nsession 18615\n");
}

TEST(CueSheet, LeadInWrittenAsPregapOfADataTrackIsNotCountedTwice)
{
    const auto files = NamedFiles().raw("a.bin", 100 * 2352);
    EXPECT_EQ(cue("FILE \"a.bin\" BINARY\nTRACK 01 MODE1/2352\nPREGAP 00:02:00\nINDEX 01 00:00:00\n", files),
              "1 data 00:02:00\nout 00:03:25\n150+100 a.bin@0 2352/16\n");
    EXPECT_EQ(cue("FILE \"a.bin\" BINARY\nTRACK 01 AUDIO\nPREGAP 00:00:33\nINDEX 01 00:00:00\n", files),
              "1 audio 00:02:33\nout 00:03:58\n");
}

TEST(CueSheet, ErrorsNameTheLine)
{
    const auto files = NamedFiles().raw("a.bin", 100 * 2352).sound("a.wav", 100);
    const QByteArray head = "FILE \"a.bin\" BINARY\nTRACK 01 AUDIO\n";
    const std::pair<QByteArray, const char*> sheets[] = {
        {"", "error: В образе нет ни одной дорожки."},
        {"\nFILE \"b.bin\" BINARY\n", "error: Строка 2: файл 'b.bin' не найден."},
        {"FILE \"a.bin\" MP3\n", "error: Строка 1: файл 'a.bin' неизвестного формата."},
        {"TRACK 01 AUDIO\nINDEX 01 00:00:00\n", "error: Строка 2: позиция вне файла или дорожки."},
        {head + "INDEX 01 00:01:75\n", "error: Строка 3: '00:01:75' - не позиция вида 00:00:00."},
        {head + "INDEX 01 00:01:26\n", "error: Строка 3: позиция вне файла или раньше предыдущей."},
        {head + "INDEX 00 00:01:00\nINDEX 01 00:00:00\n", "error: Строка 4: позиция вне файла или раньше предыдущей."},
        {head + "INDEX 01 00:01:25\n", "error: Дорожка 1 пуста."},
        {head + "INDEX 01 9999:59:74\n", "error: Строка 3: позиция вне файла или раньше предыдущей."},
        {head + "TRACK 02 AUDIO\n", "error: Строка 3: у дорожки 1 нет начала."},
        {"FILE \"a.wav\" WAVE\nTRACK 01 MODE1/2352\n", "error: Строка 2: в звуковом файле не может быть данных."},
        {"FILE \"a.bin\" BINARY\nTRACK 01 MODE7\n", "error: Строка 2: неизвестный вид дорожки 'MODE7'."},
        {"FILE \"a.bin\" BINARY\nTRACK 100 AUDIO\n", "error: Строка 2: '100' - не номер."},
        {head + "INDEX 01 00:00:00\nTRACK 01 AUDIO\nINDEX 01 00:00:10\n", "error: Неверный номер дорожки: 1."},
        {head + "INDEX\n", "error: Строка 3: строка не закончена."},
    };
    for (const auto& [sheet, error] : sheets) EXPECT_EQ(cue(sheet, files), error) << sheet.toStdString();
    QByteArray endless;
    for (int i = 0; i < 300; ++i) endless += "POSTGAP 9999:59:74\n";
    EXPECT_EQ(cue(head + "INDEX 01 00:00:00\n" + endless, files), "error: Образ описывает диск невозможного размера.");
}

TEST(CueSheet, CutAfterEveryByteGivesALayoutOrAnError)
{
    cutEverywhere(MixedSheet, [](const QByteArray& cut) { return ReadCueSheet(cut, MixedFiles); });
}
