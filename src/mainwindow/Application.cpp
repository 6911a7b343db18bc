#include "mainwindow/Application.h"

#include "contents/DiscFile.h"
#include "frame/Fault.h"
#include "frame/Settings.h"
#include "frame/Text.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/frmSplashMain.h"
#include "platform/Files.h"
#include "platform/SingleInstance.h"
#include "platform/XdgDesktop.h"
#include "store/DatabaseSet.h"
#include "store/StartUp.h"
#include "ui/Icons.h"
#include "ui/QtDialogs.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <cstdlib>
#include <optional>

namespace {

/// What an event throws outside of any guarded routine, as a grid does that cannot read a row while it paints, is a fault
/// like any other.
class GuardedApplication : public QApplication {
public:
    using QApplication::QApplication;
    Program* program = nullptr;

    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception&) {
            if (!program) throw;
            // The box of the first fault is up, and is to be read.
            if (program->faulted) return false;
            ReportCaught(*program, "vinoraModule, Main()"_L1);
        }
    }
};

void setUp(QApplication& application)
{
    QApplication::setApplicationName(u"vinora"_s);
    QApplication::setApplicationVersion(QStringLiteral(VINORA_VERSION));
    QApplication::setDesktopFileName(u"vinora"_s);
    QApplication::setQuitOnLastWindowClosed(false); // the main window ends the process
    QLocale::setDefault(RussianLocale());
    auto* buttons = new QTranslator(&application);
    if (buttons->load(u"qtbase_ru"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(buttons);
    Theme::apply(application);
    QApplication::setWindowIcon(icon(u"app"_s));
}

/// Keeps what was written and closes the files; false when the last group of writes was lost.
bool closeDatabases(DBEngine& engine)
{
    bool kept = false;
    try {
        engine.Commit();
        kept = true;
        engine.ReleaseAll();
    } catch (const RuntimeError& error) {
        // A file that a window still has open stays so: what is in it is whole all the same.
        if (!kept) std::fprintf(stderr, "vinora: %s\n", error.what());
    }
    return kept;
}

}

int RunVinora(int argc, char** argv, const std::function<void(frmMain&)>& shown)
{
    GuardedApplication application(argc, argv);
    setUp(application);

    const SystemClock clock;
    DBEngine engine(clock);
    const QString folder = ApplicationFolder(QApplication::applicationDirPath());
    const Profile settings(folder + u"/vinora.ini"_s);
    QtDialogs dialogs(engine, {.lastFolder = [&] { return LastFolder(settings); },
                               .keepLastFolder = [&](const QString& path) { KeepLastFolder(settings, path); }});
    std::optional<SingleInstance> instance(std::in_place, folder);
    if (!instance->acquired()) {
        dialogs.MsgBox(u"Программа уже запущена!"_s);
        return EXIT_SUCCESS;
    }

    const std::unique_ptr<Drives> drives = CreateSystemDrives();
    XdgDesktop desktop;
    Program program{.applicationFolder = folder,
                    .version = QApplication::applicationVersion(),
                    .clock = clock,
                    .engine = engine,
                    .drives = *drives,
                    .dialogs = dialogs,
                    .desktop = desktop,
                    .endProcess = [&](int code) {
                        if (!closeDatabases(engine)) code = EXIT_FAILURE;
                        RemoveDiscCopies();
                        instance.reset();
                        std::fflush(nullptr);
                        std::_Exit(code);
                    }};

    application.program = &program;
    SetFilePaths(program);
    RemoveStaleDiscCopies();
    frmSplashMain splash(program.version);
    splash.showNow();
    PrepareDatabases(program);
    frmMain window(program);
    window.Load();
    splash.close();
    window.show();
    if (shown) shown(window);
    return QApplication::exec();
}
