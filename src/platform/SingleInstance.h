#pragma once

#include <QLockFile>
#include <QString>

/// Held from start to end of the program by the first instance for one application folder.
class SingleInstance {
public:
    explicit SingleInstance(const QString& applicationFolder);
    /// False when another living process holds it. A lock left behind by a process that was killed does not count.
    bool acquired() const { return m_acquired; }

private:
    QLockFile m_lock;
    bool m_acquired;
};
