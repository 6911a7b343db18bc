#pragma once

#include <QPlainTextEdit>

/// The box takes no more than so many characters: what no longer fits goes from before the caret. Tab leaves it.
void LimitText(QPlainTextEdit* box, int characters);
