#include "ui/QtDialogs.h"

#include "harness/Fakes.h"
#include "harness/Print.h"
#include "ui/Form.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <gtest/gtest.h>

namespace {
class BoxesInEarnest : public testing::Test {
protected:
    BoxesInEarnest()
    {
        engine.CreateDatabase(path);
        engine.OpenDatabase(path).CreateTable({u"t"_s, {{u"n"_s, FieldType::Long}}, {}, {}});
    }
    void writeRow()
    {
        CommandScope command(engine);
        engine.OpenDatabase(path).Execute(u"INSERT INTO t (n) VALUES (1)");
    }
    /// Rows that another program sees.
    int seen()
    {
        DBEngine other(clock);
        return other.OpenDatabaseReadOnly(path).OpenRecordset(u"t").RecordCount();
    }
    /// What the user does to the window that comes up next.
    template<class Window> void meanwhile(std::function<void(Window&)> act)
    {
        QTimer::singleShot(0, qApp, [this, act] {
            QWidget* window = QApplication::activeModalWidget();
            EXPECT_EQ(QApplication::overrideCursor(), nullptr);
            EXPECT_TRUE(dialogs.modalIsOpen());
            auto* box = dynamic_cast<Window*>(window);
            EXPECT_NE(box, nullptr);
            if (box) act(*box);
            if (window && window->isVisible()) static_cast<QDialog*>(window)->reject();
        });
    }
    Answer answerTo(int type, int key)
    {
        meanwhile<QMessageBox>([key](QMessageBox& box) { QTest::keyClick(&box, Qt::Key(key)); });
        return dialogs.MsgBox(u"Вопрос"_s, type);
    }
    QString buttonsOf(int type)
    {
        QStringList texts;
        meanwhile<QMessageBox>([&](QMessageBox& box) {
            for (int role : {QMessageBox::Yes, QMessageBox::No, QMessageBox::Ok, QMessageBox::Cancel})
                if (auto* button = box.button(QMessageBox::StandardButton(role)))
                    texts << (box.defaultButton() == button ? u"*"_s : u""_s) + button->text().remove(u'&');
        });
        dialogs.MsgBox(u"Вопрос"_s, type);
        return texts.join(u' ');
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(u"vinora.db"_s);
    FixedClock clock;
    DBEngine engine{clock};
    QString lastFolder;
    QtDialogs dialogs{engine,
                      {.lastFolder = [this] { return lastFolder; },
                       .keepLastFolder = [this](const QString& chosen) { lastFolder = chosen; }}};
};
}

TEST_F(BoxesInEarnest, TypesGiveAnIconAndRussianButtonsWithTheSafeOneFirstInAWarning)
{
    using B = QMessageBox;
    const std::tuple<int, B::Icon, const char*> types[] = {
        {Box::Bare, B::NoIcon, "*OK"},
        {Box::Stop, B::Critical, "*OK"},
        {Box::Exclamation, B::Warning, "*OK"},
        {Box::Information, B::Information, "*OK"},
        {Box::Question, B::Question, "*Да Нет"},
        {Box::QuestionWithCancel, B::Question, "*Да Нет Отмена"},
        {Box::Warning, B::Warning, "Да *Нет"},
        {Box::StopOkCancel, B::Critical, "OK *Отмена"},
        {Box::InformationOkCancel, B::Information, "*OK Отмена"},
    };
    for (const auto& [type, icon, buttons] : types) {
        EXPECT_EQ(LookOfBox(type).icon, icon) << type;
        EXPECT_EQ(buttonsOf(type), buttons) << type;
    }
}

TEST_F(BoxesInEarnest, EscapeAnswersCancelElseNoElseOkAndEnterTheDefault)
{
    EXPECT_EQ(answerTo(Box::QuestionWithCancel, Qt::Key_Escape), Answer::Cancel);
    EXPECT_EQ(answerTo(Box::Question, Qt::Key_Escape), Answer::No);
    EXPECT_EQ(answerTo(Box::Stop, Qt::Key_Escape), Answer::Ok);
    EXPECT_EQ(answerTo(Box::Question, Qt::Key_Return), Answer::Yes);
    EXPECT_EQ(answerTo(Box::Warning, Qt::Key_Return), Answer::No);
    EXPECT_EQ(answerTo(Box::Question | Box::SafeDefault, Qt::Key_Return), Answer::No);
}

TEST_F(BoxesInEarnest, TextsArePlainWithTheirLineBreaksAndStandAboveAnHourglass)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QApplication::setOverrideCursor(Qt::BusyCursor);
    meanwhile<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), "<b>Диск</b>\nдва\nтри    четыре");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), "vinora");
        EXPECT_TRUE(box.textInteractionFlags() & Qt::TextSelectableByMouse);
    });
    dialogs.MsgBox(u"<b>Диск</b>\rдва\r\nтри\tчетыре"_s);
    EXPECT_FALSE(dialogs.modalIsOpen());
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::BusyCursor);
    QApplication::restoreOverrideCursor();
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QApplication::restoreOverrideCursor();
}

TEST_F(BoxesInEarnest, NamesTooLongForTheScreenAreBrokenAndNotCut)
{
    const QString name = QString(300, u'Ш'), text = u"Файл '"_s + name + u"' не найден."_s;
    meanwhile<QMessageBox>([&](QMessageBox& box) {
        const auto* shown = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
        EXPECT_GE(shown->width(), shown->minimumSizeHint().width());
        EXPECT_EQ(shown->text().remove(u'\n'), text);
    });
    dialogs.MsgBox(text);
}

TEST_F(BoxesInEarnest, InputBoxGivesTheTextOrNothing)
{
    const auto answer = [this](int key) {
        meanwhile<QInputDialog>([key](QInputDialog& box) {
            EXPECT_EQ(box.findChild<QLabel*>()->text(), "Имя\n<i>:");
            EXPECT_EQ(box.findChild<QLabel*>()->textFormat(), Qt::PlainText);
            EXPECT_EQ(box.textValue(), "Рок");
            EXPECT_GE(box.findChild<QLineEdit*>()->width(), 50 * box.fontMetrics().averageCharWidth());
            QTest::keyClick(&box, Qt::Key(key));
        });
        return dialogs.InputBox(u"Имя\r<i>:"_s, u"Стиль"_s, u"Рок"_s);
    };
    EXPECT_EQ(answer(Qt::Key_Return), "Рок");
    EXPECT_EQ(answer(Qt::Key_Escape), "");
}

TEST_F(BoxesInEarnest, ChoosersNameTheirPatternsAndRememberTheFolder)
{
    EXPECT_EQ(NameFilters(u"База vinora (*.db)|*.db|Все|*.*"_s), (QStringList{"База vinora (*.db)", "Все (*)"}));
    EXPECT_EQ(NameFilters(u"Картинки|*.jpg;*.png"_s), QStringList{"Картинки (*.jpg *.png)"});

    lastFolder = folder.path();
    meanwhile<QFileDialog>([&](QFileDialog& chooser) {
        EXPECT_EQ(chooser.directory().path(), folder.path());
        chooser.findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(u"список"_s);
        QMetaObject::invokeMethod(&chooser, "accept");
    });
    QDir(folder.path()).mkdir(u"a"_s);
    EXPECT_EQ(dialogs.SaveFile(u"Экспорт"_s, u"HTML-файл (*.htm)|*.htm"_s), folder.filePath(u"список.htm"_s));
    EXPECT_EQ(lastFolder, folder.path());
    meanwhile<QFileDialog>([](QFileDialog&) {});
    EXPECT_EQ(dialogs.PickFolder(u"Папка"_s, folder.filePath(u"a"_s)), "");
    EXPECT_EQ(lastFolder, folder.path());
}

TEST_F(BoxesInEarnest, ChoosersTellSizesAndDatesInTheProgramsLanguage)
{
    QFile file(folder.filePath(u"list.txt"_s));
    ASSERT_TRUE(file.open(QFile::WriteOnly) && file.resize(5000));
    file.setFileTime(QDateTime(QDate(2003, 11, 14), QTime(12, 0)), QFile::FileModificationTime);
    file.close();
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Russian, QLocale::Russia));
    meanwhile<QFileDialog>([&](QFileDialog& chooser) {
        const auto* rows = chooser.findChild<QTreeView*>(u"treeView"_s);
        const auto cell = [&](int column) {
            const QModelIndex root = rows->rootIndex();
            for (int row = 0; row < rows->model()->rowCount(root); ++row)
                if (rows->model()->index(row, 0, root).data() == u"list.txt"_s)
                    return rows->model()->index(row, column, root).data().toString();
            return QString();
        };
        EXPECT_TRUE(QTest::qWaitFor([&] { return !cell(0).isEmpty(); }));
        EXPECT_EQ(cell(1), "4,9 кБ");
        EXPECT_EQ(cell(3), "14.11.2003 12:00");
    });
    dialogs.OpenFile(u"Открыть"_s, u"Все|*.*"_s, folder.path());
    QLocale::setDefault(before);
}

TEST_F(BoxesInEarnest, FormsAndMenusAreModalAndKeepEachCommandInThemAtItsEnd)
{
    class Empty : public Form {
    public:
        explicit Empty(std::function<void()> activate) : Form(u"frmEmpty"_s, u"Пусто"_s), activate(std::move(activate))
        {}

    protected:
        void Form_Activate() override
        {
            activate();
            Unload();
        }
        std::function<void()> activate;
    };
    CommandScope opener(engine);
    writeRow();
    EXPECT_EQ(seen(), 0);
    Empty form([&] {
        EXPECT_TRUE(dialogs.modalIsOpen());
        EXPECT_EQ(seen(), 1);
        writeRow();
        EXPECT_EQ(seen(), 2);
    });
    form.ShowModal(dialogs);
    writeRow();
    EXPECT_EQ(seen(), 2) << "the opener's commands are one again";
    QMenu menu;
    menu.addAction(u"Пункт"_s);
    QTimer::singleShot(0, &menu, [&] {
        EXPECT_TRUE(dialogs.modalIsOpen());
        EXPECT_EQ(seen(), 3);
        menu.close();
    });
    dialogs.Popup(menu, {});
    EXPECT_FALSE(dialogs.modalIsOpen());
}
