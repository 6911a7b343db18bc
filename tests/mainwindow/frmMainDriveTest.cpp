// The drive in the main window: its card, its selector, images put in and dropped, the signs of the watch.
#include "mainwindow/MainWindowTest.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>

TEST_F(MainWindow, AnImagePutInIsSeenAndWatchedFromThenOn)
{
    drives.add(u'D');
    walk([&]() -> Script {
        EXPECT_EQ(shown("ID_DB_DefaultCDDVDROM"), u"D:\\"_s);
        EXPECT_FALSE(commandEnabled("ID_Drive_Eject"));
        expectOpenFile("Вставить образ диска", "/images/gone.iso");
        expectBox("Образ не вставлен.\r\n\r\nПапка файла '/images/gone.iso' не найдена.", 48);
        co_await trigger("ID_Drive_Insert");
        EXPECT_EQ(option(u"CheckCD"_s), QString());

        expectOpenFile("Вставить образ диска", "/images/zima.iso");
        co_await trigger("ID_Drive_Insert");
        EXPECT_EQ(shown("ID_DB_DefaultCDDVDROM"), u"V:\\"_s);
        EXPECT_EQ(option(u"Drive"_s), u"V:\\"_s);
        EXPECT_EQ(option(u"CheckCD"_s), u"1"_s);
        EXPECT_TRUE(shown("lblDriveMedium").contains(u"«ZIMA»"_s));
        co_await advance(500);
        EXPECT_TRUE(visible("lblNewPC"));
        EXPECT_EQ(shown("lblNewPC"), u"Диск (?)\nне привязан не к одному номеру в каталоге"_s);
        EXPECT_FALSE(visible("lblNewDVD"));
        EXPECT_FALSE(visible("lblSharePC")) << "there is no disc to bind it to";

        co_await trigger("ID_Drive_Eject");
        co_await advance(1000);
        EXPECT_FALSE(visible("lblNewPC"));
        EXPECT_TRUE(shown("lblDriveMedium").startsWith(u"Диска нет"_s));
        setOption(u"CheckCD"_s, u"0"_s);
        expectOpenFile("Вставить образ диска", "/images/zima.iso");
        co_await trigger("ID_Drive_Insert");
        EXPECT_EQ(option(u"CheckCD"_s), u"0"_s) << "what the user decided stays";
        co_await advance(2000);
        EXPECT_FALSE(visible("lblNewPC"));
    });
}

TEST_F(MainWindow, TheImageStaysInTheDriveOverARestart)
{
    walk([&]() -> Script {
        expectOpenFile("Вставить образ диска", "/images/zima.iso");
        co_await trigger("ID_Drive_Insert");
    });
    drives.v.eject();
    walk([&]() -> Script {
        EXPECT_EQ(drives.v.imagePath(), u"/images/zima.iso"_s);
        EXPECT_TRUE(commandEnabled("ID_Drive_Eject"));
        co_await trigger("ID_Drive_Eject");
    });
    walk([&]() -> Script {
        EXPECT_EQ(drives.v.imagePath(), QString());
        co_return;
    });
}

TEST_F(MainWindow, AnImageThatIsNotWholeIsUsableAndSaysSo)
{
    drives.v.images[u"/images/zima.iso"_s]->extent = {734'003'200, 361'472};
    putIn();
    walk([&]() -> Script {
        EXPECT_TRUE(shown("lblDriveMedium").contains(u"«ZIMA»"_s));
        EXPECT_EQ(shown("lblDriveHint").section(u'\n', 0, 0).replace(QChar(0xA0), u' '),
                  u"Образ неполон: 361 472 байт из 734 003 200. Часть файлов не прочитается."_s);
        co_await picture("cut-image");
        drives.v.medium->extent.present = 734'003'200;
        co_await trigger("ID_Drive_Eject");
        EXPECT_FALSE(visible("lblDriveHint"));
    });
}

TEST_F(MainWindow, TheCorrectionOfACategoryLooksAtTheDiscAnew)
{
    putIn();
    watch();
    walk([&]() -> Script {
        const QString question =
            "Используйте эту функцию для корректировки принадлежности диска к какой-либо категории "
            "при невозможности определить ее верно в автоматическом режиме! Продолжить?";
        expectBox(question, 36);
        expectForm("frmSelectCategory");
        co_await trigger("ID_Catalog_ChangeCategory");
        co_await check("optDVD", true);
        co_await key(Qt::Key_Return);
        co_await advance(1000);
        EXPECT_TRUE(visible("lblNewDVD"));
        EXPECT_FALSE(visible("lblNewPC"));
    });
}

TEST_F(MainWindow, AnImageIsPutInByDroppingItOnTheWindow)
{
    drives.v.images[u"/images/band.cue"_s] = FakeDisc::data(u"BAND"_s, 0x77);
    const auto drop = [this](const QStringList& files) {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& file : files) urls += QUrl(file);
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(300, 300), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&runner.window(), &enter);
        if (!enter.isAccepted()) return false;
        QDropEvent event(QPointF(300, 300), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&runner.window(), &event);
        EXPECT_EQ(drives.v.imagePath(), QString()) << "nothing is read while the drop lasts";
        return true;
    };
    walk([&]() -> Script {
        for (const QStringList& foreign : {QStringList{u"file:///images/zima.txt"_s}, {u"http://host/zima.iso"_s}, {}})
            EXPECT_FALSE(drop(foreign)) << foreign.join(u' ').toStdString();
        expectBox("Образ не вставлен.\r\n\r\nПапка файла '/images/gone.iso' не найдена.", 48);
        co_await act([&] { EXPECT_TRUE(drop({u"file:///images/gone.iso"_s})); });
        co_await act([&] { EXPECT_TRUE(drop({u"file:///images/band.bin"_s, u"file:///images/band.cue"_s})); });
        EXPECT_EQ(drives.v.imagePath(), u"/images/band.cue"_s);
        EXPECT_EQ(option(u"Drive"_s), u"V:\\"_s);
        EXPECT_EQ(option(u"CheckCD"_s), u"1"_s);
        EXPECT_TRUE(shown("lblDriveMedium").startsWith(u"«BAND»"_s));
    });
}

TEST_F(MainWindow, AnImageThatIsGoneIsNamed)
{
    program.settings().write(u"Drives", u"Image", u"/images/gone.iso"_s);
    walk([&]() -> Script {
        EXPECT_EQ(shown("lblDriveMedium").remove(QChar(0x200B)),
                  u"Образ «/images/gone.iso» не найден или не читается."_s);
        co_return;
    });
}

TEST_F(MainWindow, TheCardShowsTheDriveOfTheSelectorAndSaysWhenItIsNotTheWatchedOne)
{
    drives.add(u'D', FakeDisc::data(u"GAMES"_s, 0x12));
    watch();
    program.settings().removeKey(u"Option", u"Drive");
    walk([&]() -> Script {
        EXPECT_TRUE(shown("lblDriveMedium").startsWith(u"«GAMES»"_s));
        EXPECT_TRUE(shown("lblDriveHint").startsWith(u"Чтобы диски узнавались"_s));
        co_await advance(1000);
        EXPECT_FALSE(visible("lblNewPC")) << "no drive was ever chosen";
        co_await select("ID_DB_DefaultCDDVDROM", "D:\\");
        EXPECT_EQ(option(u"Drive"_s), u"D:\\"_s) << "what is shown can be chosen";
        EXPECT_FALSE(visible("lblDriveHint"));
        co_await advance(1000);
        EXPECT_TRUE(visible("lblNewPC"));
        co_await select("ID_DB_DefaultCDDVDROM", "V:\\");
        EXPECT_EQ(option(u"Drive"_s), u"V:\\"_s);
        EXPECT_FALSE(visible("lblNewPC"));
        EXPECT_EQ(hint("StatusBar_3"), QString());
        co_await advance(1000);
        EXPECT_EQ(hint("StatusBar_3"), u"Диска в устройстве нет"_s);
    });
    setOption(u"Drive"_s, u"d:\\"_s);
    walk([&]() -> Script {
        EXPECT_EQ(shown("ID_DB_DefaultCDDVDROM"), u"D:\\"_s);
        EXPECT_FALSE(visible("lblDriveHint"));
        co_return;
    });
    program.settings().removeKey(u"Option", u"CheckCD");
    walk([&]() -> Script {
        EXPECT_TRUE(shown("lblDriveHint").contains(u"включите в параметрах"_s)) << "what is chosen is not watched yet";
        co_return;
    });
    setOption(u"Drive"_s, u"Z:\\"_s);
    walk([&]() -> Script {
        EXPECT_EQ(shown("lblDriveHint"), u"Устройства Z:\\, выбранного раньше, нет: выберите другое."_s);
        co_return;
    });
}

TEST_F(MainWindow, AnIdleDriveCostsOneGlanceATickAndNoPainting)
{
    class Painted : public QObject {
    public:
        int times = 0;

    private:
        bool eventFilter(QObject*, QEvent* event) override
        {
            times += event->type() == QEvent::Paint;
            return false;
        }
    } painted;

    putIn();
    watch();
    setOption(u"tmrCD"_s, u"5000"_s); // a blinking one
    walk([&]() -> Script {
        co_await advance(1000);
        drives.v.medium.reset();
        co_await advance(2000);
        for (QWidget* part : control<QWidget>("fraDashboard").findChildren<QWidget*>())
            part->installEventFilter(&painted);
        const int before = drives.v.glances;
        co_await advance(10000);
        EXPECT_EQ(drives.v.glances - before, 10);
        EXPECT_EQ(painted.times, 0) << "the blinking has nothing to do";
    });
}
