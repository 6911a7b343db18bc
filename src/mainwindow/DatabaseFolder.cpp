#include "mainwindow/DatabaseFolder.h"

#include "frame/Fault.h"
#include "platform/CodePage1251.h"
#include "platform/Files.h"
#include "store/DatabaseSet.h"
#include "store/Reanimator.h"
#include "store/Summary.h"

#include <QFileInfo>

namespace {

/// The paths in use come back unless the change was kept.
class TrialFolder {
public:
    TrialFolder(Program& program, const QString& folder) : m_program(program), m_old(MainDatabaseFolder(program))
    {
        UseDatabaseFolder(program, folder);
    }
    ~TrialFolder()
    {
        if (!m_kept) UseDatabaseFolder(m_program, m_old);
    }
    void keep() { m_kept = true; }

private:
    Program& m_program;
    QString m_old;
    bool m_kept = false;
};

void refuse(Program& program, const QString& why) { program.dialogs.MsgBox(why, Box::Exclamation); }

/// Whether the folder can be one for databases at all; tells why not.
bool takes(Program& program, const QString& folder)
{
    if (!FitsCp1251(folder))
        refuse(program, u"Путь '%1' содержит символы, которые нельзя сохранить в файле настроек!\r"
                        u"Выберите папку, в пути к которой только русские и латинские буквы."_s.arg(folder));
    else if (!QFileInfo(folder).isDir())
        refuse(program, u"Путь не существует! Выберите другое место расположение базы данных!"_s);
    else
        return true;
    return false;
}

/// True when the databases stand in the folder in use.
bool prepare(Program& program, const QString& folder)
{
    if (!FileExists(program.shared.MainDBPath)) {
        if (!program.dialogs.Ask(
                u"В каталоге '%1' база данных не обнаружена!\nСоздать новую базу данных?"_s.arg(folder)))
            return false;
        if (Reanimator(program, 0)) return false;
    }
    // What the dashboard cannot show would end this start of the program and every other.
    Summarise(program.engine.OpenDatabase(program.shared.MainDBPath));
    // Lists that were left behind would be missed at their first use.
    return !CreateMissingDatabases(program);
}

}

std::optional<QString> ChangeDatabaseFolder(Program& program)
{
    const QString folder = program.dialogs.PickFolder(u"Укажите каталог с базой данных vinora."_s,
                                                      LocalDatabaseFolder(program));
    if (folder.isEmpty() || !takes(program, folder)) return {};

    std::optional<QString> changed;
    // The name in the log has always been that of the routine which creates databases.
    Guarded(program, "vinoraModule, Reanimator()"_L1, [&] {
        try {
            program.engine.ReleaseAll();
            TrialFolder trial(program, folder);
            if (!prepare(program, folder)) return;
            if (!WritePathLocalDB(program, folder))
                return refuse(program, u"Путь '%1' не удалось сохранить в файле настроек: он слишком длинный, или файл "
                                       u"'%2' недоступен для записи."_s.arg(folder, program.shared.IniFilePath));
            trial.keep();
            changed = folder;
        } catch (const RuntimeError& error) {
            if (error.number() != DaoErrorNumber::CannotOpenOrWrite) throw;
            refuse(program,
                   u"Папка '%1' доступна только для чтения! Для локального использования вы должны иметь полный "
                   u"доступ к папке!"_s.arg(folder));
        }
    });
    return changed;
}
