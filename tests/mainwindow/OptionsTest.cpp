#include "harness/ScreenTest.h"
#include "mainwindow/frmOption.h"
#include "platform/Files.h"
#include "store/CddbServers.h"
#include "store/DatabaseSet.h"

#include <QDir>
#include <QFile>

namespace {
const QString ChooseFolder = u"Укажите каталог с базой данных vinora."_s;
const QString Changed = u"Путь к локальной базе данных успешно изменен!"_s;

class Options : public ScreenTest {
protected:
    QString settingsText() const
    {
        QFile file(program.shared.IniFilePath);
        return file.open(QFile::ReadOnly) ? QString::fromLatin1(file.readAll()).remove(u'\r') : QString();
    }
    QString makeFolder(const QString& name)
    {
        QDir(folder.path()).mkdir(name);
        return path(name);
    }
    QString askToCreate(const QString& where)
    {
        return u"В каталоге '%1' база данных не обнаружена!\nСоздать новую базу данных?"_s.arg(where);
    }
    struct Told {
        QString text;
        int type = Box::Exclamation;
        Answer answer = Answer::Ok;
    };
    /// Chooses another folder, answers what comes, cancels, and says which is in use then, seen from the shelf's.
    QString choose(const QString& chosen, const std::vector<Told>& boxes = {})
    {
        run<frmOption>([&]() -> Script {
            expectPickFolder(ChooseFolder, chosen);
            for (const Told& box : boxes) expectBox(box.text, box.type, box.answer);
            co_await select("tabOption", "База данных");
            co_await click("cmdPathLocalDB");
            EXPECT_EQ(shown("txtPathLocalDB"), LocalDatabaseFolder(program));
            co_await key(Qt::Key_Escape);
        });
        EXPECT_EQ(MainDatabaseFolder(program), LocalDatabaseFolder(program));
        return QDir(folder.path()).relativeFilePath(MainDatabaseFolder(program));
    }
};
}

TEST_F(Options, WithoutSettingsItShowsHowTheProgramWorksAndWritesThat)
{
    drives.add('D', FakeDisc::data("A", 1));
    run<frmOption>([&]() -> Script {
        EXPECT_EQ(sharedMnemonics(), QString());
        EXPECT_EQ(shown("lblInformerDue"), u"2500 мс"_s);
        EXPECT_EQ(shown("lblInformerCD"), u"0 мс"_s);
        EXPECT_FALSE(enabled("sldInformerCD"));
        EXPECT_FALSE(checked("chInformerCD"));
        EXPECT_EQ(items("cmbServer").section(u'\n', 0, 0), u"1: gnudb.gnudb.org"_s);
        EXPECT_EQ(items("cmbServer").count(u'\n'), 7);
        EXPECT_EQ(items("cmbDrive"), u"D:\\\nV:\\\n"_s);
        for (const char* page : {"Программа", "Каталоги", "Должники", "Индикаторы", "CDDB", "База данных"}) {
            co_await select("tabOption", page);
            co_await picture(u"option-"_s + page);
        }
        co_await click("imgButton_0");
    });
    EXPECT_EQ(settingsText(),
              u"[Option]\nConfirmExit=1\nCheckCD=0\nSaveSortedCatalogue=0\nSaveSortedDueList=0\n"
              "AutoCompactDatabase=0\nAutoResp=0\nSaveFileListOption=0\nCheckDueOnStartup=1\nDblClick=0\n"
              "FilesAction=0\nDblClickDue=0\ntmrDue=2500\ntmrCD=0\ntmrDueCatalogue=1500\nDrive=D:\\\n"
              "ServerCDDB=0\nServerTimeout=30\n[Sorted]\nPCCDsorted=0\nPCCDsortedDESC=0\nADCDsorted=0\n"
              "ADCDsortedDESC=0\nDUEsorted=0\nDUEsortedDESC=0\nDUEsortedDisk=0\n"_s);
}

TEST_F(Options, KeepsWhatWasSetAndWritesNothingOnCancel)
{
    const std::pair<const char*, const char*> kept[] = {
        {"ConfirmExit", "0"}, {"CheckCD", "1"},     {"SaveSortedCatalogue", "1"}, {"SaveSortedDueList", "1"},
        {"AutoResp", "1"},    {"DblClick", "1"},    {"AutoCompactDatabase", "1"}, {"SaveFileListOption", "1"},
        {"DblClickDue", "1"}, {"FilesAction", "1"}, {"CheckDueOnStartup", "0"},   {"ServerTimeout", "45"},
        {"ServerCDDB", "6"},  {"tmrDue", "1"},      {"tmrDueCatalogue", "9900"},  {"tmrCD", "300"},
        {"Drive", "V:\\"}};
    for (const auto& [key, value] : kept) setOption(key, value);
    program.settings().write(u"Sorted", u"PCCDsorted", u"3"_s);
    drives.add('D', FakeDisc::data("A", 1));
    const QString before = settingsText();
    run<frmOption>([&]() -> Script {
        EXPECT_FALSE(enabled("sldInformerDue"));
        EXPECT_EQ(shown("lblInformerDue"), u"0 мс"_s);
        EXPECT_EQ(shown("cmbDrive"), u"V:\\"_s);
        EXPECT_TRUE(checked("optDblClick_5"));
        co_await click("imgButton_0");
    });
    EXPECT_EQ(settingsText(), before);
    run<frmOption>([&]() -> Script {
        co_await check("chConfirmExit", true);
        co_await key(Qt::Key_Escape);
    });
    EXPECT_EQ(settingsText(), before);
}

TEST_F(Options, SaysThatNothingWasKeptAndStays)
{
    makeFolder("vinora.ini");
    run<frmOption>([&]() -> Script {
        expectBox(u"Параметры не сохранены: файл '%1' недоступен для записи!"_s.arg(path("vinora.ini")), 48);
        co_await click("imgButton_0");
        co_await key(Qt::Key_Escape);
    });
}

TEST_F(Options, IndicatorsAndTheTimeOutAnswerToTheirControls)
{
    setOption(u"ServerCDDB"_s, u"7"_s);
    run<frmOption>([&]() -> Script {
        EXPECT_EQ(shown("cmbServer"), u"1: gnudb.gnudb.org"_s);
        co_await select("tabOption", "Индикаторы");
        co_await check("chInformerCD", true);
        co_await check("chInformerCD", false);
        co_await focusOn("sldInformerCD");
        co_await key(Qt::Key_Right);
        EXPECT_EQ(shown("lblInformerCD"), u"100 мс"_s);
        co_await check("chInformerDue", true);
        EXPECT_EQ(shown("lblInformerDue"), u"0 мс"_s);
        EXPECT_FALSE(enabled("sldInformerDue"));

        co_await select("tabOption", "CDDB");
        // The text, the key, what stands then.
        const std::tuple<const char*, Qt::Key, const char*> steps[] = {
            {"30", Qt::Key_Up, "31"},   {"98", Qt::Key_Up, "99"},   {"99", Qt::Key_Up, "99"},
            {"11", Qt::Key_Down, "10"}, {"10", Qt::Key_Down, "10"}, {"", Qt::Key_Down, "10"},
            {"05", Qt::Key_Down, "10"}, {"5", Qt::Key_Up, "10"}};
        for (const auto& [text, step, result] : steps) {
            co_await type("txtTimeout", text);
            co_await key(step);
            EXPECT_EQ(shown("txtTimeout"), QString(result)) << text;
        }
        co_await type("txtTimeout", "7");
        co_await key(Qt::Key_Return);
    });
    EXPECT_EQ(option(u"tmrCD"_s), u"100"_s);
    EXPECT_EQ(option(u"tmrDue"_s), u"1"_s);
    EXPECT_EQ(option(u"ServerTimeout"_s), u"7"_s) << "what is typed by hand stands";
}

TEST_F(Options, AFolderWithADatabaseIsTakenAtOnceAndStaysAfterCancel)
{
    shelf.computer(1, "Здесь");
    const QString other = makeFolder(u"Диски"_s);
    engine.ReleaseAll();
    QFile::copy(path(u"vinora.db"_s), other + u"/vinora.db"_s);
    program.mainDatabase().Execute(u"DELETE FROM Компьютер"_s);
    EXPECT_EQ(choose(other, {{Changed, 64}}), u"Диски"_s);
    EXPECT_EQ(option(u"PathLocalDB"_s), other);
    EXPECT_EQ(rows(u"SELECT Название FROM Компьютер"_s), u"Здесь\n"_s);
    EXPECT_NE(fileRows(u"SELECT COUNT(*) FROM Фильтр1"_s), QString()) << "lists that were missing are made";

    const QString fresh = makeFolder(u"new"_s);
    EXPECT_EQ(choose(fresh, {{askToCreate(fresh), 36, Answer::No}}), u"Диски"_s);
    EXPECT_EQ(choose(fresh, {{askToCreate(fresh), 36, Answer::Yes}, {Changed, 64}}), u"new"_s);
    EXPECT_EQ(rows(u"SELECT Название FROM Компьютер"_s), QString());
    EXPECT_EQ(choose(QString()), u"new"_s) << "the chooser was cancelled";
}

TEST_F(Options, ADatabaseWithoutCataloguesIsAFaultThatKeepsTheOldFolder)
{
    const QString other = makeFolder(u"other"_s);
    engine.ReleaseAll();
    QFile::copy(path(u"vinora_files.db"_s), other + u"/vinora.db"_s);
    run<frmOption>([&]() -> Script {
        expectPickFolder(ChooseFolder, other);
        expectFault("vinoraModule, Reanimator()");
        co_await select("tabOption", "База данных");
        co_await click("cmdPathLocalDB");
    });
    EXPECT_EQ(option(u"PathLocalDB"_s), QString()) << "else no start would show a window again";
}

TEST_F(Options, AFolderThatCannotServeIsRefusedAndTheOldOneStays)
{
    EXPECT_EQ(choose(path(u"nowhere"_s), {{u"Путь не существует! Выберите другое место расположение базы данных!"_s}}),
              u"."_s);
    const QString foreign = makeFolder(u"Δίσκοι"_s);
    EXPECT_EQ(choose(foreign, {{u"Путь '%1' содержит символы, которые нельзя сохранить в файле настроек!\r"
                                "Выберите папку, в пути к которой только русские и латинские буквы."_s.arg(foreign)}}),
              u"."_s);
    if (NewFileError(u"/sys"_s) != 0) { // where it is mounted, not even root can create a file in it
        const std::vector<Told> refused{{askToCreate(u"/sys"_s), 36, Answer::Yes},
                                        {u"Папка '/sys' доступна только для чтения!"_s}};
        EXPECT_EQ(choose(u"/sys"_s, refused), u"."_s);
    }
    const QString locked = makeFolder(u"locked"_s);
    engine.ReleaseAll();
    QFile::copy(path(u"vinora.db"_s), locked + u"/vinora.db"_s);
    ASSERT_TRUE(QFile::link(u"/none/such"_s, locked + u"/vinora.db-journal"_s)); // keeps even root from writing
    EXPECT_EQ(choose(locked, {{u"Папка '%1' доступна только для чтения! Для локального использования вы должны иметь "
                               "полный доступ к папке!"_s.arg(locked)}}),
              u"."_s);
    EXPECT_EQ(option(u"PathLocalDB"_s), QString());
}
