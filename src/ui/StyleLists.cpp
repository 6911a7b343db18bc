#include "platform/Literals.h"
#include "ui/Strokes.h"
#include "ui/Style.h"
#include "ui/Theme.h"

#include <QAbstractItemView>
#include <QPainter>
#include <QStyleOption>
#include <QTabBar>
#include <QTreeView>

// What is chosen from and scrolled: menus, lists, tables, trees, tabs, tool bars, scroll bars.

using namespace StyleMeasure;

namespace {

bool has(const QStyleOption* option, QStyle::StateFlag flag) { return option->state & flag; }

QColor hovered(const QPalette& palette)
{
    return Theme::mix(palette.color(QPalette::Base), palette.color(QPalette::WindowText), 0.05);
}

// The ground of an item. Cells of one row join; an item alone is rounded.
void drawItemGround(QPainter& painter, const QStyleOption* option)
{
    const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(option);
    if (item && item->backgroundBrush.style() != Qt::NoBrush) painter.fillRect(option->rect, item->backgroundBrush);
    const bool selected = has(option, QStyle::State_Selected);
    const bool pointed = has(option, QStyle::State_MouseOver) && has(option, QStyle::State_Enabled);
    if (selected) {
        painter.fillRect(option->rect, Theme::selection(option->palette));
    } else if (pointed) {
        painter.fillRect(option->rect, hovered(option->palette));
    }
}

void drawBranch(QPainter& painter, const QStyleOption* option)
{
    if (has(option, QStyle::State_Selected)) painter.fillRect(option->rect, Theme::selection(option->palette));
    if (!has(option, QStyle::State_Children)) return;
    const auto towards = has(option, QStyle::State_Open) ? Strokes::Towards::Down : Strokes::Towards::Right;
    Strokes::chevron(painter, option->rect, towards, line(option) * 0.48, Theme::subdued(option->palette));
}

void drawHandle(QPainter& painter, const QStyleOption* option)
{
    const qreal dot = qMax(2.0, line(option) * 0.13), step = dot * 2.2;
    const QColor colour = Theme::mix(option->palette.color(QPalette::Window),
                                     option->palette.color(QPalette::WindowText), 0.3);
    const QPointF centre = QRectF(option->rect).center();
    const bool upright = has(option, QStyle::State_Horizontal);
    for (int along = -2; along <= 2; ++along) {
        const QPointF shift = upright ? QPointF(0, along * step) : QPointF(along * step, 0);
        QRectF spot(0, 0, dot, dot);
        spot.moveCenter(centre + shift);
        Strokes::roundRect(painter, spot, dot, colour);
    }
}

// In a menu without pictures and ticks the words begin at its edge.
bool hasMarks(const QStyleOptionMenuItem& option) { return option.maxIconWidth > 0 || option.menuHasCheckableItems; }

void drawSeparator(QPainter& painter, const QStyleOption* option)
{
    const QRect& rect = option->rect;
    const int inset = line(option) / 3;
    painter.setPen(Theme::mix(Theme::hairline(option->palette), option->palette.color(QPalette::WindowText), 0.08));
    if (has(option, QStyle::State_Horizontal)) {
        painter.drawLine(rect.center().x(), rect.top() + inset, rect.center().x(), rect.bottom() - inset);
    } else {
        painter.drawLine(rect.left() + inset, rect.center().y(), rect.right() - inset, rect.center().y());
    }
}

}

bool Style::drawListPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const
{
    const QPalette& palette = option->palette;
    switch (element) {
    case PE_PanelItemViewItem: drawItemGround(*painter, option); return true;
    case PE_PanelItemViewRow: {
        const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(option);
        if (item && item->features & QStyleOptionViewItem::Alternate)
            painter->fillRect(option->rect, palette.alternateBase());
        if (has(option, State_Selected) && qobject_cast<const QTreeView*>(widget))
            painter->fillRect(option->rect, Theme::selection(palette));
        return true;
    }
    case PE_FrameFocusRect:
        if (has(option, State_KeyboardFocusChange))
            Strokes::roundRect(*painter, QRectF(option->rect).adjusted(1, 1, -1, -1), radius(option) * 0.6, {},
                               palette.color(QPalette::Highlight), 1.5);
        return true;
    case PE_IndicatorBranch: drawBranch(*painter, option); return true;
    case PE_IndicatorHeaderArrow: {
        const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(option);
        if (!header || header->sortIndicator == QStyleOptionHeader::None) return true;
        // The base style puts the arrow at the upper edge.
        QRect place = option->rect;
        if (widget && header->orientation == Qt::Horizontal)
            place = QRect(place.left(), 0, place.width(), widget->height());
        // Qt's "sort up" is the descending order, whose arrow points down.
        const auto towards = header->sortIndicator == QStyleOptionHeader::SortUp ? Strokes::Towards::Down
                                                                                 : Strokes::Towards::Up;
        Strokes::chevron(*painter, place, towards, line(option) * 0.42, palette.color(QPalette::Highlight));
        return true;
    }
    case PE_PanelMenu: painter->fillRect(option->rect, Theme::card(palette)); return true;
    case PE_FrameMenu:
        painter->setPen(edge(option));
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        return true;
    case PE_PanelTipLabel:
        painter->fillRect(option->rect, palette.toolTipBase());
        painter->setPen(edge(option));
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        return true;
    case PE_PanelMenuBar:
    case PE_PanelStatusBar:
    case PE_FrameStatusBarItem:
    case PE_PanelToolBar:
    case PE_FrameTabBarBase: {
        const auto* base = qstyleoption_cast<const QStyleOptionTabBarBase*>(option);
        if (element != PE_FrameTabBarBase || !base) return true;
        painter->setPen(Theme::hairline(palette));
        painter->drawLine(option->rect.bottomLeft(), option->rect.bottomRight());
        return true;
    }
    case PE_FrameTabWidget:
        Strokes::roundRect(*painter, option->rect, radius(option) * 1.4, Theme::card(palette),
                           Theme::hairline(palette));
        return true;
    case PE_IndicatorToolBarHandle: drawHandle(*painter, option); return true;
    case PE_IndicatorToolBarSeparator: drawSeparator(*painter, option); return true;
    default: return false;
    }
}

void Style::drawMenuItem(const QStyleOptionMenuItem& option, QPainter& painter, const QWidget* widget) const
{
    const int h = line(&option);
    const QPalette& palette = option.palette;
    const QRect& rect = option.rect;
    const auto place = [&](const QRect& inside) { return visualRect(option.direction, rect, inside); };
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        painter.setPen(Theme::hairline(palette));
        painter.drawLine(rect.left() + h / 2, rect.center().y(), rect.right() - h / 2, rect.center().y());
        return;
    }
    const bool enabled = option.state & State_Enabled;
    if (option.state & State_Selected && enabled)
        Strokes::roundRect(painter, QRectF(rect).adjusted(1, 0, -1, 0), radius(&option), Theme::selection(palette));

    const int side = pixelMetric(PM_SmallIconSize, &option, widget);
    const QRect mark(rect.left() + h / 2, rect.top() + (rect.height() - side) / 2, side, side);
    const bool checkable = option.checkType != QStyleOptionMenuItem::NotCheckable;
    if (checkable && (option.checked || option.icon.isNull())) {
        if (option.checked)
            Strokes::tick(painter, place(mark),
                          enabled ? palette.color(QPalette::Highlight) : palette.color(QPalette::Text));
    } else if (!option.icon.isNull()) {
        option.icon.paint(&painter, place(mark), Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
    }

    painter.setFont(option.font);
    const int left = hasMarks(option) ? mark.right() + qRound(h * 0.7) : mark.left() + h / 4, right = qRound(h * 1.3);
    const QRect words(left, rect.top(), rect.right() - right - left, rect.height());
    const QString text = option.text.section(u'\t', 0, 0), keys = option.text.section(u'\t', 1);
    int flags = Qt::AlignVCenter | Qt::TextSingleLine;
    flags |= styleHint(SH_UnderlineShortcut, &option, widget, nullptr) ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
    drawItemText(&painter, place(words), flags | static_cast<int>(visualAlignment(option.direction, Qt::AlignLeft)),
                 palette, enabled, text, QPalette::WindowText);
    if (!keys.isEmpty()) {
        painter.setPen(enabled ? Theme::subdued(palette) : palette.color(QPalette::WindowText));
        painter.drawText(place(words), flags | static_cast<int>(visualAlignment(option.direction, Qt::AlignRight)),
                         keys);
    }
    if (option.menuItemType == QStyleOptionMenuItem::SubMenu) {
        const QRect arrow(rect.right() - right, rect.top(), right, rect.height());
        const auto towards = option.direction == Qt::RightToLeft ? Strokes::Towards::Left : Strokes::Towards::Right;
        Strokes::chevron(painter, place(arrow), towards, h * 0.45, Theme::subdued(palette));
    }
}

void Style::drawMenuBarItem(const QStyleOptionMenuItem& option, QPainter& painter) const
{
    const QPalette& palette = option.palette;
    const bool enabled = option.state & State_Enabled;
    const QColor ground = palette.color(QPalette::Window);
    if (enabled && option.state & State_Sunken) {
        Strokes::roundRect(painter, option.rect, radius(&option),
                           Theme::mix(ground, palette.color(QPalette::Highlight), 0.2));
    } else if (enabled && option.state & State_Selected) {
        Strokes::roundRect(painter, option.rect, radius(&option),
                           Theme::mix(ground, palette.color(QPalette::WindowText), 0.08));
    }
    int flags = Qt::AlignCenter | Qt::TextSingleLine;
    flags |= styleHint(SH_UnderlineShortcut, &option, nullptr, nullptr) ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
    drawItemText(&painter, option.rect, flags, palette, enabled, option.text, QPalette::WindowText);
}

void Style::drawHeaderSection(const QStyleOptionHeader& option, QPainter& painter) const
{
    const QPalette& palette = option.palette;
    const QRect& rect = option.rect;
    painter.fillRect(rect, option.state & State_MouseOver ? hovered(palette) : palette.color(QPalette::Base));
    painter.setPen(Theme::hairline(palette));
    if (option.orientation == Qt::Vertical) return painter.drawLine(rect.topRight(), rect.bottomRight());
    painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    // A short rule between columns says that they can be widened.
    const bool last = option.position == QStyleOptionHeader::End ||
                      option.position == QStyleOptionHeader::OnlyOneSection;
    const int inset = rect.height() / 4;
    if (!last) painter.drawLine(rect.right(), rect.top() + inset, rect.right(), rect.bottom() - inset);
}

// Picture and words with more air between them than the base style leaves; all else is the base style's.
bool Style::drawToolButtonLabel(const QStyleOptionToolButton& option, QPainter& painter, const QWidget* widget) const
{
    if (option.toolButtonStyle != Qt::ToolButtonTextBesideIcon || option.icon.isNull() || option.text.isEmpty())
        return false;
    const int h = line(&option);
    const bool enabled = option.state & State_Enabled;
    const QRect& rect = option.rect;
    const QRect picture(rect.left() + qRound(h * 0.25), rect.top(), option.iconSize.width(), rect.height());
    option.icon.paint(&painter, visualRect(option.direction, rect, picture), Qt::AlignCenter,
                      enabled ? QIcon::Normal : QIcon::Disabled);
    const QRect words(picture.right() + qRound(h * 0.4), rect.top(), rect.right() - picture.right() - qRound(h * 0.4),
                      rect.height());
    int flags = Qt::AlignVCenter | Qt::TextSingleLine |
                static_cast<int>(visualAlignment(option.direction, Qt::AlignLeft));
    flags |= styleHint(SH_UnderlineShortcut, &option, widget, nullptr) ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
    painter.setFont(option.font);
    drawItemText(&painter, visualRect(option.direction, rect, words), flags, option.palette, enabled, option.text,
                 QPalette::ButtonText);
    return true;
}

void Style::drawTab(const QStyleOptionTab& option, QPainter& painter) const
{
    const QPalette& palette = option.palette;
    const bool enabled = option.state & State_Enabled, selected = option.state & State_Selected;
    const int h = line(&option);
    const QRectF rect = option.rect;
    if (enabled && !selected && option.state & State_MouseOver)
        Strokes::roundRect(painter, rect.adjusted(2, 2, -2, -4), radius(&option),
                           Theme::mix(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.06));
    if (!selected) return;
    if (option.state & State_HasFocus)
        Strokes::roundRect(painter, rect.adjusted(2, 2, -2, -4), radius(&option), {},
                           palette.color(QPalette::Highlight), 1.5);
    const qreal thick = qMax(2.0, h * 0.16);
    const QColor colour = enabled ? palette.color(QPalette::Highlight) : palette.color(QPalette::WindowText);
    const bool below = option.shape == QTabBar::RoundedSouth || option.shape == QTabBar::TriangularSouth;
    const QRectF edgeOfTab(rect.left() + h * 0.5, below ? rect.top() : rect.bottom() - thick, rect.width() - h, thick);
    Strokes::roundRect(painter, edgeOfTab, thick / 2, colour);
}

void Style::drawViewItem(const QStyleOptionViewItem& option, QPainter& painter, const QWidget* widget) const
{
    // The ground is tinted, not filled, so words and pictures keep the colours they have in any other row.
    QStyleOptionViewItem item = option;
    drawItemGround(painter, &item);
    item.backgroundBrush = Qt::NoBrush;
    item.state &= ~(State_Selected | State_MouseOver);
    // Where whole rows are chosen the chosen row and the frame say where the keyboard is.
    const auto* view = qobject_cast<const QAbstractItemView*>(widget);
    const bool wholeRows = view && view->selectionBehavior() == QAbstractItemView::SelectRows;
    const bool inPopup = view && view->window()->windowType() == Qt::Popup;
    if (option.state & State_Selected && (wholeRows || inPopup)) item.state &= ~State_HasFocus;
    QProxyStyle::drawControl(CE_ItemViewItem, &item, &painter, widget);
}

QRect Style::scrollBarRect(const QStyleOptionSlider& option, SubControl part) const
{
    const bool level = option.orientation == Qt::Horizontal;
    const QRect& all = option.rect;
    const int length = level ? all.width() : all.height();
    const qint64 range = qint64(option.maximum) - option.minimum;
    const int shortest = qMin(length, pixelMetric(PM_ScrollBarSliderMin, &option, nullptr));
    int handle = length;
    if (range > 0)
        handle = qBound(shortest, static_cast<int>(length * qint64(option.pageStep) / (range + option.pageStep)),
                        length);
    const int start = sliderPositionFromValue(option.minimum, option.maximum, option.sliderPosition, length - handle,
                                              option.upsideDown);
    const auto piece = [&](int from, int size) {
        return level ? QRect(all.left() + from, all.top(), size, all.height())
                     : QRect(all.left(), all.top() + from, all.width(), size);
    };
    switch (part) {
    case SC_ScrollBarSlider: return visualRect(option.direction, all, piece(start, handle));
    case SC_ScrollBarSubPage: return visualRect(option.direction, all, piece(0, start));
    case SC_ScrollBarAddPage: return visualRect(option.direction, all, piece(start + handle, length - start - handle));
    case SC_ScrollBarGroove: return all;
    default: return {};
    }
}

void Style::drawScrollBar(const QStyleOptionSlider& option, QPainter& painter, const QWidget* widget) const
{
    if (option.maximum <= option.minimum) return;
    const QPalette& palette = option.palette;
    const bool level = option.orientation == Qt::Horizontal;
    const bool held = option.state & State_Sunken && option.activeSubControls & SC_ScrollBarSlider;
    const bool near = option.state & State_MouseOver || held;
    QRectF handle = subControlRect(CC_ScrollBar, &option, SC_ScrollBarSlider, widget);
    const qreal across = level ? handle.height() : handle.width(), thick = qMax(4.0, across * (near ? 0.62 : 0.42));
    const qreal inset = (across - thick) / 2;
    handle = level ? handle.adjusted(2, inset, -2, -inset) : handle.adjusted(inset, 2, -inset, -2);
    const qreal strength = held ? 0.55 : near ? 0.42 : 0.26;
    Strokes::roundRect(painter, handle, thick / 2,
                       Theme::mix(palette.color(QPalette::Base), palette.color(QPalette::WindowText), strength));
}
