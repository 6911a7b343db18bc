#include "ui/Style.h"

#include "platform/Literals.h"
#include "ui/Card.h"
#include "ui/DesktopScheme.h"
#include "ui/Icons.h"
#include "ui/Strokes.h"
#include "ui/Theme.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QGroupBox>
#include <QPainter>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QScrollBar>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTabWidget>
#include <QTextCharFormat>
#include <QTimerEvent>

int StyleMeasure::line(const QStyleOption* option, const QWidget* widget)
{
    if (option) return option->fontMetrics.height();
    return widget ? widget->fontMetrics().height() : QFontMetrics(QApplication::font()).height();
}
int StyleMeasure::radius(const QStyleOption* option) { return qRound(line(option) * 0.36); }
int StyleMeasure::control(const QStyleOption* option, const QWidget* widget)
{
    return 2 * qRound(line(option, widget) * 0.92);
}
int StyleMeasure::padding(const QStyleOption* option, const QWidget* widget)
{
    return qRound(line(option, widget) * 0.5);
}
QColor StyleMeasure::edge(const QStyleOption* option)
{
    const QPalette& palette = option->palette;
    const bool enabled = option->state & QStyle::State_Enabled;
    return Theme::mix(palette.color(QPalette::Window), palette.color(QPalette::Active, QPalette::WindowText),
                      enabled ? 0.27 : 0.14);
}

using namespace StyleMeasure;

namespace {

constexpr int BusyStep = 40; // ms between the pictures of a moving bar

bool isPageOfTabs(const QWidget* widget)
{
    const QWidget* parent = widget ? widget->parentWidget() : nullptr;
    return parent && qobject_cast<const QTabWidget*>(parent->parentWidget());
}

// Room between a container's edge and its layout.
int layoutMargin(const QStyleOption* option, const QWidget* widget)
{
    if (!widget) return 0;
    if (widget->isWindow()) return Theme::Outside;
    if (dynamic_cast<const Card*>(widget)) return Theme::Inside;
    if (qobject_cast<const QGroupBox*>(widget) || isPageOfTabs(widget)) return qRound(line(option, widget) * 0.9);
    return 0;
}

// A field inside a spin box or an editable combo box has the frame of its owner.
bool isInner(const QWidget* widget)
{
    const QWidget* parent = widget ? widget->parentWidget() : nullptr;
    return qobject_cast<const QAbstractSpinBox*>(parent) || qobject_cast<const QComboBox*>(parent);
}

// A text that cannot be edited shows the ground of its frame, which is grey then.
void showGround(QPlainTextEdit& text) { text.viewport()->setAutoFillBackground(!text.isReadOnly()); }

bool isBusy(const QWidget* widget)
{
    const auto* bar = qobject_cast<const QProgressBar*>(widget);
    return bar && bar->isVisible() && bar->minimum() == bar->maximum();
}

}

Style::Style(const QString& scheme) : QProxyStyle(QStyleFactory::create(u"Fusion"_s)), m_scheme(scheme) {}

QPalette Style::standardPalette() const { return Theme::palette(m_scheme); }

void Style::polish(QPalette& palette)
{
    if (!m_scheme.isEmpty()) {
        palette = Theme::palette(m_scheme);
        return;
    }
    // A desktop without colours of its own is known by the toolkit's stock ones.
    const QPalette stock = QProxyStyle::standardPalette();
    const auto isStock = [&](QPalette::ColorRole role) { return palette.color(role) == stock.color(role); };
    if (!isStock(QPalette::Window) || !isStock(QPalette::Highlight)) return;
    if (!m_desktop) {
        m_desktop = new DesktopScheme(this);
        connect(m_desktop, &DesktopScheme::changed, this, [] { QApplication::setPalette(QPalette()); });
    }
    palette = Theme::palette(m_desktop->scheme());
}

// The pictures of boxes and choosers, from the same hand as all others.
QIcon Style::standardIcon(StandardPixmap picture, const QStyleOption* option, const QWidget* widget) const
{
    const QPalette palette = QApplication::palette();
    switch (picture) {
    case SP_MessageBoxInformation: return icon(u"info"_s);
    case SP_MessageBoxQuestion: return icon(u"help"_s);
    case SP_MessageBoxWarning: return catalogueIcon(u"warning"_s, 2);
    case SP_MessageBoxCritical: return icon(u"error"_s, Theme::danger(palette));
    case SP_DirIcon:
    case SP_DirClosedIcon:
    case SP_DirLinkIcon: return icon(u"folder"_s);
    case SP_DirOpenIcon: return icon(u"folder-open"_s);
    case SP_DirHomeIcon:
    case SP_DesktopIcon: return icon(u"open-local"_s);
    case SP_FileIcon:
    case SP_FileLinkIcon: return icon(u"file"_s);
    case SP_ComputerIcon:
    case SP_DriveHDIcon:
    case SP_DriveFDIcon:
    case SP_DriveNetIcon: return icon(u"drive"_s);
    case SP_DriveCDIcon:
    case SP_DriveDVDIcon: return icon(u"disc"_s);
    case SP_FileDialogBack:
    case SP_ArrowBack: return icon(u"arrow-left"_s);
    case SP_ArrowForward: return icon(u"arrow-right"_s);
    case SP_FileDialogToParent: return icon(u"arrow-up"_s);
    case SP_FileDialogNewFolder: return icon(u"folder-add"_s);
    case SP_FileDialogListView: return icon(u"list-all"_s);
    case SP_FileDialogDetailedView: return icon(u"details"_s);
    case SP_LineEditClearButton: return icon(u"close"_s);
    // The calendar's, on the accent.
    case SP_ArrowLeft: return icon(u"arrow-left"_s, palette.color(QPalette::HighlightedText));
    case SP_ArrowRight: return icon(u"arrow-right"_s, palette.color(QPalette::HighlightedText));
    default: return QProxyStyle::standardIcon(picture, option, widget);
    }
}

void Style::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    if (widget->inherits("QAbstractButton") || widget->inherits("QComboBox") || widget->inherits("QAbstractSpinBox") ||
        widget->inherits("QAbstractSlider") || widget->inherits("QTabBar") || widget->inherits("QLineEdit"))
        widget->setAttribute(Qt::WA_Hover);
    if (qobject_cast<QScrollBar*>(widget)) widget->setAttribute(Qt::WA_OpaquePaintEvent, false);
    if (auto* calendar = qobject_cast<QCalendarWidget*>(widget)) {
        QTextCharFormat weekend;
        weekend.setForeground(Theme::danger(calendar->palette()));
        for (auto day : {Qt::Saturday, Qt::Sunday}) calendar->setWeekdayTextFormat(day, weekend);
        calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    }
    if (auto* text = qobject_cast<QPlainTextEdit*>(widget)) {
        text->installEventFilter(this);
        showGround(*text);
    }
    if (qobject_cast<QProgressBar*>(widget)) {
        m_bars.append(widget);
        if (!m_busy.isActive()) m_busy.start(BusyStep, this);
    }
}

void Style::unpolish(QWidget* widget)
{
    widget->removeEventFilter(this);
    m_bars.removeAll(widget);
    QProxyStyle::unpolish(widget);
}

bool Style::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ReadOnlyChange) showGround(*qobject_cast<QPlainTextEdit*>(watched));
    return QProxyStyle::eventFilter(watched, event);
}

void Style::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_busy.timerId()) return QProxyStyle::timerEvent(event);
    m_bars.removeAll(nullptr);
    if (m_bars.isEmpty()) m_busy.stop();
    for (const auto& bar : std::as_const(m_bars))
        if (isBusy(bar)) bar->update();
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    const int h = line(option, widget);
    switch (metric) {
    case PM_LayoutLeftMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutBottomMargin: return layoutMargin(option, widget);
    case PM_LayoutHorizontalSpacing: return qMax(Theme::Gap, h / 2);
    case PM_LayoutVerticalSpacing: return qMax(Theme::Gap, h / 2);

    case PM_SmallIconSize: return qMax(16, h);
    case PM_ButtonIconSize:
    case PM_ListViewIconSize:
    case PM_TabBarIconSize: return qMax(16, qRound(h * 1.12));
    case PM_ToolBarIconSize: return qMax(20, qRound(h * 1.25));
    case PM_LargeIconSize: return qMax(32, h * 2);
    case PM_MessageBoxIconSize: return h * 3;

    case PM_DefaultFrameWidth: // keeps a square viewport clear of the round corners
        return qobject_cast<const QAbstractScrollArea*>(widget) ? qMax(2, qRound(h * 0.16)) : 1;
    case PM_ComboBoxFrameWidth:
    case PM_SpinBoxFrameWidth: return 1;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight: return h;
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing: return qRound(h * 0.45);
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical: return 0;
    case PM_MenuButtonIndicator: return h;

    case PM_HeaderDefaultSectionSizeVertical: return qRound(h * 1.85);
    case PM_HeaderMargin: return qRound(h * 0.45);
    case PM_HeaderMarkSize: return qRound(h * 0.6);
    case PM_HeaderGripMargin: return qRound(h * 0.35);
    case PM_FocusFrameHMargin: return qRound(h * 0.4);
    case PM_TreeViewIndentation: return qRound(h * 1.3);

    case PM_TabBarTabHSpace: return qRound(h * 1.7);
    case PM_TabBarTabVSpace: return qRound(h * 0.95);
    case PM_TabBarTabOverlap:
    case PM_TabBarBaseOverlap:
    case PM_TabBarTabShiftHorizontal:
    case PM_TabBarTabShiftVertical: return 0;
    case PM_TabBarBaseHeight: return 1;

    case PM_MenuHMargin:
    case PM_MenuVMargin: return qRound(h * 0.3);
    case PM_MenuPanelWidth: return 1;
    case PM_MenuBarPanelWidth:
    case PM_MenuBarItemSpacing: return 0;
    case PM_MenuBarHMargin:
    case PM_MenuBarVMargin: return qRound(h * 0.25);
    case PM_ToolBarFrameWidth: return 0;
    case PM_ToolBarItemMargin: return qRound(h * 0.25);
    case PM_ToolBarItemSpacing: return qRound(h * 0.15);
    case PM_ToolBarHandleExtent: return qRound(h * 0.7);
    case PM_ToolBarSeparatorExtent: return qRound(h * 0.75);
    case PM_ToolTipLabelFrameWidth: return qRound(h * 0.4);

    case PM_ScrollBarExtent: return qRound(h * 0.8);
    case PM_ScrollBarSliderMin: return h * 2;
    case PM_ScrollView_ScrollBarSpacing:
    case PM_ScrollView_ScrollBarOverlap: return 0;
    case PM_SliderThickness:
    case PM_SliderControlThickness:
    case PM_SliderLength: return qRound(h * 1.15);
    case PM_SplitterWidth: return qRound(h * 0.5);
    default: return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* answer) const
{
    switch (hint) {
    case SH_ComboBox_Popup:
    case SH_EtchDisabledText:
    case SH_DitherDisabledText:
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_ItemView_ActivateItemOnSingleClick:
    case SH_ItemView_PaintAlternatingRowColorsForEmptyArea:
    case SH_MessageBox_CenterButtons:
    case SH_ScrollBar_Transient: return 0;
    case SH_ItemView_ShowDecorationSelected: return 1;
    case SH_DialogButtonLayout: return 0; // accepting to the left of refusing, both at the right
    case SH_TabBar_Alignment: return Qt::AlignLeft;
    case SH_Table_GridLineColor:
        return static_cast<int>(Theme::hairline(option ? option->palette : QApplication::palette()).rgb());
    case SH_ToolTip_WakeUpDelay: return 500;
    default: return QProxyStyle::styleHint(hint, option, widget, answer);
    }
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                              const QWidget* widget) const
{
    const int h = line(option, widget), tall = control(option, widget), pad = padding(option, widget);
    switch (type) {
    case CT_LineEdit:
        if (isInner(widget)) return contents;
        return QSize(contents.width() + 2 * pad, qMax(tall, contents.height()));
    case CT_PushButton: {
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        const bool bare = button && button->text.isEmpty();
        int width = contents.width() +
                    (bare ? tall - pixelMetric(PM_ButtonIconSize, option, widget) : 2 * qRound(h * 0.8));
        if (button && !bare && !button->icon.isNull()) width += qRound(h * 0.2);
        if (button && button->features & QStyleOptionButton::HasMenu)
            width += pixelMetric(PM_MenuButtonIndicator, option, widget);
        return QSize(qMax(width, bare ? tall : h * 5), qMax(tall, contents.height() + pad));
    }
    case CT_ComboBox: return QSize(contents.width() + 2 * pad + qRound(h * 1.4), qMax(tall, contents.height()));
    case CT_SpinBox: return QSize(contents.width() + 2 * pad + qRound(h * 1.4), qMax(tall, contents.height()));
    case CT_CheckBox:
    case CT_RadioButton: {
        const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        return QSize(size.width() + qRound(h * 0.3), qMax(size.height(), qRound(h * 1.5)));
    }
    case CT_ToolButton: {
        const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
        const bool wordy = button && button->toolButtonStyle == Qt::ToolButtonTextBesideIcon;
        return contents + QSize(qRound(h * (wordy ? 0.9 : 0.6)), qRound(h * 0.55));
    }
    case CT_GroupBox: return contents + QSize(h, h / 2);
    case CT_ItemViewItem: {
        const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        return QSize(size.width(), qMax(size.height(), qRound(h * 1.7)));
    }
    case CT_HeaderSection: {
        const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        return QSize(size.width(), qMax(size.height(), qRound(h * 1.9)));
    }
    case CT_MenuItem: {
        const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (item && item->menuItemType == QStyleOptionMenuItem::Separator) return QSize(h, qRound(h * 0.6));
        return QSize(contents.width() + qRound(h * 4.9), qRound(h * 1.75));
    }
    case CT_MenuBarItem: return QSize(contents.width() + qRound(h * 1.1), qRound(h * 1.6));
    case CT_ProgressBar: {
        const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
        return QSize(contents.width(), bar && bar->textVisible ? qRound(h * 1.3) : qRound(h * 0.75));
    }
    default: return QProxyStyle::sizeFromContents(type, option, contents, widget);
    }
}

QRect Style::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const
{
    switch (element) {
    case SE_LineEditContents: {
        if (isInner(widget)) return option->rect;
        const int pad = padding(option, widget) - 2; // the box itself adds 2
        return option->rect.adjusted(pad, 0, -pad, 0);
    }
    case SE_PushButtonFocusRect: return option->rect;
    case SE_CheckBoxFocusRect:
    case SE_RadioButtonFocusRect: return option->rect;
    default: return QProxyStyle::subElementRect(element, option, widget);
    }
}

QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                            const QWidget* widget) const
{
    if (control == CC_ComboBox) return comboBoxRect(*option, part);
    if (const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option); box && control == CC_GroupBox)
        return groupBoxRect(*box, part);
    if (const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option); spin && control == CC_SpinBox)
        return spinBoxRect(*spin, part);
    if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option); bar && control == CC_ScrollBar)
        return scrollBarRect(*bar, part);
    return QProxyStyle::subControlRect(control, option, part, widget);
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const
{
    if (drawFieldPrimitive(element, option, painter, widget)) return;
    if (drawListPrimitive(element, option, painter, widget)) return;
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const
{
    // The one place that knows which option goes with which element; a foreign option falls through to the base style.
    if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
        if (element == CE_PushButtonBevel) return drawButton(*button, *painter);
        if (element == CE_PushButtonLabel) return drawButtonLabel(*button, *painter, widget);
    } else if (const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option)) {
        if (element == CE_ComboBoxLabel) return drawComboBoxLabel(*combo, *painter, widget);
    } else if (const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option)) {
        if (element == CE_ProgressBar) return drawProgressBar(*bar, *painter);
    } else if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
        if (element == CE_MenuItem) return drawMenuItem(*item, *painter, widget);
        if (element == CE_MenuBarItem) return drawMenuBarItem(*item, *painter);
    } else if (const auto* tool = qstyleoption_cast<const QStyleOptionToolButton*>(option)) {
        if (element == CE_ToolButtonLabel && drawToolButtonLabel(*tool, *painter, widget)) return;
    } else if (const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(option)) {
        if (element == CE_HeaderSection) return drawHeaderSection(*header, *painter);
        if (element == CE_HeaderLabel) {
            QStyleOptionHeaderV2 quiet;
            if (const auto* v2 = qstyleoption_cast<const QStyleOptionHeaderV2*>(option)) {
                quiet = *v2;
            } else {
                static_cast<QStyleOptionHeader&>(quiet) = *header;
            }
            quiet.palette.setColor(QPalette::ButtonText, Theme::subdued(option->palette));
            quiet.state &= ~State_On; // the section of the current cell is no louder than the others
            return QProxyStyle::drawControl(element, &quiet, painter, widget);
        }
    } else if (const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option)) {
        if (element == CE_TabBarTabShape) return drawTab(*tab, *painter);
        if (element == CE_TabBarTabLabel) {
            QStyleOptionTab quiet = *tab;
            quiet.state &= ~State_HasFocus; // the shape shows it
            if (!(tab->state & State_Selected) && tab->state & State_Enabled)
                quiet.palette.setColor(QPalette::WindowText, Theme::subdued(option->palette));
            return QProxyStyle::drawControl(element, &quiet, painter, widget);
        }
    } else if (const auto* view = qstyleoption_cast<const QStyleOptionViewItem*>(option)) {
        if (element == CE_ItemViewItem) return drawViewItem(*view, *painter, widget);
    }
    switch (element) {
    case CE_HeaderEmptyArea: painter->fillRect(option->rect, option->palette.base()); return;
    case CE_MenuBarEmptyArea:
    case CE_ToolBar: return;
    case CE_Splitter: {
        if (!(option->state & State_MouseOver)) return;
        const QRectF rect = option->rect;
        const bool upright = option->state & State_Horizontal;
        QRectF grip(0, 0, upright ? 2 : line(option) * 2, upright ? line(option) * 2 : 2);
        grip.moveCenter(rect.center());
        return Strokes::roundRect(*painter, grip, 1, option->palette.color(QPalette::Highlight));
    }
    default: QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                               const QWidget* widget) const
{
    if (const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option); combo && control == CC_ComboBox)
        return drawComboBox(*combo, *painter, widget);
    if (const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option); spin && control == CC_SpinBox)
        return drawSpinBox(*spin, *painter, widget);
    if (const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option); box && control == CC_GroupBox)
        return drawGroupBox(*box, *painter, widget);
    if (const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option)) {
        if (control == CC_Slider) return drawSlider(*slider, *painter, widget);
        if (control == CC_ScrollBar) return drawScrollBar(*slider, *painter, widget);
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}
