#include "mainwindow/frmHelp.h"

#include "frame/Version.h"
#include "mainwindow/HelpCommands.h"
#include "ui/IconLabel.h"
#include "ui/Lettering.h"
#include "ui/Theme.h"

frmHelp::frmHelp(Program& program) : Screen(program, u"frmHelp"_s, u"О программе"_s)
{
    auto* picture = new IconLabel;
    picture->setIcon(u"app"_s);
    picture->setScale(4);
    lblVersion->setTextFormat(Qt::PlainText);
    lblVersion->setText(VersionLine(program.version));
    lettered(lblVersion, Lettering::Title);
    setUpLink(lblEMail, u"Написать авторам"_s, u"mailto:"_s + SupportAddress);
    setUpLink(lblURL, u"Страница программы"_s, u"https://vinora.example/"_s);
    setUpLink(lblURLForum, u"Форум"_s, u"https://vinora.example/forum/"_s);
    cmdClose->setup(u"close"_s, u"&Закрыть"_s, {});
    cmdClose->setDefault(true);
    connect(cmdClose, &QPushButton::clicked, this, &Form::reject);

    QBoxLayout* words = column(lblVersion, label(u"Каталог ваших дисков: аудио, данные, DVD"_s),
                               lettered(label(u"Свободная программа, лицензия MIT"_s), Lettering::Caption));
    QBoxLayout* links = row(lblURL, lblURLForum, lblEMail, stretch);
    links->setSpacing(fontMetrics().height());
    words->addSpacing(fontMetrics().height() / 2);
    words->addLayout(links);
    QBoxLayout* end = row(stretch, cmdClose);
    end->setContentsMargins(0, Theme::Between, 0, 0);
    QBoxLayout* head = row(column(picture, stretch), words);
    head->setSpacing(Theme::Between);
    setLayout(column(head, end));
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    cmdClose->setFocus();
}

void frmHelp::setUpLink(QLabel* link, const QString& text, const QString& target)
{
    link->setText(u"<a href=\"%1\">%2</a>"_s.arg(target, text));
    link->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    link->setToolTip(target);
    connect(link, &QLabel::linkActivated, this, [this](const QString& address) { ShowLink(program, address); });
}
