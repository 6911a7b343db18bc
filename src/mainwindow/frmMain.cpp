#include "mainwindow/frmMain.h"

#include "frame/Text.h"
#include "frame/Version.h"
#include "mainwindow/MenuBarKey.h"
#include "mainwindow/WindowPlace.h"
#include "mainwindow/frmCompactDB.h"
#include "recognition/DiscImages.h"
#include "store/Compaction.h"
#include "ui/Icons.h"
#include "ui/Layout.h"

#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

namespace {
// No window is smaller than 9100 by 6900 twips.
constexpr QSize smallest(9100 / TwipsPerPixel + 1, 6900 / TwipsPerPixel);
constexpr QSize designed(1180, 720);
constexpr int clockPeriod = 5000;
constexpr int watchPeriod = 1000;
constexpr int blinkPeriod = 500;

QString layoutPath(const Program& program) { return program.applicationFolder + u"/vinora.atb"_s; }
}

frmMain::frmMain(Program& program)
    : program(program), m_commands(this), ID_DB_DefaultCDDVDROM(new QComboBox),
      m_toolbars(*this, m_commands, ID_DB_DefaultCDDVDROM), SSListBar(new ListBar),
      m_dashboard(new Dashboard(m_commands)), StatusBar(new StatusPanels), m_watch(program),
      tmrCheckCD(new Timer(this)), tmrNewCD(new Timer(this)), tmrTime(new Timer(this))
{
    program.screens = this;
    setObjectName(u"frmMain"_s);
    setWindowIcon(icon(u"app"_s));
    setAcceptDrops(true);
    setMinimumSize(smallest);
    resize(designed);

    m_commands.fill(*menuBar());
    m_commands.action(u"ID_Panel")->setChecked(true);
    FocusMenuBarByF10(*this);
    setUpDriveSelector();
    SSListBar->setObjectName(u"SSListBar"_s);
    auto* centre = row(SSListBar, m_dashboard);
    centre->setContentsMargins(0, 0, 0, 0);
    centre->setSpacing(0);
    centre->setStretch(1, 1);
    setCentralWidget(panel(centre));
    setStatusBar(StatusBar);

    tmrCheckCD->setObjectName(u"tmrCheckCD"_s);
    tmrCheckCD->setInterval(watchPeriod);
    tmrNewCD->setObjectName(u"tmrNewCD"_s);
    tmrNewCD->setInterval(blinkPeriod);
    tmrTime->setObjectName(u"tmrTime"_s);
    tmrTime->setInterval(clockPeriod);
    connectAll();
}

frmMain::~frmMain()
{
    if (program.screens == this) program.screens = nullptr;
}

void frmMain::setUpDriveSelector()
{
    ID_DB_DefaultCDDVDROM->setObjectName(u"ID_DB_DefaultCDDVDROM"_s);
    ID_DB_DefaultCDDVDROM->setToolTip(u"CD/DVD-ROM по умолчанию"_s);
    ID_DB_DefaultCDDVDROM->setAccessibleName(u"CD/DVD-ROM по умолчанию"_s);
    ID_DB_DefaultCDDVDROM->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    ID_DB_DefaultCDDVDROM->setMinimumContentsLength(4);
}

void frmMain::connectAll()
{
    for (QAction* action : m_commands.actions())
        connect(action, &QAction::triggered, this, [this, action] { Route(action->objectName()); });
    connect(SSListBar, &ListBar::itemClicked, this, &frmMain::listBarClicked);
    connect(SSListBar, &ListBar::contextMenu, this, &frmMain::showShortcutMenu);
    connect(tmrCheckCD, &Timer::tick, this, &frmMain::tmrCheckCD_Timer);
    connect(tmrNewCD, &Timer::tick, this, &frmMain::tmrNewCD_Timer);
    connect(tmrTime, &Timer::tick, this, &frmMain::tmrTime_Timer);
    connect(ID_DB_DefaultCDDVDROM, &QComboBox::activated, this, &frmMain::defaultDriveChanged);
    connect(m_dashboard, &Dashboard::panelToggled, this, [this] { m_commands.action(u"ID_Panel")->trigger(); });
    connect(m_commands.menu(u"ID_View_Toolbars"), &QMenu::aboutToShow, this, [this] { m_toolbars.tick(); });
    for (size_t i = 0; i < CommandsOfCatalogues().size(); ++i) {
        QMenu* menu = m_commands.menu(CommandsOfCatalogues()[i].logoMenu);
        connect(m_dashboard->cards()[i], &CatalogueCard::menuWanted, this,
                [this, menu](const QPoint& at) { program.dialogs.Popup(*menu, at); });
        connect(m_dashboard->cards()[i], &CatalogueCard::shareClicked, this,
                [this, &kind = CommandsOfCatalogues()[i].kind] { lblShare_Click(kind); });
    }
}

void frmMain::Load()
{
    Guarded("frmMain, Form_Load()"_L1, [&] {
        LoadWinPos(*this, program.settings());
        const auto layout = LoadToolbarLayout(layoutPath(program));
        if (layout) m_toolbars.restore(layout->toolbars);
        StatusBar->setMode(u"База данных - локальная"_s);
        StatusBar->setClock(FormatDate(program.clock.today(), u"d MMMM (dddd)"_s));
        initUser();
        AddListbars();
        LoadToolbars(layout);
        RestoreImage(program);
        LoadData();
        loadShortcuts();
        LoadDefaultCD();
        enableCommands();
        SSListBar->focusFirstItem();
        tmrTime->setEnabled(true);
    });
}

void frmMain::initUser() { setWindowTitle(ProgramTitle(program.version)); }

void frmMain::LoadToolbars(const std::optional<ToolbarLayout>& layout)
{
    if (layout) {
        SSListBar->setFoldedGroups(layout->foldedGroups);
        m_commands.action(u"ID_Panel")->setChecked(layout->panel);
    }
    showPanel(m_commands.action(u"ID_Panel")->isChecked());
}

void frmMain::SaveToolbars()
{
    SaveToolbarLayout(layoutPath(program), {.toolbars = m_toolbars.places(),
                                            .panel = m_commands.action(u"ID_Panel")->isChecked(),
                                            .foldedGroups = SSListBar->foldedGroups()});
}

void frmMain::showPanel(bool shown)
{
    SSListBar->setVisible(shown);
    m_dashboard->showPanelLink(shown);
}

bool frmMain::Form_Unload()
{
    const Profile settings = program.settings();
    const QString confirm = settings.read(u"Option", u"ConfirmExit", 5).trimmed();
    if (confirm.isEmpty() || confirm.startsWith(u'1'))
        if (!program.dialogs.Ask(u"Вы действительно хотите выйти из программы?"_s)) return false;

    if (program.shared.ExternalDBOpen) OpenLocalDB();
    tmrCheckCD->setEnabled(false);
    tmrNewCD->setEnabled(false);
    SaveToolbars();
    SaveWinPos(*this, settings);
    CompactDB();
    return true;
}

void frmMain::contextMenuEvent(QContextMenuEvent* event)
{
    const QWidget* at = childAt(event->pos());
    while (at && !qobject_cast<const QToolBar*>(at) && at != menuBar()) at = at->parentWidget();
    if (at)
        program.dialogs.Popup(*m_commands.menu(u"ID_View_Toolbars"), event->globalPos());
    else
        event->ignore();
}

void frmMain::closeEvent(QCloseEvent* event)
{
    event->ignore();
    // A session that ends may close the window under an open form, whose routine then still has to return.
    if (program.dialogs.modalIsOpen()) return;
    Guarded("frmMain, Form_Unload()"_L1, [&] {
        if (!Form_Unload()) return;
        program.engine.ReleaseAll();
        EndProcess(program, EXIT_SUCCESS);
    });
}

void frmMain::CompactDB()
{
    Guarded("frmMain, CompactDB()"_L1, [&] {
        if (program.settings().number(u"Option", u"AutoCompactDatabase", 2) != 1) return;
        frmCompactDB wait;
        wait.showNow();
        if (program.shared.ExternalDBOpen) OpenLocalDB();
        CompactDatabases(program);
    });
}
