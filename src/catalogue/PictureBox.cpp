#include "catalogue/PictureBox.h"

#include "catalogue/Covers.h"
#include "catalogue/GivenPicture.h"
#include "ui/Icons.h"
#include "ui/Strokes.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QPainter>
#include <QPromise>
#include <QThreadPool>
#include <memory>
#include <new>

PictureBox::PictureBox(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(80, 80);
    setFocusPolicy(Qt::StrongFocus);
    connect(&m_reader, &QFutureWatcher<QImage>::finished, this, [this] { wasRead(); });
}

void PictureBox::setPath(const QString& path)
{
    m_path = path;
    m_wanted = {};
    m_passed = true;
    m_read = false;
    m_picture = {};
    setAccessibleDescription(path.isEmpty() ? m_empty + u". "_s + m_hint : QString());
    update();
}

void PictureBox::setTexts(const QString& empty, const QString& unreadable, const QString& hint)
{
    m_empty = empty;
    m_unreadable = unreadable;
    m_hint = hint;
    update();
}

/// One reading at a time: what is passed by meanwhile is never read.
void PictureBox::read()
{
    const QSize physical = (QSizeF(size()) * devicePixelRatioF()).toSize();
    if (m_path.isEmpty() || m_wanted == physical || m_reading) return;
    m_wanted = physical;
    m_reading = true;
    m_passed = false;
    const auto reading = std::make_shared<QPromise<QImage>>();
    reading->start();
    m_reader.setFuture(reading->future());
    QThreadPool::globalInstance()->start([reading, path = m_path, physical] {
        QImage picture;
        try {
            picture = LoadCover(path, physical);
        } catch (const std::bad_alloc&) {
            // Beyond the thread it would end the program: a picture too large to be read is not read.
        }
        reading->addResult(picture);
        reading->finish();
    });
}

void PictureBox::wasRead()
{
    m_reading = false;
    update();
    if (m_passed) return;
    m_picture = QPixmap::fromImage(m_reader.result());
    m_read = true;
}

void PictureBox::paintEvent(QPaintEvent*)
{
    read();
    QPainter painter(this);
    const QColor accent = palette().color(QPalette::Highlight);
    const bool empty = m_path.isEmpty() || (m_read && m_picture.isNull());
    if (empty || m_dragOver)
        Strokes::roundRect(painter, rect(), fontMetrics().height() * 0.6, Theme::card(palette()),
                           m_dragOver ? accent : Theme::hairline(palette()), m_dragOver ? 2 : 1);
    if (empty)
        paintText(painter);
    else if (!m_picture.isNull())
        paintPicture(painter);
    if (hasFocus()) Strokes::roundRect(painter, rect(), fontMetrics().height() * 0.6, {}, accent, 2);
}

void PictureBox::paintPicture(QPainter& painter) const
{
    QSizeF shown = m_picture.size();
    if (shown.width() > width() || shown.height() > height()) shown.scale(size(), Qt::KeepAspectRatio);
    const QPointF corner((width() - shown.width()) / 2, (height() - shown.height()) / 2);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(QRectF(corner, shown), m_picture, QRectF(m_picture.rect()));
}

/// The icon, the news and the hint, one below the other in the middle; a place too small for all goes without the icon.
void PictureBox::paintText(QPainter& painter) const
{
    const int line = fontMetrics().height();
    const QRect inside = rect().adjusted(line, line / 2, -line, -line / 2);
    const QString& news = m_path.isEmpty() ? m_empty : m_unreadable;
    constexpr int Flags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;
    const auto heightOf = [&](const QFont& font, const QString& text) {
        return QFontMetrics(font).boundingRect(QRect(0, 0, inside.width(), 10'000), Flags, text).height();
    };
    const QFont heading = Theme::heading(font()), caption = Theme::caption(font());
    const int newsHeight = heightOf(heading, news), hintHeight = heightOf(caption, m_hint);
    const int texts = newsHeight + line / 3 + hintHeight;
    const int edge = texts + 4 * line > inside.height() ? 0 : 3 * line;

    int y = inside.top() + qMax(0, (inside.height() - texts - (edge > 0 ? edge + line / 2 : 0)) / 2);
    if (edge > 0) {
        const QRect place(inside.center().x() - edge / 2, y, edge, edge);
        icon(u"cover"_s).paint(&painter, place, Qt::AlignCenter, QIcon::Disabled);
        y += edge + line / 2;
    }
    const auto write = [&](const QFont& font, const QColor& colour, const QString& text, int height) {
        painter.setFont(font);
        painter.setPen(colour);
        painter.drawText(QRect(inside.left(), y, inside.width(), height), Flags, text);
        y += height + line / 3;
    };
    write(heading, palette().color(QPalette::WindowText), news, newsHeight);
    write(caption, Theme::subdued(palette()), m_hint, hintHeight);
}

void PictureBox::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    emit menuWanted(byKey ? mapToGlobal(rect().center()) : event->globalPos());
}

void PictureBox::setDragOver(bool over)
{
    m_dragOver = over;
    update();
}

void PictureBox::dragEnterEvent(QDragEnterEvent* event)
{
    // The toolkit lets a drag into a window that a box has blocked.
    const QWidget* modal = QApplication::activeModalWidget();
    if ((modal && modal != window()) || !GivenPicture::isIn(*event->mimeData())) return;
    // Never moved: whose picture it is keeps it.
    event->setDropAction(Qt::CopyAction);
    event->accept();
    setDragOver(true);
}

void PictureBox::dragLeaveEvent(QDragLeaveEvent*) { setDragOver(false); }

void PictureBox::dropEvent(QDropEvent* event)
{
    setDragOver(false);
    event->setDropAction(Qt::CopyAction);
    event->accept();
    emit pictureDropped(*event->mimeData());
}
