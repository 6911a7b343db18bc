#pragma once

#include <QDateTime>

/// The program's only source of today and now, so that a test owns both.
class Clock {
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0;
    QDate today() const { return now().date(); }
};

class SystemClock final : public Clock {
public:
    QDateTime now() const override { return QDateTime::currentDateTime(); }
};
