#pragma once

#include <QBasicTimer>
#include <QPointer>
#include <QProxyStyle>

class DesktopScheme;
class QStyleOptionButton;
class QStyleOptionComboBox;
class QStyleOptionGroupBox;
class QStyleOptionHeader;
class QStyleOptionMenuItem;
class QStyleOptionProgressBar;
class QStyleOptionSlider;
class QStyleOptionSpinBox;
class QStyleOptionTab;
class QStyleOptionToolButton;
class QStyleOptionViewItem;

/// How every control is drawn and measured: Fusion's behaviour under a face of our own. All sizes come from the font, all
/// colours from the palette, so that both may change while the program runs.
///
/// The drawing stands in three files: Style.cpp has measures and the plain shapes, StyleFields.cpp what is filled in and
/// pressed, StyleLists.cpp what is chosen from and scrolled.
class Style : public QProxyStyle {
public:
    /// `scheme` "light" or "dark" holds the palette to the program's own colours; empty follows the desktop's palette,
    /// and where it has none takes the program's own, light unless the desktop asks for dark.
    explicit Style(const QString& scheme = {});

    QPalette standardPalette() const override;
    void polish(QPalette& palette) override;
    void polish(QWidget* widget) override;
    void unpolish(QWidget* widget) override;
    using QProxyStyle::polish;
    using QProxyStyle::unpolish;

    QIcon standardIcon(StandardPixmap picture, const QStyleOption* option, const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    // Both say whether they drew; what they leave is the base style's.
    bool drawFieldPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const;
    bool drawListPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                           const QWidget* widget) const;

    void drawButton(const QStyleOptionButton& option, QPainter& painter) const;
    void drawButtonLabel(const QStyleOptionButton& option, QPainter& painter, const QWidget* widget) const;
    void drawComboBox(const QStyleOptionComboBox& option, QPainter& painter, const QWidget* widget) const;
    void drawComboBoxLabel(const QStyleOptionComboBox& option, QPainter& painter, const QWidget* widget) const;
    void drawSpinBox(const QStyleOptionSpinBox& option, QPainter& painter, const QWidget* widget) const;
    void drawSlider(const QStyleOptionSlider& option, QPainter& painter, const QWidget* widget) const;
    void drawProgressBar(const QStyleOptionProgressBar& option, QPainter& painter) const;
    void drawGroupBox(const QStyleOptionGroupBox& option, QPainter& painter, const QWidget* widget) const;
    QRect groupBoxRect(const QStyleOptionGroupBox& option, SubControl part) const;
    QRect comboBoxRect(const QStyleOptionComplex& option, SubControl part) const;
    QRect spinBoxRect(const QStyleOptionSpinBox& option, SubControl part) const;

    void drawMenuItem(const QStyleOptionMenuItem& option, QPainter& painter, const QWidget* widget) const;
    void drawMenuBarItem(const QStyleOptionMenuItem& option, QPainter& painter) const;
    void drawHeaderSection(const QStyleOptionHeader& option, QPainter& painter) const;
    bool drawToolButtonLabel(const QStyleOptionToolButton& option, QPainter& painter, const QWidget* widget) const;
    void drawTab(const QStyleOptionTab& option, QPainter& painter) const;
    void drawViewItem(const QStyleOptionViewItem& option, QPainter& painter, const QWidget* widget) const;
    void drawScrollBar(const QStyleOptionSlider& option, QPainter& painter, const QWidget* widget) const;
    QRect scrollBarRect(const QStyleOptionSlider& option, SubControl part) const;

    QString m_scheme;
    DesktopScheme* m_desktop = nullptr; // asked only where the desktop gives no palette
    // Bars whose length of work is unknown move while they are in sight.
    QList<QPointer<QWidget>> m_bars;
    QBasicTimer m_busy;
};

/// What the files of the style share.
namespace StyleMeasure {
/// Height of a line of text: the unit of all measures.
int line(const QStyleOption* option, const QWidget* widget = nullptr);
int radius(const QStyleOption* option);
/// Height of a button or a field of one line.
int control(const QStyleOption* option, const QWidget* widget = nullptr);
int padding(const QStyleOption* option, const QWidget* widget = nullptr);
/// Edge of a field or a button; stronger than a hairline, for it says "here".
QColor edge(const QStyleOption* option);
}
