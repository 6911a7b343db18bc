#include "frame/Program.h"
#include "frame/Text.h"
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
#include <cstdio>
#include <cstdlib>
#include <optional>

/// False when the last writes could not be kept.
static bool closeDatabases(DBEngine& engine)
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

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"vinora"_s);
    QApplication::setApplicationVersion(QStringLiteral(VINORA_VERSION));
    QApplication::setDesktopFileName(u"vinora"_s);
    QApplication::setQuitOnLastWindowClosed(false); // the main window ends the process
    QLocale::setDefault(RussianLocale());
    QTranslator buttons;
    if (buttons.load(u"qtbase_ru"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&buttons);
    Theme::apply(application);
    QApplication::setWindowIcon(icon(u"app"_s));

    const SystemClock clock;
    DBEngine engine(clock);
    QString lastFolder;
    QtDialogs dialogs({.commitBeforeModal = [&] { engine.Commit(); },
                       .lastFolder = [&] { return lastFolder; },
                       .keepLastFolder = [&](const QString& folder) { lastFolder = folder; }});

    const QString folder = ApplicationFolder(QApplication::applicationDirPath());
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
                        instance.reset();
                        std::fflush(nullptr);
                        std::_Exit(code);
                    }};

    SetFilePaths(program);
    PrepareDatabases(program);
    return QApplication::exec();
}
