#include "catalogue/frmAddInCatalogue.h"

#include "catalogue/Numbering.h"
#include "catalogue/Reduction.h"
#include "frame/Text.h"
#include "store/DiscTables.h"
#include "store/Schema.h"
#include "ui/Theme.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QScopedValueRollback>

frmAddInCatalogue::frmAddInCatalogue(Program& program, const CatalogueKind& kind)
    : CatalogueScreen(program, kind, kind.editor, u"Добавление диска"_s),
      txtDictionary(named(kind.dictionary.boxName.toLatin1().constData()))
{
    completeTitles(txtName);
    m_dictionary = completion(txtDictionary);
    txtName->setMaxLength(60);
    txtName->setMinimumWidth(fontMetrics().averageCharWidth() * 48);
    txtYear->setMaxLength(4);
    // A longer name than a dictionary holds has a message of its own where the catalogue tests it.
    txtDictionary->setMaxLength(kind.dictionary.editorTests ? 255 : FieldLength::DictionaryName);
    udYear->setup(txtYear, 4, CountBetween(0, 9999, 4));
    DigitKeys(txtYear);
    udCDs->setup(txtCDs, 1, CountBetween(1, 6));
    DiscCountKeys(txtCDs);
    lblNumber->setFont(Theme::heading(font()));

    imgButton[0]->setup(u"ok"_s, u"ОК"_s, u"Сохранить диск"_s, Qt::CTRL | Qt::Key_Enter);
    imgButton[1]->setup(u"cancel"_s, u"Отмена"_s, u"Закрыть, не сохраняя"_s);
    imgButton[0]->setDefault(true);
    connect(imgButton[0], &ImageButton::clicked, this, [this] { cmdAdd(); });
    connect(imgButton[1], &ImageButton::clicked, this, [this] { Unload(); });
    connect(txtCDs, &QLineEdit::textChanged, this, [this] { txtCDs_Change(); });
}

/// A completion that is silent while the opener fills the boxes.
PrefixCompletion* frmAddInCatalogue::completion(QLineEdit* box)
{
    m_freeTexts += box;
    auto* made = new PrefixCompletion(box, this);
    made->setActive([this] { return !m_offering && program.shared.CatalogueQueryFilter != u"edit:1"; });
    return made;
}

void frmAddInCatalogue::completeTitles(QLineEdit* box) { m_titles += completion(box); }

void frmAddInCatalogue::build(const OwnFields& own)
{
    auto* top = head(lblCDsCount0);
    top->addWidget(label(u"Диск №"_s));
    top->addWidget(lblNumber);

    QLabel* count = label(u"Дис&ков:"_s, txtCDs);
    auto* counters = row(udYear, own.behindYear, count, udCDs, own.behindCount, stretch);
    auto* fields = grid({
        {label(kind.nameCaption + u':', txtName), txtName},
        {own.titleCaption, own.title},
        {label(u"Го&д:"_s, txtYear), counters},
        {label(kind.dictionary.caption + u':', txtDictionary), txtDictionary},
        {own.lastCaption, own.last},
    });
    auto* all = column(top, fields, own.below);
    if (!own.below) all->addStretch();
    all->addLayout(row(stretch, imgButton[0], imgButton[1]));
    setLayout(all);
}

void frmAddInCatalogue::moveOnByEnter(const QList<QWidget*>& order)
{
    m_order = order;
    for (QWidget* control : order)
        if (auto* box = qobject_cast<QLineEdit*>(control))
            connect(box, &QLineEdit::returnPressed, this, [this, box] { moveOn(box); });
}

void frmAddInCatalogue::moveOn(QWidget* from)
{
    const qsizetype place = m_order.indexOf(from);
    if (place + 1 == m_order.size()) return cmdAdd();
    QWidget* next = m_order[place + 1];
    next->setFocus();
    if (auto* box = qobject_cast<QLineEdit*>(next)) box->selectAll();
}

/// OK is the default button for the eye: Enter in a control moves on.
void frmAddInCatalogue::keyPressEvent(QKeyEvent* event)
{
    QWidget* focus = focusWidget();
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || qobject_cast<QPushButton*>(focus)) return CatalogueScreen::keyPressEvent(event);
    if (qobject_cast<QComboBox*>(focus) && m_order.contains(focus)) moveOn(focus);
}

void frmAddInCatalogue::Form_Load()
{
    Routine("FormLoad"_L1, [&] {
        const Database main = program.mainDatabase();
        const QStringList titles = TitlesOf(main, kind);
        for (PrefixCompletion* completion : m_titles) completion->setItems(titles);
        m_dictionary->setItems(NamesOf(main, kind.dictionary));
        txtYear->setText(program.clock.today().toString(u"yyyy"));
        txtCDs->setText(u"1"_s);
    });
}

void frmAddInCatalogue::AddUnder(int number, const OfferedTitle& offered)
{
    Load();
    m_key = 0;
    m_number = number;
    lblCDsCount0->setText(kind.addCaption);
    lblNumber->setText(QString::number(number));
    const QScopedValueRollback offering(m_offering, true);
    txtName->setText(offered.name);
    if (!offered.album.isEmpty()) showExtras({{u"Альбом"_s, offered.album}});
    txtName->selectAll();
}

void frmAddInCatalogue::Change(const DiscRecord& record)
{
    Load();
    setWindowTitle(u"Изменение диска"_s);
    lblCDsCount0->setText(kind.changeCaption);
    m_key = record.key;
    m_number = record.number;
    program.shared.OldDiscCount = record.discs;
    lblNumber->setText(QString::number(record.number));
    txtName->setText(record.name);
    txtYear->setText(record.year);
    txtCDs->setText(QString::number(record.discs));
    txtDictionary->setText(record.description);
    showExtras(record.extra);
    txtDictionary->selectAll();
    txtName->selectAll();
}

int frmAddInCatalogue::discs() const { return txtCDs->text().toInt(); }

void frmAddInCatalogue::txtCDs_Change()
{
    if (discs() >= 1 && discs() <= 6) return discsChanged();
    txtCDs->setText(u"1"_s);
    txtCDs->selectAll();
}

/// Tells what is missing or too long, and says whether there was anything.
bool frmAddInCatalogue::complain()
{
    if (txtName->text().isEmpty()) {
        MsgBox(kind.requiredMessage);
        txtName->setFocus();
        return true;
    }
    if (kind.dictionary.editorTests && txtDictionary->text().size() > FieldLength::DictionaryName) {
        MsgBox(kind.dictionary.lengthMessage);
        txtDictionary->setFocus();
        return true;
    }
    return false;
}

/// The shift that was agreed to, if any. When it cannot be made the user decides whether the disc is saved without it; until
/// then it stays asked for, so that no other OK shares a number behind his back. False: nothing is to be saved.
bool frmAddInCatalogue::shiftNumbers()
{
    int& start = program.shared.ShiftStart;
    if (start == 0 || MoveNumbers(program, kind, start)) return true;
    if (!Ask(CannotMoveMessage(start) + u"\rСохранить диск, не смещая номера?"_s, Box::Warning)) return false;
    start = 0;
    return true;
}

void frmAddInCatalogue::cmdAdd()
{
    Routine("cmdAdd"_L1, [&] {
        if (complain()) return;
        for (QLineEdit* box : m_freeTexts) {
            const QSignalBlocker noCompletion(box);
            box->setText(CleanText(box->text()));
        }

        Shared& shared = program.shared;
        const Database main = program.mainDatabase();
        const qint64 code = FindOrAddName(main, kind.dictionary, txtDictionary->text());
        if (!shiftNumbers()) return;
        const Reduction reduction{.key = m_key, .before = shared.OldDiscCount, .after = discs()};
        if (!adding() && LosesLists(main, kind, reduction)) {
            if (!Ask(ReductionQuestion(kind, reduction), Box::Warning)) return;
            DropLostLists(main, ListDatabase(program, kind), kind, reduction);
        }
        const DiscRecord record{.key = m_key,
                                .number = m_number,
                                .name = txtName->text(),
                                .year = txtYear->text(),
                                .description = txtDictionary->text(),
                                .discs = discs(),
                                .extra = extras(),
                                .binding = shared.AutoDetectTag.mid(3)};
        m_saved = SaveDisc(main, kind, record, code, program.clock.today());

        if (kind.clearsAutoDetectTag) shared.AutoDetectTag.clear();
        shared.LastSavedNumber = m_number;
        shared.DialogDone = true;
        Unload();
    });
}
