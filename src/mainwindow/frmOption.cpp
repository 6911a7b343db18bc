#include "mainwindow/frmOption.h"

#include "frame/Settings.h"
#include "mainwindow/DatabaseFolder.h"
#include "mainwindow/Options.h"
#include "recognition/DiscIdentity.h"
#include "store/CddbServers.h"
#include "store/DatabaseSet.h"
#include "ui/Lettering.h"
#include "ui/Theme.h"

#include <QTabBar>

static constexpr QStringView Section = u"Option";

namespace {

/// What belongs together, close to each other. A parent of their own keeps radio buttons apart from other choices.
template<class... Items> QWidget* section(Items... items) { return panel(column(items...)); }

QWidget* choice(const QString& question, QRadioButton* upper, QRadioButton* lower)
{
    QLabel* head = label(question);
    head->setWordWrap(true);
    upper->setAccessibleDescription(question);
    lower->setAccessibleDescription(question);
    return section(head, upper, lower);
}

QLabel* note(const QString& text)
{
    QLabel* note = lettered(label(text), Lettering::Caption);
    note->setWordWrap(true);
    return note;
}

template<class... Sections> QWidget* page(Sections... sections)
{
    QBoxLayout* contents = column(sections..., stretch);
    contents->setSpacing(Theme::Inside);
    return panel(contents);
}

}

frmOption::frmOption(Program& program)
    : Screen(program, u"frmOption"_s, u"Параметры"_s), m_flags{{{chConfirmExit, u"ConfirmExit", true},
                                                                {chCheckCD, u"CheckCD", false},
                                                                {chSaveSortedCatalogue, u"SaveSortedCatalogue", false},
                                                                {chSaveSortedDueList, u"SaveSortedDueList", false},
                                                                {chAutoCompactDatabase, u"AutoCompactDatabase", false},
                                                                {chAutoResp, u"AutoResp", false},
                                                                {chSaveFileListOption, u"SaveFileListOption", false},
                                                                {chCheckDueOnStartup, u"CheckDueOnStartup", true}}},
      m_choices{{{optDblClick[0], optDblClick[1], u"DblClick"},
                 {optDblClick[4], optDblClick[5], u"FilesAction"},
                 {optDblClick[2], optDblClick[3], u"DblClickDue"}}}
{
    tabOption->tabBar()->setUsesScrollButtons(false); // as wide as its captions
    tabOption->addTab(programPage(), u"Программа"_s);
    tabOption->addTab(cataloguePage(), u"Каталоги"_s);
    tabOption->addTab(duePage(), u"Должники"_s);
    tabOption->addTab(informerPage(), u"Индикаторы"_s);
    tabOption->addTab(serverPage(), u"CDDB"_s);
    tabOption->addTab(databasePage(), u"База данных"_s);

    imgButton[0]->setup(u"ok"_s, u"ОК"_s, u"Сохранить параметры"_s);
    imgButton[1]->setup(u"cancel"_s, u"Отмена"_s, u"Закрыть без сохранения"_s);
    imgButton[0]->setDefault(true);
    connect(imgButton[0], &QPushButton::clicked, this, &frmOption::cmdOK);
    connect(imgButton[1], &QPushButton::clicked, this, &Form::reject);
    setLayout(column(tabOption, row(stretch, imgButton[0], imgButton[1])));
}

QWidget* frmOption::programPage()
{
    chConfirmExit->setText(u"&Подтверждение перед выходом из программы"_s);
    chSaveFileListOption->setText(u"&Сохранять параметры сканирования дисков"_s);
    chCheckCD->setText(u"Проверять &наличие диска в каталоге"_s);
    chAutoResp->setText(u"Автоматически &определять номер диска, если он\n"
                        u"находится в устройстве для чтения компакт-дисков"_s);
    QLabel* drive = label(u"&Устройство чтения компакт-дисков по умолчанию:"_s, cmbDrive);
    return page(section(chConfirmExit, chSaveFileListOption),
                section(row(drive, cmbDrive, stretch), chCheckCD, chAutoResp));
}

QWidget* frmOption::cataloguePage()
{
    chSaveSortedCatalogue->setText(u"&каталогах"_s);
    chSaveSortedDueList->setText(u"списке &должников"_s);
    optDblClick[0]->setText(u"&изменения диска"_s);
    optDblClick[1]->setText(u"списка &файлов/треков"_s);
    optDblClick[5]->setText(u"&запустить файл"_s);
    optDblClick[4]->setText(u"открыть каталог, где &расположен файл"_s);
    return page(section(label(u"Сохранять режим сортировки в:"_s), chSaveSortedCatalogue, chSaveSortedDueList),
                choice(u"При двойном щелчке мышки по названию диска открывать окно:"_s, optDblClick[0], optDblClick[1]),
                choice(u"Действие при двойном щелчке мышки по имени файла:"_s, optDblClick[5], optDblClick[4]));
}

QWidget* frmOption::duePage()
{
    chCheckDueOnStartup->setText(u"&Автоматически проверять должников"_s);
    optDblClick[2]->setText(u"с&татистики должника"_s);
    optDblClick[3]->setText(u"из&менения даты возврата долга"_s);
    return page(chCheckDueOnStartup,
                choice(u"При двойном щелчке мышки по имени должника в Списке должников открывать окно:"_s,
                       optDblClick[2], optDblClick[3]));
}

QWidget* frmOption::informerPage()
{
    m_due.sample->setIcon(u"loan-warning"_s);
    m_disc.sample->setIcon(u"disc"_s);
    m_dueInLists.sample->setIcon(u"loan"_s);
    const std::array captions{label(u"&Главное окно - Должники"_s, sldInformerDue),
                              label(u"Г&лавное окно - Проверка диска"_s, sldInformerCD),
                              label(u"Каталог/Список - Дол&жники"_s, sldInformerDueCat)};
    auto* rows = new QGridLayout;
    for (size_t i = 0; i < m_informers.size(); ++i) {
        const InformerRow& informer = *m_informers[i];
        informer.steady->setAccessibleName(u"Без мерцания: "_s + informer.slider->accessibleName());
        informer.steady->setToolTip(u"Постоянный индикатор, без мерцания"_s);
        const int line = int(i);
        rows->addWidget(informer.sample, line, 0);
        rows->addWidget(captions[i], line, 1);
        rows->addWidget(informer.slider, line, 2);
        rows->addWidget(informer.period, line, 3);
        rows->addWidget(informer.steady, line, 4);
        rows->setRowMinimumHeight(line, Theme::RowHeight);
    }
    rows->setColumnStretch(2, 1);
    return page(section(label(u"Частота мерцания индикаторов:"_s), rows,
                        note(u"Отметка означает постоянный индикатор, без мерцания."_s)));
}

QWidget* frmOption::serverPage()
{
    cmbServer->addItems(CddbServerItems());
    txtTimeout->setMaxLength(3);
    udTimeout->setup(txtTimeout, 3, StepTimeout);
    connect(txtTimeout, &QLineEdit::returnPressed, imgButton[0], &QPushButton::click);
    return page(section(grid({{label(u"С&ервер по умолчанию:"_s, cmbServer), row(cmbServer, stretch)},
                              {label(u"&Время ожидания (сек.):"_s, txtTimeout), row(udTimeout, stretch)}}),
                        note(u"С этого сервера программа получает названия треков аудио дисков."_s)));
}

QWidget* frmOption::databasePage()
{
    chAutoCompactDatabase->setText(u"Сжимать файл&ы базы данных при закрытии программы"_s);
    txtPathLocalDB->setReadOnly(true);
    cmdPathLocalDB->setup(u"folder-open"_s, u"Вы&брать…"_s, u"Выбрать папку базы данных"_s);
    connect(cmdPathLocalDB, &QPushButton::clicked, this, &frmOption::changeFolder);
    cmdPathLocalDB->setWhyDisabled(u"Сначала откройте локальную базу данных"_s);
    cmdPathLocalDB->setEnabled(!program.shared.ExternalDBOpen);
    return page(section(label(u"Путь к локальной базе данных:"_s, txtPathLocalDB), row(txtPathLocalDB, cmdPathLocalDB),
                        note(u"Новый путь действует сразу, и кнопка «Отмена» его не возвращает. Файлы базы данных "
                             u"остаются на прежнем месте."_s)),
                chAutoCompactDatabase);
}

void frmOption::Form_Load()
{
    Guarded("frmOption, Form_Load()"_L1, [&] {
        const Profile settings = program.settings();
        for (const Flag& flag : m_flags) flag.box->setChecked(ReadFlag(settings, flag.key).value_or(flag.designed));
        for (const Choice& choice : m_choices)
            (ReadFlag(settings, choice.key).value_or(false) ? choice.second : choice.first)->setChecked(true);
        for (InformerRow* informer : m_informers) informer->load(settings);
        cmbServer->setCurrentIndex(ChosenCddbServer(settings));
        const QString timeout = settings.read(Section, u"ServerTimeout", 4);
        txtTimeout->setText(timeout.isEmpty() ? u"30"_s : timeout);
        txtPathLocalDB->setText(LocalDatabaseFolder(program));
        fillDrives();
    });
}

void frmOption::fillDrives()
{
    for (const QChar letter : GetCDDrives(program)) cmbDrive->addItem(letter + u":\\"_s);
    if (cmbDrive->count() == 0) {
        cmbDrive->addItem(u"---"_s);
        cmbDrive->setEnabled(false);
    }
    cmbDrive->setCurrentIndex(qMax(0, cmbDrive->findText(DefaultDrive(program).left(3), Qt::MatchFixedString)));
}

void frmOption::cmdOK()
{
    Guarded("frmOption, cmdOK()"_L1, [&] {
        const Hourglass hourglass;
        const Profile settings = program.settings();
        for (const Flag& flag : m_flags) WriteFlag(settings, flag.key, flag.box->isChecked());
        for (const Choice& choice : m_choices) WriteFlag(settings, choice.key, choice.second->isChecked());
        for (const InformerRow* informer : m_informers) informer->save(settings);
        settings.write(Section, u"Drive", cmbDrive->currentText());
        settings.write(Section, u"ServerCDDB", QString::number(cmbServer->currentIndex()));
        // One file holds them all, so the last one tells for all.
        if (!settings.write(Section, u"ServerTimeout", txtTimeout->text())) {
            MsgBox(u"Параметры не сохранены: файл '%1' недоступен для записи!"_s.arg(settings.path()));
            return;
        }
        if (!chSaveSortedCatalogue->isChecked()) ForgetCatalogueOrders(settings);
        if (!chSaveSortedDueList->isChecked()) ForgetDueOrder(settings);
        Unload();
    });
}

void frmOption::changeFolder()
{
    const std::optional<QString> folder = ChangeDatabaseFolder(program);
    if (!folder) return;
    txtPathLocalDB->setText(*folder);
    MsgBox(u"Путь к локальной базе данных успешно изменен!"_s, Box::Information);
}
