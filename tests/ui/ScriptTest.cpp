#include "harness/FormTest.h"

#include "ui/Form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <gtest/gtest-spi.h>

namespace {
/// A bit of everything.
class Sampler : public Form {
public:
    explicit Sampler(Dialogs& dialogs) : Form(u"frmSampler"_s, u"Образцы"_s), dialogs(dialogs)
    {
        auto* layout = new QVBoxLayout(this);
        for (QWidget* control :
             std::initializer_list<QWidget*>{txtNote, cmbDrive, chAll, lstFilter, trView, cmdAsk, cmdOff})
            layout->addWidget(control);
        cmbDrive->addItems({u"D:\\"_s, u"V:\\"_s});
        for (const QString& name : {u".exe"_s, u".zip"_s}) {
            auto* item = new QListWidgetItem(name, lstFilter);
            item->setCheckState(Qt::Unchecked);
        }
        trView->setColumnCount(2);
        auto* root = new QTreeWidgetItem(trView, {u"Диск"_s, u"1"_s});
        new QTreeWidgetItem(root, {u"Музыка"_s, u"22"_s});
        root->setExpanded(true);
        cmdOff->setEnabled(false);
        menu.setObjectName(u"mnuRow"_s);
        menu.addAction(u"&Удалить"_s, this, [this] { setWindowTitle(u"удалено"_s); });
        connect(cmdAsk, &QPushButton::clicked, this, [this] { ask(); });
        connect(cmbDrive, &QComboBox::textActivated, this, [this](const QString& text) { setWindowTitle(text); });
    }

    QPlainTextEdit* txtNote = named("txtNote");
    QComboBox* cmbDrive = named("cmbDrive");
    QCheckBox* chAll = named("chAll");
    QListWidget* lstFilter = named("lstFilter");
    QTreeWidget* trView = named("trView");
    QPushButton* cmdAsk = named("cmdAsk");
    QPushButton* cmdOff = named("cmdOff");
    QMenu menu;
    bool went = false;

private:
    void ask()
    {
        dialogs.MsgBox(u"Первое."_s);
        went = true;
    }
    Dialogs& dialogs;
};

class ScriptLanguage : public FormTest {
protected:
    template<class Body> void open(const Body& body)
    {
        Sampler form(dialogs);
        play([&] { form.ShowModal(dialogs); }, body);
        went = form.went;
    }
    bool went = false;
};
}

TEST_F(ScriptLanguage, ReachesControlsOfEveryKindAndReadsThemBack)
{
    open([&]() -> Script {
        co_await type("txtNote", "Раз\nДва");
        EXPECT_EQ(shown("txtNote"), "Раз\nДва");
        co_await select("cmbDrive", "V:\\");
        EXPECT_EQ(shown("cmbDrive"), "V:\\");
        EXPECT_EQ(title(), "V:\\");
        EXPECT_EQ(items("cmbDrive"), "D:\\\nV:\\\n");
        co_await check("chAll");
        EXPECT_TRUE(checked("chAll"));
        co_await check("lstFilter", ".zip");
        EXPECT_EQ(shown("lstFilter"), "[ ] .exe\n[x] .zip\n");
        co_await click("trView", "Диск/Музыка");
        EXPECT_EQ(current("trView"), "Музыка | 22");
        EXPECT_EQ(shown("trView"), "Диск     | 1\n  Музыка | 22\n");
        expectPopup("mnuRow", "Удалить");
        co_await act([&] { dialogs.Popup(static_cast<Sampler&>(runner.window()).menu, {}); });
        EXPECT_EQ(title(), "удалено");
    });
}

TEST_F(ScriptLanguage, FailsAtWhatWasNotExpectedAndGoesNoFurther)
{
    bool resumed = false;
    EXPECT_NONFATAL_FAILURE(open([&]() -> Script {
                                co_await click("cmdAsk");
                                resumed = true;
                            }),
                            "In frmSampler \"Образцы\", step click(\"cmdAsk\"):\n"
                            "Unexpected: box \"Первое.\" of type 48");
    EXPECT_FALSE(resumed || went);
    EXPECT_NONFATAL_FAILURE(open([&]() -> Script {
                                expectBox("Второе.");
                                co_await click("cmdAsk");
                            }),
                            "Expected: box \"Второе.\" of type 48");
}

TEST_F(ScriptLanguage, FailsAtWhatWasExpectedAndDidNotCome)
{
    EXPECT_NONFATAL_FAILURE(open([&]() -> Script {
                                expectForm("frmChild");
                                co_await key(Qt::Key_Tab);
                            }),
                            "Expected and did not come:\nform frmChild");
}

TEST_F(ScriptLanguage, FailsAtControlsThatNobodyCouldUse)
{
    EXPECT_NONFATAL_FAILURE(open([&]() -> Script { co_await click("cmdOff"); }), "cmdOff is disabled.");
    EXPECT_NONFATAL_FAILURE(open([&]() -> Script { co_await click("cmdNone"); }), "No control cmdNone among: txtNote");
    EXPECT_NONFATAL_FAILURE(open([&]() -> Script { co_await select("cmbDrive", "X:\\"); }),
                            "cmbDrive has no X:\\ but:\nD:");
    EXPECT_NONFATAL_FAILURE(open([&]() -> Script {
                                co_await closeForm();
                                co_await click("cmdAsk");
                            }),
                            "No window is open any more.");
}

TEST_F(ScriptLanguage, FailsWhenAScriptOrARoutineThrows)
{
    EXPECT_NONFATAL_FAILURE(open([&]() -> Script {
                                co_await key(Qt::Key_Tab);
                                throw std::runtime_error("leak");
                            }),
                            "An exception left the script: leak");
    EXPECT_NONFATAL_FAILURE(open([&]() -> Script { co_await act([] { throw std::runtime_error("slot"); }); }),
                            "An exception left a routine: slot");
    EXPECT_NONFATAL_FAILURE(open([&]() -> Script { co_await act([&] { runner.endProcess(1); }); }),
                            "The process was ended with code 1.");
}

TEST_F(ScriptLanguage, ScriptsCallScripts)
{
    const auto tick = [&](bool on) -> Script { co_await check("chAll", on); };
    open([&]() -> Script {
        co_await tick(true);
        EXPECT_TRUE(checked("chAll"));
        co_await tick(false);
        EXPECT_FALSE(checked("chAll"));
    });
}

TEST_F(ScriptLanguage, AWatchdogEndsAScriptThatHangs)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    qputenv("VINORA_WATCHDOG", "1");
    EXPECT_DEATH(open([&]() -> Script { co_await until([] { return false; }); }),
                 "Nothing has gone on for 1 s. Last: until");
    qunsetenv("VINORA_WATCHDOG");
}
