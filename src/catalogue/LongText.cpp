#include "catalogue/LongText.h"

void LimitText(QPlainTextEdit* box, int characters)
{
    box->setTabChangesFocus(true);
    QObject::connect(box, &QPlainTextEdit::textChanged, box, [=] {
        const int excess = int(box->toPlainText().size()) - characters;
        if (excess <= 0) return;
        QTextCursor caret = box->textCursor();
        if (caret.position() < excess) caret.setPosition(characters + excess);
        caret.setPosition(caret.position() - excess, QTextCursor::KeepAnchor);
        caret.removeSelectedText();
    });
}
