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
    m_working = false;
    stopping();
    return false;
}

bool LongWork::turn()
{
    QCoreApplication::processEvents();
    program.engine.Yield();
    return m_working;
}
