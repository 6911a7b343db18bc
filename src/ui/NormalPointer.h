#pragma once

#include <QCursor>
#include <QGuiApplication>
#include <QList>

/// A normal mouse pointer until the end of the block, whatever hourglasses stand; they come back in their order.
class NormalPointer {
public:
    NormalPointer()
    {
        while (const QCursor* shape = QGuiApplication::overrideCursor()) {
            m_suspended.prepend(*shape);
            QGuiApplication::restoreOverrideCursor();
        }
    }
    ~NormalPointer()
    {
        for (const QCursor& shape : m_suspended) QGuiApplication::setOverrideCursor(shape);
    }
    NormalPointer(const NormalPointer&) = delete;
    NormalPointer& operator=(const NormalPointer&) = delete;

private:
    QList<QCursor> m_suspended;
};
