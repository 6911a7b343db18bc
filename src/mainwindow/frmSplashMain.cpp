#include "mainwindow/frmSplashMain.h"

#include "frame/Version.h"
#include "platform/Literals.h"
#include "ui/Icons.h"
#include "ui/Theme.h"

#include <QGuiApplication>
#include <QPainter>

namespace {
QPixmap picture(const QString& version)
{
    const QPalette palette = QGuiApplication::palette();
    const QFont base = QGuiApplication::font();
    const int em = QFontMetrics(base).height();
    const QSize size(em * 24, em * 12);
    const double ratio = qGuiApp->devicePixelRatio();
    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Theme::card(palette));

    QPainter painter(&pixmap);
    painter.setPen(Theme::hairline(palette));
    painter.drawRect(QRect(QPoint(0, 0), size).adjusted(0, 0, -1, -1));
    painter.fillRect(0, 0, size.width(), 3, Theme::accent(0, palette));
    icon(u"app"_s).paint(&painter, em * 2, em * 2, em * 5, em * 5);

    painter.setPen(palette.color(QPalette::WindowText));
    painter.setFont(Theme::title(base));
    const QRect right(em * 8, em * 2, size.width() - em * 9, em * 5);
    painter.drawText(right, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, VersionLine(version));
    painter.setFont(Theme::caption(base));
    painter.setPen(Theme::subdued(palette));
    painter.drawText(QRect(em * 2, em * 8, size.width() - em * 4, em * 3), Qt::AlignLeft | Qt::AlignTop,
                     u"Каталог ваших дисков: аудио, данные, DVD\nСвободная программа, лицензия MIT"_s);
    return pixmap;
}
}

frmSplashMain::frmSplashMain(const QString& version) : QSplashScreen(picture(version))
{
    setObjectName(u"frmSplashMain"_s);
}
