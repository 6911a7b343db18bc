#include "ui/ListBar.h"

#include "platform/Literals.h"
#include "ui/Icons.h"
#include "ui/ListBarRows.h"
#include "ui/Theme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QScrollBar>
#include <QtTest>
#include <gtest/gtest.h>

namespace {

class ListBars : public testing::Test {
protected:
    void SetUp() override
    {
        Theme::apply(*qApp, u"light"_s);
        for (const char* group : {"a", "b"}) {
            const QString key = QString::fromLatin1(group);
            bar.addGroup(key, u"Группа "_s + key);
            for (int i = 1; i <= 3; ++i) bar.addItem(key, key + QString::number(i), item(key, i), icon(u"disc"_s));
        }
        QObject::connect(&bar, &ListBar::itemClicked, &bar,
                         [this](const QString& group, const QString& text) { clicked += group + u':' + text + u' '; });
        QObject::connect(
            &bar, &ListBar::contextMenu, &bar,
            [this](const QString& group, const QString& text, const QPoint&) { menus += group + u':' + text + u' '; });
        bar.show();
        QApplication::setActiveWindow(&bar);
    }

    static QString item(const QString& group, int n) { return group.toUpper() + QString::number(n); }
    QAbstractButton* row(const QString& name) { return bar.findChild<QAbstractButton*>(name); }
    static QString focused()
    {
        return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
    }
    static void press(std::initializer_list<Qt::Key> keys)
    {
        for (Qt::Key key : keys) QTest::keyClick(QApplication::focusWidget(), key);
    }

    ListBar bar;
    QString clicked, menus;
};

}

TEST_F(ListBars, ArrowsWalkThroughItemsThatCanBeChosen)
{
    bar.setItemEnabled(u"a"_s, u"A2"_s, false);
    row(u"A1"_s)->setFocus();
    press({Qt::Key_Down});
    EXPECT_EQ(focused(), u"A3"_s);
    press({Qt::Key_Down});
    EXPECT_EQ(focused(), u"B1"_s) << "into the next group";
    press({Qt::Key_Up, Qt::Key_Up, Qt::Key_Up});
    EXPECT_EQ(focused(), u"A1"_s) << "stops at the first";
    press({Qt::Key_End, Qt::Key_Down});
    EXPECT_EQ(focused(), u"B3"_s) << "stops at the last";
    press({Qt::Key_Return, Qt::Key_Space});
    EXPECT_EQ(clicked, u"b:B3 b:B3 "_s);
}

TEST_F(ListBars, TheKeyboardMarksItsItemAndAClickDoesNot)
{
    const auto marked = [&](const QString& name) { return static_cast<ListBarItem*>(row(name))->marked(); };
    QTest::mouseClick(row(u"A1"_s), Qt::LeftButton);
    EXPECT_TRUE(row(u"A1"_s)->hasFocus() && !marked(u"A1"_s));
    QFocusEvent back(QEvent::FocusIn, Qt::ActiveWindowFocusReason); // behind the window that it opened
    QApplication::sendEvent(row(u"A1"_s), &back);
    EXPECT_FALSE(marked(u"A1"_s));
    press({Qt::Key_Down});
    EXPECT_TRUE(marked(u"A2"_s));
    QApplication::sendEvent(row(u"A2"_s), &back);
    EXPECT_TRUE(marked(u"A2"_s));
}

TEST_F(ListBars, TabStopsAtAnItemThatCanBeChosen)
{
    const auto stops = [this] {
        QString names;
        for (const auto* item : bar.findChildren<QAbstractButton*>())
            if (item->focusPolicy() == Qt::StrongFocus) names += item->objectName() + u' ';
        return names;
    };
    EXPECT_EQ(stops(), u"A1 B1 "_s);
    for (const QString& off : {u"A1"_s, u"A2"_s}) bar.setItemEnabled(u"a"_s, off, false);
    EXPECT_EQ(stops(), u"A3 B1 "_s);
    bar.setItemEnabled(u"a"_s, u"A3"_s, false);
    EXPECT_EQ(stops(), u"B1 "_s);
    bar.setItemEnabled(u"a"_s, u"A2"_s, true);
    EXPECT_EQ(stops(), u"A2 B1 "_s);
    row(u"B3"_s)->setFocus();
    bar.setItemEnabled(u"b"_s, u"B2"_s, false);
    EXPECT_EQ(stops(), u"A2 B3 "_s) << "stays where the keyboard was";
    bar.setItems(u"b"_s, u"q"_s, {u"Q"_s, u"R"_s}, {});
    EXPECT_EQ(stops() + focused(), u"A2 R R"_s);
    bar.setItems(u"b"_s, u"q"_s, {u"S"_s, u"T"_s}, {});
    EXPECT_EQ(stops() + focused(), u"A2 T T"_s) << "of items that are made anew, too";
    bar.setHint(u"b"_s, u"Пусто"_s);
    const QLabel* hint = bar.findChild<QLabel*>();
    EXPECT_TRUE(hint->isHidden());
    bar.setItems(u"b"_s, u"q"_s, {}, {});
    EXPECT_TRUE(focused() == u"Группа b"_s && !hint->isHidden());
}

TEST_F(ListBars, FoldedGroupIsPassedOverAndRemembered)
{
    row(u"B2"_s)->setFocus();
    press({Qt::Key_Left});
    EXPECT_EQ(focused(), u"Группа b"_s);
    EXPECT_EQ(bar.foldedGroups(), QStringList{u"b"_s});
    EXPECT_FALSE(row(u"B2"_s)->isVisible());
    press({Qt::Key_End});
    EXPECT_EQ(focused(), u"A3"_s);
    bar.setFoldedGroups({u"a"_s});
    EXPECT_EQ(bar.foldedGroups(), QStringList{u"a"_s});
    EXPECT_TRUE(row(u"B2"_s)->isVisible());
    QTest::mouseClick(row(u"Группа a"_s), Qt::LeftButton);
    EXPECT_TRUE(bar.foldedGroups().isEmpty());
}

TEST_F(ListBars, ClearingAGroupFromItsOwnClickIsSafe)
{
    QObject::connect(&bar, &ListBar::itemClicked, &bar,
                     [this] { bar.setItems(u"b"_s, u"q1"_s, {u"Rock & Roll"_s}, icon(u"query"_s)); });
    QTest::mouseClick(row(u"B1"_s), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(bar.items(u"b"_s), QStringList{u"Rock & Roll"_s});
    EXPECT_TRUE(row(u"Rock & Roll"_s)->shortcut().isEmpty());
    bar.removeGroup(u"b"_s);
    EXPECT_EQ(bar.groupCount(), 1);
    EXPECT_TRUE(bar.items(u"b"_s).isEmpty());
}

TEST_F(ListBars, MenuNamesTheItemOrTheGroupAlone)
{
    const auto menuAt = [&](QWidget* row, QContextMenuEvent::Reason reason, const QPoint& at) {
        QContextMenuEvent event(reason, at, row->mapToGlobal(at));
        QApplication::sendEvent(row, &event);
    };
    menuAt(row(u"B1"_s), QContextMenuEvent::Mouse, QPoint(5, 5));
    menuAt(row(u"Группа b"_s), QContextMenuEvent::Mouse, QPoint(5, 5));
    row(u"A2"_s)->setFocus();
    menuAt(row(u"A2"_s), QContextMenuEvent::Keyboard, QPoint(5, 5));
    EXPECT_EQ(menus, u"b:B1 b: a:A2 "_s);
    EXPECT_TRUE(clicked.isEmpty());
}

TEST_F(ListBars, IsAsWideAsItsTextsAndScrollsWhenShort)
{
    const int width = bar.sizeHint().width();
    bar.addItem(u"b"_s, u"q"_s, u"Компьютерные диски с длинным названием"_s, icon(u"query"_s));
    QCoreApplication::processEvents();
    EXPECT_GT(bar.sizeHint().width(), width);
    bar.resize(bar.sizeHint().width(), bar.minimumSizeHint().height());
    row(u"A1"_s)->setFocus();
    press({Qt::Key_End});
    EXPECT_GT(bar.verticalScrollBar()->value(), 0);
    const QRect seen(bar.viewport()->mapToGlobal(QPoint()), bar.viewport()->size());
    EXPECT_TRUE(seen.contains(QApplication::focusWidget()->mapToGlobal(QApplication::focusWidget()->rect().center())));
}

TEST_F(ListBars, ALongNameIsShortenedInABarThatStaysInPlace)
{
    const int width = bar.sizeHint().width();
    const QString name = u"Длинное название <ярлыка>, "_s.repeated(4);
    bar.addItem(u"b"_s, u"b4"_s, name, icon(u"disc"_s));
    bar.resize(width, 400);
    qApp->processEvents();
    row(name)->setFocus();
    EXPECT_EQ(bar.horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(row(name)->width(), bar.viewport()->width());
    EXPECT_EQ(row(name)->toolTip(), name.toHtmlEscaped());
    EXPECT_EQ(row(u"B1"_s)->toolTip(), QString());
    EXPECT_LT(bar.sizeHint().width(), 40 * bar.fontMetrics().averageCharWidth());
}
