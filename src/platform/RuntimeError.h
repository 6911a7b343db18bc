#pragma once

#include <QByteArray>
#include <QString>
#include <exception>

/// A failure known by its number, the way messages and the fault log show it. Everything that platform/ and dao/ throw is
/// one of these, so a routine catches by number what it expects and leaves the rest to the fault routine.
class RuntimeError : public std::exception {
public:
    RuntimeError(int number, const QString& description);

    int number() const { return m_number; }
    /// One Russian sentence: what happened, to what, and what the user can do where he can do something.
    const QString& description() const { return m_description; }
    /// "<number>: <description>" in UTF-8, for test output.
    const char* what() const noexcept override { return m_what.constData(); }

private:
    int m_number;
    QString m_description;
    QByteArray m_what;
};

/// The error for a failed file operation: 52 bad name or unreachable folder, 53 file not found, 61 disk full,
/// 70 permission denied, 75 path or file access error, 76 path not found, 7 out of memory, 57 any other device error.
/// `errnoValue` is the C library's errno.
RuntimeError FileError(int errnoValue, const QString& path);
