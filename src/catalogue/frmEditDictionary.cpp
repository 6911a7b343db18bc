#include "catalogue/frmEditDictionary.h"

#include "catalogue/Dictionary.h"
#include "catalogue/DiscRecord.h"
#include "ui/Theme.h"

frmEditDictionary::frmEditDictionary(Program& program, const CatalogueKind& kind)
    : CatalogueScreen(program, kind, kind.dictionary.screen.name, kind.dictionary.screen.title),
      dcDatabase(new DataControl(this)), m_typeAhead(kind.dictionary.table)
{
    dcDatabase->setObjectName(u"dcDatabase"_s);
    // A blank line would look like nothing at all.
    const auto shown = [](const Value& name) { return name.text().isEmpty() ? u"(не указано)"_s : name.text(); };
    dbGrid->setColumns({{.field = dictionary().table, .caption = dictionary().table, .format = shown}});
    dbGrid->setDataControl(dcDatabase);
    dbGrid->setAccessibleName(texts().title);
    imgButton[0]->setup(u"close"_s, u"&Закрыть"_s, u"Закрыть словарь (Esc)"_s);
    imgButton[1]->setup(u"add"_s, u"&Добавить…"_s, u"Добавить название (Insert)"_s);
    imgButton[2]->setup(u"delete"_s, u"&Удалить"_s, u"Удалить название (Delete)"_s);
    imgButton[3]->setup(u"edit"_s, u"&Изменить…"_s, u"Изменить название"_s, Qt::Key_F2);

    auto* heading = new QLabel(texts().title);
    auto* commands = column(imgButton[1], imgButton[3], imgButton[2], stretch);
    auto* counter = row(label(u"Названий:"_s), lblCount, stretch, imgButton[0]);
    for (QBoxLayout* line : {commands, counter}) line->setSpacing(Theme::Gap);
    auto* all = column(head(heading), row(dbGrid, commands), counter);
    all->setSpacing(Theme::Between);
    setLayout(all);
    resize(fontMetrics().horizontalAdvance(u'0') * 62, fontMetrics().height() * 28);
    connectControls();
}

void frmEditDictionary::connectControls()
{
    connect(dcDatabase, &DataControl::Reposition, this, [this] { dcDatabase_Reposition(); });
    connect(imgButton[0], &ImageButton::clicked, this, [this] { Unload(); });
    connect(imgButton[1], &ImageButton::clicked, this, [this] { cmdAdd(); });
    connect(imgButton[2], &ImageButton::clicked, this, [this] { cmdDelete(); });
    connect(imgButton[3], &ImageButton::clicked, this, [this] { cmdChange(); });
    connect(dbGrid, &DBGrid::insertPressed, this, [this] { cmdAdd(); });
    connect(dbGrid, &DBGrid::deletePressed, this, [this] { cmdDelete(); });
    connect(dbGrid, &DBGrid::rowDoubleClicked, this, [this] { cmdChange(); });
    connect(dbGrid, &DBGrid::typed, this, [this](const QString& character) {
        Routine("DBGrid_KeyPress"_L1, [&] { m_typeAhead.typed(*dcDatabase, character); });
    });
}

void frmEditDictionary::Form_Load()
{
    Routine("Form_Load"_L1, [&] {
        dcDatabase->setDatabase(program.mainDatabase());
        dcDatabase->setRecordSource(u"SELECT * FROM %1 ORDER BY %1"_s.arg(dictionary().table));
        dcDatabase->Refresh();
    });
}

void frmEditDictionary::Form_Activate() { dbGrid->setFocus(); }

void frmEditDictionary::Form_Unload() { dcDatabase->close(); }

void frmEditDictionary::dcDatabase_Reposition()
{
    lblCount->setText(QString::number(dcDatabase->recordCount()));
    for (QWidget* control : std::initializer_list<QWidget*>{dbGrid, imgButton[2], imgButton[3]})
        control->setEnabled(dcDatabase->hasRow());
}

QString frmEditDictionary::askName(const QString& prompt, const QString& title, const QString& present)
{
    for (;;) {
        const QString name = program.dialogs.InputBox(prompt, title, present);
        if (name.isEmpty()) return {};
        if (const QString objection = ObjectionTo(name, dictionary()); !objection.isEmpty()) {
            MsgBox(objection);
            return {};
        }
        if (!HasName(program.mainDatabase(), dictionary(), name)) return name;
        if (!Ask(texts().duplicateQuestion.arg(name))) return {};
    }
}

bool frmEditDictionary::isProtected(const QString& message)
{
    if (!currentName().isEmpty()) return false;
    MsgBox(message);
    return true;
}

void frmEditDictionary::cmdAdd()
{
    Routine("cmdAdd"_L1, [&] {
        const QString name = askName(texts().addPrompt, texts().addTitle);
        if (name.isEmpty()) return;
        const qint64 key = FindOrAddName(program.mainDatabase(), dictionary(), name);
        dcDatabase->Refresh();
        dcDatabase->FindFirst(dictionary().key + u" = ?"_s, {key});
        dbGrid->setFocus();
    });
}

void frmEditDictionary::cmdDelete()
{
    Routine("cmdDelete"_L1, [&] {
        if (!dcDatabase->hasRow() || isProtected(texts().protectedFromDelete)) return;
        const QString name = currentName();
        if (!Ask(texts().deleteQuestion.arg(name), Box::Question | Box::SafeDefault)) return;
        const int position = dcDatabase->position();
        try {
            RemoveName(program.mainDatabase(), dictionary(), currentKey());
        } catch (const RuntimeError& error) {
            if (error.number() != DaoErrorNumber::ReferredTo) throw;
            MsgBox(texts().inUseMessage.arg(name));
            return;
        }
        dcDatabase->Refresh();
        dcDatabase->MoveTo(position);
        dbGrid->setFocus();
    });
}

void frmEditDictionary::cmdChange()
{
    Routine("cmdChange"_L1, [&] {
        if (!dcDatabase->hasRow() || isProtected(texts().protectedFromChange)) return;
        const QString name = askName(texts().changePrompt, texts().changeTitle, currentName());
        if (name.isEmpty()) return;
        RenameName(program.mainDatabase(), dictionary(), currentKey(), name);
        dcDatabase->RefreshInPlace();
        dbGrid->setFocus();
    });
}
