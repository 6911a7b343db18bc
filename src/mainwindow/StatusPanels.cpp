#include "mainwindow/StatusPanels.h"

#include "platform/Literals.h"

StatusPanels::StatusPanels()
    : m_mode(new ElidedLabel), m_modePicture(new IconLabel), m_discPicture(new IconLabel), m_clock(new QLabel)
{
    setObjectName(u"StatusBar"_s);
    m_mode->setObjectName(u"StatusBar_1"_s);
    m_modePicture->setObjectName(u"StatusBar_2"_s);
    m_discPicture->setObjectName(u"StatusBar_3"_s);
    m_clock->setObjectName(u"StatusBar_4"_s);
    m_mode->setContentsMargins(6, 0, 6, 0);
    m_clock->setContentsMargins(6, 0, 6, 0);
    m_clock->setAlignment(Qt::AlignCenter);
    m_modePicture->setScale(1.1);
    m_discPicture->setScale(1.1);
    addWidget(m_mode, 1);
    addPermanentWidget(m_modePicture);
    addPermanentWidget(m_discPicture);
    addPermanentWidget(m_clock);
    setSizeGripEnabled(true);
}

static void showPicture(IconLabel& picture, const QString& icon, const QString& hint)
{
    picture.setIcon(icon);
    picture.setToolTip(hint);
    picture.setAccessibleName(hint);
}

void StatusPanels::setModePicture(const QString& icon, const QString& hint) { showPicture(*m_modePicture, icon, hint); }

void StatusPanels::setDiscPicture(const QString& icon, const QString& hint) { showPicture(*m_discPicture, icon, hint); }
