#pragma once

#include <QLockFile>
#include <QString>

/// Held from start to end of the program by the first instance for one application folder, in two places: in the folder,
/// for other machines that reach it, and among the files of the user's session, where it can be written also when the
/// folder cannot, or its disk is full.
class SingleInstance {
public:
    explicit SingleInstance(const QString& applicationFolder);
    /// False when another living process holds it. A lock left behind by a process that was killed does not count.
    bool acquired() const { return m_acquired; }

private:
    QLockFile m_inFolder;
    QLockFile m_inSession;
    bool m_acquired;
};
