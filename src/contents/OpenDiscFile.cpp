#include "contents/OpenDiscFile.h"

#include "contents/DiscFile.h"
#include "contents/frmCopyFile.h"
#include "frame/Text.h"

#include <QElapsedTimer>
#include <cerrno>

static constexpr qint64 SmallFile = 4 * 1024 * 1024;

FilesAction ReadFilesAction(const Program& program)
{
    return program.settings().number(u"Option", u"FilesAction") == 1 ? FilesAction::StartFile : FilesAction::ShowFolder;
}

/// The folder of a disc that the desktop has not mounted is one with a copy of the file in it.
static bool worthCopying(Program& program, const DiscFile& file)
{
    if (file.size <= SmallFile || ReadFilesAction(program) == FilesAction::StartFile) return true;
    const QString megabytes = FormatNumber(double(file.size) / (1024 * 1024), 1, true);
    return program.dialogs.Ask(
        u"Диск не подключён к системе. Чтобы показать файл '%1', его нужно скопировать (%2 Мб). Продолжить?"_s.arg(
            file.name, megabytes));
}

/// Native path of a copy of the file; empty when the user gave it up. Throws RuntimeError.
static QString copyOf(Program& program, const FilesDisc& disc, const QString& folder, const QString& name)
{
    constexpr int PatienceMilliseconds = 300;

    const std::optional<DiscFile> file = FindDiscFile(*disc.medium, folder, name);
    if (!file) throw FileError(ENOENT, folder + name);

    DiscCopy copy(disc.medium, *file, disc.id);
    if (!copy.complete() && !worthCopying(program, *file)) return {};
    QElapsedTimer elapsed;
    elapsed.start();
    while (!copy.complete() && copy.size() <= SmallFile && !elapsed.hasExpired(PatienceMilliseconds)) copy.step();
    if (copy.complete()) return copy.path();

    frmCopyFile progress(program, copy, file->name);
    progress.ShowModal();
    if (progress.error()) throw RuntimeError(*progress.error());
    return copy.complete() ? copy.path() : QString();
}

void OpenDiscFile(Program& program, const FilesDisc& disc, const QString& folder, const QString& name)
{
    try {
        QString path = disc.mountPoint.isEmpty() ? QString() : MountedPath(disc.mountPoint, folder, name);
        if (path.isEmpty()) path = copyOf(program, disc, folder, name);
        if (path.isEmpty()) return;
        const bool start = ReadFilesAction(program) == FilesAction::StartFile;
        if (!(start ? program.desktop.openFile(path) : program.desktop.openFolderOf(path)))
            program.dialogs.MsgBox(
                u"Не удалось открыть файл '%1'.\r%2"_s.arg(name, program.desktop.complaint()).trimmed());
    } catch (const RuntimeError& error) {
        program.dialogs.MsgBox(u"Не удалось открыть файл '%1'.\r%2"_s.arg(name, error.description()));
    }
}
