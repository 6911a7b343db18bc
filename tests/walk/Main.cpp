// A day with a shelf of discs: vinora_walk <folder for pictures> <folder with images>, or the first alone for the look at
// the next day.
#include "mainwindow/Application.h"
#include "mainwindow/frmMain.h"
#include "walk/Walk.h"

#include <QApplication>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QTabBar>

namespace {

void leave(Walk& walk)
{
    walk.press(Qt::Key_Q, Qt::ControlModifier);
    walk.picture(u"exit-question"_s);
    walk.press(Qt::Key_Return);
}

/// Types a path into the file chooser that is open.
void choose(Walk& walk, const QString& path)
{
    walk.until(u"the file chooser is open"_s, [&walk] { return qobject_cast<QFileDialog*>(walk.top()) != nullptr; });
    walk.step(u"name the file"_s,
              [&walk, path] { walk.top()->findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(path); });
    walk.press(Qt::Key_Return);
}

/// An image into the virtual drive, by keyboard; the sign of its catalogue says that it is new.
void insert(Walk& walk, const QString& image, const QString& sign)
{
    walk.press(Qt::Key_I, Qt::ControlModifier);
    choose(walk, image);
    walk.until(u"the new disc is seen"_s, [&walk, sign] {
        auto* label = walk.top()->findChild<QLabel*>(sign);
        return label && label->isVisible();
    });
}

void untilKnown(Walk& walk, const QString& sign)
{
    walk.until(u"the disc is known"_s, [&walk, sign] {
        auto* label = walk.top()->findChild<QLabel*>(sign);
        return label && label->isVisible() && label->text().contains(u"№ 1");
    });
}

void computerDisc(Walk& walk, const QString& image)
{
    insert(walk, image, u"lblNewPC"_s);
    walk.picture(u"new-disc-seen"_s);

    // Added and bound.
    walk.click(u"cmd_ID_Catalog_AddPCCD"_s);
    walk.picture(u"add-number"_s);
    walk.press(Qt::Key_Return);
    walk.type(u"txtName"_s, u"Сборник «Зима 2003»"_s);
    walk.press(Qt::Key_Return);
    walk.type(u"txtDescription"_s, u"Сборник прог"_s);
    walk.picture(u"add-details"_s);
    walk.click(u"imgButton_0"_s);
    walk.picture(u"catalogue"_s);

    // Scanned.
    walk.click(u"imgButton_6"_s);
    walk.picture(u"no-list-yet"_s);
    walk.click(u"imgButton_1"_s);
    walk.picture(u"scan-options"_s);
    walk.click(u"imgButton_0"_s);
    walk.until(u"the scan is over"_s, [&walk] { return walk.top()->objectName() == u"frmFileList"; });
    walk.picture(u"files"_s);

    // Browsed and commented.
    walk.step(u"focus the tree"_s, [&walk] { walk.top()->findChild<QWidget*>(u"trView"_s)->setFocus(); });
    walk.press(Qt::Key_Down);
    walk.type(u"txtCommentDir"_s, u"Письма и черновики"_s);
    walk.press(Qt::Key_Return);
    walk.picture(u"comment-saved"_s);
    walk.press(Qt::Key_Return);
    walk.picture(u"files-of-a-folder"_s);
    walk.press(Qt::Key_Escape);
    walk.press(Qt::Key_Escape);
    untilKnown(walk, u"lblNewPC"_s);
    walk.picture(u"disc-known"_s);
}

void audioDisc(Walk& walk, const QString& image, const QString& cover)
{
    insert(walk, image, u"lblNewAD"_s);
    walk.click(u"cmd_ID_Catalog_AddAudioCD"_s);
    walk.picture(u"add-audio-number"_s);
    walk.press(Qt::Key_Return);
    walk.type(u"txtName"_s, u"Оркестр"_s);
    walk.type(u"txtAlbum"_s, u"Снег"_s);
    walk.type(u"txtStyle"_s, u"Классика"_s);
    walk.click(u"imgButton_2"_s);
    walk.press(Qt::Key_Return);
    walk.picture(u"audio-details"_s);
    walk.click(u"imgButton_0"_s);
    walk.picture(u"audio-catalogue"_s);

    // Its cover.
    walk.step(u"the tab of the cover"_s,
              [&walk] { walk.top()->findChild<QTabBar*>(u"TabStrip"_s)->setCurrentIndex(1); });
    walk.click(u"imgButton_8"_s);
    choose(walk, cover);
    walk.picture(u"audio-cover"_s);
    walk.press(Qt::Key_Escape);
    untilKnown(walk, u"lblNewAD"_s);
}

void film(Walk& walk, const QString& image)
{
    insert(walk, image, u"lblNewDVD"_s);
    walk.click(u"cmd_ID_Catalog_AddDVD"_s);
    walk.press(Qt::Key_Return);
    walk.type(u"txtName"_s, u"Морозко"_s);
    walk.type(u"txtGenre"_s, u"Сказка"_s);
    walk.picture(u"film-details"_s);
    walk.click(u"imgButton_0"_s);
    walk.picture(u"film-catalogue"_s);
    walk.press(Qt::Key_Escape);
    untilKnown(walk, u"lblNewDVD"_s);
    walk.picture(u"three-catalogues"_s);
}

/// The record goes out by its catalogue; the film by its number, and comes back.
void loans(Walk& walk)
{
    walk.press(Qt::Key_1, Qt::ControlModifier);
    walk.click(u"imgButton_4"_s);
    walk.press(Qt::Key_Return);
    walk.type(u"txtFIO"_s, u"Светлана Орлова"_s);
    walk.picture(u"lend-record"_s);
    walk.click(u"imgButton_0"_s);
    walk.picture(u"record-is-out"_s);
    walk.press(Qt::Key_Escape);

    walk.press(Qt::Key_D, Qt::ControlModifier);
    walk.press(Qt::Key_Insert);
    walk.click(u"optCategory_2"_s);
    walk.keys(u"1"_s);
    walk.picture(u"lend-film-by-number"_s);
    walk.press(Qt::Key_Return);
    walk.press(Qt::Key_Return);
    walk.type(u"txtFIO"_s, u"Пётр Зимин"_s);
    walk.click(u"chDueNonStop"_s);
    walk.click(u"imgButton_0"_s);
    walk.press(Qt::Key_Escape);
    walk.picture(u"two-debtors"_s);
    walk.press(Qt::Key_Home);
    walk.press(Qt::Key_Delete);
    walk.press(Qt::Key_Return);
    walk.picture(u"film-is-back"_s);
    walk.press(Qt::Key_Escape);
    walk.until(u"the loan is on the dashboard"_s, [&walk] {
        const auto* records = walk.top()->findChild<QLabel*>(u"lblCDdueAudio"_s); // none while a dialog is closing
        const auto* films = walk.top()->findChild<QLabel*>(u"lblCDdueDVD"_s);
        const auto* sign = walk.top()->findChild<QWidget*>(u"fraFindDueAudio"_s);
        return records && films && sign && records->text() == u"1" && films->text() == u"0" && sign->isVisible();
    });
    walk.picture(u"loan-on-the-dashboard"_s);
}

/// A picture such as a scanned booklet is.
QString paintCover(const QString& folder)
{
    QImage cover(600, 600, QImage::Format_RGB32);
    QPainter painter(&cover);
    QLinearGradient night(0, 0, 0, 600);
    night.setColorAt(0, QColor(18, 32, 74));
    night.setColorAt(1, QColor(120, 150, 205));
    painter.fillRect(cover.rect(), night);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    for (int flake = 0; flake < 160; ++flake) {
        const double size = 2 + flake * 7 % 9;
        painter.drawEllipse(QPointF(flake * 137 % 600, flake * 211 % 600), size / 2, size / 2);
    }
    painter.end();
    const QString path = folder + u"/cover.png"_s;
    cover.save(path);
    return path;
}

void firstDay(Walk& walk, const QString& folder)
{
    walk.picture(u"empty-shelf"_s);
    computerDisc(walk, folder + u"/zima2003.iso"_s);
    audioDisc(walk, folder + u"/orkestr.cue"_s, paintCover(folder));
    film(walk, folder + u"/skazka.iso"_s);
    loans(walk);
    leave(walk);
}

void nextDay(Walk& walk)
{
    untilKnown(walk, u"lblNewDVD"_s);
    walk.picture(u"next-start"_s);
    walk.press(Qt::Key_2, Qt::ControlModifier);
    walk.picture(u"catalogue-again"_s);
    walk.press(Qt::Key_Escape);
    leave(walk);
}

}

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: vinora_walk <folder for pictures> [<folder with images>]\n");
        return 2;
    }
    Walk walk(QString::fromLocal8Bit(argv[1]));
    if (argc > 2)
        firstDay(walk, QString::fromLocal8Bit(argv[2]));
    else
        nextDay(walk);
    return RunVinora(argc, argv, [&](frmMain& window) { walk.start(&window); });
}
