#include "ui/Timer.h"
#include "platform/Literals.h"
#include "ui/Blinker.h"

#include <QEventLoop>
#include <QStringList>
#include <gtest/gtest.h>
#include <memory>

namespace {
class Timers : public testing::Test {
protected:
    Timers() { TestTimers::takeOver(); }
    ~Timers() override { TestTimers::giveBack(); }
};
}

TEST_F(Timers, TickWhenTheyAreDueInOrderOfTime)
{
    Timer slow, fast;
    QStringList ticks;
    QObject::connect(&slow, &Timer::tick, [&] { ticks << u"slow"_s; });
    QObject::connect(&fast, &Timer::tick, [&] {
        ticks << u"fast"_s;
        if (ticks.count(u"fast"_s) == 3) fast.setEnabled(false);
    });
    slow.setInterval(250);
    slow.setEnabled(true);
    fast.setInterval(100);
    fast.setEnabled(true);
    TestTimers::advance(99);
    EXPECT_TRUE(ticks.isEmpty());
    TestTimers::advance(401);
    EXPECT_EQ(ticks.join(u' ').toStdString(), "fast fast slow fast slow");
    slow.setInterval(1000); // restarts
    TestTimers::advance(999);
    EXPECT_EQ(ticks.size(), 5);
    TestTimers::advance(1);
    EXPECT_EQ(ticks.size(), 6);
}

TEST_F(Timers, DoNotEnterATickThatStillRunsAndMayDieInOne)
{
    auto timer = std::make_unique<Timer>();
    int ticks = 0;
    QObject::connect(timer.get(), &Timer::tick, [&] {
        if (++ticks == 1) TestTimers::advance(5000);
        if (ticks == 2) timer.reset();
    });
    timer->setEnabled(true);
    TestTimers::advance(1000);
    EXPECT_EQ(ticks, 1);
    TestTimers::advance(1000);
    EXPECT_EQ(ticks, 2);
    EXPECT_FALSE(timer);
}

TEST(Timer, TicksByItselfWhenNobodyTookOver)
{
    Timer timer;
    QEventLoop loop;
    timer.setInterval(1);
    timer.setEnabled(true);
    QObject::connect(&timer, &Timer::tick, &loop, &QEventLoop::quit);
    loop.exec();
}

TEST_F(Timers, BlinkingSignsShowAndHideTogetherForAnHour)
{
    QWidget window;
    auto* picture = new QWidget(&window);
    auto* text = new QWidget(&window);
    Blinker sign({picture, text}, &window);
    EXPECT_TRUE(picture->isHidden() && text->isHidden());
    sign.setOn(true);
    EXPECT_FALSE(picture->isHidden() || text->isHidden());
    TestTimers::advance(500);
    EXPECT_TRUE(picture->isHidden() && text->isHidden());
    TestTimers::advance(3'600'000);
    EXPECT_TRUE(picture->isHidden());
    delete text;
    sign.setOn(false);
    TestTimers::advance(500);
    EXPECT_TRUE(picture->isHidden());
}

TEST_F(Timers, SteadySignsCostNoTicks)
{
    QWidget window;
    auto* picture = new QWidget(&window);
    Blinker sign({picture}, &window);
    sign.setOn(true);
    for (int interval : {1, 0}) {
        sign.setInterval(interval);
        EXPECT_FALSE(window.findChild<Timer*>() && window.findChild<Timer*>()->enabled());
        TestTimers::advance(10);
        EXPECT_FALSE(picture->isHidden());
    }
    sign.setInterval(40);
    TestTimers::advance(40);
    EXPECT_TRUE(picture->isHidden());
}
