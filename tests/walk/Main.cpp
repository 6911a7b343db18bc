// A day with one computer disc: vinora_walk <folder for pictures> <image>, or <folder> alone for the look at the next day.
#include "mainwindow/Application.h"
#include "mainwindow/frmMain.h"
#include "walk/Walk.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>

namespace {

void leave(Walk& walk)
{
    walk.press(Qt::Key_Q, Qt::ControlModifier);
    walk.picture(u"exit-question"_s);
    walk.press(Qt::Key_Return);
}

void firstDay(Walk& walk, const QString& image)
{
    walk.picture(u"empty-shelf"_s);

    // The image into the virtual drive, by keyboard.
    walk.press(Qt::Key_I, Qt::ControlModifier);
    walk.step(u"name the image"_s, [&walk, image] {
        auto* chooser = qobject_cast<QFileDialog*>(walk.top());
        if (chooser) chooser->findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(image);
    });
    walk.press(Qt::Key_Return);
    walk.until(u"the new disc is seen"_s, [&walk] {
        auto* sign = walk.top()->findChild<QLabel*>(u"lblNewPC"_s);
        return sign && sign->isVisible();
    });
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
    walk.until(u"the disc is known"_s, [&walk] {
        auto* sign = walk.top()->findChild<QLabel*>(u"lblNewPC"_s);
        return sign && sign->isVisible() && sign->text().contains(u"№ 1");
    });
    walk.picture(u"disc-known"_s);
    leave(walk);
}

void nextDay(Walk& walk)
{
    walk.until(u"the disc is known again"_s, [&walk] {
        auto* sign = walk.top()->findChild<QLabel*>(u"lblNewPC"_s);
        return sign && sign->isVisible() && sign->text().contains(u"№ 1");
    });
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
        std::fprintf(stderr, "usage: vinora_walk <folder for pictures> [<image>]\n");
        return 2;
    }
    Walk walk(QString::fromLocal8Bit(argv[1]));
    if (argc > 2)
        firstDay(walk, QString::fromLocal8Bit(argv[2]));
    else
        nextDay(walk);
    return RunVinora(argc, argv, [&](frmMain& window) { walk.start(&window); });
}
