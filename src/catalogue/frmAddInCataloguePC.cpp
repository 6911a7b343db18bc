#include "catalogue/frmAddInCataloguePC.h"

/// Takes what no longer fits away from before the caret.
static void limit(QPlainTextEdit* box, int characters)
{
    QObject::connect(box, &QPlainTextEdit::textChanged, box, [=] {
        const int excess = int(box->toPlainText().size()) - characters;
        if (excess <= 0) return;
        QTextCursor caret = box->textCursor();
        if (caret.position() < excess) caret.setPosition(characters + excess);
        caret.setPosition(caret.position() - excess, QTextCursor::KeepAnchor);
        caret.removeSelectedText();
    });
}

frmAddInCataloguePC::frmAddInCataloguePC(Program& program) : frmAddInCatalogue(program, Computer())
{
    limit(txtDescription2, 255);
    txtDescription2->setTabChangesFocus(true);
    build({.below = column(label(u"&Расширенное описание:"_s, txtDescription2), txtDescription2)});
    moveOnByEnter({txtName, txtYear, txtCDs, txtDictionary});
}

void frmAddInCataloguePC::showExtras(const QHash<QString, Value>& extra)
{
    txtDescription2->setPlainText(extra.value(u"РасОписание"_s).text());
}

QHash<QString, Value> frmAddInCataloguePC::extras() const
{
    return {{u"РасОписание"_s, txtDescription2->toPlainText()}};
}
