#include "ui/PrefixCompletion.h"

#include "platform/Literals.h"

#include <QtTest>
#include <gtest/gtest.h>

namespace {

class Completion : public testing::Test {
protected:
    void SetUp() override { completion.setItems({u"Кино"_s, u"Кинчев"_s, u"Metallica"_s}); }

    void type(const QString& text)
    {
        for (const QChar c : text) QTest::sendKeyEvent(QTest::Click, &box, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
    void press(Qt::Key key) { QTest::keyClick(&box, key); }
    /// The text with the selected part in brackets.
    QString shown() const
    {
        QString text = box.text();
        if (!box.hasSelectedText()) return text;
        return text.insert(box.selectionEnd(), u']').insert(box.selectionStart(), u'[');
    }

    QLineEdit box;
    PrefixCompletion completion{&box, nullptr};
};

}

TEST_F(Completion, FirstItemFillsTheBoxInItsOwnCaseAndTypingOnReplacesTheTail)
{
    type(u"к"_s);
    EXPECT_EQ(shown(), u"К[ино]"_s);
    type(u"ин"_s);
    EXPECT_EQ(shown(), u"Кин[о]"_s);
    type(u"ч"_s);
    EXPECT_EQ(shown(), u"Кинч[ев]"_s);
    type(u"я"_s);
    EXPECT_EQ(shown(), u"Кинчя"_s);
}

TEST_F(Completion, BackspaceCutsToWhatLiesBeforeTheSelectionAndDoesNotComplete)
{
    type(u"ки"_s);
    press(Qt::Key_Backspace);
    EXPECT_EQ(shown(), u"Ки"_s);
    press(Qt::Key_Backspace);
    EXPECT_EQ(shown(), u"К"_s);
    type(u"и"_s);
    EXPECT_EQ(shown(), u"Ки[но]"_s) << "the next letter completes again";

    box.setSelection(1, 1);
    press(Qt::Key_Backspace);
    EXPECT_EQ(shown(), u"К"_s) << "also what lies behind the selection goes";
    box.undo();
    EXPECT_NE(box.text(), u"К"_s);
}

TEST_F(Completion, DeleteTakesTheTailAwayOnceAndForOneChange)
{
    type(u"ме"_s);
    box.clear();
    type(u"m"_s);
    EXPECT_EQ(shown(), u"M[etallica]"_s);
    press(Qt::Key_Delete);
    EXPECT_EQ(shown(), u"M"_s);
    press(Qt::Key_Delete); // changes nothing, so it is the next change that does not complete
    type(u"e"_s);
    EXPECT_EQ(shown(), u"Me"_s);
    type(u"t"_s);
    EXPECT_EQ(shown(), u"Met[allica]"_s);
}

TEST_F(Completion, KeepsToTheLengthOfTheBoxAndToItsOwnersWord)
{
    box.setMaxLength(5);
    type(u"me"_s);
    EXPECT_EQ(shown(), u"Me[tal]"_s);
    bool active = false;
    completion.setActive([&] { return active; });
    box.setText(u"к"_s);
    EXPECT_EQ(shown(), u"к"_s);
    active = true;
    box.setText(u"ки"_s);
    EXPECT_EQ(shown(), u"Ки[но]"_s);
}

TEST_F(Completion, CutAndUndoTakeAwayWithoutCompleting)
{
    type(u"ки"_s);
    box.cut();
    EXPECT_EQ(shown(), u"Ки"_s);
    box.setSelection(0, 1);
    box.cut();
    EXPECT_EQ(shown(), u"и"_s);

    box.clear();
    type(u"me"_s);
    for (int step = 0; step < 20 && box.isUndoAvailable(); ++step) box.undo();
    EXPECT_EQ(box.text(), QString()) << "every step leads further back";

    box.setText(u"Кинчев"_s);
    box.selectAll();
    type(u"m"_s);
    EXPECT_EQ(shown(), u"M[etallica]"_s) << "typing over a longer text completes";
}

TEST_F(Completion, OfAListTakesWhatWasChosenAsItIsAndALetterWithTheTail)
{
    completion.setTypedOnly();
    box.setText(u"Ки"_s);
    EXPECT_EQ(shown(), u"Ки"_s) << "chosen";
    type(u"н"_s);
    EXPECT_EQ(shown(), u"Кин[о]"_s);
    press(Qt::Key_Backspace);
    EXPECT_EQ(shown(), u"Ки"_s);
    type(u"н"_s);
    press(Qt::Key_Delete);
    EXPECT_EQ(shown(), u"Кин"_s);
    type(u"ч"_s);
    box.cut();
    EXPECT_EQ(shown(), u"Кинч"_s);
    box.setSelection(2, 2);
    press(Qt::Key_Backspace);
    EXPECT_EQ(shown(), u"Ки"_s) << "what the user selected is no tail";
}
