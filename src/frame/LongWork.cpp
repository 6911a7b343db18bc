#include "frame/LongWork.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

void LongWork::Form_Activate()
{
    {
        const QScopedValueRollback<bool> working(m_working, true);
        Work();
    }
    Unload();
}

bool LongWork::Form_QueryUnload()
{
    if (!m_working) return true;
    stop();
    return false;
}

void LongWork::stop()
{
    m_working = false;
    stopping();
}

bool LongWork::turn()
{
    QCoreApplication::processEvents();
    program.engine.Yield();
    return m_working;
}
