#include "ui/Strokes.h"
#include "ui/Style.h"
#include "ui/Theme.h"

#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QElapsedTimer>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStyleOption>
#include <QToolBar>
#include <cmath>

// What is filled in and what is pressed: fields, buttons, marks, sliders, progress.

using namespace StyleMeasure;

namespace {

bool has(const QStyleOption* option, QStyle::StateFlag flag) { return option->state & flag; }

// The box of a field: in the accent, and twice as strong, while it has the keyboard; flat where nothing can be entered.
void drawFieldBox(QPainter& painter, const QStyleOption* option, bool editable)
{
    const QPalette& palette = option->palette;
    const bool enabled = has(option, QStyle::State_Enabled);
    const bool focused = enabled && has(option, QStyle::State_HasFocus);
    QColor fill = palette.color(editable ? QPalette::Base : QPalette::Window);
    if (!enabled) fill = Theme::mix(fill, palette.color(QPalette::Window), 0.65);
    QColor line = focused ? palette.color(QPalette::Highlight) : editable ? edge(option) : Theme::hairline(palette);
    if (enabled && editable && !focused && has(option, QStyle::State_MouseOver))
        line = Theme::mix(line, palette.color(QPalette::WindowText), 0.25);
    Strokes::roundRect(painter, option->rect, radius(option), fill, line, focused ? 2 : 1);
}

void drawMark(QPainter& painter, const QStyleOption* option, bool round)
{
    const QPalette& palette = option->palette;
    const bool enabled = has(option, QStyle::State_Enabled);
    const bool on = has(option, QStyle::State_On), partly = has(option, QStyle::State_NoChange);
    QRectF box = option->rect;
    const qreal side = qMin(box.width(), box.height());
    box = QRectF(box.center().x() - side / 2, box.center().y() - side / 2, side, side);

    QColor fill = palette.color(QPalette::Base),
           line = Theme::mix(edge(option), palette.color(QPalette::WindowText), 0.12);
    const QColor highlight = palette.color(QPalette::Highlight);
    if (!enabled) fill = Theme::mix(fill, palette.color(QPalette::Window), 0.65);
    if (on || partly)
        fill = line = enabled ? highlight
                              : Theme::mix(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.55);
    if (enabled && has(option, QStyle::State_Sunken))
        fill = Theme::mix(fill, palette.color(QPalette::WindowText), 0.15);
    const bool focused = enabled && has(option, QStyle::State_HasFocus);
    if (enabled && (focused || has(option, QStyle::State_MouseOver)) && !on && !partly) line = highlight;
    Strokes::roundRect(painter, box, round ? side / 2 : side * 0.26, fill, line, focused ? 1.6 : 1);

    const QColor sign = enabled ? palette.color(QPalette::HighlightedText) : palette.color(QPalette::Base);
    if (partly) {
        Strokes::dash(painter, box, sign);
    } else if (on && round) {
        const qreal inset = side * 0.31;
        Strokes::roundRect(painter, box.adjusted(inset, inset, -inset, -inset), side, sign);
    } else if (on) {
        Strokes::tick(painter, box, sign);
    }
}

// A list, a table or a text: the ground lies under the round corners, the viewport stands clear of them.
void drawFrame(QPainter& painter, const QStyleOption* option, const QWidget* widget)
{
    const auto* text = qobject_cast<const QPlainTextEdit*>(widget);
    if (qobject_cast<const QAbstractScrollArea*>(widget))
        return drawFieldBox(painter, option, !text || !text->isReadOnly());
    Strokes::roundRect(painter, option->rect, widget && widget->isWindow() ? 0 : radius(option), {},
                       Theme::hairline(option->palette));
}

Strokes::Towards towardsOf(QStyle::PrimitiveElement element)
{
    switch (element) {
    case QStyle::PE_IndicatorArrowUp:
    case QStyle::PE_IndicatorSpinUp: return Strokes::Towards::Up;
    case QStyle::PE_IndicatorArrowLeft: return Strokes::Towards::Left;
    case QStyle::PE_IndicatorArrowRight: return Strokes::Towards::Right;
    default: return Strokes::Towards::Down;
    }
}

void drawToolButton(QPainter& painter, const QStyleOption* option)
{
    const QPalette& palette = option->palette;
    if (!has(option, QStyle::State_Enabled)) return;
    const QColor ground = palette.color(QPalette::Window), highlight = palette.color(QPalette::Highlight);
    const QRectF rect = QRectF(option->rect).adjusted(1, 1, -1, -1);
    if (has(option, QStyle::State_Sunken)) {
        Strokes::roundRect(painter, rect, radius(option), Theme::mix(ground, highlight, 0.26));
    } else if (has(option, QStyle::State_On)) {
        Strokes::roundRect(painter, rect, radius(option), Theme::mix(ground, highlight, 0.18));
    } else if (has(option, QStyle::State_MouseOver)) {
        Strokes::roundRect(painter, rect, radius(option),
                           Theme::mix(ground, palette.color(QPalette::WindowText), 0.08));
    }
}

}

bool Style::drawFieldPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const
{
    const QPalette& palette = option->palette;
    switch (element) {
    case PE_PanelLineEdit: {
        const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        if (frame && frame->lineWidth > 0) drawFieldBox(*painter, option, !has(option, State_ReadOnly));
        return true;
    }
    case PE_FrameLineEdit: return true;
    case PE_Frame: drawFrame(*painter, option, widget); return true;
    case PE_FrameGroupBox:
        Strokes::roundRect(*painter, option->rect, radius(option) * 1.4, Theme::card(palette),
                           Theme::hairline(palette));
        return true;
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck: drawMark(*painter, option, false); return true;
    case PE_IndicatorRadioButton: drawMark(*painter, option, true); return true;
    case PE_PanelButtonTool: drawToolButton(*painter, option); return true;
    case PE_FrameDefaultButton: return true;
    case PE_IndicatorArrowUp:
    case PE_IndicatorArrowDown:
    case PE_IndicatorArrowLeft:
    case PE_IndicatorArrowRight:
    case PE_IndicatorSpinUp:
    case PE_IndicatorSpinDown: {
        const qreal size = qMin(line(option) * 0.5, qMin(option->rect.width(), option->rect.height()) * 0.9);
        const QColor colour = has(option, State_Enabled) ? Theme::subdued(palette)
                                                         : palette.color(QPalette::ButtonText);
        Strokes::chevron(*painter, option->rect, towardsOf(element), size, colour);
        return true;
    }
    default: return false;
    }
}

void Style::drawButton(const QStyleOptionButton& option, QPainter& painter) const
{
    const QPalette& palette = option.palette;
    const bool enabled = option.state & State_Enabled;
    const bool sunken = option.state & (State_Sunken | State_On), hover = option.state & State_MouseOver;
    const bool focused = enabled && option.state & State_HasFocus;
    const QColor highlight = palette.color(QPalette::Highlight), text = palette.color(QPalette::WindowText);
    if (option.features & QStyleOptionButton::Flat && !sunken && !hover && !focused) return;

    QColor fill = palette.color(QPalette::Button), line = edge(&option);
    const bool filled = enabled && option.features & QStyleOptionButton::DefaultButton;
    if (filled) fill = line = highlight;
    if (enabled && sunken) {
        fill = Theme::mix(fill, filled ? QColor(Qt::black) : text, filled ? 0.18 : 0.12);
    } else if (enabled && hover) {
        fill = Theme::mix(fill, filled ? QColor(Qt::white) : text, filled ? 0.1 : 0.05);
    }
    if (filled) line = fill;
    if (focused && !filled) line = highlight;
    Strokes::roundRect(painter, option.rect, radius(&option), fill, line, focused && !filled ? 2 : 1);
    if (focused && filled) {
        const QColor ring = Theme::mix(fill, palette.color(QPalette::HighlightedText), 0.75);
        Strokes::roundRect(painter, QRectF(option.rect).adjusted(2, 2, -2, -2), radius(&option) - 2, {}, ring, 1.2);
    }
}

void Style::drawButtonLabel(const QStyleOptionButton& option, QPainter& painter, const QWidget* widget) const
{
    const bool enabled = option.state & State_Enabled;
    const bool filled = enabled && option.features & QStyleOptionButton::DefaultButton;
    const int h = line(&option);
    QRect rect = option.rect;
    if (option.features & QStyleOptionButton::HasMenu) {
        QRect mark = rect;
        mark.setLeft(rect.right() - qRound(h * 1.3));
        rect.setRight(mark.left());
        Strokes::chevron(painter, mark, Strokes::Towards::Down, h * 0.5, Theme::subdued(option.palette));
    }
    int flags = Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine;
    flags |= styleHint(SH_UnderlineShortcut, &option, widget, nullptr) ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;

    const int gap = option.icon.isNull() || option.text.isEmpty() ? 0 : qRound(h * 0.4);
    const QSize picture = option.icon.isNull() ? QSize(0, 0) : option.iconSize;
    const int textWidth = option.text.isEmpty() ? 0
                                                : option.fontMetrics.size(Qt::TextShowMnemonic, option.text).width();
    int left = rect.left() + qMax(2, (rect.width() - picture.width() - gap - textWidth) / 2);
    if (!option.icon.isNull()) {
        const QRect place(left, rect.top() + (rect.height() - picture.height()) / 2, picture.width(), picture.height());
        const auto mode = !enabled ? QIcon::Disabled : filled ? QIcon::Selected : QIcon::Normal;
        option.icon.paint(&painter, visualRect(option.direction, rect, place), Qt::AlignCenter, mode,
                          option.state & State_On ? QIcon::On : QIcon::Off);
        left += picture.width() + gap;
    }
    const QRect words(left, rect.top(), rect.right() - left, rect.height());
    drawItemText(&painter, visualRect(option.direction, rect, words), flags, option.palette, enabled, option.text,
                 filled ? QPalette::HighlightedText : QPalette::ButtonText);
}

// The title stands above its card.
QRect Style::groupBoxRect(const QStyleOptionGroupBox& option, SubControl part) const
{
    const int h = line(&option);
    const bool ticked = option.subControls & SC_GroupBoxCheckBox;
    const bool titled = ticked || !option.text.isEmpty();
    const QRect& all = option.rect;
    const QRect title(all.left(), all.top(), all.width(), titled ? qRound(h * 1.4) : 0);
    const QRect mark(title.left(), title.top() + (title.height() - h) / 2, h, h);
    const QRect frame = all.adjusted(0, title.height(), 0, 0);
    const int start = ticked ? mark.right() + h / 2 : title.left() + 1;
    QRect rect = all;
    switch (part) {
    case SC_GroupBoxCheckBox: rect = mark; break;
    case SC_GroupBoxLabel:
        rect = QRect(start, title.top(), option.fontMetrics.size(Qt::TextShowMnemonic, option.text).width() + 2,
                     title.height());
        break;
    case SC_GroupBoxContents: rect = frame.adjusted(1, 1, -1, -1); break;
    case SC_GroupBoxFrame: rect = frame; break;
    default: break;
    }
    return visualRect(option.direction, all, rect);
}

void Style::drawGroupBox(const QStyleOptionGroupBox& option, QPainter& painter, const QWidget* widget) const
{
    QStyleOption part = option;
    part.rect = groupBoxRect(option, SC_GroupBoxFrame);
    if (!(option.features & QStyleOptionFrame::Flat)) drawPrimitive(PE_FrameGroupBox, &part, &painter, widget);
    if (option.subControls & SC_GroupBoxCheckBox) {
        part.rect = groupBoxRect(option, SC_GroupBoxCheckBox);
        drawPrimitive(PE_IndicatorCheckBox, &part, &painter, widget);
    }
    int flags = Qt::AlignCenter | Qt::TextSingleLine;
    flags |= styleHint(SH_UnderlineShortcut, &option, widget, nullptr) ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
    drawItemText(&painter, groupBoxRect(option, SC_GroupBoxLabel), flags, option.palette, option.state & State_Enabled,
                 option.text, QPalette::WindowText);
}

QRect Style::comboBoxRect(const QStyleOptionComplex& option, SubControl part) const
{
    const int arrow = qRound(line(&option) * 1.6), pad = padding(&option);
    QRect rect = option.rect;
    if (part == SC_ComboBoxArrow) rect.setLeft(rect.right() - arrow + 1);
    if (part == SC_ComboBoxEditField) rect.adjust(pad, 1, -arrow, -1);
    return visualRect(option.direction, option.rect, rect);
}

void Style::drawComboBox(const QStyleOptionComboBox& option, QPainter& painter, const QWidget* widget) const
{
    drawFieldBox(painter, &option, option.editable || option.state & State_Enabled);
    const QRect arrow = subControlRect(CC_ComboBox, &option, SC_ComboBoxArrow, widget);
    const bool enabled = option.state & State_Enabled;
    const QColor colour = enabled ? Theme::mix(option.palette.color(QPalette::WindowText),
                                               option.palette.color(QPalette::Base), 0.25)
                                  : option.palette.color(QPalette::WindowText);
    Strokes::chevron(painter, arrow, Strokes::Towards::Down, line(&option) * 0.52, colour);
}

void Style::drawComboBoxLabel(const QStyleOptionComboBox& option, QPainter& painter, const QWidget* widget) const
{
    QRect rect = subControlRect(CC_ComboBox, &option, SC_ComboBoxEditField, widget);
    const bool enabled = option.state & State_Enabled;
    if (!option.currentIcon.isNull()) {
        const QRect place(rect.topLeft(), QSize(option.iconSize.width(), rect.height()));
        option.currentIcon.paint(&painter, visualRect(option.direction, rect, place), Qt::AlignCenter,
                                 enabled ? QIcon::Normal : QIcon::Disabled);
        rect.setLeft(rect.left() + option.iconSize.width() + qRound(line(&option) * 0.4));
    }
    if (option.editable) return; // the text is the edit field's
    const QString text = option.fontMetrics.elidedText(option.currentText, Qt::ElideRight, rect.width());
    drawItemText(&painter, rect, static_cast<int>(visualAlignment(option.direction, Qt::AlignLeft | Qt::AlignVCenter)),
                 option.palette, enabled, text, QPalette::Text);
}

QRect Style::spinBoxRect(const QStyleOptionSpinBox& option, SubControl part) const
{
    const bool bare = option.buttonSymbols == QAbstractSpinBox::NoButtons;
    const int button = bare ? 0 : qRound(line(&option) * 1.4), pad = padding(&option);
    QRect rect = option.rect;
    const int middle = rect.top() + rect.height() / 2;
    switch (part) {
    case SC_SpinBoxUp:
        if (bare) return {};
        rect = QRect(QPoint(rect.right() - button, rect.top() + 2), QPoint(rect.right() - 2, middle - 1));
        break;
    case SC_SpinBoxDown:
        if (bare) return {};
        rect = QRect(QPoint(rect.right() - button, middle), QPoint(rect.right() - 2, rect.bottom() - 2));
        break;
    case SC_SpinBoxEditField: rect.adjust(pad - 2, 1, bare ? -pad + 2 : -button, -1); break;
    default: break;
    }
    return visualRect(option.direction, option.rect, rect);
}

void Style::drawSpinBox(const QStyleOptionSpinBox& option, QPainter& painter, const QWidget* widget) const
{
    drawFieldBox(painter, &option, true);
    if (option.buttonSymbols == QAbstractSpinBox::NoButtons) return;
    const QPalette& palette = option.palette;
    const auto button = [&](SubControl part, QAbstractSpinBox::StepEnabledFlag step, Strokes::Towards towards) {
        const QRect rect = subControlRect(CC_SpinBox, &option, part, widget);
        const bool able = option.state & State_Enabled && option.stepEnabled & step;
        if (able && option.activeSubControls == part && option.state & State_MouseOver)
            Strokes::roundRect(painter, rect, radius(&option) / 2.0,
                               Theme::mix(palette.color(QPalette::Base), palette.color(QPalette::WindowText),
                                          option.state & State_Sunken ? 0.2 : 0.09));
        const QColor ink = Theme::mix(palette.color(QPalette::WindowText), palette.color(QPalette::Base),
                                      able ? 0.25 : 0.65);
        Strokes::chevron(painter, rect, towards, line(&option) * 0.42, ink);
    };
    button(SC_SpinBoxUp, QAbstractSpinBox::StepUpEnabled, Strokes::Towards::Up);
    button(SC_SpinBoxDown, QAbstractSpinBox::StepDownEnabled, Strokes::Towards::Down);
}

void Style::drawSlider(const QStyleOptionSlider& option, QPainter& painter, const QWidget* widget) const
{
    if (option.tickPosition != 0) {
        QStyleOptionSlider ticks = option;
        ticks.subControls = SC_SliderTickmarks;
        QProxyStyle::drawComplexControl(CC_Slider, &ticks, &painter, widget);
    }
    const QPalette& palette = option.palette;
    const bool enabled = option.state & State_Enabled, upright = option.orientation == Qt::Vertical;
    const QRectF handle = subControlRect(CC_Slider, &option, SC_SliderHandle, widget);
    QRectF groove = subControlRect(CC_Slider, &option, SC_SliderGroove, widget);
    const qreal thick = qMax(3.0, line(&option) * 0.22);
    groove = upright ? QRectF(handle.center().x() - thick / 2, groove.top(), thick, groove.height())
                     : QRectF(groove.left(), handle.center().y() - thick / 2, groove.width(), thick);
    const QColor rest = Theme::mix(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.16);
    const QColor done = enabled ? palette.color(QPalette::Highlight)
                                : Theme::mix(rest, palette.color(QPalette::WindowText), 0.2);
    Strokes::roundRect(painter, groove, thick, rest);
    QRectF filled = groove;
    if (upright) {
        option.upsideDown ? filled.setTop(handle.center().y()) : filled.setBottom(handle.center().y());
    } else {
        option.upsideDown ? filled.setLeft(handle.center().x()) : filled.setRight(handle.center().x());
    }
    Strokes::roundRect(painter, filled, thick, done);

    const bool focused = enabled && option.state & State_HasFocus;
    const QRectF all = option.rect;
    const qreal side = qMin(qMin(handle.width(), handle.height()), upright ? all.width() : all.height());
    QRectF knob(0, 0, side, side);
    knob.moveCenter(handle.center());
    knob.moveTopLeft(QPointF(qBound(all.left(), knob.left(), all.right() - side),
                             qBound(all.top(), knob.top(), all.bottom() - side)));
    Strokes::roundRect(painter, knob, side, enabled ? QColor(Qt::white) : palette.color(QPalette::Window),
                       focused ? done : edge(&option), focused ? 2 : 1);
    if (enabled) Strokes::roundRect(painter, knob.adjusted(side / 3, side / 3, -side / 3, -side / 3), side, done);
}

void Style::drawProgressBar(const QStyleOptionProgressBar& option, QPainter& painter) const
{
    const QPalette& palette = option.palette;
    const qreal thick = qMax(4.0, line(&option) * 0.38);
    QRectF bar = option.rect;
    if (option.textVisible && !option.text.isEmpty()) {
        const int words = option.fontMetrics.horizontalAdvance(option.text) + padding(&option);
        const QRect place = option.rect.adjusted(option.rect.width() - words, 0, 0, 0);
        drawItemText(&painter, visualRect(option.direction, option.rect, place), Qt::AlignRight | Qt::AlignVCenter,
                     palette, option.state & State_Enabled, option.text, QPalette::WindowText);
        bar = visualRect(option.direction, option.rect, option.rect.adjusted(0, 0, -words, 0));
    }
    bar = QRectF(bar.left(), bar.center().y() - thick / 2, bar.width(), thick);
    Strokes::roundRect(painter, bar, thick,
                       Theme::mix(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.12));

    const QColor colour = palette.color(QPalette::Highlight);
    if (option.minimum == option.maximum) {
        QElapsedTimer now;
        now.start();
        const qreal part = bar.width() / 4, turn = (now.msecsSinceReference() % 1600) / 1600.0;
        const qreal swing = (1 - std::cos(turn * 2 * M_PI)) / 2;
        return Strokes::roundRect(painter, QRectF(bar.left() + swing * (bar.width() - part), bar.top(), part, thick),
                                  thick, colour);
    }
    const qreal share = qBound(0.0, (option.progress - option.minimum) / (qreal(option.maximum) - option.minimum), 1.0);
    if (share <= 0) return;
    QRectF done(bar.left(), bar.top(), qMax(thick, bar.width() * share), thick);
    if ((option.direction == Qt::RightToLeft) != option.invertedAppearance) done.moveRight(bar.right());
    Strokes::roundRect(painter, done, thick, colour);
}
