#include "ui/DeliberateChoice.h"

#include "platform/Literals.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QSignalSpy>
#include <QWheelEvent>
#include <QtTest>
#include <gtest/gtest.h>

TEST(DeliberateChoice, NeitherWheelNorArrowChooses)
{
    QComboBox list;
    list.addItems({u"Аудио"_s, u"DVD"_s});
    ChooseDeliberately(&list);
    const QSignalSpy activated(&list, &QComboBox::activated);
    list.show();
    QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&list, &wheel);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(list.currentIndex(), 0);
    EXPECT_EQ(activated.count(), 0);
    ASSERT_TRUE(list.view()->isVisible());
    QTest::keyClick(list.view(), Qt::Key_Down);
    QTest::keyClick(list.view(), Qt::Key_Return);
    EXPECT_EQ(list.currentIndex(), 1);
    EXPECT_EQ(activated.count(), 1);
}
