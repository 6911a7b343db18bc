#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QString>

class QApplication;

/// The look: spacing, fonts and colours, all from the desktop's palette and font, light or dark, live.
namespace Theme {
/// Gives the application its style and palette. `scheme` "light", "dark", or empty for the desktop's own.
void apply(QApplication& application, const QString& scheme = {});
bool dark(const QPalette& palette);
/// The program's own colours, for a desktop that has none and for pictures: "light" or "dark".
QPalette palette(const QString& scheme);
/// `share` of `other` in `colour`, 0 to 1.
QColor mix(const QColor& colour, const QColor& other, qreal share);

/// Catalogues are told apart by one accent each: 0 blue, 1 green, 2 orange.
QColor accent(int index, const QPalette& palette);
/// A tile's background in that accent.
QColor tint(const QColor& accent, const QPalette& palette);
QColor subdued(const QPalette& palette); ///< captions
QColor danger(const QPalette& palette);  ///< overdue, removal
QColor hairline(const QPalette& palette);
QColor card(const QPalette& palette);
QColor selection(const QPalette& palette); ///< behind the current row, item or menu entry; its text keeps its colour

QFont title(const QFont& base);   ///< 1.75 times
QFont number(const QFont& base);  ///< 2.5 times, light
QFont heading(const QFont& base); ///< bold
QFont caption(const QFont& base); ///< 0.9 times

inline constexpr int Outside = 24; ///< around a window's contents
inline constexpr int Between = 16; ///< between cards
inline constexpr int Inside = 20;  ///< in a card
inline constexpr int Gap = 8;      ///< between neighbours in a row
inline constexpr int RowHeight = 32;
}
