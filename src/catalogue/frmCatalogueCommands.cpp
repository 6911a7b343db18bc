#include "catalogue/Catalogues.h"
#include "catalogue/DiscRecord.h"
#include "catalogue/DiscRemoval.h"
#include "catalogue/frmAddCD.h"
#include "catalogue/frmAddInCatalogue.h"
#include "catalogue/frmCatalogue.h"
#include "frame/Settings.h"
#include "lending/Ledger.h"

void frmCatalogue::cmdAdd()
{
    Routine("cmdAdd"_L1, [&] {
        const std::optional<qint64> added = AddDisc(program, kind, this);
        if (!added) return;
        FullDictionary();
        dcDatabase->Refresh();
        findKey(*added);
        dbGrid->setFocus();
    });
}

/// The list on view stays the filtered one, but CatalogueQueryFilter ends empty: the next change of the sort order shows
/// the whole catalogue.
void frmCatalogue::cmdChange()
{
    Routine("cmdChange"_L1, [&] {
        const qint64 key = currentKey();
        const auto editor = MakeEditor(program, kind);
        {
            const Hourglass hourglass;
            const auto record = ReadRecord(program.mainDatabase(), kind, key);
            if (!record) return dcDatabase->Refresh(); // gone from under the list
            program.shared.CatalogueQueryFilter = u"edit:1"_s;
            editor->Change(*record);
            program.shared.CatalogueQueryFilter.clear();
        }
        editor->ShowModal(this);
        if (!std::exchange(program.shared.DialogDone, false)) return;
        FullDictionary();
        dcDatabase->Refresh();
        findKey(key);
        dbGrid->setFocus();
    });
}

void frmCatalogue::cmdDelete()
{
    Routine("cmdDelete"_L1, [&] {
        const QString question = u"Вы действительно хотите удалить диск № %1?\r"_s.arg(currentNumber());
        if (!Ask(question + kind.deleteQuestionTail, Box::Question | Box::SafeDefault)) return;
        const int position = dcDatabase->position();
        RemoveDisc(program, kind, currentKey());
        dcDatabase->Refresh();
        if (dcDatabase->recordCount() > 0) dcDatabase->MoveTo(qMin(position, dcDatabase->recordCount() - 1));
        dbGrid->setFocus();
    });
}

void frmCatalogue::cmdDue()
{
    Routine("cmdDue"_L1, [&] {
        if (!dcDatabase->value(u"Должник").toBool()) {
            if (!Ask(u"Добавить должника на диск № %1?"_s.arg(currentNumber()))) return;
            program.screens->ShowAddInDue(*this, kind, currentKey());
            if (!std::exchange(program.shared.DialogDone, false)) return;
        } else {
            if (!Ask(u"Удалить должника с диска № %1?"_s.arg(currentNumber()))) return;
            TakeBack(program.mainDatabase(), kind, currentKey(), program.clock.today());
        }
        dcDatabase->RefreshInPlace();
        dbGrid->setFocus();
    });
}

void frmCatalogue::showList()
{
    const QByteArray routine = kind.list->command.toLatin1();
    Routine(QLatin1StringView(routine), [&] {
        const ListRequest request{.key = currentKey(),
                                  .number = currentNumber(),
                                  .title = dcDatabase->value(u"Название").text(),
                                  .album = kind.album ? dcDatabase->value(u"Альбом").text() : QString(),
                                  .discs = dcDatabase->value(u"Дисков").toInt(),
                                  .disc = shownDisc()};
        (program.screens->*kind.list->show)(*this, request);
        dcDatabase->RefreshInPlace();
        dbGrid->setFocus();
    });
}

void frmCatalogue::rowDoubleClicked()
{
    if (external() || !dcDatabase->hasRow()) return;
    const bool opensList = kind.list && OptionIsOn(program, u"DblClick");
    if (opensList && imgButton[6]->isEnabled())
        showList();
    else if (!opensList && imgButton[3]->isEnabled())
        cmdChange();
}
