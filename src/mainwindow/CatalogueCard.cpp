#include "mainwindow/CatalogueCard.h"

#include "frame/Text.h"
#include "mainwindow/ActionButton.h"
#include "ui/Icons.h"
#include "ui/Layout.h"
#include "ui/Theme.h"

#include <QAction>
#include <QEvent>
#include <QGuiApplication>

namespace {
template<class W> W* make(const QString& name)
{
    auto* widget = new W;
    widget->setObjectName(name);
    return widget;
}

void soften(QLabel* label)
{
    label->setFont(Theme::caption(label->font()));
    label->setForegroundRole(QPalette::PlaceholderText);
}
}

QString DiscWord(int discs)
{
    const int tens = discs % 100, ones = discs % 10;
    if (tens >= 11 && tens <= 14) return u"дисков"_s;
    if (ones == 1) return u"диск"_s;
    return ones >= 2 && ones <= 4 ? u"диска"_s : u"дисков"_s;
}

CatalogueCard::CatalogueCard(const CatalogueKind& kind, QAction* open, QAction* add)
    : m_kind(kind), imgLogo(make<IconTile>(u"imgLogo"_s + kind.endings.logo)),
      lblCDs(make<QLabel>(u"lblCDs"_s + kind.endings.counter)), lblDiscs(new QLabel),
      lblUpdate(make<QLabel>(u"lblCDs%1Update"_s.arg(kind.endings.counter))),
      lblDue(make<QLabel>(u"lblCDdue"_s + kind.endings.counter)),
      fraFindDue(make<QFrame>(u"fraFindDue"_s + kind.endings.counter)),
      imgFindDue(make<IconLabel>(u"imgFindDue"_s + kind.endings.counter)),
      lblFindDue(make<QLabel>(u"lblFindDue"_s + kind.endings.counter)), m_overdue(new QLabel),
      imgNew(make<IconLabel>(u"imgNew"_s + kind.endings.sign)), lblNew(make<QLabel>(u"lblNew"_s + kind.endings.sign)),
      imgShare(make<IconLabel>(u"imgShare"_s + kind.endings.sign)),
      lblShare(make<LinkButton>(u"lblShare"_s + kind.endings.sign)),
      m_dueSign({fraFindDue, imgFindDue, lblFindDue}, this)
{
    setAccent(kind.accent);
    auto* open_ = MakeActionButton(open, {}, u"Открыть"_s);
    auto* add_ = MakeActionButton(add, u"add-disc"_s, u"Добавить"_s);
    auto* buttons = row(open_, add_);
    buttons->setStretch(0, 1);
    buttons->setStretch(1, 1);
    auto* layout = column(header(), counts(), sign(), stretch, buttons);
    layout->setContentsMargins(Theme::Inside, Theme::Inside, Theme::Inside, Theme::Inside);
    layout->setSpacing(Theme::Between * 3 / 4);
    setLayout(layout);
    m_dueSign.setOn(false);
    showSign({});
    applyColours();
}

QLayout* CatalogueCard::header()
{
    imgLogo->setup(m_kind.icon, m_kind.accent, m_kind.title + u": команды"_s);
    connect(imgLogo, &IconTile::menuWanted, this, &CatalogueCard::menuWanted);

    auto* title = label(m_kind.listText);
    title->setFont(Theme::heading(title->font()));
    title->setWordWrap(true);
    lblUpdate->setText(u"-"_s);
    auto* changed = label(u"Обновлён:"_s);
    soften(changed);
    soften(lblUpdate);
    auto* texts = column(title, row(changed, lblUpdate, stretch));
    texts->setSpacing(2);
    auto* line = row(imgLogo, texts);
    line->setStretch(1, 1);
    line->setSpacing(Theme::Between);
    return line;
}

QLayout* CatalogueCard::counts()
{
    lblCDs->setFont(Theme::number(lblCDs->font()));
    lblCDs->setText(u"0"_s);
    soften(lblDiscs);
    auto* lent = label(u"Выдано:"_s);
    soften(lent);

    imgFindDue->setScale(1.1);
    lblFindDue->setText(u"0"_s);
    m_overdue->setText(u"к возврату"_s); // also what is promised for today
    fraFindDue->setToolTip(u"Срок возврата сегодня или уже прошёл"_s);
    for (QLabel* text : {lblFindDue, m_overdue}) text->setFont(Theme::caption(text->font()));
    auto* inside = row(imgFindDue, lblFindDue, m_overdue);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->setSpacing(4);
    fraFindDue->setLayout(inside);
    fraFindDue->setProperty("Tag", u"MyGroup"_s);

    auto* number = row(lblCDs, lblDiscs, stretch);
    number->setSpacing(Theme::Gap);
    auto* loans = row(lent, lblDue, stretch, fraFindDue);
    loans->setSpacing(4);
    auto* both = column(number, loans);
    both->setSpacing(0);
    return both;
}

QLayout* CatalogueCard::sign()
{
    imgNew->setAccent(m_kind.accent);
    imgNew->setScale(1.6);
    imgShare->setScale(1);
    connect(lblShare, &LinkButton::clicked, this, &CatalogueCard::shareClicked);
    lblNew->setWordWrap(true);
    lblNew->setMinimumHeight(fontMetrics().lineSpacing() * 3);
    lblNew->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    lblNew->setTextFormat(Qt::PlainText);
    // What the link is drawn with room for.
    lblNew->setContentsMargins(LinkButton::inset(fontMetrics()), 0, 0, 0);
    for (QWidget* sign : std::initializer_list<QWidget*>{imgNew, lblNew, lblShare}) {
        QSizePolicy policy = sign->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        sign->setSizePolicy(policy);
    }
    auto* both = grid({{imgNew, lblNew}, {imgShare, lblShare}});
    both->setAlignment(imgNew, Qt::AlignTop);
    both->setAlignment(imgShare, Qt::AlignCenter);
    both->setAlignment(lblShare, Qt::AlignLeft); // else the column is as narrow
    both->setVerticalSpacing(Theme::Gap / 2);
    return both;
}

void CatalogueCard::show(const CatalogueSummary& summary)
{
    lblCDs->setText(QString::number(summary.discs));
    lblDiscs->setText(DiscWord(summary.discs));
    lblUpdate->setText(summary.lastUpdate.isValid() ? FormatDate(summary.lastUpdate, u"d MMMM yyyy г."_s) : u"-"_s);
    lblDue->setText(QString::number(summary.lent));
}

void CatalogueCard::showWithoutLoans(const CatalogueSummary& summary)
{
    show(summary);
    lblDue->setText(u"-"_s);
    showOverdue(0);
}

void CatalogueCard::showOverdue(int loans)
{
    lblFindDue->setText(QString::number(loans));
    m_dueSign.setOn(loans > 0);
}

void CatalogueCard::showSign(const DriveSign& sign, bool offersLinks)
{
    m_sign = sign;
    lblNew->setText(Wrappable(QString(sign.label).replace(u'\r', u'\n')));
    imgNew->setVisible(sign.shown);
    lblNew->setVisible(sign.shown);
    imgShare->setVisible(sign.linkShown && offersLinks);
    lblShare->setVisible(sign.linkShown && offersLinks);
    lblShare->setText(sign.link());
    lblShare->setToolTip(sign.unbinds ? u"Диск больше не будет узнаваться в дисководе"_s
                                      : u"Выбрать в каталоге диск, под номером которого узнавать этот"_s);
    applyColours();
}

void CatalogueCard::applyColours()
{
    const auto paint = [](QLabel* text, const QColor& colour) {
        QPalette own;
        own.setColor(QPalette::WindowText, colour);
        text->setPalette(own);
    };
    const QPalette shared = QGuiApplication::palette();
    const QColor danger = Theme::danger(shared);
    imgFindDue->setIcon(u"loan-warning"_s, danger);
    paint(lblFindDue, danger);
    paint(m_overdue, danger);
    imgNew->setIcon(m_sign.numbered ? m_kind.icon : u"disc-unknown"_s);
    imgShare->setIcon(m_sign.unbinds ? u"unbind"_s : u"bind"_s, m_sign.unbinds ? danger : QColor());
    lblShare->setColour(m_sign.unbinds ? danger : QColor());
}

void CatalogueCard::changeEvent(QEvent* event)
{
    Card::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange || event->type() == QEvent::StyleChange) applyColours();
}
