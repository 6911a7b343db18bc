#include "ui/ListBarRows.h"

#include "platform/Literals.h"
#include "ui/Lettering.h"
#include "ui/Strokes.h"
#include "ui/Theme.h"

#include <QFocusEvent>
#include <QPainter>

namespace {

// The parts of a row from its left edge, all from the height of a line.
struct Places {
    explicit Places(const QWidget* row) : line(row->fontMetrics().height()) {}

    int line;
    int edge = line / 2;            ///< free at both ends
    int icon = qRound(line * 1.15); ///< side of the picture
    int iconAt = qRound(line * 1.2);
    int text = iconAt + icon + qRound(line * 0.6);
    int row = 2 * line;
};

// A name that the user has given does not make the bar wider than the window's own do.
constexpr int LongestShown = 26; // letters

QFont captionFont(const QWidget* row) { return Theme::heading(Theme::caption(row->font())); }

// An ampersand in a name is an ampersand, not a mnemonic.
QString plain(QString text) { return text.replace(u'&', u"&&"_s); }

}

ListBarCaption::ListBarCaption(const QString& caption)
{
    setText(plain(caption));
    setObjectName(caption);
    setAccessibleName(caption);
    setCheckable(true);
    setChecked(true);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
}

QSize ListBarCaption::sizeHint() const
{
    const Places at(this);
    return QSize(at.iconAt + at.line + QFontMetrics(captionFont(this)).horizontalAdvance(objectName().toUpper()) +
                     at.edge,
                 qRound(at.line * 1.9));
}

void ListBarCaption::paintEvent(QPaintEvent*)
{
    const Places at(this);
    QPainter painter(this);
    const QColor colour = underMouse() ? palette().color(QPalette::WindowText) : Theme::subdued(palette());
    const QRectF sign(at.edge / 2.0, 0, at.line, height());
    Strokes::chevron(painter, sign, isChecked() ? Strokes::Towards::Down : Strokes::Towards::Right, at.line * 0.46,
                     colour);
    painter.setFont(captionFont(this));
    painter.setPen(colour);
    painter.drawText(rect().adjusted(at.edge / 2 + at.line + at.line / 4, 0, -at.edge, 0),
                     Qt::AlignVCenter | Qt::AlignLeft, objectName().toUpper());
    if (hasFocus())
        Strokes::roundRect(painter, QRectF(rect()).adjusted(at.edge / 2.0, 2, -at.edge / 2.0, -2), at.line * 0.36, {},
                           palette().color(QPalette::Highlight), 1.5);
}

ListBarItem::ListBarItem(const QString& key, const QString& caption, const QIcon& icon) : m_key(key), m_caption(caption)
{
    setText(plain(caption));
    setObjectName(caption);
    setAccessibleName(caption);
    setIcon(icon);
    setFocusPolicy(Qt::ClickFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

int ListBarItem::wordsWidth() const { return QFontMetrics(Theme::heading(font())).horizontalAdvance(m_caption); }

QSize ListBarItem::sizeHint() const
{
    const Places at(this);
    const int words = qMin(wordsWidth(), LongestShown * fontMetrics().averageCharWidth());
    return QSize(at.text + words + 2 * at.edge, at.row);
}

void ListBarItem::resizeEvent(QResizeEvent* event)
{
    QAbstractButton::resizeEvent(event);
    const Places at(this);
    setToolTip(at.text + wordsWidth() + at.edge > width() ? m_caption.toHtmlEscaped() : QString());
}

void ListBarItem::focusInEvent(QFocusEvent* event)
{
    const Qt::FocusReason reason = event->reason();
    const bool back = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
    if (!back) m_byKeyboard = reason != Qt::MouseFocusReason;
    QAbstractButton::focusInEvent(event);
}

void ListBarItem::paintEvent(QPaintEvent*)
{
    const Places at(this);
    QPainter painter(this);
    const QRectF ground = QRectF(rect()).adjusted(at.edge, 1, -at.edge, -1);
    const QColor window = palette().color(QPalette::Window), highlight = palette().color(QPalette::Highlight);
    const qreal radius = at.line * 0.36;
    const qreal pale = Theme::dark(palette()) ? 0.32 : 0.15;
    if (isEnabled() && isDown()) {
        Strokes::roundRect(painter, ground, radius, Theme::mix(window, highlight, pale * 1.5));
    } else if (marked()) {
        Strokes::roundRect(painter, ground, radius, Theme::mix(window, highlight, pale));
    } else if (isEnabled() && underMouse()) {
        Strokes::roundRect(painter, ground, radius, Theme::mix(window, palette().color(QPalette::WindowText), 0.06));
    }
    if (marked()) {
        const qreal thick = qMax(3.0, at.line * 0.19), inset = height() * 0.24;
        Strokes::roundRect(painter, QRectF(ground.left(), inset, thick, height() - 2 * inset), thick, highlight);
    }

    const QRect picture(at.iconAt, (height() - at.icon) / 2, at.icon, at.icon);
    icon().paint(&painter, picture, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    painter.setFont(marked() ? Theme::heading(font()) : font());
    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    const QRect words = rect().adjusted(at.text, 0, -at.edge, 0);
    painter.drawText(words, Qt::AlignVCenter | Qt::AlignLeft,
                     painter.fontMetrics().elidedText(m_caption, Qt::ElideRight, words.width()));
}

QLabel* ListBarHint(const QString& text)
{
    auto* hint = new QLabel(text);
    const Places at(hint);
    lettered(hint, Lettering::Caption);
    hint->setWordWrap(true);
    hint->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
    hint->setContentsMargins(at.iconAt, 0, at.edge, 0);
    return hint;
}
