#include "platform/SingleInstance.h"

#include "platform/Literals.h"

SingleInstance::SingleInstance(const QString& applicationFolder) : m_lock(applicationFolder + u"/vinora.lock"_s)
{
    m_lock.setStaleLockTime(0); // age alone never breaks a lock: the program may run for weeks
    // Where nothing can be written there is no other instance to collide with.
    m_acquired = m_lock.tryLock(0) || m_lock.error() == QLockFile::PermissionError;
}
