#pragma once

#include <QFileInfo>
#include <QtGlobal>

/// Temporary folders of tests lie in memory where the system has such a place: what a test waits for is mostly the disk
/// that keeps a database it is about to throw away. TMPDIR, when set, has its way.
inline void UseQuickTemporaryFolder()
{
    const bool memory = QFileInfo(QStringLiteral("/dev/shm")).isWritable();
    if (memory && qEnvironmentVariableIsEmpty("TMPDIR")) qputenv("TMPDIR", "/dev/shm");
}
