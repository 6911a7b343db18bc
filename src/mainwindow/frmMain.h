#pragma once

#include "frame/Fault.h"
#include "mainwindow/Commands.h"
#include "mainwindow/Dashboard.h"
#include "mainwindow/StatusPanels.h"
#include "mainwindow/Toolbars.h"
#include "recognition/DriveWatch.h"
#include "store/ExternalDatabase.h"
#include "ui/ListBar.h"
#include "ui/Timer.h"

#include <QComboBox>
#include <QMainWindow>

/// The main window: the dashboard in its middle, and the one place where every command of the program is routed to what
/// it does. It opens the screens of all subsystems, also for one another.
class frmMain : public QMainWindow, public Screens {
    Q_OBJECT
public:
    explicit frmMain(Program& program);
    ~frmMain() override;

    /// Everything before the window is shown.
    void Load();
    /// The general refresh: dashboard, timers, start-up checks.
    void LoadData();
    /// Carries out a command by its identifier; one outside of the vocabulary does nothing.
    void Route(const QString& id);

    bool offers(QStringView screen) const override;
    void ShowFileList(Form& opener, const ListRequest& request) override;
    void ShowTrackList(Form& opener, const ListRequest& request) override;
    void ShowAddInDue(Form& opener, const CatalogueKind& kind, qint64 disc) override;
    std::optional<DiscChoice> PickDisc(Form& opener, const QString& mode) override;

protected:
    void closeEvent(QCloseEvent* event) override;
    /// None of the toolkit's own, which would also hide the bar that holds the drive selector.
    QMenu* createPopupMenu() override { return nullptr; }
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void Guarded(QLatin1StringView place, const std::function<void()>& routine) { ::Guarded(program, place, routine); }

    // Window
    void setUpDriveSelector();
    void connectAll();
    void initUser();
    void LoadToolbars(const std::optional<ToolbarLayout>& layout);
    void SaveToolbars();
    void showPanel(bool shown);
    bool Form_Unload();
    void CompactDB();

    // Dashboard
    void ConfigureTimers();
    void CheckDue();
    void CheckCD();
    void tmrCheckCD_Timer();
    void tmrNewCD_Timer();
    void tmrTime_Timer();
    void startBlinking();
    void paintSigns();
    void ResetDiscSigns();

    // Drive
    void LoadDefaultCD();
    void defaultDriveChanged();
    void insertImage(const QString& path);
    void cmdInsert();
    void cmdEject();
    void showDrive();
    void showDrive(const DriveGlance& seen, const QString& chosen);

    // Binding
    void lblShare_Click(const CatalogueKind& kind);
    void bindDisc(const CatalogueKind& kind, const QString& drive);
    void unbindDisc(const CatalogueKind& kind, const QString& drive);
    bool CheckDiskShare(const CatalogueKind& kind, const QString& id);
    void establish(const CatalogueKind& kind, const DiscChoice& choice, const QString& id);

    // Commands
    using Handlers = QHash<QString, std::function<void(frmMain&)>>;
    static Handlers handlers();
    void openCatalogue(const CatalogueKind& kind, qint64 key = 0);
    void addDisc(const CatalogueKind& kind);
    void addAndRemember(const CatalogueKind& kind);
    void repeatLastAdd();
    void changeNumber();
    void editDictionary(const CatalogueKind& kind);
    void changeCategory();
    void showSearch(const QString& category);
    void showOptions();
    void showToolbarOptions();
    void showAbout();
    void showLoans();
    void lendByNumber(const CatalogueKind* category);
    /// A screen that changes nothing on the dashboard.
    template<class S> void showScreen(QLatin1StringView place)
    {
        Guarded(place, [&] { S(program).ShowModal(); });
    }
    void enableCommands();

    // List bar
    void AddListbars();
    void enableListBar();
    void listBarClicked(const QString& group, const QString& text);
    void loadShortcuts();
    void runShortcut(const QString& name);
    void showShortcutMenu(const QString& group, const QString& text, const QPoint& at);
    void addShortcut();
    void changeShortcut();
    void deleteShortcut();

    // Which database is on view
    void OpenExternalDB();
    void OpenLocalDB();
    void showExternal(const ExternalSummary& seen);
    void enableForMode();
    bool externalHas(const CatalogueKind& kind);

    Program& program;
    Commands m_commands;
    QComboBox* ID_DB_DefaultCDDVDROM;
    Toolbars m_toolbars;
    ListBar* SSListBar;
    Dashboard* m_dashboard;
    StatusPanels* StatusBar;
    DriveWatch m_watch;
    Timer* tmrCheckCD;
    Timer* tmrNewCD;
    Timer* tmrTime;
    DriveSigns m_painted;
    QString m_shortcut;       ///< that the shortcuts' menu is open on, empty beside one
    QStringList m_foldedAway; ///< groups that were folded when they left the list bar
    bool m_showTime = false;
};
