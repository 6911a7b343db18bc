#include "platform/disc/TocSheet.h"
#include "LayoutText.h"

namespace {
std::string toc(const QByteArray& sheet, const FindSectorFile& files)
{
    return outcome([&] { return ReadTocSheet(sheet, files); });
}

const QByteArray MixedSheet = R"(CD_ROM_XA // a comment
CATALOG "0000000000000"
CD_TEXT {
  LANGUAGE_MAP { 0 : EN  1 : 9 }
  LANGUAGE 0 {
    TITLE "Best \"of\""
    PERFORMER "\313\363\354\345\355"
    SIZE_INFO { 0, 1, 2,
                3 }
  }
  LANGUAGE 1 { TITLE "other" }
}
// Track 1
TRACK MODE1_RAW
NO COPY
ZERO 00:01:00
DATAFILE "data.bin" #2352 00:02:00 // length in bytes: 352800
START 00:01:00
TRACK AUDIO
NO PRE_EMPHASIS
TWO_CHANNEL_AUDIO
ISRC "USXXX1700001"
CD_TEXT { LANGUAGE 0 { TITLE "Первая" PERFORMER "" } }
SILENCE 588
AUDIOFILE "a.wav" 0 00:05:00
START 00:00:01
INDEX 00:01:00
TRACK AUDIO RW
PREGAP 00:00:10
FILE "a.wav" 00:05:00
)";
const auto MixedFiles = NamedFiles().raw("data.bin", 151 * 2352).sound("a.wav", 1000);
const char* const MixedLayout = "1 data 00:03:00\n2 audio 00:05:01  - Первая\n3 audio 00:10:11\n"
                                "out 00:18:36 Лумен - Best \"of\"\n"
                                "225+150 data.bin@2352 2352/16\nsession 225\n";
}

TEST(TocSheet, PiecesPausesAndTitles)
{
    EXPECT_EQ(toc(MixedSheet, MixedFiles), MixedLayout);
    EXPECT_EQ(toc(QByteArray(MixedSheet).replace("\n", "\r\n"), MixedFiles), MixedLayout);
}

TEST(TocSheet, DataLengthsAreBytesAndAudioLengthsSamples)
{
    const auto files = NamedFiles().raw("d", 100 * 2048 - 5).raw("s", 50 * 2448).raw("a", 588 * 4 * 20);
    EXPECT_EQ(
        toc("TRACK MODE1 DATAFILE \"d\" 204800 TRACK MODE2_RAW RW_RAW DATAFILE \"s\" "
            "TRACK AUDIO AUDIOFILE \"a\" SWAP #2352 589 1000 START 100",
            files),
        "1 data 00:02:00\n2 data 00:03:25\n3 audio 00:04:01\nout 00:04:02\n150+100 d@0 2048/0\n250+50 s@0 2448/24\n");
}

TEST(TocSheet, ErrorsNameTheLine)
{
    const auto files = NamedFiles().raw("d", 100 * 2048).sound("w", 10);
    const std::pair<const char*, const char*> sheets[] = {
        {"CD_DA", "error: В образе нет ни одной дорожки."},
        {"CD_DA\nHELLO", "error: Строка 2: непонятное слово 'HELLO'."},
        {"\nTRACK MODE9", "error: Строка 2: неизвестный вид дорожки 'MODE9'."},
        {"TRACK MODE1\nDATAFILE \"e\"", "error: Строка 2: файл 'e' не найден."},
        {"TRACK MODE1\nDATAFILE \"d\" 204801", "error: Строка 2: файл короче указанного."},
        {"TRACK MODE1\nDATAFILE \"d\" #204801", "error: Строка 2: файл короче указанного."},
        {"TRACK MODE1\nDATAFILE \"w\"", "error: Строка 2: вид файла не подходит дорожке."},
        {"TRACK AUDIO\nAUDIOFILE \"w\" 00:00:11", "error: Строка 2: файл короче указанного."},
        {"TRACK AUDIO\nAUDIOFILE \"w\" x", "error: Строка 2: 'x' - не длина."},
        {"TRACK AUDIO SILENCE 99999999999999999999", "error: Строка 1: '99999999999999999999' - не длина."},
        {"TRACK AUDIO SILENCE 1000000000000000", "error: Образ описывает диск невозможного размера."},
        {"TRACK AUDIO SILENCE 00:01:00 START 00:02:00", "error: Строка 1: пауза длиннее дорожки."},
        {"TRACK AUDIO\nISRC\nSILENCE 1", "error: Строка 3: ожидался текст в кавычках."},
        {"CATALOG \"x\nTRACK AUDIO", "error: Строка 1: текст не закрыт кавычкой."},
        {"CD_TEXT {\n{}", "error: Строка 2: нет закрывающей '}'."},
    };
    for (const auto& [sheet, error] : sheets) EXPECT_EQ(toc(sheet, files), error) << sheet;
}

TEST(TocSheet, CutAfterEveryByteGivesALayoutOrAnError)
{
    cutEverywhere(MixedSheet, [](const QByteArray& cut) { return ReadTocSheet(cut, MixedFiles); });
}
