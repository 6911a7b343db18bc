#pragma once

class QLabel;

enum class Lettering {
    Title,   ///< of a window, 1.75 times
    Heading, ///< of a card or a part
    Number,  ///< the figure of a card, 2.5 times and light
    Caption, ///< small and grey
    Danger,  ///< in the colour of what is overdue
    Empty,   ///< grey in the middle, in the place of an empty list
};

/// Gives the label the size, weight and colour of its role, and again whenever font or palette change. Returns the label.
QLabel* lettered(QLabel* label, Lettering role);
