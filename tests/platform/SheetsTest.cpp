#include "LayoutText.h"
#include "platform/CodePage1251.h"
#include "platform/disc/CueSheet.h"
#include "platform/disc/TocSheet.h"

namespace {
/// Files that exist in name and length only: raw ones by their bytes, sound by its frames.
class NamedFiles {
public:
    NamedFiles& raw(const QString& name, qint64 length) { return add({name, 0, length, false}); }
    NamedFiles& sound(const QString& name, qint64 frames) { return add({name, 0, frames * 2352, true}); }
    operator FindSectorFile() const
    {
        return [files = files](const QString& name) {
            return files.contains(name) ? std::optional(files[name]) : std::nullopt;
        };
    }

private:
    NamedFiles& add(const SectorFile& file) { return files[file.path] = file, *this; }

    QMap<QString, SectorFile> files;
};

std::string cue(const QByteArray& sheet, const FindSectorFile& files)
{
    return outcome([&] { return ReadCueSheet(sheet, files); });
}
std::string toc(const QByteArray& sheet, const FindSectorFile& files)
{
    return outcome([&] { return ReadTocSheet(sheet, files); });
}

const QByteArray CueSheet = R"(CATALOG 0000000000000
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
const auto CueFiles = NamedFiles().raw("disc.bin", 750 * 2048 + 6000 * 2352);
const char* const CueLayout = "1 data 00:02:00\n"
                              "2 audio 00:14:00 В. Цой - Закрой за мной дверь\n"
                              "3 audio 01:06:00  - Война\n"
                              "out 01:34:00 Кино - Группа крови\n"
                              "150+750 disc.bin@0 2048/0\n";

const QByteArray TocSheet = R"(CD_ROM_XA // a comment
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
const auto TocFiles = NamedFiles().raw("data.bin", 151 * 2352).sound("a.wav", 1000);
const char* const TocLayout = "1 data 00:03:00\n2 audio 00:05:01  - Первая\n3 audio 00:10:11\n"
                              "out 00:18:36 Лумен - Best \"of\"\n"
                              "225+150 data.bin@2352 2352/16\nsession 225\n";
}

TEST(CueSheets, TakesBothEncodingsAByteOrderMarkAndAnyLineEnd)
{
    const auto with = [](const char* before, const char* after) { return QByteArray(CueSheet).replace(before, after); };
    for (const QByteArray& sheet :
         {CueSheet, "\xEF\xBB\xBF" + CueSheet, EncodeCp1251(QString(CueSheet)), with("\n", "\r\n"), with("\n", "\r"),
          with("TRACK", "track"), with("FILE \"disc.bin\"", "File disc.bin")})
        EXPECT_EQ(cue(sheet, CueFiles), CueLayout);
}

TEST(CueSheets, FilePerTrackWithThePauseAtTheEndOfTheOneBefore)
{
    const auto files = NamedFiles().sound("01 first.wav", 1000).sound("02.wav", 2000).raw("03.bin", 2352 * 500 + 17);
    EXPECT_EQ(cue("FILE 01 first.wav WAVE\nTRACK 01 AUDIO\nINDEX 00 00:00:00\nINDEX 01 00:00:33\n"
                  "TRACK 02 AUDIO\nINDEX 00 00:12:00\n"
                  "FILE \"02.wav\" WAVE\nINDEX 01 00:00:00\nINDEX 02 00:05:00\nPOSTGAP 00:01:00\n"
                  "TRACK 03 AUDIO\nFILE \"03.bin\" MOTOROLA\nPREGAP 00:00:10\nINDEX 01 00:00:00\n",
                  files),
              "1 audio 00:02:33\n2 audio 00:15:25\n3 audio 00:43:10\nout 00:49:60\n");
}

TEST(CueSheets, DataTracksOfEveryKindAndTheLastSession)
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
    // A lead-in that is written down as a pregap of data counts once.
    EXPECT_EQ(cue("FILE \"a.bin\" BINARY\nTRACK 01 MODE1/2352\nPREGAP 00:02:00\nINDEX 01 00:00:00\n", files),
              "1 data 00:02:00\nout 00:03:25\n150+100 a.bin@0 2352/16\n");
}

TEST(CueSheets, ErrorsNameTheLine)
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

TEST(TocSheets, PiecesPausesAndTitles)
{
    EXPECT_EQ(toc(TocSheet, TocFiles), TocLayout);
    EXPECT_EQ(toc(QByteArray(TocSheet).replace("\n", "\r\n"), TocFiles), TocLayout);
}

TEST(TocSheets, DataLengthsAreBytesAndAudioLengthsSamples)
{
    const auto files = NamedFiles().raw("d", 100 * 2048 - 5).raw("s", 50 * 2448).raw("a", 588 * 4 * 20);
    EXPECT_EQ(
        toc("TRACK MODE1 DATAFILE \"d\" 204800 TRACK MODE2_RAW RW_RAW DATAFILE \"s\" "
            "TRACK AUDIO AUDIOFILE \"a\" SWAP #2352 589 1000 START 100",
            files),
        "1 data 00:02:00\n2 data 00:03:25\n3 audio 00:04:01\nout 00:04:02\n150+100 d@0 2048/0\n250+50 s@0 2448/24\n");
}

TEST(TocSheets, ErrorsNameTheLine)
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

TEST(Sheets, CutAfterEveryByteGiveALayoutOrAnError)
{
    cutEverywhere(CueSheet, [](const QByteArray& cut) { return ReadCueSheet(cut, CueFiles); });
    cutEverywhere(TocSheet, [](const QByteArray& cut) { return ReadTocSheet(cut, TocFiles); });
}
