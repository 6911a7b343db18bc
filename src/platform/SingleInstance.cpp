#include "platform/SingleInstance.h"

#include "platform/Literals.h"

#include <QCryptographicHash>
#include <QDir>

namespace {

QString sessionLock(const QString& folder)
{
    const QString session = qEnvironmentVariable("XDG_RUNTIME_DIR", QDir::tempPath());
    const QByteArray name = QCryptographicHash::hash(folder.toUtf8(), QCryptographicHash::Sha1).toHex();
    return session + u"/vinora-"_s + QString::fromLatin1(name) + u".lock"_s;
}

/// A lock that cannot be written refuses nobody.
bool refused(QLockFile& lock)
{
    lock.setStaleLockTime(0); // age alone never breaks a lock: the program may run for weeks
    return !lock.tryLock(0) && lock.error() == QLockFile::LockFailedError;
}

}

SingleInstance::SingleInstance(const QString& applicationFolder)
    : m_inFolder(applicationFolder + u"/vinora.lock"_s), m_inSession(sessionLock(applicationFolder)),
      m_acquired(!refused(m_inFolder) && !refused(m_inSession))
{}
