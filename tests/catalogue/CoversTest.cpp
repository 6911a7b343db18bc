#include "catalogue/Covers.h"
#include "catalogue/Catalogues.h"
#include "catalogue/frmCatalogue.h"
#include "harness/FileSizeLimit.h"
#include "harness/ScreenTest.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QThreadPool>
#include <sys/stat.h>

namespace {
class Covers : public ScreenTest {
protected:
    QString file(const QString& name, const QByteArray& content)
    {
        QFile made(path(name));
        EXPECT_TRUE(made.open(QIODevice::WriteOnly) && made.write(content) == content.size());
        return made.fileName();
    }
    static QByteArray packed(const QImage& image, const char* format)
    {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        EXPECT_TRUE(image.save(&buffer, format)) << format;
        return bytes;
    }
    static QImage plain(int width, int height, Qt::GlobalColor colour = Qt::red)
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(colour);
        return image;
    }
    QString cover(const QString& name)
    {
        QFile stored(path("box/" + name));
        return stored.open(QIODevice::ReadOnly) ? QString::fromLatin1(stored.readAll()) : u"none"_s;
    }
    QString box() { return QDir(path("box")).entryList(QDir::Files).join(' '); }
    /// Waits until the cover on view is of that colour in its middle.
    Step seen(const QColor& colour, Where where = Where::current())
    {
        const auto shows = [this, colour] {
            const QPixmap box = control<QWidget>("imgBox").grab();
            return box.toImage().pixelColor(box.rect().center()) == colour;
        };
        return until(shows, where);
    }
    void drop(const QMimeData& data)
    {
        QWidget& box = control<QWidget>("imgBox");
        QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QDropEvent drop({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        drop.setDropAction(Qt::MoveAction);
        if (!box.acceptDrops()) return;
        QApplication::sendEvent(&box, &enter);
        if (enter.isAccepted()) QApplication::sendEvent(&box, &drop);
        EXPECT_NE(drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction, Qt::MoveAction);
    }
};

TEST_F(Covers, PicturesAreKnownByTheirContentsAndBoundedByTheirHeads)
{
    const QByteArray png = packed(plain(400, 200), "PNG");
    const QByteArray gif = QByteArray::fromBase64(
        "R0lGODlhBAACAPAAAP8AAAAAACH5BAAAAAAAIf8LTkVUU0NBUEUyLjADAQAAACwAAAAABAACAAACA4RvBQAh+QQAAAAAACwAAAAABAACAIAAAP"
        "8AAAACA4RvBQA7"); // red, then blue
    const QByteArray webp = QByteArray::fromBase64(
        "UklGRjwAAABXRUJQVlA4IDAAAADQAQCdASoEAAIAAgA0JaACdLoB+AADsAD+8MQL/yC5YXXI1/8gP+QH/ID/+PIAAAA=");
    const QByteArray jpeg = packed(plain(400, 200), "JPEG");
    const auto isPicture = [&](const QByteArray& content) { return IsPicture(file("a.jpg", content)); };
    const auto suffix = [&](const QByteArray& content) { return PictureSuffix(file("a.txt", content)); };
    for (const QByteArray& picture : {png, gif, webp, jpeg, packed(plain(9, 9), "BMP")})
        EXPECT_TRUE(isPicture(picture)) << suffix(picture).toStdString();
    EXPECT_EQ(suffix(png) + ' ' + suffix(gif) + ' ' + suffix(webp) + ' ' + suffix(jpeg), "png gif webp jpg");

    EXPECT_FALSE(isPicture("no picture"));
    EXPECT_FALSE(isPicture({}));
    EXPECT_FALSE(isPicture(png.left(png.size() / 2)));
    EXPECT_FALSE(isPicture("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"));
    QImage vast(9000, 8000, QImage::Format_Mono); // some kilobytes when packed
    vast.fill(0);
    EXPECT_FALSE(isPicture(packed(vast, "PNG")));
    EXPECT_TRUE(QFile::resize(file("a.jpg", jpeg), 70 << 20));
    EXPECT_FALSE(IsPicture(path("a.jpg")));
    EXPECT_FALSE(IsPicture(path("none.jpg")));
    ASSERT_EQ(mkfifo(path("pipe.jpg").toLocal8Bit(), 0600), 0);
    EXPECT_FALSE(IsPicture(path("pipe.jpg")));

    const auto loaded = [&](const QByteArray& content) { return LoadCover(file("a.box", content), {100, 100}); };
    EXPECT_EQ(loaded(png).size(), QSize(100, 50));
    EXPECT_EQ(loaded(gif).pixelColor(1, 1), QColor(Qt::red));
    EXPECT_EQ(loaded(packed(plain(5000, 1), "PNG")).size(), QSize(100, 1));
    EXPECT_TRUE(loaded("no picture").isNull());
    QByteArray lying = jpeg; // Exif 2.3: tag 0x0112 with 6, to be turned a quarter to the right
    lying.insert(2, QByteArray::fromHex("ffe1002245786966000"
                                        "04d4d002a000000080001011200030000000100060000"
                                        "00000000"));
    EXPECT_EQ(loaded(lying).size(), QSize(50, 100));
}

TEST_F(Covers, ReplaceWhatIsWriteProtectedAndNotWhatALinkLeadsTo)
{
    MakeBoxFolder(program);
    const QString first = file("first", "first"), second = file("second", "second");
    ASSERT_TRUE(QFile::setPermissions(first, QFile::ReadOwner)); // as on a disc
    for (const QString& picture : {first, second}) StoreCover(program, u"ad_", 7, picture);
    EXPECT_EQ(cover("ad_7.box"), "second");
    ASSERT_TRUE(QFile::link(second, path("box/ad_8.box")));
    StoreCover(program, u"ad_", 8, first);
    EXPECT_EQ(QFileInfo(second).size(), 6);
    EXPECT_EQ(cover("ad_8.box"), "first");
}

TEST_F(Covers, AreChosenReplacedAndDeletedInEveryCatalogue)
{
    const QString red = file("red.png", packed(plain(300, 300), "PNG"));
    const QString blue = file("blue.png", packed(plain(300, 300, Qt::blue), "PNG"));
    const QString text = file("text.jpg", "no picture");
    for (const CatalogueKind* kind : AllCatalogues()) {
        shelf.disc(*kind, 1, "Один");
        shelf.disc(*kind, 2, "Два");
        const QString change = u"imgButton_%1"_s.arg(kind->coverButton);
        const QString remove = u"imgButton_%1"_s.arg(kind->coverButton + 1);
        const QString stored = kind->coverPrefix + "1.box";
        const QString title = "Добавление обложки для диска № 1";
        const auto script = [&]() -> Script {
            co_await select("TabStrip", "Обложка");
            EXPECT_FALSE(enabled(remove));
            co_await picture(kind->browser + "-nocover");
            expectOpenFile(title, "");
            co_await click(change);
            EXPECT_EQ(dialogs.lastFilter(), "Файлы изображений (*.jpg;*.gif)|*.jpg;*.gif|Все файлы (*.*)|*.*");
            EXPECT_FALSE(QFileInfo::exists(path("box")));

            expectOpenFile(title, red);
            co_await click(change);
            co_await seen(Qt::red);
            EXPECT_TRUE(enabled(remove));
            co_await picture(kind->browser + "-cover");

            expectOpenFile(title, text);
            expectBox("Этот формат изображения не поддерживается программой!", 48);
            co_await click(change);
            for (const Answer answer : {Answer::No, Answer::Yes}) {
                co_await seen(Qt::red);
                expectOpenFile(title, blue);
                expectBox("Заменить обложку диска № 1?", 36, answer);
                co_await click(change);
            }
            co_await seen(Qt::blue);
            EXPECT_EQ(box(), stored);

            co_await focusOn("DBGrid");
            co_await key(Qt::Key_Down);
            EXPECT_FALSE(enabled(remove));
            EXPECT_TRUE(control<QWidget>("imgBox").accessibleDescription().startsWith("Обложки нет"));
            co_await key(Qt::Key_Up);
            for (const Answer answer : {Answer::No, Answer::Yes}) {
                co_await seen(Qt::blue);
                expectBox("Вы действительно хотите удалить обложку диска № 1?", 36, answer);
                co_await click(remove);
            }
            EXPECT_EQ(box(), "");
            EXPECT_FALSE(enabled(remove));
            QDir(path("box")).removeRecursively();
        };
        play([&] { OpenCatalogue(program, *kind); }, script);
    }
}

TEST_F(Covers, AreDroppedAndPastedAndSaved)
{
    shelf.computer(1, "Один");
    QMimeData files, image, words;
    files.setUrls({QUrl::fromLocalFile(file("red.png", packed(plain(300, 300), "PNG")))});
    image.setImageData(plain(300, 300, Qt::blue));
    words.setText("no picture");
    const auto script = [&]() -> Script {
        co_await select("TabStrip", "Обложка");
        co_await act([&] { drop(words); });
        co_await act([&] { drop(files); });
        co_await seen(Qt::red);
        expectBox("Заменить обложку диска № 1?", 36, Answer::Yes);
        co_await act([&] { drop(image); });
        co_await seen(Qt::blue);

        QGuiApplication::clipboard()->setText("no picture");
        expectBox("В буфере обмена нет картинки.", 48);
        co_await key(Qt::Key_V, Qt::ControlModifier);
        QGuiApplication::clipboard()->setImage(plain(300, 300, Qt::green));
        expectPopup("mnuCover", "Вставить");
        expectBox("Заменить обложку диска № 1?", 36, Answer::Yes);
        co_await rightClick("imgBox");
        co_await seen(Qt::green);

        expectPopup("mnuCover", "Сохранить как…");
        expectSaveFileOffering("Обложка диска № 1.png", "Сохранение обложки диска № 1", path("saved.png"));
        co_await rightClick("imgBox");
        EXPECT_EQ(QImage(path("saved.png")).pixelColor(1, 1), QColor(Qt::green));
        expectPopup("mnuCover", "Сохранить как…");
        expectSaveFile("Сохранение обложки диска № 1", path("none/saved.png"));
        expectBox(u"Папка файла '%1' не найдена."_s.arg(path("none/saved.png")), 48);
        co_await rightClick("imgBox");

        co_await select("TabStrip", "Сведения");
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_V, Qt::ControlModifier);
    };
    play([&] { OpenCatalogue(program, Computer()); }, script);

    program.shared.ExternalDBOpen = true;
    const auto external = [&]() -> Script {
        co_await act([&] { drop(files); });
        co_await key(Qt::Key_V, Qt::ControlModifier);
        EXPECT_FALSE(visible("imgBox"));
    };
    play([&] { OpenCatalogue(program, Computer()); }, external);
}

TEST_F(Covers, AreReadWithoutHoldingUpWhoLeafsOnOrLeaves)
{
    shelf.computer(1, "Один");
    shelf.computer(2, "Два");
    MakeBoxFolder(program);
    StoreCover(program, u"pc_", 1, file("red.png", packed(plain(2500, 2500), "PNG")));
    StoreCover(program, u"pc_", 2, file("text.png", "no picture"));
    const auto leave = [&]() -> Script {
        co_await act([&] {
            control<QTabBar>("TabStrip").setCurrentIndex(1);
            control<QWidget>("imgBox").grab();
            runner.window().close();
        });
    };
    play([&] { OpenCatalogue(program, Computer()); }, leave);
    const auto leafOn = [&]() -> Script {
        co_await select("TabStrip", "Обложка");
        co_await focusOn("DBGrid");
        co_await key(Qt::Key_Down);
        co_await key(Qt::Key_Up);
        co_await seen(Qt::red);
    };
    play([&] { OpenCatalogue(program, Computer()); }, leafOn);
    QThreadPool::globalInstance()->waitForDone();
}

TEST_F(Covers, AFullDiskIsToldAndOtherTroubleIsAFault)
{
    shelf.computer(1, "Один");
    MakeBoxFolder(program);
    StoreCover(program, u"pc_", 1, file("old", "old"));
    const QString picture = file("red.bmp", packed(plain(300, 300), "BMP"));
    const auto change = [&](const auto& trouble) {
        play([&] { OpenCatalogue(program, Computer()); },
             [&]() -> Script {
                 co_await select("TabStrip", "Обложка");
                 expectOpenFile("Добавление обложки для диска № 1", picture);
                 trouble();
                 co_await click("imgButton_8");
             });
    };
    std::optional<FileSizeLimit> full;
    change([&] {
        full.emplace(4000);
        expectBox("Заменить обложку диска № 1?", 36, Answer::Yes);
        expectBox(u"На диске нет места для файла '%1': освободите его и повторите."_s.arg(path("box/pc_1.box.new")),
                  48);
    });
    full.reset();
    EXPECT_EQ(box() + ": " + cover("pc_1.box"), "pc_1.box: old");
    QDir(path("box")).removeRecursively();
    file("box", "a file where the folder should be");
    change([&] { expectFault("frmCataloguePCCD, cmdChangeBox()"); });
}
}
