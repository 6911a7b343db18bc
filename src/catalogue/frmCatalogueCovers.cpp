// The cover of the current disc: shown, put in place of another, taken away.
#include "catalogue/Covers.h"
#include "catalogue/GivenPicture.h"
#include "catalogue/frmCatalogue.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>
#include <QShortcut>
#include <memory>

void frmCatalogue::setUpCover()
{
    imgBox->setAccessibleName(u"Обложка"_s);
    imgBox->setTexts(u"Обложки нет"_s, u"Обложка не читается"_s,
                     u"Перетащите сюда картинку, вставьте её (Ctrl+V)\nили нажмите «Изменить обложку»"_s);
    connect(imgBox, &PictureBox::pictureDropped, this, [this](const QMimeData& data) { takeCover(data); });
    connect(imgBox, &PictureBox::menuWanted, this, [this](const QPoint& at) { coverMenu(at); });
    // Over the tab's caption a picture on its way opens the tab.
    TabStrip->setAcceptDrops(true);
    TabStrip->setChangeCurrentOnDrag(true);
    // Lives in the tab, so that it works while the tab is in sight.
    auto* paste = new QShortcut(QKeySequence::Paste, fraMain[1], [this] { cmdPasteBox(); });
    paste->setAutoRepeat(false);
}

/// The file decides at each move whether there is a cover. None is on view for an external database: covers are ours.
void frmCatalogue::showCover()
{
    const int number = currentNumber();
    const bool covered = !external() && HasCover(program, kind.coverPrefix, number);
    imgBox->setPath(covered ? CoverPath(program, kind.coverPrefix, number) : QString());
    allowCover(!external(), covered);
    if (external()) TabStrip->setCurrentIndex(0);
    TabStrip->setTabText(1, external() ? QString() : u"Обложка"_s);
    TabStrip->setEnabled(!external());
}

void frmCatalogue::allowCover(bool change, bool remove)
{
    // A button that greys under the focus hands it to whatever comes next.
    if (!remove && imgButton[std::size_t(kind.coverButton) + 1]->hasFocus()) imgBox->setFocus();
    allow(kind.coverButton, change);
    allow(kind.coverButton + 1, remove);
    imgBox->setAcceptDrops(change);
}

void frmCatalogue::cmdChangeBox()
{
    Routine("cmdChangeBox"_L1, [&] {
        const QString picture = program.dialogs.OpenFile(
            u"Добавление обложки для диска № %1"_s.arg(currentNumber()),
            u"Файлы изображений (*.jpg;*.gif)|*.jpg;*.gif|Все файлы (*.*)|*.*"_s);
        if (!picture.isEmpty()) changeCover(picture);
    });
}

bool frmCatalogue::TestPicture(const QString& path)
{
    const Hourglass hourglass;
    if (IsPicture(path)) return true;
    MsgBox(u"Этот формат изображения не поддерживается программой!"_s);
    return false;
}

void frmCatalogue::changeCover(const QString& picture)
{
    const int number = currentNumber();
    MakeBoxFolder(program);
    if (!TestPicture(picture)) return;
    if (HasCover(program, kind.coverPrefix, number) &&
        !Ask(u"Заменить обложку диска № %1?"_s.arg(number), Box::Question | Box::SafeDefault))
        return;
    unlessDiskIsFull([&] {
        const Hourglass hourglass;
        StoreCover(program, kind.coverPrefix, number, picture);
        showCover();
    });
}

/// What went before stays as it was.
void frmCatalogue::unlessDiskIsFull(const std::function<void()>& body)
{
    constexpr int DiskFull = 61;
    try {
        body();
    } catch (const RuntimeError& error) {
        if (error.number() != DiskFull) throw;
        MsgBox(error.description());
    }
}

/// Asks its questions when the drop is over: the program that the picture comes from waits for its end.
void frmCatalogue::takeCover(const QMimeData& data)
{
    Routine("cmdChangeBox"_L1, [&] {
        unlessDiskIsFull([&] {
            const auto given = std::make_shared<GivenPicture>(data);
            const auto change = [this, given] {
                activateWindow();
                Routine("cmdChangeBox"_L1, [&] { changeCover(given->path()); });
            };
            QMetaObject::invokeMethod(this, change, Qt::QueuedConnection);
        });
    });
}

static const QMimeData* pictureInClipboard()
{
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data && GivenPicture::isIn(*data) ? data : nullptr;
}

void frmCatalogue::cmdPasteBox()
{
    if (const QMimeData* data = pictureInClipboard()) return takeCover(*data);
    Routine("cmdPasteBox"_L1, [&] { MsgBox(u"В буфере обмена нет картинки."_s); });
}

void frmCatalogue::cmdDeleteBox()
{
    Routine("cmdDeleteBox"_L1, [&] {
        const QString question = u"Вы действительно хотите удалить обложку диска № %1?"_s.arg(currentNumber());
        if (!Ask(question, Box::Question | Box::SafeDefault)) return;
        DeleteCover(program, kind.coverPrefix, currentNumber());
        showCover();
    });
}

/// A copy of the cover wherever the user likes. A place that takes none is told of, and is no reason to end.
void frmCatalogue::cmdSaveBox()
{
    Routine("cmdSaveBox"_L1, [&] {
        const QString suffix = PictureSuffix(imgBox->path());
        const QString patterns = suffix.isEmpty() ? QString() : u"Изображение|*.%1|"_s.arg(suffix);
        const QString name = u"Обложка диска № %1"_s.arg(currentNumber()) + (suffix.isEmpty() ? u""_s : u'.' + suffix);
        const QString path = program.dialogs.SaveFile(u"Сохранение обложки диска № %1"_s.arg(currentNumber()),
                                                      patterns + u"Все файлы|*.*"_s, name);
        if (path.isEmpty()) return;
        try {
            CopyFile(imgBox->path(), path);
        } catch (const RuntimeError& error) {
            MsgBox(error.description());
        }
    });
}

void frmCatalogue::coverMenu(const QPoint& at)
{
    Routine("coverMenu"_L1, [&] {
        QMenu menu;
        menu.setObjectName(u"mnuCover"_s);
        const auto add = [&](const QString& text, bool enabled, void (frmCatalogue::*command)(),
                             const QKeySequence& keys = {}) {
            QAction* action = menu.addAction(text);
            action->setShortcut(keys);
            action->setEnabled(enabled);
            connect(action, &QAction::triggered, this, command);
        };
        const bool covered = !imgBox->path().isEmpty();
        add(u"&Вставить"_s, pictureInClipboard() != nullptr, &frmCatalogue::cmdPasteBox, QKeySequence::Paste);
        add(u"&Изменить…"_s, true, &frmCatalogue::cmdChangeBox);
        add(u"&Сохранить как…"_s, covered, &frmCatalogue::cmdSaveBox);
        menu.addSeparator();
        add(u"&Удалить"_s, covered, &frmCatalogue::cmdDeleteBox);
        program.dialogs.Popup(menu, at);
    });
}
