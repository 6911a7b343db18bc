#include "platform/Profile.h"
#include "platform/CodePage1251.h"
#include "platform/Literals.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {
class ProfileFile : public testing::Test {
protected:
    void put(const QString& text)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(EncodeCp1251(text));
    }
    QString text() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? DecodeCp1251(file.readAll()) : u"<no file>"_s;
    }

    QTemporaryDir folder;
    const QString path = folder.filePath("vinora.ini");
    const Profile profile{path};
};
}

TEST_F(ProfileFile, FindsNamesInAnyCaseAndTakesBlanksAndQuotesOff)
{
    put("stray=1\r\n[Option]\r\n  Drive =\tE:\\ \r\n;Drive=F:\\\r\nquoted=\" two "
        "\"\r\nsingle='x'\r\nhalf=\"y\r\nempty=\r\n"
        "equals=a=b\r\nDrive=second\r\n[ Запрос ]\nУсловие=новый\n[Option]\r\nhidden=1");
    EXPECT_EQ(profile.read(u"OPTION", u"drive"), "E:\\");
    EXPECT_EQ(profile.read(u"Option", u"quoted"), " two ");
    EXPECT_EQ(profile.read(u"Option", u"single"), "x");
    EXPECT_EQ(profile.read(u"Option", u"half"), "\"y");
    EXPECT_EQ(profile.read(u"Option", u"equals"), "a=b");
    EXPECT_EQ(profile.read(u"запрос", u"УСЛОВИЕ"), u"новый"_s);
    for (const char* nothing : {"empty", "stray", "hidden", "missing", ";Drive"})
        EXPECT_FALSE(profile.has(u"Option", QString(nothing))) << nothing;
    EXPECT_EQ(profile.keys(u"option"), QStringList({"Drive", "quoted", "single", "half", "empty", "equals", "Drive"}));
}

TEST_F(ProfileFile, CutsToTheReadersBuffer)
{
    put("[CD]\r\nlong=\"123456789\"\r\n");
    EXPECT_EQ(profile.read(u"CD", u"long", 5), "1234");
    EXPECT_EQ(profile.number(u"CD", u"long", 3), 12);
    EXPECT_EQ(profile.read(u"CD", u"long", 0), "");
}

TEST_F(ProfileFile, WritesInPlaceAndKeepsWhatStandsAround)
{
    put("; mine\r\n[Option]\r\nDRIVE = D:\\\n;note\r\nother=\"kept \"\r\n\r\n[CD]\r\n1A=PC");
    EXPECT_TRUE(profile.write(u"option", u"Drive", "E:\\"));
    EXPECT_TRUE(profile.write(u"Option", u"Путь", u"/дом→"_s));
    EXPECT_TRUE(profile.write(u"CD", u"2B", "n/a"));
    EXPECT_TRUE(profile.write(u"Новая", u"Ключ", u"два\r\n[слова]"_s));
    EXPECT_EQ(text(), u"; mine\r\n[Option]\r\nDRIVE =E:\\\r\n;note\r\nother=\"kept \"\r\nПуть=/дом?\r\n\r\n[CD]\r\n"
                      "1A=PC\r\n2B=n/a\r\n[Новая]\r\nКлюч=два  [слова]\r\n"_s);

    EXPECT_TRUE(profile.removeKey(u"OPTION", u"drive"));
    EXPECT_TRUE(profile.removeKey(u"OPTION", u"drive"));
    EXPECT_TRUE(profile.removeSection(u"cd"));
    EXPECT_EQ(
        text(),
        u"; mine\r\n[Option]\r\n;note\r\nother=\"kept \"\r\nПуть=/дом?\r\n\r\n[Новая]\r\nКлюч=два  [слова]\r\n"_s);
}

TEST_F(ProfileFile, StartsWithoutAFileAndRefusesNamesThatCouldNotBeReadBack)
{
    EXPECT_FALSE(profile.has(u"Option", u"Drive"));
    EXPECT_FALSE(profile.write(u"Option", u"a=b", "1"));
    EXPECT_FALSE(profile.write(u"Option", u" ", "1"));
    EXPECT_EQ(text(), "<no file>");
    EXPECT_TRUE(profile.write(u"[odd] name", u"key", "1"));
    EXPECT_EQ(profile.read(u"[odd] name", u"key"), "1");
}

TEST_F(ProfileFile, TooLargeOrUnreadableIsEmptyAndStaysAsItIs)
{
    const QByteArray large = "[Option]\r\nDrive=E:\\\r\n" + QByteArray(4 << 20, ';');
    put(QString::fromLatin1(large));
    EXPECT_FALSE(profile.has(u"Option", u"Drive"));
    EXPECT_FALSE(profile.write(u"Option", u"Drive", "F:\\"));
    EXPECT_EQ(QFileInfo(path).size(), large.size());

    EXPECT_FALSE(Profile(folder.path()).write(u"Option", u"Drive", "F:\\"));
    EXPECT_FALSE(Profile(folder.filePath("gone/vinora.ini")).write(u"Option", u"Drive", "F:\\"));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("vinora.ini"));
}

TEST(Val, TakesTheNumberThatTheTextBeginsWith)
{
    const std::pair<const char*, double> numbers[] = {
        {"", 0},    {"1 000,5 kg", 1000}, {" -2.5e1x", -25}, {"+.5", 0.5},    {"1d2", 100}, {"7e", 7}, {"+-3", 0},
        {"nan", 0}, {"inf", 0},           {"1e999", 0},      {"3 4\t5", 345}, {"5-3", 5},   {"x1", 0}, {".", 0}};
    for (auto [text, number] : numbers) EXPECT_EQ(Val(QString(text)), number) << text;
}

TEST(CodePage1251, EveryByteComesBack)
{
    QByteArray bytes;
    for (int i = 0; i < 256; ++i) bytes.append(char(i));
    EXPECT_EQ(EncodeCp1251(DecodeCp1251(bytes)), bytes);
    EXPECT_EQ(DecodeCp1251("\xA8\xE6\xB9\x88"), u"Ёж№€"_s);
}

TEST(CodePage1251, AsksForWhatThePageLacks)
{
    const QString text = u"a→😀"_s + QChar(0xD800) + u"я"_s;
    EXPECT_EQ(EncodeCp1251(text), "a???\xFF");
    EXPECT_EQ(EncodeCp1251(text, [](char32_t c) { return '&' + QByteArray::number(uint(c)) + ';'; }),
              "a&8594;&128512;&55296;\xFF");
    EXPECT_TRUE(FitsCp1251(u"Ёлка № 1"));
    EXPECT_FALSE(FitsCp1251(u"ă"));
    EXPECT_FALSE(FitsCp1251(u"😀"));
}
