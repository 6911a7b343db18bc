#include "mainwindow/DriveCard.h"

#include "frame/Text.h"
#include "mainwindow/ActionButton.h"
#include "platform/Literals.h"
#include "recognition/DiscIdentity.h"
#include "ui/Layout.h"
#include "ui/Lettering.h"
#include "ui/Theme.h"

#include <QAction>

namespace {
constexpr int longestWord = 12;
constexpr int identifierFact = 1; ///< the one to copy: the breaks in names of files would go along

QString disc(const DriveSight& sight)
{
    QStringList words;
    if (const QString name = sight.volume.label.trimmed(); !name.isEmpty()) words += u"«%1»"_s.arg(name);
    words += sight.kind.isEmpty() ? u"диск без категории"_s : sight.kind;
    return words.join(u" · "_s);
}

QString medium(const DriveSight& sight)
{
    if (sight.root.isEmpty()) return {};
    if (sight.volume.success) return disc(sight);
    if (!sight.image.isEmpty()) return u"Образ «%1» не найден или не читается."_s.arg(sight.image);
    return u"Диска нет. Вставьте диск или перетащите в это окно файл образа: ISO, CUE, TOC, NRG или BIN."_s;
}

/// An image that was not copied to its end.
QString shortness(const DriveSight& sight)
{
    if (!sight.volume.success || !sight.size.cutShort()) return {};
    return u"Образ неполон: %1 байт из %2. Часть файлов не прочитается."_s.arg(
        FormatNumber(double(sight.size.present), 0, true), FormatNumber(double(sight.size.claimed), 0, true));
}

/// Why a disc that is there goes unnoticed.
QString unnoticed(const DriveSight& sight)
{
    if (sight.root.isEmpty()) return {};
    if (sight.chosen.compare(sight.root, Qt::CaseInsensitive) == 0)
        return sight.undecided && sight.volume.success
                   ? u"Чтобы диски узнавались, включите в параметрах «Проверять наличие диска в каталоге»."_s
                   : QString();
    if (!sight.chosen.isEmpty()) return u"Устройства %1, выбранного раньше, нет: выберите другое."_s.arg(sight.chosen);
    return sight.volume.success ? u"Чтобы диски узнавались, выберите устройство в списке на панели инструментов."_s
                                : QString();
}

}

DriveCard::DriveCard(QAction* insert, QAction* eject)
    : m_sign(new IconLabel), lblDriveTitle(new QLabel), lblDriveMedium(new QLabel), lblDriveHint(new QLabel)
{
    setObjectName(u"fraDrive"_s);
    lblDriveTitle->setObjectName(u"lblDriveTitle"_s);
    lblDriveMedium->setObjectName(u"lblDriveMedium"_s);
    lblDriveHint->setObjectName(u"lblDriveHint"_s);
    lettered(lblDriveTitle, Lettering::Heading);
    lettered(lblDriveHint, Lettering::Caption);
    for (QLabel* text : {lblDriveTitle, lblDriveMedium, lblDriveHint}) text->setTextFormat(Qt::PlainText);
    for (QLabel* text : {lblDriveMedium, lblDriveHint}) text->setWordWrap(true);
    lblDriveTitle->setMinimumWidth(fontMetrics().averageCharWidth() * 26);
    m_sign->setScale(2.4);

    m_facts = facts();
    auto* texts = column(lblDriveTitle, lblDriveMedium, lblDriveHint, m_facts, stretch);
    texts->setSpacing(4);
    m_told = row(m_sign, texts);
    m_told->setStretch(1, 1);
    m_told->setAlignment(m_sign, Qt::AlignTop);
    m_told->setSpacing(Theme::Between);
    auto* insertButton = MakeActionButton(insert, u"image-insert"_s, insert->iconText());
    auto* ejectButton = MakeActionButton(eject, u"eject"_s, eject->iconText());
    m_buttons = row(insertButton, ejectButton);
    m_buttons->setSpacing(Theme::Gap);
    m_layout = row(m_told, m_buttons);
    m_layout->setStretch(0, 1);
    m_layout->setContentsMargins(Theme::Inside, Theme::Inside, Theme::Inside, Theme::Inside);
    m_layout->setSpacing(Theme::Between);
    setLayout(m_layout);
}

QWidget* DriveCard::facts()
{
    const std::array captions{u"Формат"_s, u"Идентификатор"_s, u"Носитель"_s};
    auto* table = new QGridLayout;
    table->setContentsMargins(0, Theme::Gap / 2, 0, 0);
    table->setHorizontalSpacing(Theme::Between);
    table->setVerticalSpacing(2);
    table->setColumnStretch(1, 1);
    for (int i = 0; i < int(captions.size()); ++i) {
        QLabel*& fact = lblDriveFact[size_t(i)] = new QLabel;
        fact->setObjectName(u"lblDriveFact_%1"_s.arg(i));
        fact->setTextFormat(Qt::PlainText);
        if (i == identifierFact) fact->setTextInteractionFlags(Qt::TextSelectableByMouse);
        fact->setWordWrap(true);
        table->addWidget(lettered(label(captions[size_t(i)], fact), Lettering::Caption), i, 0, Qt::AlignTop);
        table->addWidget(fact, i, 1);
    }
    return panel(table);
}

void DriveCard::arrange(int columns)
{
    m_layout->setDirection(columns == 3 ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    m_layout->setAlignment(m_buttons, columns == 2 ? Qt::Alignment() : Qt::AlignTop | Qt::AlignLeft);
    m_buttons->setDirection(columns == 2 ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

int DriveCard::narrowestWidth() const { return m_told->minimumSize().width() + 2 * Theme::Inside; }

void DriveCard::show(const DriveSight& sight)
{
    if (sight == m_sight) return;
    m_sight = sight;
    m_sign->setIcon(sight.root.isEmpty() ? u"drive"_s : sight.volume.success ? u"disc"_s : u"disc-empty"_s);
    lblDriveTitle->setText(sight.root.isEmpty() ? u"Устройство для чтения дисков не найдено"_s
                                                : u"Устройство "_s + sight.root);
    lblDriveMedium->setText(Wrappable(medium(sight), longestWord));
    const std::array facts{sight.volume.fileSystem, SerialToID(sight.volume.serial), sight.description};
    for (size_t i = 0; i < facts.size(); ++i)
        lblDriveFact[i]->setText(facts[i].isEmpty() ? u"-"_s : Wrappable(facts[i], longestWord));
    m_facts->setVisible(!sight.root.isEmpty() && sight.volume.success);
    QStringList hints{shortness(sight), unnoticed(sight)};
    hints.removeAll(QString());
    lblDriveHint->setText(hints.join(u'\n'));
    lblDriveHint->setVisible(!hints.isEmpty());
}
