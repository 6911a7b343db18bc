#include "harness/Watchdog.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>

Watchdog::Watchdog()
{
    const int seconds = qEnvironmentVariableIsSet("VINORA_WATCHDOG") ? qEnvironmentVariableIntValue("VINORA_WATCHDOG")
                                                                     : 60;
    if (seconds > 0) m_thread = std::thread([this, seconds] { watch(seconds); });
}

Watchdog::~Watchdog()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stop = true;
    }
    m_changed.notify_all();
    if (m_thread.joinable()) m_thread.join();
}

void Watchdog::pat(const QString& doing)
{
    const std::lock_guard lock(m_mutex);
    m_doing = doing;
    ++m_pats;
}

void Watchdog::watch(int seconds)
{
    std::unique_lock lock(m_mutex);
    while (!m_stop) {
        const quint64 before = m_pats;
        m_changed.wait_for(lock, std::chrono::seconds(seconds), [this] { return m_stop; });
        if (m_stop || m_pats != before) continue;
        std::fprintf(stderr, "Nothing has gone on for %d s. Last: %s\n", seconds, m_doing.toUtf8().constData());
        std::abort();
    }
}
