#include "search/frmDBFind.h"

#include "dao/DBEngine.h"
#include "store/DiscTables.h"
#include "ui/Lettering.h"
#include "ui/Theme.h"

#include <QScrollBar>

namespace {
constexpr int PollInterval = 100; // ms

const auto ResultCaption = u"Результат поиска:"_s;
const auto OpeningHint =
    u"Введите текст и нажмите «Найти».\n* заменяет любые буквы, ? — одну, # — цифру, [аб] — одну из этих.\n"
    u"Сами знаки * ? # [ ищут в скобках: [*]."_s;
constexpr int MostLogged = 20; // unread lists of a walk that are logged by name
constexpr auto DoFile = "frmDBFind, doFile()"_L1;

QStringList captionsOf(ListQuery::Kind kind)
{
    switch (kind) {
    case ListQuery::Files: return {u"Имя файла"_s, u"№"_s, u"Путь"_s};
    case ListQuery::Folders: return {u"Имя папки"_s, u"№"_s, u"Путь"_s};
    case ListQuery::Tracks: break;
    }
    return {u"Название трека"_s, u"№"_s};
}

QString nothingFound(ListQuery::Kind kind)
{
    switch (kind) {
    case ListQuery::Files: return u"Нет таких файлов!"_s;
    case ListQuery::Folders: return u"Нет таких папок!"_s;
    case ListQuery::Tracks: break;
    }
    return u"Нет таких треков!"_s;
}
}

frmDBFind::frmDBFind(Program& program, const QString& category) : Screen(program, u"frmDBFind"_s, u"Поиск"_s)
{
    setMaximizable();
    cmbList->addItems({u"файлов/папок"_s, u"треков"_s});
    cmbList->setCurrentIndex(category == Audio().code ? 1 : 0);
    optSearchMethod[0]->setChecked(true);
    optSearchMethod[1]->setText(u"в &папках"_s);
    chWholeWord->setText(u"поле &целиком"_s);
    chWholeWord->setToolTip(u"Имя, путь, название или комментарий должны совпасть с текстом целиком"_s);
    chCommentOnly->setText(u"в &комментариях"_s);
    chCommentOnly->setToolTip(u"Искать только в комментариях к файлам или папкам"_s);
    txtSearchText->setMinimumWidth(fontMetrics().averageCharWidth() * 24);
    lettered(lblResult, Lettering::Heading);
    lblResult->setText(ResultCaption);
    lblNoHits->setAlignment(Qt::AlignCenter);
    lblNoHits->setEnabled(false);
    lblNoHits->setText(OpeningHint);
    for (ElidedLabel* small : {lblProgress, txtNoFile}) lettered(small, Lettering::Caption);
    lvFind->setAccessibleName(u"Результат поиска"_s);
    lvFind->setMinimumHeight(fontMetrics().height() * 10);
    prbDiscs->setTextVisible(false);
    imgButton[0]->setup(u"close"_s, u"&Закрыть"_s, u"Закрыть поиск"_s);
    imgButton[2]->setup({}, u"&Очистить"_s, u"Очистить текст и результат поиска"_s);
    buildLayout();

    m_poll.setInterval(PollInterval);
    connect(&m_poll, &QTimer::timeout, this, &frmDBFind::takeHits);
    connect(imgButton[0], &QPushButton::clicked, this, &Form::Unload);
    connect(imgButton[1], &QPushButton::clicked, this, &frmDBFind::cmdSearch);
    connect(imgButton[2], &QPushButton::clicked, this, &frmDBFind::cmdClear);
    connect(cmbList, &QComboBox::currentIndexChanged, this, &frmDBFind::followMode);
    connect(optSearchMethod[1], &QRadioButton::toggled, this, &frmDBFind::followMode);
    connect(lvFind, &HitList::rowActivated, this, &frmDBFind::lvFind_DblClick);
    connect(lvFind, &HitList::currentRowChanged, this, &frmDBFind::showNumberHint);
    connect(lvFind, &HitList::sortingChanged, this, &frmDBFind::showProgress);
    followMode();
    showRunning(false);
}

frmDBFind::~frmDBFind() = default;

void frmDBFind::buildLayout()
{
    QLabel* text = label(u"&Искать:"_s, txtSearchText);
    QLabel* among = label(u"с&реди"_s, cmbList);
    QBoxLayout* options = row(optSearchMethod[0], optSearchMethod[1], chWholeWord, chCommentOnly, stretch);
    options->setSpacing(Theme::Between);
    QBoxLayout* line = row(txtSearchText, among, cmbList, imgButton[1], imgButton[2]);
    QGridLayout* sought = grid({{text, line}, {static_cast<QWidget*>(nullptr), options}});
    lvFind->viewport()->setLayout(column(lblNoHits));
    // Nothing moves when a walk begins or ends.
    QSizePolicy place = prbDiscs->sizePolicy();
    place.setRetainSizeWhenHidden(true);
    prbDiscs->setSizePolicy(place);
    prbDiscs->setFixedWidth(fontMetrics().averageCharWidth() * 20);

    lblProgress->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QBoxLayout* state = row(lblResult, lblProgress, prbDiscs);
    state->setStretch(1, 1);
    QBoxLayout* hint = row(txtNoFile, imgButton[0]);
    hint->setStretch(0, 1);
    QBoxLayout* page = column(sought, state, lvFind, hint);
    page->setStretch(2, 1);
    setLayout(page);
    resize(fontMetrics().averageCharWidth() * 120, fontMetrics().height() * 34);
}

bool frmDBFind::tracks() const { return cmbList->currentIndex() == 1; }

bool frmDBFind::running() const { return m_search && m_search->running(); }

ListQuery frmDBFind::query() const
{
    const auto kind = optSearchMethod[1]->isChecked() ? ListQuery::Folders : ListQuery::Files;
    return {.kind = tracks() ? ListQuery::Tracks : kind,
            .text = txtSearchText->text(),
            .wholeWord = chWholeWord->isChecked(),
            .commentOnly = chCommentOnly->isChecked()};
}

/// What is sought is called by its name; hits keep the captions that they were found under.
void frmDBFind::followMode()
{
    optSearchMethod[0]->setText(tracks() ? u"в &треках"_s : u"в &файлах"_s);
    optSearchMethod[1]->setEnabled(!tracks());
    chCommentOnly->setEnabled(!tracks());
    if (lvFind->hits().size() == 0) lvFind->setCaptions(captionsOf(query().kind));
    if (activated()) openLists();
}

void frmDBFind::Form_Load()
{
    program.shared.OpenedFromSearch = true;
    txtSearchText->setFocus();
}

void frmDBFind::Form_Activate() { openLists(); }

/// The database of the lists is opened while the text is being typed: with ten thousand of them that takes a moment.
void frmDBFind::openLists()
{
    Guarded("frmDBFind, Form_Activate()"_L1, [&] { search(); });
}

void frmDBFind::Form_Unload()
{
    m_poll.stop();
    m_search.reset();
    program.shared.OpenedFromSearch = false;
}

void frmDBFind::reject()
{
    if (running())
        stopWalk();
    else
        Screen::reject();
}

ListSearch& frmDBFind::search()
{
    if (!m_search || m_searchesTracks != tracks()) {
        m_searchesTracks = tracks();
        const auto wake = [this] {
            QMetaObject::invokeMethod(
                this, [this] { takeHits(); }, Qt::QueuedConnection);
        };
        m_search = std::make_unique<ListSearch>(ListDatabase(program, query().catalogue()), wake);
    }
    return *m_search;
}

void frmDBFind::cmdSearch()
{
    if (running())
        stopWalk();
    else
        ReadyToFindFile();
}

void frmDBFind::ReadyToFindFile()
{
    Guarded("frmDBFind, ReadyToFindFile()"_L1, [&] {
        m_query = query();
        m_step = {};
        m_unread.clear();
        m_stopped = false;
        lblResult->setText(ResultCaption);
        lvFind->setHits({});
        lvFind->setCaptions(captionsOf(m_query.kind));
        try {
            RequireCriterion(m_query);
        } catch (const RuntimeError& error) {
            lblNoHits->setText(u"Поиск с кавычками невозможен"_s);
            showCount();
            TellFault(program, DoFile, error);
            backToText();
            return;
        }
        m_discs = ListedDiscs(program.mainDatabase(), m_query.catalogue());
        lvFind->setHits(Hits(m_discs));
        search().start(m_query, m_discs);
        prbDiscs->setRange(0, int(m_discs.size()));
        m_poll.start();
        showRunning(true);
    });
}

void frmDBFind::stopWalk()
{
    m_stopped = true;
    m_search->stop();
    takeHits();
}

void frmDBFind::takeHits()
{
    if (!running()) return; // taken already
    Guarded("frmDBFind, ReadyToFindFile()"_L1, [&] {
        lvFind->append([&](Hits& hits) { m_step = m_search->take(hits); });
        for (const ListSearch::Unread& unread : m_step.unread) {
            const QString& list = m_discs[unread.disc].list;
            if (m_unread.contains(list)) continue;
            m_unread.insert(list);
            if (m_unread.size() <= MostLogged) LogFaultIfPossible(program, DoFile, unread.error);
        }
        showCount();
        if (m_step.finished) finishWalk();
    });
}

void frmDBFind::finishWalk()
{
    m_poll.stop();
    showRunning(false);
    lblNoHits->setText(whyEmpty());
    if (const auto more = m_unread.size() - MostLogged; more > 0)
        LogFaultIfPossible(program, DoFile,
                           RuntimeError(DaoErrorNumber::TableNotFound, u"Не читается ещё списков: %1."_s.arg(more)));
    if (lvFind->hits().size() > 0) {
        lvFind->setFocus();
        // Who has scrolled stays there.
        if (lvFind->currentRow() < 0 && lvFind->verticalScrollBar()->value() == 0) lvFind->setCurrentRow(0);
        return;
    }
    if (!m_stopped) MsgBox(nothingFound(m_query.kind));
    backToText();
}

/// Said in place of the hits of a walk that found none.
QString frmDBFind::whyEmpty() const
{
    if (m_stopped) return u"Поиск остановлен"_s;
    return m_discs.empty() ? u"Ни у одного диска каталога нет списка"_s : u"Ничего не найдено"_s;
}

void frmDBFind::backToText()
{
    txtSearchText->setFocus();
    txtSearchText->selectAll();
}

void frmDBFind::showCount()
{
    const std::size_t hits = lvFind->hits().size();
    const QString count = m_query.kind == ListQuery::Tracks ? u"Результат поиска (найдено треков: %1):"_s
                                                            : u"Результат поиска (найдено файлов: %1):"_s;
    lblResult->setText(hits == 0 ? ResultCaption : count.arg(hits));
    lblNoHits->setVisible(hits == 0);
    prbDiscs->setValue(int(m_step.walked));
    showProgress();
}

void frmDBFind::showProgress()
{
    const QString discs = u"Просмотрено дисков: %1 из %2"_s.arg(m_step.walked).arg(m_discs.size());
    QStringList said;
    if (running() || m_stopped || !m_unread.isEmpty()) said += discs;
    if (!m_unread.isEmpty()) said += u"не читается списков: %1"_s.arg(m_unread.size());
    if (m_stopped) said += u"поиск остановлен"_s;
    if (lvFind->sorting()) said += u"сортировка…"_s;
    if (lvFind->sortFailed()) said += u"для сортировки не хватает памяти"_s;
    if (!said.isEmpty()) said[0].replace(0, 1, said[0][0].toUpper());
    lblProgress->setText(said.join(u", "_s));
}

/// While a walk is under way only the list, the button that stops it and the one that closes the form act.
void frmDBFind::showRunning(bool running)
{
    for (QWidget* input :
         std::initializer_list<QWidget*>{txtSearchText, cmbList, optSearchMethod[0], chWholeWord, imgButton[2]})
        input->setEnabled(!running);
    for (QWidget* input : std::initializer_list<QWidget*>{optSearchMethod[1], chCommentOnly})
        input->setEnabled(!running && !tracks());
    if (running)
        imgButton[1]->setup(u"stop"_s, u"О&становить"_s, u"Остановить поиск"_s);
    else
        imgButton[1]->setup(u"search"_s, u"&Найти"_s, u"Начать поиск"_s);
    imgButton[1]->setDefault(!running);
    lvFind->setSortable(!running);
    prbDiscs->setVisible(running);
    if (running) {
        lvFind->setFocus();
        setCursor(Qt::BusyCursor);
        lblNoHits->setText(u"Идёт поиск…"_s);
        showCount();
    } else {
        unsetCursor();
    }
}

void frmDBFind::cmdClear()
{
    m_step = {};
    m_unread.clear();
    m_stopped = false;
    m_discs.clear();
    lvFind->setHits({});
    txtSearchText->clear();
    txtNoFile->clear();
    lblNoHits->setText(OpeningHint);
    followMode();
    showCount();
    txtSearchText->setFocus();
}

void frmDBFind::showNumberHint(int row)
{
    txtNoFile->clear();
    if (row < 0) return;
    Guarded("frmDBFind, lvFind_Click()"_L1, [&] {
        const ListedDisc& disc = lvFind->hits().disc(std::size_t(row));
        const CatalogueKind& kind = m_query.catalogue();
        Recordset record = program.mainDatabase().OpenRecordset(kind.rowByKey(), {disc.key});
        if (record.RecordCount() == 0) return;
        const QString title = kind.discTitle(record[u"Название"].text(),
                                             kind.album ? record[u"Альбом"].text() : QString());
        const int discs = qMax(record[u"Дисков"].toInt(), disc.disc);
        const QString ofSet = discs > 1 ? u" (%1 из %2)"_s.arg(disc.disc).arg(discs) : QString();
        txtNoFile->setText(u"Диск № %1%2: %3"_s.arg(disc.number).arg(ofSet, title));
    });
}

void frmDBFind::lvFind_DblClick(int row)
{
    if (running()) return;
    Guarded("frmDBFind, lvFind_DblClick()"_L1, [&] {
        const auto hit = std::size_t(row);
        const Hits& hits = lvFind->hits();
        const ListedDisc disc = hits.disc(hit);
        const CatalogueKind& kind = m_query.catalogue();
        Recordset record = program.mainDatabase().OpenRecordset(kind.rowByKey(), {disc.key});
        if (record.RecordCount() == 0) {
            MsgBox(u"Диск № %1 отсутствует в каталоге."_s.arg(disc.number));
            return;
        }
        const bool folder = m_query.kind == ListQuery::Folders;
        const ListRequest request{
            .key = disc.key,
            .number = record[u"Номер"].toInt(),
            .title = record[u"Название"].text(),
            .album = kind.album ? record[u"Альбом"].text() : QString(),
            .discs = record[u"Дисков"].toInt(),
            .disc = disc.disc,
            .place = ListPlace{.folder = hits.path(hit), .name = folder ? QString() : hits.name(hit)}};
        (program.screens->*kind.list->show)(*this, request);
        lvFind->setFocus();
    });
}
