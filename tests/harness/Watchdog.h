#pragma once

#include <QString>
#include <condition_variable>
#include <mutex>
#include <thread>

/// Ends the process, with the last step and the windows then open, when a script hangs. VINORA_WATCHDOG gives the seconds
/// of patience, 60 without it, 0 for none (in a debugger).
class Watchdog {
public:
    Watchdog();
    ~Watchdog();
    /// Something went on; this is what.
    void pat(const QString& doing);

private:
    void watch(int seconds);

    std::mutex m_mutex;
    std::condition_variable m_changed;
    QString m_doing;
    quint64 m_pats = 0;
    bool m_stop = false;
    std::thread m_thread;
};
