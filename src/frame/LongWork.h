#pragma once

#include "frame/Screen.h"

/// A window over a work that takes its time: it begins when the window is up, and the window goes when it has ended.
/// Closing the window asks the work to stop.
class LongWork : public Screen {
public:
    using Screen::Screen;

protected:
    /// Stops where it asks turn(), or working(). Its errors are its own.
    virtual void Work() = 0;
    /// The user has closed the window, or the work has called stop(): it is about to hear of it.
    virtual void stopping() {}

    bool working() const { return m_working; }
    void stop();
    /// Lets events pass, and keeps what has been written when more than a second has gone by. False when the work is to
    /// stop.
    bool turn();

    void Form_Activate() final;
    bool Form_QueryUnload() final;

private:
    bool m_working = false;
};
