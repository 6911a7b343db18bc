#include "mainwindow/WindowPlace.h"

#include "platform/Literals.h"

#include <QWidget>

namespace {
enum State { Normal = 0, Minimised = 1, Maximised = 2 };

constexpr int buffer = 15;
// Pixels, farther than any screen; a window may be off them all.
constexpr double farthest = 32767;

void apply(const Profile& settings, QStringView key, auto set)
{
    if (!settings.has(u"Window", key)) return;
    set(qRound(qBound(-farthest, settings.number(u"Window", key, buffer) / TwipsPerPixel, farthest)));
}
}

void LoadWinPos(QWidget& window, const Profile& settings)
{
    Qt::WindowStates state = Qt::WindowNoState;
    const int stored = BoundedInt(settings.number(u"Window", u"State", buffer), Normal, Maximised + 1);
    if (stored == Minimised) state = Qt::WindowMinimized;
    if (stored == Maximised) state = Qt::WindowMaximized;

    // Place first, so that it is the one a restored window goes back to.
    apply(settings, u"Left", [&](int left) { window.move(left, window.y()); });
    apply(settings, u"Top", [&](int top) { window.move(window.x(), top); });
    apply(settings, u"Height", [&](int height) { window.resize(window.width(), height); });
    apply(settings, u"Width", [&](int width) { window.resize(width, window.height()); });
    if (settings.has(u"Window", u"State")) window.setWindowState(state);
}

void SaveWinPos(const QWidget& window, const Profile& settings)
{
    const State state = window.isMinimized() ? Minimised : window.isMaximized() ? Maximised : Normal;
    settings.write(u"Window", u"State", QString::number(state));
    if (state != Normal) return;

    const auto write = [&](QStringView key, int pixels) {
        settings.write(u"Window", key, QString::number(double(pixels) * TwipsPerPixel, 'g', 7));
    };
    write(u"Left", window.x());
    write(u"Top", window.y());
    write(u"Height", window.height());
    write(u"Width", window.width());
}
