#pragma once

#include "Figures.h"
#include "frame/Program.h"
#include "harness/FakeDrives.h"
#include "platform/XdgDesktop.h"
#include "store/CatalogueKind.h"
#include "ui/QtDialogs.h"

#include <QApplication>
#include <QTemporaryDir>

/// The program without its main window, over fresh databases in a folder of its own. Windows are real ones on the
/// offscreen platform, unless QT_QPA_PLATFORM names another. One per process, made first of all:
///
///     Bench bench(argc, argv);
///     FillShelf(bench.program, Audio());
///     Measure(u"the first free number"_s, 100, 5, [&] { FirstFreeNumber(bench.program.mainDatabase(), Audio()); });
///     Figure opens;
///     for (int i = 0; i < 5; ++i)
///         opens.add(TimeToPaint([&] { OpenCatalogue(bench.program, Audio()); }, u"DBGrid"));
///     opens.print(u"frmCatalogueAudioCD on 32,767 discs to its first paint"_s, 150);
class Bench {
    QApplication m_application;
    QTemporaryDir m_folder;
    SystemClock m_clock;
    std::unique_ptr<Drives> m_drives;
    XdgDesktop m_desktop;

public:
    /// Without `drives` there is one virtual drive, empty, a FakeVirtualDrive.
    Bench(int& argc, char** argv, std::unique_ptr<Drives> drives = std::make_unique<FakeDrives>());

    QString path(const QString& name) const { return m_folder.filePath(name); }

    DBEngine engine{m_clock};
    QtDialogs dialogs{engine, {}};
    Program program;
};

/// As many discs as there are numbers.
inline constexpr int FullShelf = 32767;
/// Replaces the catalogue by discs numbered 1 to `count`. Titles begin with some twenty words and are apart from each
/// other; every other one holds "для дома"; names of the dictionary and years are spread evenly.
void FillShelf(Program& program, const CatalogueKind& kind, int count = FullShelf);

/// Milliseconds from the call of `open`, which shows a window until it closes, to the first paint of its control of this
/// name. `then` is what is done in the window when it has been painted; the window is closed behind it.
double TimeToPaint(const std::function<void()>& open, QStringView control,
                   const std::function<void(QWidget& window)>& then = {});

/// A key to a widget, and all that follows from it, painting included.
void Press(QWidget& widget, int key, const QString& text = {});
