#include "catalogue/frmCatalogue.h"

#include "catalogue/DiscRecord.h"
#include "catalogue/RecordSource.h"
#include "frame/Settings.h"
#include "frame/Text.h"
#include "lending/Ledger.h"
#include "recognition/BoundDisc.h"
#include "recognition/DiscIdentity.h"
#include "ui/DeliberateChoice.h"
#include "ui/Theme.h"

frmCatalogue::frmCatalogue(Program& program, const CatalogueKind& kind)
    : CatalogueScreen(program, kind, kind.browser, kind.title),
      cmbDictionary(named(kind.dictionary.listName.toLatin1().constData())), dcDatabase(new DataControl(this)),
      m_due(new Blinker({imgDue, lblDue}, this))
{
    dcDatabase->setObjectName(u"dcDatabase"_s);
    const auto date = [](const Value& value) {
        return FormatDate(value.date(), u"dd-MMM-yyyy"_s).remove(u'.'); // months are cut short by a point in Russian
    };
    dcDatabase->bind(txtNumber, u"Номер"_s);
    dcDatabase->bind(txtName, u"Название"_s);
    dcDatabase->bind(txtYear, u"Год"_s);
    dcDatabase->bind(txtCDs, u"Дисков"_s);
    dcDatabase->bind(txtDateAdd, u"ДатаЗаписи"_s, date);
    dcDatabase->bind(txtDateUpdate, u"ДатаИзменения"_s, date);
    for (QLineEdit* box : {txtYear, txtCDs, txtDateAdd, txtDateUpdate}) box->setReadOnly(true);
    txtName->setMaxLength(60);
    txtNumber->setMaxLength(5);
    DigitKeys(txtNumber);
    setTag({txtNumber, txtName, cmbDictionary, txtYear, txtCDs, txtDateAdd, txtDateUpdate}, MyGroup);

    dbGrid->setColumns({{.field = u"Номер"_s, .caption = u"Номер"_s, .alignment = Qt::AlignRight, .width = 7},
                        {.field = u"Название"_s, .caption = kind.nameHeading()}});
    dbGrid->setDataControl(dcDatabase);
    for (const SortOrder& order : kind.sortOrders) cmbSorted->addItem(order.item);
    chSortedDESC->setText(u"в обратном порядке"_s);
    imgDue->setIcon(u"loan-warning"_s, Theme::danger(palette()));
    lblDue->setTextFormat(Qt::PlainText);

    setUpButtons();
    setUpCover();
    connectControls();
}

/// Without a parent: their place in the picture is their place in the Tab order.
void frmCatalogue::setUpButtons()
{
    const auto button = [this](int index, const QString& picture, const QString& text, const QString& hint,
                               const QKeySequence& shortcut, void (frmCatalogue::*command)()) {
        auto*& made = imgButton[std::size_t(index)];
        made = new ImageButton;
        made->setObjectName(u"imgButton_%1"_s.arg(index));
        made->setup(picture, text, hint, shortcut);
        if (command) connect(made, &ImageButton::clicked, this, [this, command] { (this->*command)(); });
    };
    button(0, u"close"_s, u"Закрыть"_s, u"Закрыть каталог (Esc)"_s, {}, nullptr);
    connect(imgButton[0], &ImageButton::clicked, this, [this] { Unload(); });
    button(1, u"add-disc"_s, u"Добавить"_s, u"Добавить диск"_s, Qt::CTRL | Qt::Key_N, &frmCatalogue::cmdAdd);
    button(2, u"delete"_s, u"Удалить"_s, u"Удалить диск (Delete)"_s, {}, &frmCatalogue::cmdDelete);
    button(3, u"edit"_s, u"Изменить"_s, u"Изменить информацию о диске"_s, Qt::Key_F2, &frmCatalogue::cmdChange);
    button(4, u"loan"_s, u"Должник"_s, u"Выдать диск или принять его обратно"_s, Qt::CTRL | Qt::Key_D,
           &frmCatalogue::cmdDue);
    button(5, u"list-all"_s, u"Весь каталог"_s, u"Показать весь каталог"_s, Qt::Key_F5,
           &frmCatalogue::ShowWholeCatalogue);
    if (kind.list)
        button(6, kind.list->icon, kind.list->text, kind.list->hint, Qt::CTRL | Qt::Key_L, &frmCatalogue::showList);
    button(kind.coverButton, u"cover-edit"_s, u"Изменить обложку"_s, u"Изменить обложку диска"_s, {},
           &frmCatalogue::cmdChangeBox);
    button(kind.coverButton + 1, u"cover-delete"_s, u"Удалить обложку"_s, u"Удалить обложку диска"_s, {},
           &frmCatalogue::cmdDeleteBox);
}

void frmCatalogue::connectControls()
{
    connect(dcDatabase, &DataControl::Reposition, this, [this] { dcDatabase_Reposition(); });
    connect(cmbSorted, &QComboBox::activated, this, [this] { cmbSorted_Click(); });
    connect(chSortedDESC, &QCheckBox::clicked, this, [this] { cmbSorted_Click(); });
    ChooseDeliberately(cmbDictionary);
    connect(cmbDictionary, &QComboBox::activated, this, [this] { cmbDictionary_Click(); });
    connect(txtName, &QLineEdit::textEdited, this, [this] { txtName_KeyUp(); });
    connect(txtNumber, &QLineEdit::returnPressed, this, [this] { txtNumber_KeyPress(); });
    connect(dbGrid, &DBGrid::typed, this, [this](const QString& character) { typeAhead(character); });
    connect(dbGrid, &DBGrid::rowDoubleClicked, this, [this] { rowDoubleClicked(); });
    connect(dbGrid, &DBGrid::insertPressed, this, [this] {
        if (imgButton[1]->isEnabled()) cmdAdd();
    });
    connect(dbGrid, &DBGrid::deletePressed, this, [this] {
        if (imgButton[2]->isEnabled()) cmdDelete();
    });
    connect(TabStrip, &QTabBar::currentChanged, this, [this](int tab) {
        fraMain[0]->setVisible(tab == 0);
        fraMain[1]->setVisible(tab == 1);
    });
}

void frmCatalogue::Form_Load()
{
    Routine("Form_Load"_L1, [&] {
        dcDatabase->setDatabase(program.mainDatabase());
        if (const auto interval = BlinkInterval(program, u"tmrDueCatalogue")) m_due->setInterval(*interval);
        allow(1, !external());
        allow(5, false);
        FullDictionary();
        loadSortOrder();
        if (!external() && program.shared.CatalogueQueryMode) markAsQuery();
        if (external()) explainViewing();
    });
    cmbSorted_Click();
    if (m_openOn > 0) findKey(m_openOn);
}

void frmCatalogue::Form_Activate()
{
    if (!external()) AutoResp();
    if (m_openOn > 0 && currentKey() != m_openOn) findKey(m_openOn); // who asked for a disc sees that one
    dbGrid->setFocus();
}

void frmCatalogue::Form_Unload()
{
    program.shared.CatalogueQueryFilter.clear();
    const Profile settings = program.settings();
    if (Val(settings.read(u"Option", u"SaveSortedCatalogue").trimmed().left(1)) != 0) {
        settings.write(u"Sorted", kind.sortedSetting, QString::number(cmbSorted->currentIndex()));
        settings.write(u"Sorted", kind.sortedSetting + u"DESC"_s, QString::number(int(chSortedDESC->isChecked())));
    }
    dcDatabase->close();
}

void frmCatalogue::loadSortOrder()
{
    const Profile settings = program.settings();
    cmbSorted->setCurrentIndex(0);
    if (!settings.has(u"Sorted", kind.sortedSetting)) return;
    const int item = BoundedInt(settings.number(u"Sorted", kind.sortedSetting), -1, cmbSorted->count());
    if (item >= 0 && item < cmbSorted->count()) cmbSorted->setCurrentIndex(item);
    chSortedDESC->setChecked(settings.number(u"Sorted", kind.sortedSetting + u"DESC"_s) == 1);
}

/// The lists of names to filter by: "FullStyle", "FullDescription", "FullGenre".
void frmCatalogue::FullDictionary()
{
    cmbDictionary->clear();
    cmbDictionary->addItems(NamesOf(program.mainDatabase(), kind.dictionary));
    cmbDictionary->setCurrentIndex(-1);
}

void frmCatalogue::cmbSorted_Click()
{
    Routine("cmbSored_Click"_L1, [&] {
        const QString select = RecordSource(kind, program.shared.CatalogueQueryFilter, cmbSorted->currentText(),
                                            chSortedDESC->isChecked());
        if (!select.isEmpty()) {
            dcDatabase->setRecordSource(select);
            m_listIsFiltered = !program.shared.CatalogueQueryFilter.isEmpty();
        }
        dcDatabase->Refresh();
    });
}

void frmCatalogue::markAsQuery()
{
    setWindowTitle(kind.queryTitle());
    allow(5, true);
}

void frmCatalogue::filterBy(const QString& clause)
{
    program.shared.CatalogueQueryFilter = clause;
    markAsQuery();
    cmbSorted_Click();
}

void frmCatalogue::txtName_KeyUp()
{
    const QString clean = cleanTyped(txtName);
    if (clean.isEmpty())
        ShowWholeCatalogue();
    else
        filterBy(ContainsFilter(u"Название"_s, clean));
}

void frmCatalogue::cmbDictionary_Click()
{
    const QString name = cmbDictionary->currentText();
    if (name.isEmpty())
        ShowWholeCatalogue();
    else
        filterBy(EqualsFilter(kind.dictionary.table, name));
}

void frmCatalogue::ShowWholeCatalogue()
{
    program.shared.CatalogueQueryFilter.clear();
    txtName->clear();
    txtName->setModified(txtName->hasFocus()); // who emptied it goes on typing there, and not in front of a title
    setWindowTitle(kind.title);
    // A button that greys under the focus hands it to its neighbour, which opens the files.
    if (imgButton[5]->hasFocus()) dbGrid->setFocus();
    allow(5, false);
    cmbSorted_Click();
}

void frmCatalogue::allow(int button, bool allowed) { imgButton[std::size_t(button)]->setEnabled(allowed); }

void frmCatalogue::explainViewing()
{
    for (const std::size_t button : {1, 2, 3, 4, 6})
        if (imgButton[button]) imgButton[button]->setWhyDisabled(u"Внешнюю базу данных можно только просматривать"_s);
}

/// Why a disc can be neither deleted nor changed.
void frmCatalogue::explainLock(const QString& why)
{
    imgButton[2]->setWhyDisabled(why);
    imgButton[3]->setWhyDisabled(why);
}

void frmCatalogue::showCounter()
{
    lblCDsCount0->setText(program.shared.CatalogueQueryFilter.isEmpty() ? u"Дисков в каталоге:"_s
                                                                        : u"Дисков удовлетворяющих запросу:"_s);
    lblCDsCount1->setText(QString::number(dcDatabase->recordCount()));
}

void frmCatalogue::dcDatabase_Reposition()
{
    Routine("dcDatabase_Reposition"_L1, [&] {
        showCounter();
        if (!dcDatabase->hasRow()) return showNoRow();
        showCover();
        if (imgButton[6]) allow(6, !external() && program.offers(kind.list->screen));
        setEnabledByTag(MyGroup, true);
        for (QWidget* control : std::initializer_list<QWidget*>{lblSorted, cmbSorted, chSortedDESC})
            control->setEnabled(true);
        txtNumber->setReadOnly(false);
        cmbDictionary->setCurrentIndex(cmbDictionary->findText(dcDatabase->value(kind.dictionary.table).text()));
        rowShown();
        if (external()) {
            for (const int button : {2, 3, 4}) allow(button, false);
            m_due->setOn(false);
        } else {
            CheckDue();
        }
    });
}

void frmCatalogue::showNoRow()
{
    for (const int button : {2, 3, 4, 6})
        if (imgButton[std::size_t(button)]) allow(button, false);
    if (!external()) explainLock({});
    emptied();
    // An empty catalogue leaves nothing to search in; an empty result leaves the filters to be changed.
    setEnabledByTag(MyGroup, !program.shared.CatalogueQueryFilter.isEmpty());
    dbGrid->setEmptyText(m_listIsFiltered ? u"Ничего не найдено"_s
                         : external()     ? u"В каталоге нет дисков"_s
                                          : u"В каталоге пока нет дисков.\nНажмите «Добавить», чтобы внести первый."_s);
    TabStrip->setCurrentIndex(0);
    TabStrip->setTabText(1, {});
    TabStrip->setEnabled(false);
    imgBox->setPath({});
    allowCover(false, false);
    for (QWidget* control : std::initializer_list<QWidget*>{lblSorted, cmbSorted, chSortedDESC})
        control->setEnabled(false);
    m_due->setOn(false);
    cmbDictionary->setCurrentIndex(-1);
    txtNumber->setReadOnly(true);
}

void frmCatalogue::CheckDue()
{
    Routine("CheckDue"_L1, [&] {
        const bool lent = dcDatabase->value(u"Должник").toBool();
        allow(2, !lent);
        allow(3, !lent);
        explainLock(u"Диск на руках: сначала примите его обратно"_s);
        allow(4, program.offers(u"frmAddInDue"));
        imgButton[4]->setHint(lent ? u"Принять диск обратно"_s : u"Выдать диск"_s);
        lblDue->setText(lent ? u"Должник\n"_s + BorrowerOf(program.mainDatabase(), kind, currentKey()) : QString());
        m_due->setOn(lent);
    });
}

void frmCatalogue::txtNumber_KeyPress()
{
    if (!txtNumber->isReadOnly()) jumpToNumber(txtNumber, *dcDatabase);
}

void frmCatalogue::typeAhead(const QString& character)
{
    Routine("DBGrid_KeyPress"_L1, [&] { m_typeAhead.typed(*dcDatabase, character); });
}

void frmCatalogue::AutoResp()
{
    Routine("AutoResp"_L1, [&] {
        if (program.settings().number(u"Option", u"AutoResp") == 0) return;
        const QString drive = DefaultDrive(program);
        if (drive.isEmpty()) return;
        {
            const Hourglass hourglass;
            program.shared.CurrentDiscID = GetDiskID(program, drive);
        }
        if (program.shared.CurrentDiscID.isEmpty()) return;
        const auto disc = FindBoundDisc(program.mainDatabase(), kind, program.shared.CurrentDiscID, kind.autoRespSlots);
        if (disc && findKey(disc->key)) discRecognised(*disc);
    });
}
