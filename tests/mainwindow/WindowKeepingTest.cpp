#include "mainwindow/ToolbarLayout.h"
#include "mainwindow/WindowPlace.h"
#include "platform/Literals.h"

#include <QFile>
#include <QTemporaryDir>
#include <QWidget>
#include <gtest/gtest.h>

class WindowKeeping : public testing::Test {
protected:
    QTemporaryDir folder;
    Profile settings{folder.filePath(u"vinora.ini"_s)};
};

TEST_F(WindowKeeping, ComesBackWhereItWasInTwips)
{
    QWidget left;
    left.setGeometry(100, 40, 800, 600);
    SaveWinPos(left, settings);
    EXPECT_EQ(settings.read(u"Window", u"Width"), u"12000"_s);
    EXPECT_EQ(settings.read(u"Window", u"Left"), u"1500"_s);
    EXPECT_EQ(settings.read(u"Window", u"State"), u"0"_s);

    QWidget back;
    LoadWinPos(back, settings);
    EXPECT_EQ(back.pos(), left.pos());
    EXPECT_EQ(back.size(), left.size());
    EXPECT_EQ(back.windowState(), Qt::WindowNoState);
}

TEST_F(WindowKeeping, AMaximisedWindowKeepsTheNormalPlaceOfTheRunBefore)
{
    settings.write(u"Window", u"Width", u"9999.5"_s);
    QWidget window;
    window.setWindowState(Qt::WindowMaximized);
    SaveWinPos(window, settings);
    EXPECT_EQ(settings.read(u"Window", u"State"), u"2"_s);
    EXPECT_EQ(settings.read(u"Window", u"Width"), u"9999.5"_s);

    QWidget back;
    back.resize(300, 200);
    LoadWinPos(back, settings);
    EXPECT_TRUE(back.isMaximized());
    EXPECT_EQ(back.height(), 200) << "a key that is missing leaves what was designed";
}

TEST_F(WindowKeeping, NumbersBeyondAnyScreenAreBounded)
{
    settings.write(u"Window", u"Left", u"-6000"_s);
    settings.write(u"Window", u"Top", u"99999999999999"_s);
    settings.write(u"Window", u"Width", u"88888888888888"_s);
    settings.write(u"Window", u"State", u"99999999999999"_s);
    QWidget back;
    LoadWinPos(back, settings);
    EXPECT_EQ(back.pos(), QPoint(-400, 32767)) << "off the screen stays off the screen";
    EXPECT_EQ(back.width(), 32767);
    EXPECT_EQ(back.windowState(), Qt::WindowNoState);
}

TEST_F(WindowKeeping, ALayoutFileThatIsCutOrDamagedAnywhereCountsAsMissing)
{
    const QString path = folder.filePath(u"vinora.atb"_s);
    EXPECT_FALSE(LoadToolbarLayout(path));
    const ToolbarLayout layout{
        .toolbars = {{.name = u"Каталоги"_s, .area = Qt::LeftToolBarArea, .tools = {u"ID_Quit"_s}},
                     {.name = u"Должники"_s, .newLine = true, .visible = false}},
        .panel = false,
        .foldedGroups = {u"g2"_s, u"g4"_s}};
    ASSERT_TRUE(SaveToolbarLayout(path, layout));
    EXPECT_EQ(LoadToolbarLayout(path), layout);

    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    for (qsizetype length = 0; length < whole.size(); ++length) {
        QFile cut(path);
        ASSERT_TRUE(cut.open(QIODevice::WriteOnly | QIODevice::Truncate));
        cut.write(whole.first(length));
        cut.close();
        EXPECT_FALSE(LoadToolbarLayout(path)) << length;
    }
    for (qsizetype at = 0; at < whole.size(); ++at) {
        QByteArray damaged = whole;
        damaged[at] = char(~damaged[at]);
        QFile changed(path);
        ASSERT_TRUE(changed.open(QIODevice::WriteOnly | QIODevice::Truncate));
        changed.write(damaged);
        changed.close();
        EXPECT_FALSE(LoadToolbarLayout(path)) << at;
    }
}
