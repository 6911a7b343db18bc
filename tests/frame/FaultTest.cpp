#include "frame/Fault.h"
#include "frame/Settings.h"
#include "harness/FileSizeLimit.h"
#include "harness/ScreenTest.h"
#include "platform/CodePage1251.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <optional>

namespace {

const QString Advice =
    u"\n\nОтправьте на адрес support@vinora.example файл bugreport.log (расположен в каталоге установленной "
    u"программы). "
    u"Файл содержит информацию, которая поможет исправить эту ошибку. В сообщении укажите последовательность Ваших "
    u"действий до возникновения ошибки."_s;

class Fault : public ScreenTest {
protected:
    std::optional<FileSizeLimit> limit; ///< a disk that has become full
    QString log()
    {
        QFile file(path("bugreport.log"));
        return file.open(QFile::ReadOnly) ? DecodeCp1251(file.readAll()) : "(no log)";
    }
    int styles() { return program.mainDatabase().Scalar(u"SELECT COUNT(*) FROM Стиль").toInt(); }
    void addStyle(const QString& name)
    {
        program.mainDatabase().Execute(u"INSERT INTO Стиль (Стиль) VALUES (?)", {name});
    }
};

}

TEST_F(Fault, LogHasOneLinePerFaultInOrderOfTime)
{
    LogFault(program, "frmDue, cmdDelete()"_L1, {3078, u"Нет таблицы\nс именем 日."_s});
    clock.moment = QDateTime(QDate(2003, 12, 1), QTime(9, 5, 7));
    LogFault(program, "vinoraModule, Main()"_L1, {7, u"Нет памяти."_s});
    EXPECT_EQ(log(), u"14.11.2003 12:00:00 1.0 b0 Нет таблицы с именем ?. (Код: 3078) frmDue, cmdDelete()\r\n"
                     u"01.12.2003 09:05:07 1.0 b0 Нет памяти. (Код: 7) vinoraModule, Main()\r\n"_s);
}

TEST_F(Fault, IsToldUnderTheInnermostRoutineAndEndsTheProcessWithItsWritesKept)
{
    Guarded(program, "frmDue, cmdAdd()"_L1, [&] { addStyle("Фокстрот"); });
    engine.Rollback();
    EXPECT_EQ(styles(), 32) << "a routine without a fault keeps its writes at its end";

    expectBox(u"ОШИБКА.\n\nСломалось. (Код: 13)"_s + Advice, Box::Stop);
    expectEnd();
    bool wentOn = false;
    play([&] {
        Guarded(program, "frmDue, cmdChange()"_L1, [&] {
            addStyle("Полька");
            Guarded(program, "frmDue, cmdAdd()"_L1, [&] {
                addStyle("Вальс");
                throw RuntimeError(13, u"Сломалось."_s);
            });
            wentOn = true;
        });
        wentOn = true;
    });
    EXPECT_FALSE(wentOn);
    EXPECT_EQ(log(), u"14.11.2003 12:00:00 1.0 b0 Сломалось. (Код: 13) frmDue, cmdAdd()\r\n"_s);
    engine.Rollback();
    EXPECT_EQ(styles(), 34);
}

TEST_F(Fault, StopsTimersAndPaintingAndShowsANormalPointer)
{
    QWidget window;
    Timer timer(&window);
    timer.setEnabled(true);
    bool normal = false;
    dialogs.expect({.kind = ScriptedDialogs::Kind::Box,
                    .accepts = [&](const QString&) { return normal = !QApplication::overrideCursor(); }},
                   Where::current());
    expectEnd();
    play([&] {
        const Hourglass outer;
        Guarded(program, "frmDue, Form_Load()"_L1, [&] {
            const Hourglass inner;
            throw std::bad_alloc();
        });
    });
    EXPECT_TRUE(normal);
    EXPECT_FALSE(timer.enabled());
    EXPECT_FALSE(window.updatesEnabled());
    EXPECT_TRUE(log().contains(u"(Код: 7) frmDue, Form_Load()"));
}

TEST_F(Fault, ThatCannotBeLoggedIsToldAllTheSame)
{
    QDir(folder.path()).mkdir("bugreport.log");
    expectBox(u"ОШИБКА.\n\nСломалось. (Код: 13)"_s + Advice, Box::Stop);
    expectEnd();
    play([&] { Guarded(program, "frmDue, Form_Load()"_L1, [] { throw RuntimeError(13, u"Сломалось."_s); }); });
}

TEST_F(Fault, WhoseWritesAreLostTellsThatToo)
{
    expectBox(u"ОШИБКА.\n\nСломалось. (Код: 13)"_s + Advice, Box::Stop);
    expectEnd();
    play([&] {
        Guarded(program, "frmDue, cmdAdd()"_L1, [&] {
            for (int i = 0; i < 2000; ++i) addStyle(QString(50, u'x'));
            limit.emplace(rlim_t(QFileInfo(program.shared.MainDBPath).size()));
            throw RuntimeError(13, u"Сломалось."_s);
        });
    });
    limit.reset();
    const QStringList lines = log().split(u"\r\n"_s, Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines[0].endsWith(u" (Код: 3043) vinoraModule, ReportFault()")) << lines[0].toStdString();
    EXPECT_TRUE(lines[1].endsWith(u" (Код: 13) frmDue, cmdAdd()")) << lines[1].toStdString();
    EXPECT_EQ(styles(), 31);
}

using Settings = ScreenTest;

TEST_F(Settings, FollowTheIdiomsOfTheFile)
{
    EXPECT_FALSE(OptionIsOn(program, u"AutoResp"));
    for (auto [value, on] : {std::pair{"1", true}, {"0", false}, {"1 да", true}, {"да", false}, {"2", false}}) {
        setOption("AutoResp", value);
        EXPECT_EQ(OptionIsOn(program, u"AutoResp"), on) << value;
    }

    EXPECT_EQ(DefaultDrive(program), QString());
    setOption("Drive", "E:\\folder");
    EXPECT_EQ(DefaultDrive(program), u"E:\\"_s);

    EXPECT_EQ(BlinkInterval(program, u"tmrDue"), std::nullopt);
    for (auto [value, interval] :
         {std::pair{"1", 1}, {"2500", 250}, {"0", 0}, {"-50", 0}, {"99999", 999}, {"9e99", 65535}}) {
        setOption("tmrDue", value);
        EXPECT_EQ(BlinkInterval(program, u"tmrDue"), interval) << value;
    }
}
