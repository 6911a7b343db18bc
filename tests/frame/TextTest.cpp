#include "frame/Text.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

TEST(Text, IsCleanedOfWhatWouldBreakACriterion)
{
    EXPECT_EQ(CleanText("Группа \"Кино\" [live]"), "Группа 'Кино' (live)");
}

TEST(Text, DatesAreRussianWhateverTheLocale)
{
    const QDate day(2003, 1, 5);
    for (const QLocale& users : {QLocale(QLocale::English, QLocale::UnitedStates), QLocale(QLocale::Russian)}) {
        QLocale::setDefault(users);
        EXPECT_EQ(FormatDate(day, u"d MMMM (dddd)"_s), u"5 января (воскресенье)"_s);
        EXPECT_EQ(FormatDate(day, u"d MMMM yyyy г."_s), u"5 января 2003 г."_s);
        EXPECT_EQ(FormatDate({}, u"d MMMM yyyy г."_s), QString());
        EXPECT_EQ(FormatNumber(1234.5, 2, false), u"1234,50"_s);
        EXPECT_EQ(FormatNumber(1234567, 0, true), u"1\u00a0234\u00a0567"_s);
    }
    QLocale::setDefault(QLocale::c());
}

TEST(Text, OnlyNumbersThatADiscCanHaveAreNumbers)
{
    const std::pair<const char*, int> entries[] = {{"1", 1},     {" 12 ", 12}, {"32767", 32767},
                                                   {"32768", 0}, {"0", 0},     {"-3", 0},
                                                   {"", 0},      {"1a", 0},    {"99999999999", 0}};
    for (auto [entry, number] : entries) EXPECT_EQ(DiscNumber(entry), number) << entry;
}

class NumberBox : public testing::Test {
protected:
    QLineEdit box;

    QString keys(const QString& text)
    {
        for (QChar c : text) QTest::sendKeyEvent(QTest::Click, &box, Qt::Key_unknown, QString(c), Qt::NoModifier);
        return box.text();
    }
    QString paste(const QString& text)
    {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
        return box.text();
    }
};

TEST_F(NumberBox, TakesDigitsAloneHoweverTheyCome)
{
    DigitKeys(&box);
    EXPECT_EQ(keys("1я2-"), "12");
    EXPECT_EQ(paste("№ 3\n4"), "1234");
    QInputMethodEvent composed;
    composed.setCommitString("五5");
    QApplication::sendEvent(&box, &composed);
    EXPECT_EQ(box.text(), "12345");
    QTest::keyClick(&box, Qt::Key_Backspace);
    EXPECT_EQ(box.text(), "1234");
    box.selectAll();
    EXPECT_EQ(keys("x"), "1234") << "a stray letter replaces no selection";
    EXPECT_EQ(keys("5"), "5");
}

TEST_F(NumberBox, ForADiscCountTakesOneDigitUpToSix)
{
    DiscCountKeys(&box);
    EXPECT_EQ(keys("0798"), "");
    EXPECT_EQ(keys("63"), "6");
    box.clear();
    const QString pasted = paste("742");
    EXPECT_LE(pasted.size(), 1);
    EXPECT_FALSE(pasted.contains(u'7'));
}
