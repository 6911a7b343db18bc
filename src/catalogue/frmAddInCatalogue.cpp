#include "catalogue/frmAddInCatalogue.h"

#include "catalogue/Numbering.h"
#include "catalogue/Reduction.h"
#include "frame/Text.h"
#include "store/DiscTables.h"
#include "ui/IconLabel.h"
#include "ui/Theme.h"

#include <QKeyEvent>

frmAddInCatalogue::frmAddInCatalogue(Program& program, const CatalogueKind& kind)
    : CatalogueScreen(program, kind, kind.editor, u"Добавление диска"_s),
      txtDictionary(named(kind.dictionary.boxName.toLatin1().constData())),
      m_names(new PrefixCompletion(txtName, this)), m_dictionary(new PrefixCompletion(txtDictionary, this))
{
    txtName->setMaxLength(60);
    txtName->setMinimumWidth(fontMetrics().averageCharWidth() * 48);
    txtYear->setMaxLength(5);
    // A longer name than a dictionary holds has a message of its own where the catalogue tests it.
    txtDictionary->setMaxLength(kind.dictionary.lengthMessage.isEmpty() ? 50 : 255);
    udYear->setup(txtYear, 5, CountBetween(0, 9999, 4));
    udCDs->setup(txtCDs, 1, CountBetween(1, 6));
    DiscCountKeys(txtCDs);
    lblNumber->setFont(Theme::heading(font()));

    imgButton[0]->setup(u"ok"_s, u"ОК"_s, u"Сохранить диск"_s);
    imgButton[1]->setup(u"cancel"_s, u"Отмена"_s, u"Закрыть, не сохраняя"_s);
    imgButton[0]->setDefault(true);
    connect(imgButton[0], &ImageButton::clicked, this, [this] { cmdAdd(); });
    connect(imgButton[1], &ImageButton::clicked, this, [this] { Unload(); });
    connect(txtCDs, &QLineEdit::textChanged, this, [this] { txtCDs_Change(); });

    const auto active = [this] { return this->program.shared.CatalogueQueryFilter != u"edit:1"; };
    m_names->setActive(active);
    m_dictionary->setActive(active);
}

void frmAddInCatalogue::build(QLayout* extras)
{
    auto* picture = new IconLabel;
    picture->setIcon(kind.icon);
    picture->setAccent(kind.accent);
    picture->setScale(2);
    lblCDsCount0->setFont(Theme::heading(font()));

    auto* fields = grid({
        {label(u"&%1:"_s.arg(kind.nameCaption), txtName), txtName},
        {label(u"Го&д:"_s, txtYear), row(udYear, label(u"Дис&ков:"_s, txtCDs), udCDs, stretch)},
        {label(u"&%1:"_s.arg(kind.dictionary.caption), txtDictionary), txtDictionary},
    });
    setLayout(column(row(picture, lblCDsCount0, stretch, label(u"Диск №"_s), lblNumber), fields, extras,
                     row(stretch, imgButton[0], imgButton[1])));
}

void frmAddInCatalogue::moveOnByEnter(const QList<QLineEdit*>& boxes)
{
    for (qsizetype i = 0; i + 1 < boxes.size(); ++i)
        connect(boxes[i], &QLineEdit::returnPressed, this, [next = boxes[i + 1]] {
            next->setFocus();
            next->selectAll();
        });
    connect(boxes.back(), &QLineEdit::returnPressed, this, [this] { cmdAdd(); });
}

/// OK is the default button for the eye: Enter in a box moves on.
void frmAddInCatalogue::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && !qobject_cast<QPushButton*>(focusWidget())) return;
    CatalogueScreen::keyPressEvent(event);
}

void frmAddInCatalogue::Form_Load()
{
    Routine("FormLoad"_L1, [&] {
        const Database main = program.mainDatabase();
        // DISTINCT, though a key makes every row so: its rows come all at once and not one by one.
        const auto texts = [&](const QString& table, const QString& key, const QString& fields) {
            const Recordset rows = main.OpenRecordset(
                u"SELECT DISTINCT %2, %3 FROM %1 ORDER BY %2"_s.arg(table, key, fields));
            QStringList result;
            for (int position = 0; position < rows.RecordCount(); ++position)
                for (const Value& value : rows.row(position).mid(1)) result += value.text();
            return result;
        };
        m_names->setItems(texts(kind.table, kind.key, kind.album ? u"Название, Альбом"_s : u"Название"_s));
        m_dictionary->setItems(texts(kind.dictionary.table, kind.dictionary.key, kind.dictionary.table));
        txtYear->setText(program.clock.today().toString(u"yyyy"));
        txtCDs->setText(u"1"_s);
    });
}

void frmAddInCatalogue::AddUnder(int number)
{
    Load();
    m_key = 0;
    m_number = number;
    lblCDsCount0->setText(kind.addCaption);
    lblNumber->setText(QString::number(number));
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
    if (discs() >= 1 && discs() <= 6) return;
    txtCDs->setText(u"1"_s);
    txtCDs->selectAll();
}

bool frmAddInCatalogue::accepts()
{
    if (txtName->text().isEmpty()) {
        MsgBox(kind.requiredMessage);
        txtName->setFocus();
        return false;
    }
    if (!kind.dictionary.lengthMessage.isEmpty() && txtDictionary->text().size() > 50) {
        MsgBox(kind.dictionary.lengthMessage);
        txtDictionary->setFocus();
        return false;
    }
    return true;
}

/// False when the user keeps the lists of the discs that would go.
bool frmAddInCatalogue::reduced(const Database& main)
{
    const Reduction reduction{.key = m_key, .before = program.shared.OldDiscCount, .after = discs()};
    if (!LosesLists(main, kind, reduction)) return true;
    if (!Ask(ReductionQuestion(kind, reduction), Box::Warning)) return false;
    DropLostLists(main, ListDatabase(program, kind), kind, reduction);
    return true;
}

void frmAddInCatalogue::cmdAdd()
{
    Routine("cmdAdd"_L1, [&] {
        if (!accepts()) return;
        for (QLineEdit* box : {txtName, txtDictionary}) {
            const QSignalBlocker noCompletion(box);
            box->setText(CleanText(box->text()));
        }

        Shared& shared = program.shared;
        const Database main = program.mainDatabase();
        const qint64 code = FindOrAddName(main, kind.dictionary, txtDictionary->text());
        if (shared.ShiftStart > 0 && !MoveNumbers(program, kind, shared.ShiftStart)) return;
        if (!adding() && !reduced(main)) return;
        const DiscRecord record{.key = m_key,
                                .number = m_number,
                                .name = txtName->text(),
                                .year = txtYear->text(),
                                .description = txtDictionary->text(),
                                .discs = discs(),
                                .extra = extras(),
                                .binding = shared.AutoDetectTag.mid(3)};
        SaveDisc(main, kind, record, code, program.clock.today());

        if (kind.clearsAutoDetectTag) shared.AutoDetectTag.clear();
        shared.LastSavedNumber = m_number;
        shared.DialogDone = true;
        Unload();
    });
}
