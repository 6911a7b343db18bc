#include "frame/Text.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

TEST(Text, CleansWhatWouldBreakACriterion)
{
    EXPECT_EQ(CleanText(u"Группа \"Кино\" [live]"_s), u"Группа 'Кино' (live)"_s);
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

    void keys(const QString& text)
    {
        for (QChar c : text) QTest::sendKeyEvent(QTest::Click, &box, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
    void paste(const QString& text)
    {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    }
    void compose(const QString& text)
    {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(&box, &event);
    }
};

TEST_F(NumberBox, TakesDigitsAlone)
{
    DigitKeys(&box);
    keys(u"1я2-"_s);
    EXPECT_EQ(box.text(), u"12"_s);
    paste(u"№ 3\n4"_s);
    EXPECT_EQ(box.text(), u"1234"_s);
    compose(u"五5"_s);
    EXPECT_EQ(box.text(), u"12345"_s);
    QTest::keyClick(&box, Qt::Key_Backspace);
    EXPECT_EQ(box.text(), u"1234"_s);
}

TEST_F(NumberBox, KeepsASelectionThatAStrayLetterWouldReplace)
{
    DigitKeys(&box);
    box.setText(u"17"_s);
    box.selectAll();
    keys(u"x"_s);
    EXPECT_EQ(box.text(), u"17"_s);
    keys(u"5"_s);
    EXPECT_EQ(box.text(), u"5"_s);
}

TEST_F(NumberBox, ForADiscCountTakesOneDigitUpToSix)
{
    DiscCountKeys(&box);
    keys(u"0798"_s);
    EXPECT_EQ(box.text(), QString());
    keys(u"63"_s);
    EXPECT_EQ(box.text(), u"6"_s);
    box.clear();
    paste(u"742"_s);
    EXPECT_LE(box.text().size(), 1);
    EXPECT_FALSE(box.text().contains(u'7'));
}
