#include "walk/Walk.h"

#include "platform/Literals.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QDir>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <cstdlib>

namespace {
constexpr int rest = 60, patience = 20000;

/// The area of a view that takes the mouse.
QWidget* target(QWidget* widget)
{
    if (auto* area = qobject_cast<QAbstractScrollArea*>(widget)) return area->viewport();
    return widget;
}
}

Walk::Walk(const QString& folder) : m_folder(folder) {}

void Walk::step(const QString& what, std::function<void()> action) { m_steps.push_back({what, std::move(action), {}}); }

void Walk::until(const QString& what, std::function<bool()> holds) { m_steps.push_back({what, {}, std::move(holds)}); }

void Walk::untilUsable(const QString& name)
{
    until(u"'%1' can be used"_s.arg(name), [=, this] {
        const auto* widget = top()->findChild<QWidget*>(name);
        return widget && widget->isVisible() && widget->isEnabled();
    });
}

void Walk::click(const QString& name)
{
    untilUsable(name);
    step(u"click "_s + name, [=, this] { QTest::mouseClick(find<QWidget>(name), Qt::LeftButton); });
}

void Walk::doubleClick(const QString& name)
{
    untilUsable(name);
    step(u"double click "_s + name, [=, this] {
        QWidget* at = target(find<QWidget>(name));
        const QPoint row(at->width() / 3, 12);
        QTest::mouseClick(at, Qt::LeftButton, {}, row);
        QTest::mouseDClick(at, Qt::LeftButton, {}, row);
    });
}

void Walk::type(const QString& name, const QString& text)
{
    untilUsable(name);
    step(u"focus "_s + name, [=, this] {
        auto* widget = find<QWidget>(name);
        widget->setFocus(Qt::TabFocusReason);
        QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
    });
    keys(text);
}

void Walk::keys(const QString& text)
{
    step(u"type "_s + text, [=, this] {
        for (const QChar character : text) {
            QWidget* at = QApplication::focusWidget();
            if (!at) fail(u"nothing has the focus"_s);
            QTest::sendKeyEvent(QTest::Click, at, Qt::Key_unknown, QString(character), Qt::NoModifier);
        }
    });
}

void Walk::press(int key, Qt::KeyboardModifiers modifiers)
{
    step(u"key %1"_s.arg(key), [=, this] {
        QWidget* at = QApplication::focusWidget();
        QTest::keyClick(at ? at : top(), Qt::Key(key), modifiers);
    });
}

void Walk::picture(const QString& name)
{
    step(u"picture "_s + name, [=, this] {
        QTest::qWait(rest);
        QWidget* window = top();
        const QString path = u"%1/%2-%3.png"_s.arg(m_folder).arg(++m_pictures, 2, 10, QLatin1Char('0')).arg(name);
        // What is on the screen, with the window's neighbours, as a person sees it.
        if (!window->screen()->grabWindow(0).save(path)) fail(u"the picture cannot be written: "_s + path);
        std::printf("%s\n", qPrintable(path));
    });
}

void Walk::start(QWidget* mainWindow)
{
    m_main = mainWindow;
    QTimer::singleShot(rest * 5, this, &Walk::proceed);
}

void Walk::proceed()
{
    if (m_steps.empty()) fail(u"the walk is over and the program still runs"_s);
    if (m_steps.front().holds) {
        m_current = m_steps.front().what;
        if (m_steps.front().holds())
            m_steps.pop_front();
        else if ((m_waited += rest) > patience)
            fail(u"this does not come to be"_s);
        QTimer::singleShot(rest, this, &Walk::proceed);
        return;
    }
    if (!takesKeys()) {
        if ((m_waited += rest) > patience) fail(u"the window on top does not take keys"_s);
        QTimer::singleShot(rest, this, &Walk::proceed);
        return;
    }
    m_waited = 0;
    const Step step = std::move(m_steps.front());
    m_steps.pop_front();
    m_current = step.what;
    // Before the action, since it may open a window and return only when that has closed.
    QTimer::singleShot(rest, this, &Walk::proceed);
    step.action();
}

QWidget* Walk::top() const
{
    if (QWidget* popup = QApplication::activePopupWidget()) return popup;
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    return m_main;
}

bool Walk::takesKeys() const
{
    const QWidget* window = top();
    return window->windowType() == Qt::Popup || window->isActiveWindow();
}

template<class W> W* Walk::find(const QString& name) const
{
    auto* widget = top()->findChild<W*>(name);
    if (!widget) fail(u"there is no '%1' in '%2'"_s.arg(name, top()->objectName()));
    if (!widget->isVisible() || !widget->isEnabled()) fail(u"'%1' cannot be used"_s.arg(name));
    return widget;
}

void Walk::fail(const QString& message) const
{
    std::fprintf(stderr, "walk: at \"%s\": %s\n", qPrintable(m_current), qPrintable(message));
    if (top()) top()->grab().save(m_folder + u"/failed.png"_s);
    std::fflush(nullptr);
    std::_Exit(1);
}
