#include "mainwindow/Dashboard.h"

#include "ui/Icons.h"
#include "ui/Layout.h"
#include "ui/Lettering.h"
#include "ui/Theme.h"

#include <QMouseEvent>

static CatalogueCard* makeCard(const Commands& commands, const CatalogueCommands& own)
{
    return new CatalogueCard(own.kind, commands.action(own.open), commands.action(own.add));
}

Dashboard::Dashboard(const Commands& commands)
    : m_cards{makeCard(commands, CommandsOfCatalogues()[0]), makeCard(commands, CommandsOfCatalogues()[1]),
              makeCard(commands, CommandsOfCatalogues()[2])},
      m_drive(new DriveCard(commands.action(u"ID_Drive_Insert"), commands.action(u"ID_Drive_Eject"))),
      m_grid(new QGridLayout), lblTotal(new QLabel), imgShowHideoListbar(new QToolButton),
      lblShowHideoListbar(new QLabel)
{
    setObjectName(u"fraDashboard"_s);
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);

    m_grid->setSpacing(Theme::Between);
    m_all = column(header(), m_grid, stretch);
    m_all->setSpacing(Theme::Between);
    setWidget(panel(m_all));
    arrange(3);
}

QLayout* Dashboard::header()
{
    auto* title = lettered(label(u"Коллекция дисков"_s), Lettering::Title);
    lblTotal->setObjectName(u"lblTotal"_s);
    lblTotal->setForegroundRole(QPalette::PlaceholderText);
    auto* texts = column(title, lblTotal);
    texts->setSpacing(2);

    imgShowHideoListbar->setObjectName(u"imgShowHideoListbar"_s);
    imgShowHideoListbar->setIcon(icon(u"panel"_s));
    imgShowHideoListbar->setAutoRaise(true);
    connect(imgShowHideoListbar, &QToolButton::clicked, this, &Dashboard::panelToggled);
    lblShowHideoListbar->setObjectName(u"lblShowHideoListbar"_s);
    lblShowHideoListbar->setCursor(Qt::PointingHandCursor);
    lblShowHideoListbar->installEventFilter(this);

    auto* link = row(imgShowHideoListbar, lblShowHideoListbar);
    link->setSpacing(2);
    auto* line = row(texts, stretch, link);
    line->setAlignment(link, Qt::AlignTop);
    return line;
}

bool Dashboard::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == lblShowHideoListbar && event->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
        emit panelToggled();
    return QScrollArea::eventFilter(watched, event);
}

void Dashboard::showTotal(int discs, int loans)
{
    QString text = QString::number(discs) + u' ' + DiscWord(discs) + u" в трёх каталогах"_s;
    if (loans > 0) text += u", выдано %1"_s.arg(loans);
    lblTotal->setText(text);
}

void Dashboard::showExternalTotal(int discs)
{
    lblTotal->setText(QString::number(discs) + u' ' + DiscWord(discs) + u" во внешней базе данных, только просмотр"_s);
}

void Dashboard::showPanelLink(bool panelShown)
{
    const QString text = panelShown ? u"Скрыть панель"_s : u"Показать панель"_s;
    lblShowHideoListbar->setText(text);
    imgShowHideoListbar->setToolTip(text + u" (F9)"_s);
    imgShowHideoListbar->setAccessibleName(text);
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
    m_drive->arrange(columns);
    lblShowHideoListbar->setVisible(columns > 1);
    const int margin = columns > 1 ? Theme::Outside : Theme::Between;
    m_all->setContentsMargins(margin, margin, margin, margin);
    // Two columns leave a place beside the third catalogue.
    if (columns == 2)
        m_grid->addWidget(m_drive, 1, 1);
    else
        m_grid->addWidget(m_drive, 3, 0, 1, columns);
}

int Dashboard::columnsThatFit() const
{
    int widest = 0;
    for (const CatalogueCard* card : m_cards) widest = qMax(widest, card->minimumSizeHint().width());
    const int room = viewport()->width() - 2 * Theme::Outside + Theme::Between;
    const auto fits = [&](int columns, int width) { return room >= columns * (width + Theme::Between); };
    if (fits(3, widest)) return 3;
    return fits(2, qMax(widest, m_drive->narrowestWidth())) ? 2 : 1;
}

void Dashboard::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    arrange(columnsThatFit());
}

bool Dashboard::event(QEvent* event)
{
    // Some text has become longer or shorter.
    if (event->type() == QEvent::LayoutRequest) arrange(columnsThatFit());
    return QScrollArea::event(event);
}
