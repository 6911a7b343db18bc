#pragma once

#include "platform/Literals.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <coroutine>
#include <exception>
#include <functional>
#include <memory>
#include <source_location>

class QWidget;
class ScriptedDialogs;
class Watchdog;

/// A person's way through the windows of a test, as a coroutine that reads straight down. Each `co_await` of a step does
/// one thing and comes back when the innermost event loop is idle: inside of the window that the step opened, or when the
/// routine it started has returned. A script can `co_await` another one. In scripts use EXPECT, not ASSERT.
class [[nodiscard]] Script {
public:
    struct promise_type {
        std::coroutine_handle<> continuation = std::noop_coroutine();
        std::exception_ptr exception;

        struct Final {
            bool await_ready() const noexcept { return false; }
            std::coroutine_handle<> await_suspend(std::coroutine_handle<promise_type> script) noexcept
            {
                return script.promise().continuation;
            }
            void await_resume() const noexcept {}
        };
        Script get_return_object() { return Script(std::coroutine_handle<promise_type>::from_promise(*this)); }
        std::suspend_always initial_suspend() const noexcept { return {}; }
        Final final_suspend() const noexcept { return {}; }
        void return_void() const {}
        void unhandled_exception() { exception = std::current_exception(); }
    };

    Script() = default;
    Script(Script&& other) noexcept : m_handle(std::exchange(other.m_handle, {})) {}
    Script& operator=(Script&& other) noexcept
    {
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    ~Script()
    {
        if (m_handle) m_handle.destroy();
    }

    std::coroutine_handle<> handle() const { return m_handle; }
    bool done() const { return !m_handle || m_handle.done(); }
    void rethrow() const
    {
        if (m_handle && m_handle.promise().exception) std::rethrow_exception(m_handle.promise().exception);
    }

    bool await_ready() const { return done(); }
    std::coroutine_handle<> await_suspend(std::coroutine_handle<> caller)
    {
        m_handle.promise().continuation = caller;
        return m_handle;
    }
    void await_resume() const { rethrow(); }

private:
    explicit Script(std::coroutine_handle<promise_type> handle) : m_handle(handle) {}
    std::coroutine_handle<promise_type> m_handle;
};

/// Thrown where a test has failed so that it cannot go on, as at an unexpected box: the routine under test goes no further.
/// It is no std::exception, so no error handler of the program takes it for its own.
struct ScriptAborted {};

using Where = std::source_location;

/// Runs one script over the windows that a function opens, and closes what is left.
class ScriptRunner : public QObject {
public:
    class [[nodiscard("a step does nothing without co_await")]] Step
    {
    public:
        explicit Step(ScriptRunner & runner) : m_runner(runner) {}
        bool await_ready() const { return false; }
        void await_suspend(std::coroutine_handle<> script) { m_runner.m_resume = script; }
        void await_resume() const {}

    private:
        ScriptRunner& m_runner;
    };

    explicit ScriptRunner(ScriptedDialogs& dialogs);
    ~ScriptRunner() override;

    /// `open` shows the window under test and returns when it has gone. The script begins when it can be worked with; a
    /// window that the script leaves open is asked to go, one that stays all the same fails.
    void play(const std::function<void()>& open, Script script);
    /// For a window that is no form: shows it until it hides.
    void show(QWidget& window);

    /// The next thing to do, as told in failures, and what does it.
    Step step(const QString& says, std::function<void()> action, Where where);
    /// A step that does nothing until `condition` holds: for what happens in real time or on another thread.
    Step until(std::function<bool()> condition, Where where);

    /// The window that the user works with: the innermost form. Null when all are closed.
    QWidget* top() const;
    /// As top(), or a failure without one.
    QWidget& window();

    /// A failure at the step that runs; the test goes no further.
    [[noreturn]] void abort(const QString& message);
    /// The program asked for its end: nothing after any modal call runs, and no Form_Unload.
    [[noreturn]] void endProcess(int code);
    void expectEnd() { m_endExpected = true; }
    bool over() const { return m_aborted || m_ended; }
    /// Throws anew what closed the windows, so that the caller of a modal call stops too.
    void stopCallers();
    bool inScriptBody() const { return m_inBody; }

    // For the test application.
    static ScriptRunner* current() { return s_current; }
    void saw(QObject* receiver)
    {
        if (receiver != this) ++m_events;
    }

    /// Failures without a step are told at this place.
    Where where;

private:
    void timerEvent(QTimerEvent* event) override;
    void arm(int milliseconds);
    bool quiet();
    bool ready();
    void proceed();
    void resumeScript();
    void closeWhatIsLeft();
    void closeAll();

    static inline ScriptRunner* s_current = nullptr;

    ScriptedDialogs& m_dialogs;
    std::unique_ptr<Watchdog> m_watchdog;
    Script m_script;
    std::coroutine_handle<> m_resume;
    std::function<void()> m_action;
    std::function<bool()> m_condition;
    QString m_says;
    QPointer<QWidget> m_plainWindow;
    class QEventLoop* m_plainLoop = nullptr;
    int m_timer = 0;
    quint64 m_events = 0, m_eventsSeen = 0;
    int m_closings = 0;
    int m_code = 0;
    bool m_inBody = false;
    bool m_aborted = false;
    bool m_ended = false;
    bool m_endExpected = false;
};
