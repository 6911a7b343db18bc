#pragma once

#include "harness/ScreenTest.h"
#include "mainwindow/frmMain.h"

#include <QAction>

/// The main window over a shelf, with the image of a disc at hand that nobody has put in yet.
class MainWindow : public ScreenTest {
protected:
    MainWindow() { drives.v.images[u"/images/zima.iso"_s] = FakeDisc::data(u"ZIMA"_s, 0x1A2B3C4D); }

    template<class Body> void walk(const Body& body)
    {
        play(
            [&] {
                frmMain window(program);
                window.Load();
                runner.show(window);
            },
            body);
    }
    bool ticked(const QString& command) { return runner.window().findChild<QAction*>(command)->isChecked(); }
    void putIn() { drives.v.insert(u"/images/zima.iso"_s); }
    void watch()
    {
        setOption(u"Drive"_s, u"V:\\"_s);
        setOption(u"CheckCD"_s, u"1"_s);
        setOption(u"tmrCD"_s, u"1"_s); // a steady sign
    }
};
