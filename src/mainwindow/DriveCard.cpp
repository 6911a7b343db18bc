#include "mainwindow/DriveCard.h"

#include "mainwindow/ActionButton.h"
#include "platform/Literals.h"
#include "recognition/DiscIdentity.h"
#include "ui/Layout.h"
#include "ui/Theme.h"

#include <QAction>

DriveCard::DriveCard(QAction* insert, QAction* eject)
    : m_sign(new IconLabel), lblDriveTitle(new QLabel), lblDriveMedium(new QLabel)
{
    setObjectName(u"fraDrive"_s);
    lblDriveTitle->setObjectName(u"lblDriveTitle"_s);
    lblDriveMedium->setObjectName(u"lblDriveMedium"_s);
    lblDriveTitle->setFont(Theme::heading(lblDriveTitle->font()));
    lblDriveMedium->setWordWrap(true);
    lblDriveMedium->setTextFormat(Qt::PlainText);
    lblDriveTitle->setTextFormat(Qt::PlainText);
    m_sign->setScale(2.4);

    auto* texts = column(lblDriveTitle, lblDriveMedium, stretch);
    texts->setSpacing(2);
    auto* buttons = column(MakeActionButton(insert, u"image-insert"_s, insert->iconText()),
                           MakeActionButton(eject, u"eject"_s, eject->iconText()));
    auto* layout = row(m_sign, texts, buttons);
    layout->setStretch(1, 1);
    layout->setAlignment(m_sign, Qt::AlignTop);
    layout->setContentsMargins(Theme::Inside, Theme::Inside, Theme::Inside, Theme::Inside);
    layout->setSpacing(Theme::Between);
    setLayout(layout);
}

void DriveCard::show(Drive* drive, const QString& kind)
{
    const VolumeProperties volume = drive ? drive->lastKnown() : VolumeProperties();
    m_sign->setIcon(!drive ? u"drive"_s : volume.success ? u"disc"_s : u"disc-empty"_s);
    if (!drive) {
        lblDriveTitle->setText(u"Устройство для чтения дисков не найдено"_s);
        lblDriveMedium->clear();
        return;
    }
    lblDriveTitle->setText(u"Устройство "_s + drive->root());
    if (!volume.success) {
        lblDriveMedium->setText(u"Диска нет. Вставьте диск или перетащите в это окно файл образа: "
                                u"ISO, BIN/CUE, NRG, TOC."_s);
        return;
    }
    QStringList facts;
    if (!volume.label.trimmed().isEmpty()) facts += u"«%1»"_s.arg(volume.label.trimmed());
    if (!kind.isEmpty()) facts += kind;
    facts += volume.fileSystem;
    if (const QString id = SerialToID(volume.serial); !id.isEmpty()) facts += u"идентификатор "_s + id;
    if (!drive->description().isEmpty()) facts += drive->description();
    lblDriveMedium->setText(facts.join(u" · "_s));
}
