#include "harness/Script.h"

#include "frame/Program.h"
#include "harness/ScriptedDialogs.h"
#include "harness/Watchdog.h"
#include "ui/Form.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimerEvent>
#include <QWindow>
#include <gtest/gtest.h>

ScriptRunner::ScriptRunner(ScriptedDialogs& dialogs) : m_dialogs(dialogs) { dialogs.setRunner(this); }
ScriptRunner::~ScriptRunner() { m_dialogs.setRunner(nullptr); }

void ScriptRunner::play(const std::function<void()>& open, Script script)
{
    m_script = std::move(script);
    m_resume = m_script.handle();
    m_aborted = m_ended = false;
    m_closings = 0;
    m_watchdog = std::make_unique<Watchdog>();
    m_watchdog->pat(u"opening the first window"_s);
    s_current = this;
    arm(0);
    try {
        open();
        // What the script looks at after its last window has gone.
        while (!m_script.done() && !m_aborted) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    } catch (const ScriptAborted&) {
    } catch (const ProcessEnded&) {
        while (!m_script.done() && !m_aborted) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    if (m_timer) killTimer(std::exchange(m_timer, 0));
    s_current = nullptr;
    m_watchdog.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    const QString missing = m_dialogs.takeMissing();
    if (!m_aborted && !missing.isEmpty())
        ADD_FAILURE_AT(where.file_name(), int(where.line())) << "Expected and did not come:\n" << missing.toStdString();
    if (!m_aborted && m_endExpected && !m_ended)
        ADD_FAILURE_AT(where.file_name(), int(where.line())) << "The process should have ended.";
    m_endExpected = false;
    m_script = {};
    m_resume = {};
    m_action = {};
    m_condition = {};
}

void ScriptRunner::show(QWidget& window)
{
    QEventLoop loop;
    m_plainWindow = &window;
    m_plainLoop = &loop;
    window.show();
    loop.exec();
    m_plainLoop = nullptr;
    m_plainWindow = nullptr;
    stopCallers();
}

ScriptRunner::Step ScriptRunner::step(const QString& says, std::function<void()> action, Where place)
{
    where = place;
    m_says = says;
    m_action = std::move(action);
    return Step(*this);
}

ScriptRunner::Step ScriptRunner::until(std::function<bool()> condition, Where place)
{
    m_condition = std::move(condition);
    return step(
        u"until(…)"_s, [] {}, place);
}

QWidget* ScriptRunner::top() const
{
    if (Form* form = m_dialogs.innermost()) return form;
    return m_plainWindow && m_plainWindow->isVisible() ? m_plainWindow : nullptr;
}

QWidget& ScriptRunner::window()
{
    if (QWidget* window = top()) return *window;
    abort(m_ended ? u"The process has ended; no window is left."_s : u"No window is open any more."_s);
}

void ScriptRunner::arm(int milliseconds)
{
    if (!m_timer) m_timer = startTimer(milliseconds, Qt::PreciseTimer);
}

bool ScriptRunner::quiet() { return std::exchange(m_eventsSeen, m_events) == m_events; }

bool ScriptRunner::ready()
{
    QWidget* window = top();
    if (!window) return true;
    const Form* form = qobject_cast<Form*>(window);
    if (form && (!form->activated() || form->unloading())) return false;
    const QWindow* handle = window->windowHandle();
    if (!window->isVisible() || !handle || !handle->isExposed()) return false;
    // Without a window manager nobody else gives the new window the keyboard.
    if (!window->isActiveWindow()) QApplication::setActiveWindow(window);
    return true;
}

void ScriptRunner::timerEvent(QTimerEvent* event)
{
    // A timer that is on the stack does not tick in the loops inside of it, so each pass has a fresh one.
    killTimer(event->timerId());
    m_timer = 0;
    if (m_aborted) return;
    if (!quiet()) return arm(0);
    if (!ready()) return arm(1);
    if (m_condition && !m_condition()) return arm(1);
    m_condition = {};
    arm(0);
    proceed();
}

void ScriptRunner::proceed()
{
    if (m_plainLoop && !top()) m_plainLoop->exit();
    if (m_script.done()) return closeWhatIsLeft();
    if (!m_resume) return; // the script's own code runs a loop
    resumeScript();
    if (m_condition) return;
    if (const auto action = std::exchange(m_action, {})) action();
}

void ScriptRunner::resumeScript()
{
    m_inBody = true;
    std::exchange(m_resume, {}).resume();
    m_inBody = false;
    m_watchdog->pat(m_says + u" in "_s + (top() ? top()->objectName() : u"no window"_s));
    if (!m_script.done()) return;
    try {
        m_script.rethrow();
    } catch (const ProcessEnded&) {
        throw;
    } catch (const ScriptAborted&) {
        throw;
    } catch (const std::exception& error) {
        abort(u"An exception left the script: "_s + QString::fromUtf8(error.what()));
    }
}

void ScriptRunner::closeWhatIsLeft()
{
    QWidget* window = top();
    if (!window) return;
    if (m_dialogs.depth() > 1) abort(u"The script ended while a child window was open."_s);
    if (++m_closings > 20) abort(u"The window stays open."_s);
    if (auto* form = qobject_cast<Form*>(window))
        form->Unload();
    else
        window->hide();
}

void ScriptRunner::closeAll()
{
    m_dialogs.abandonForms();
    if (m_plainWindow) m_plainWindow->hide();
    if (m_plainLoop) m_plainLoop->exit();
}

void ScriptRunner::abort(const QString& message)
{
    if (!m_aborted) {
        m_aborted = true;
        const QWidget* window = top();
        const QString place = window ? u"In %1 \"%2\""_s.arg(window->objectName(), window->windowTitle())
                                     : u"Without a window"_s;
        ADD_FAILURE_AT(where.file_name(), int(where.line()))
            << (place + u", step "_s + (m_says.isEmpty() ? u"(none yet)"_s : m_says) + u":\n"_s + message)
                   .toStdString();
        closeAll();
    }
    throw ScriptAborted();
}

void ScriptRunner::endProcess(int code)
{
    if (!m_endExpected) abort(u"The process was ended with code %1."_s.arg(code));
    m_ended = true;
    m_code = code;
    closeAll();
    throw ProcessEnded{code};
}

void ScriptRunner::stopCallers()
{
    if (m_aborted) throw ScriptAborted();
    if (m_ended) throw ProcessEnded{m_code};
}
