// The main window in the sizes that people have, light and dark: nothing on it is cut off. With VINORA_PICTURES set it
// leaves a picture of each; QT_SCALE_FACTOR=2 shows them on a fine screen.
#include "mainwindow/MainWindowTest.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

namespace {

/// A label that is not all in sight, or a button narrower than its words; empty when all is well.
QString clipped(const QWidget& window)
{
    for (const QWidget* part : window.findChildren<QWidget*>()) {
        if (!part->isVisible() || part->parentWidget()->inherits("QToolBar")) continue;
        QSize wanted(0, 0);
        if (const auto* label = qobject_cast<const QLabel*>(part))
            wanted = label->wordWrap() ? QSize(label->minimumSizeHint().width(), label->heightForWidth(label->width()))
                                       : label->minimumSizeHint();
        else if (qobject_cast<const QPushButton*>(part))
            wanted = part->sizeHint();
        if (part->width() < wanted.width() || part->height() < wanted.height())
            return u"%1: %2x%3 of %4x%5"_s.arg(part->objectName())
                .arg(part->width())
                .arg(part->height())
                .arg(wanted.width())
                .arg(wanted.height());
    }
    return {};
}

}

TEST_F(MainWindow, NothingIsCutOffInAnySizeLightOrDark)
{
    drives.v.images[u"/images/zima.iso"_s]->properties.label = u"SBORNIK_ZIMA_2003_LUCHSHEE_ZA_VSYO"_s;
    drives.v.name = u"Сборник_«Зима_2003»_лучшее_за_всё_время_диск_1_из_3_последнее_издание.iso"_s;
    shelf.computer(12, "Большая домашняя энциклопедия растений и животных, 2003 год")
        .discs(8)
        .bound(2, "1A2B3C4D")
        .lent("Иванов", "2003-10-01", {}, "2003-11-01");
    for (int number = 1; number < 40; ++number) shelf.audio(number, "Кино", "Группа крови");
    shelf.dvd(1, "Солярис").lent("Петрова", "2003-10-01", {}, "2003-10-20");
    program.mainDatabase().Execute(u"INSERT INTO _Информация (ПослОбновлАудио, ПослОбновлКомпьютер, ПослОбновлDVD) "
                                   "VALUES (?, ?, ?)",
                                   {QDate(2003, 9, 28), QDate(2003, 11, 14), QDate(2003, 2, 1)});
    watch();
    for (const QString& scheme : {u"light"_s, u"dark"_s}) {
        Theme::apply(*qApp, scheme);
        walk([&]() -> Script {
            for (const QSize size :
                 {QSize(607, 460), QSize(820, 700), QSize(940, 700), QSize(1180, 720), QSize(1366, 768)}) {
                drives.v.eject();
                co_await act([&] { runner.window().resize(size); });
                co_await advance(1000);
                putIn();
                co_await advance(1000);
                EXPECT_EQ(clipped(runner.window()), QString()) << size.width();
                EXPECT_EQ(control<QScrollArea>("fraDashboard").horizontalScrollBar()->maximum(), 0) << size.width();
                co_await picture(u"main-%1-%2"_s.arg(scheme).arg(size.width()));
            }
        });
    }
    Theme::apply(*qApp, u"light"_s);
}
