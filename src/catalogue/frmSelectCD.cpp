#include "catalogue/frmSelectCD.h"

#include "frame/Text.h"
#include "ui/Lettering.h"
#include "ui/Theme.h"

#include <QKeyEvent>

frmSelectCD::frmSelectCD(Program& program) : frmSelectCD(program, PickerModeOf(program.shared.CatalogueQueryFilter)) {}

frmSelectCD::frmSelectCD(Program& program, const PickerMode& mode)
    : CatalogueScreen(program, mode.kind, u"frmSelectCD"_s, mode.kind.pickerTitle), dcDatabase(new DataControl(this)),
      m_mode(mode)
{
    dcDatabase->setObjectName(u"dcDatabase"_s);
    setUpControls();
    build();
    connectControls();
}

void frmSelectCD::setUpControls()
{
    QList<DBGrid::Column> columns{{.field = u"Номер"_s, .caption = u"Номер"_s, .alignment = Qt::AlignRight, .width = 7},
                                  {.field = u"Название"_s, .caption = kind.nameHeading()}};
    if (kind.album) columns += {.field = u"Альбом"_s, .caption = u"Альбом"_s};
    dbGrid->setColumns(columns);
    dbGrid->setDataControl(dcDatabase);
    dbGrid->setAccessibleName(kind.listText);
    dcDatabase->bind(txtNumber, u"Номер"_s);
    txtNumber->setMaxLength(5);
    DigitKeys(txtNumber);
    txtName->setMaxLength(60);

    imgButton[0]->setup(u"ok"_s, u"ОК"_s, u"Выбрать этот диск"_s);
    imgButton[0]->setDefault(true);
    imgButton[1]->setup(u"cancel"_s, u"Отмена"_s, u"Закрыть без выбора"_s);
    imgButton[2]->setup(u"list-all"_s, u"Все диски"_s, u"Показать все диски"_s, Qt::Key_F5);
    imgButton[2]->setEnabled(false);
    lblBound->setText(u"уже привязан"_s);
    lettered(lblBound, Lettering::Caption);
    lblBound->hide();
}

void frmSelectCD::build()
{
    QLabel* number = label(u"Но&мер:"_s, txtNumber);
    QLabel* disc = label(u"&Диск набора:"_s, cmbCountCD);
    setTag({number, txtNumber, disc, cmbCountCD}, MyGroup);
    const int digits = fontMetrics().horizontalAdvance(u"0000000000"_s);
    txtNumber->setFixedWidth(digits);
    cmbCountCD->setMinimumWidth(digits);

    auto* top = row(sign(), label(kind.nameCaption + u" [запрос]"_s, txtName), txtName, imgButton[2]);
    auto* counter = row(label(u"Дисков в списке:"_s), lblCDsCount1, stretch);
    auto* choice = row(number, txtNumber, disc, cmbCountCD, lblBound, stretch, imgButton[0], imgButton[1]);
    for (QBoxLayout* line : {counter, choice}) line->setSpacing(Theme::Gap);
    choice->insertSpacing(2, Theme::Gap);
    auto* all = column(top, dbGrid, counter, choice);
    all->setSpacing(Theme::Between);
    setLayout(all);
    resize(fontMetrics().horizontalAdvance(u'0') * 84, fontMetrics().height() * 30);
}

void frmSelectCD::connectControls()
{
    connect(dcDatabase, &DataControl::Reposition, this, [this] { dcDatabase_Reposition(); });
    connect(txtName, &QLineEdit::textEdited, this, [this] { txtName_KeyUp(); });
    connect(txtName, &QLineEdit::returnPressed, dbGrid, [this] { dbGrid->setFocus(); });
    connect(txtNumber, &QLineEdit::returnPressed, this, [this] { jumpToNumber(txtNumber, *dcDatabase); });
    connect(dbGrid, &DBGrid::typed, this, [this](const QString& character) {
        Routine("DBGrid_KeyPress"_L1, [&] { m_typeAhead.typed(*dcDatabase, character); });
    });
    connect(cmbCountCD, &QComboBox::currentIndexChanged, this, [this] { showBinding(); });
    connect(dbGrid, &DBGrid::rowDoubleClicked, this, [this] { cmdOK(); });
    connect(imgButton[0], &ImageButton::clicked, this, [this] { cmdOK(); });
    connect(imgButton[1], &ImageButton::clicked, this, [this] { Unload(); });
    connect(imgButton[2], &ImageButton::clicked, this, [this] { cmdList(); });
}

void frmSelectCD::Form_Load()
{
    Routine("Form_Load"_L1, [&] {
        dcDatabase->setDatabase(program.mainDatabase());
        show({});
    });
}

void frmSelectCD::Form_Activate() { dbGrid->setFocus(); }

void frmSelectCD::Form_Unload()
{
    program.shared.CatalogueQueryFilter.clear();
    dcDatabase->close();
}

/// Enter in a box leads to the list; the default button takes it elsewhere.
void frmSelectCD::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && qobject_cast<QLineEdit*>(focusWidget())) return;
    CatalogueScreen::keyPressEvent(event);
}

void frmSelectCD::show(const QString& text)
{
    const bool narrowed = !text.isEmpty();
    setWindowTitle(narrowed ? kind.pickerTitle + u" - Результат запроса"_s : kind.pickerTitle);
    if (!narrowed && imgButton[2]->hasFocus()) dbGrid->setFocus();
    imgButton[2]->setEnabled(narrowed);
    dcDatabase->setRecordSource(m_mode.source(text));
    dcDatabase->Refresh();
}

void frmSelectCD::txtName_KeyUp()
{
    Routine("txtName_KeyUp"_L1, [&] { show(cleanTyped(txtName)); });
}

void frmSelectCD::cmdList()
{
    Routine("cmdList"_L1, [&] {
        txtName->clear();
        show({});
    });
}

void frmSelectCD::dcDatabase_Reposition()
{
    Routine("dcDatabase_Reposition"_L1, [&] {
        const bool any = dcDatabase->hasRow();
        lblCDsCount1->setText(QString::number(dcDatabase->recordCount()));
        imgButton[0]->setEnabled(any);
        setEnabledByTag(MyGroup, any);
        fillSet(cmbCountCD, dcDatabase->value(u"Дисков").toInt());
    });
}

void frmSelectCD::tellBindings()
{
    m_tellsBindings = true;
    showBinding();
}

void frmSelectCD::showBinding()
{
    Routine("cmbCountCD_Click"_L1, [&] {
        const int disc = cmbCountCD->currentIndex() + 1;
        lblBound->setVisible(m_tellsBindings && disc > 0 &&
                             !dcDatabase->value(CatalogueKind::bindingField(disc)).text().isEmpty());
    });
}

void frmSelectCD::cmdOK()
{
    if (!imgButton[0]->isEnabled()) return;
    m_chosen = dcDatabase->value(kind.key).toLong();
    program.shared.PickedDisc = dcDatabase->value(u"Номер").text() + u':' + cmbCountCD->currentText();
    Unload();
}

static std::optional<DiscChoice> pick(Program& program, const QString& mode, QWidget* opener, bool toBind)
{
    program.shared.CatalogueQueryFilter = mode;
    program.shared.PickedDisc.clear();
    frmSelectCD picker(program);
    {
        const Hourglass hourglass;
        picker.Load();
    }
    if (toBind) picker.tellBindings();
    picker.ShowModal(opener);
    const QString picked = std::exchange(program.shared.PickedDisc, {});
    if (picked.isEmpty()) return {};
    return DiscChoice{.key = picker.chosenKey(), .number = picked.chopped(2).toInt(), .disc = picked.last(1).toInt()};
}

std::optional<DiscChoice> PickDisc(Program& program, const QString& mode, QWidget* opener)
{
    return pick(program, mode, opener, false);
}

std::optional<DiscChoice> PickDiscToBind(Program& program, const CatalogueKind& kind)
{
    return pick(program, u"full"_s + kind.code, nullptr, true);
}
