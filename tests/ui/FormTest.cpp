#include "harness/FormTest.h"

#include "ui/Form.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWindow>

namespace {
/// A form that writes down what happens to it and can open another one of its kind.
class Diary : public Form {
public:
    Diary(Dialogs& dialogs, QStringList& log, int level = 1)
        : Form(u"frmDiary%1"_s.arg(level), u"Дневник %1"_s.arg(level)), dialogs(dialogs), log(log), level(level)
    {
        write(u"construct"_s);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(txtName);
        layout->addWidget(cmdChild);
        layout->addWidget(cmdClose);
        layout->addWidget(cmdCloseAndAsk);
        connect(cmdChild, &QPushButton::clicked, this, [this] { openChild(); });
        connect(cmdClose, &QPushButton::clicked, this, [this] { Unload(); });
        connect(cmdCloseAndAsk, &QPushButton::clicked, this, [this] { closeAndAsk(); });
    }

    QLineEdit* txtName = named("txtName");
    QPushButton* cmdChild = named("cmdChild");
    QPushButton* cmdClose = named("cmdClose");
    QPushButton* cmdCloseAndAsk = named("cmdCloseAndAsk");
    bool lets = true;
    bool goesAtOnce = false;

protected:
    void Form_Load() override
    {
        write(u"load"_s);
        if (goesAtOnce) Unload();
    }
    void Form_Activate() override { write(u"activate"_s); }
    void Form_Unload() override { write(u"unload"_s); }
    bool Form_QueryUnload() override { return lets; }

private:
    void write(const QString& event) { log << event + QString::number(level); }
    void openChild()
    {
        Diary child(dialogs, log, level + 1);
        child.Load();
        write(u"fill"_s);
        child.ShowModal(dialogs, this);
        write(u"back"_s);
    }
    void closeAndAsk()
    {
        Unload();
        Unload();
        write(dialogs.Ask(u"Точно?"_s) ? u"yes"_s : u"no"_s);
        openChild();
        write(u"returned"_s);
    }

    Dialogs& dialogs;
    QStringList& log;
    int level;
};

class FormLife : public FormTest {
protected:
    template<class Body> void open(const Body& body)
    {
        play([this] { Diary(dialogs, log).ShowModal(dialogs); }, body);
    }
    static bool inSight(const QString& screen)
    {
        for (const QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == screen) return window->isVisible();
        return false;
    }
    QStringList log;
};
}

TEST_F(FormLife, RunsEveryRoutineOnceAndActivatesNotAgainOnReturnFromAChild)
{
    open([&]() -> Script {
        co_await type("txtName", "Щука Ё");
        EXPECT_EQ(shown("txtName"), "Щука Ё");
        expectForm("frmDiary2");
        co_await click("cmdChild");
        EXPECT_EQ(title(), "Дневник 2");
        EXPECT_FALSE(inSight("frmDiary1"));
        expectForm("frmDiary3");
        co_await click("cmdChild");
        co_await key(Qt::Key_Escape);
        co_await closeForm();
        EXPECT_EQ(windowName(), "frmDiary1");
        EXPECT_TRUE(inSight("frmDiary1"));
        EXPECT_EQ(focus(), "cmdChild");
        co_await click("cmdClose");
    });
    EXPECT_EQ(log.join(u' '),
              "construct1 load1 activate1 construct2 load2 fill1 activate2 construct3 load3 fill2 activate3 "
              "unload3 back2 unload2 back1 unload1");
}

TEST_F(FormLife, UnloadsAfterTheRoutineThatAskedForItAndWhatItStillOpens)
{
    open([&]() -> Script {
        expectBox("Точно?", Box::Question, Answer::No);
        expectForm("frmDiary2");
        co_await click("cmdCloseAndAsk");
        EXPECT_EQ(windowName(), "frmDiary2");
        co_await closeForm();
    });
    EXPECT_EQ(log.mid(3).join(u' '), "no1 construct2 load2 fill1 activate2 unload2 back1 returned1 unload1");
}

TEST_F(FormLife, StaysWhenItDoesNotLetTheUserCloseIt)
{
    Diary form(dialogs, log);
    form.lets = false;
    play([&] { form.ShowModal(dialogs); },
         [&]() -> Script {
             co_await key(Qt::Key_Escape);
             co_await closeForm();
             EXPECT_TRUE(form.isVisible());
             co_await click("cmdClose");
             EXPECT_FALSE(form.isVisible());
         });
    EXPECT_EQ(log.count(u"unload1"_s), 1);
}

TEST_F(FormLife, IsNeverShownWhenItGoesWhileLoading)
{
    Diary form(dialogs, log);
    form.goesAtOnce = true;
    form.ShowModal(dialogs);
    EXPECT_EQ(log.join(u' '), "construct1 load1 unload1");
}

TEST_F(FormLife, KeepsAMaximisedOpenerInSight)
{
    open([&]() -> Script {
        co_await act([&] { runner.window().showMaximized(); });
        expectForm("frmDiary2");
        co_await click("cmdChild");
        EXPECT_TRUE(inSight("frmDiary1"));
        co_await closeForm();
        EXPECT_TRUE(runner.window().isMaximized());
    });
}

TEST_F(FormLife, StandsInTheMiddleAndInFrontOfTheWindowThatStaysInSight)
{
    QWidget main;
    main.setGeometry(100, 80, 700, 500);
    main.show();
    QApplication::setActiveWindow(&main);
    const auto stands = [&] {
        const QPoint off = runner.window().geometry().center() - main.geometry().center();
        return runner.window().windowHandle()->transientParent() == main.windowHandle() &&
               off.manhattanLength() < 12; // but for frames
    };
    open([&]() -> Script {
        EXPECT_TRUE(stands());
        expectForm("frmDiary2");
        co_await click("cmdChild");
        EXPECT_TRUE(stands()) << "its opener is hidden";
        co_await closeForm();
        co_await click("cmdClose");
    });
}

TEST_F(FormLife, EnterClicksTheFocusedButtonAndOtherwiseOnlyAButtonMadeDefault)
{
    open([&]() -> Script {
        co_await type("txtName", "а");
        co_await key(Qt::Key_Return);
        EXPECT_EQ(windowName(), "frmDiary1");
        expectForm("frmDiary2");
        co_await focusOn("cmdChild");
        co_await key(Qt::Key_Return);
        control<QPushButton>("cmdClose").setDefault(true);
        co_await focusOn("txtName");
        co_await key(Qt::Key_Enter);
        EXPECT_EQ(windowName(), "frmDiary1");
    });
}

TEST_F(FormLife, EndOfTheProcessRunsNothingBehindModalCallsAndNoUnload)
{
    open([&]() -> Script {
        expectForm("frmDiary2");
        co_await click("cmdChild");
        runner.expectEnd();
        co_await act([&] { runner.endProcess(3); });
        EXPECT_EQ(runner.top(), nullptr);
    });
    EXPECT_EQ(log.constLast(), "activate2");
}
