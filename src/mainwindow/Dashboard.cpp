#include "mainwindow/Dashboard.h"

#include "ui/Icons.h"
#include "ui/Layout.h"
#include "ui/Theme.h"

#include <QResizeEvent>

Dashboard::Dashboard(const Commands& commands)
    : m_cards{new CatalogueCard(Audio(), commands.action(u"ID_Catalog_AudioCD"),
                                commands.action(u"ID_Catalog_AddAudioCD")),
              new CatalogueCard(Computer(), commands.action(u"ID_Catalog_PCCD"),
                                commands.action(u"ID_Catalog_AddPCCD")),
              new CatalogueCard(Dvd(), commands.action(u"ID_Catalog_DVD"), commands.action(u"ID_Catalog_AddDVD"))},
      m_drive(new DriveCard(commands.action(u"ID_Drive_Insert"), commands.action(u"ID_Drive_Eject"))),
      m_grid(new QGridLayout), lblTotal(new QLabel), imgShowHideoListbar(new QToolButton)
{
    setObjectName(u"fraDashboard"_s);
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);

    m_grid->setSpacing(Theme::Between);
    auto* all = column(header(), m_grid, stretch);
    all->setContentsMargins(Theme::Outside, Theme::Outside, Theme::Outside, Theme::Outside);
    all->setSpacing(Theme::Between);
    setWidget(panel(all));
    arrange(3);
}

QLayout* Dashboard::header()
{
    auto* title = label(u"Коллекция дисков"_s);
    title->setFont(Theme::title(title->font()));
    lblTotal->setObjectName(u"lblTotal"_s);
    lblTotal->setForegroundRole(QPalette::PlaceholderText);
    auto* texts = column(title, lblTotal);
    texts->setSpacing(2);

    imgShowHideoListbar->setObjectName(u"imgShowHideoListbar"_s);
    imgShowHideoListbar->setIcon(icon(u"panel"_s));
    imgShowHideoListbar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    imgShowHideoListbar->setAutoRaise(true);
    connect(imgShowHideoListbar, &QToolButton::clicked, this, &Dashboard::panelToggled);

    auto* line = row(texts, stretch, imgShowHideoListbar);
    line->setAlignment(imgShowHideoListbar, Qt::AlignTop);
    return line;
}

void Dashboard::showTotal(int discs, int loans)
{
    QString text = QString::number(discs) + DiscWord(discs) + u" в трёх каталогах"_s;
    if (loans > 0) text += u", выдано %1"_s.arg(loans);
    lblTotal->setText(text);
}

void Dashboard::showPanelLink(bool panelShown)
{
    imgShowHideoListbar->setText(panelShown ? u"Скрыть панель"_s : u"Показать панель"_s);
}

void Dashboard::arrange(int columns)
{
    if (columns == m_columns) return;
    m_columns = columns;
    for (QWidget* card : std::initializer_list<QWidget*>{m_cards[0], m_cards[1], m_cards[2], m_drive})
        m_grid->removeWidget(card);
    for (int i = 0; i < 3; ++i) {
        m_grid->addWidget(m_cards[size_t(i)], i / columns, i % columns);
        m_grid->setColumnStretch(i, i < columns ? 1 : 0);
    }
    // Two columns leave a place beside the third catalogue.
    if (columns == 2)
        m_grid->addWidget(m_drive, 1, 1);
    else
        m_grid->addWidget(m_drive, 3, 0, 1, columns);
}

void Dashboard::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    int widest = 0;
    for (const CatalogueCard* card : m_cards) widest = qMax(widest, card->minimumSizeHint().width());
    const int room = viewport()->width() - 2 * Theme::Outside + Theme::Between;
    arrange(qBound(1, room / (widest + Theme::Between), 3));
}
