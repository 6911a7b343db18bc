#include "search/frmCreateQuery.h"

#include "harness/ScreenTest.h"

namespace {

class CreateQuery : public ScreenTest {
protected:
    QString stored(const QString& section, const QString& key) const { return program.queries().read(section, key); }
    Script save(const QString& refusal)
    {
        expectBox(refusal, 48);
        co_await click("imgButton_0");
    }
};

}

TEST_F(CreateQuery, RefusesWhatIsIncompleteInOrderAndStoresTheRest)
{
    StoreQuery(program.queries(), {"Рок", "AD", {"And Стиль = 'Rock'"}});
    run<frmCreateQuery>([&]() -> Script {
        EXPECT_EQ(control<QLineEdit>("txtName").selectedText(), "Запрос2");
        EXPECT_EQ(sharedMnemonics(), "");
        EXPECT_EQ(items("cmbQ1_0"), "\nНомер\nНазвание\nАльбом\nСтиль\n");
        EXPECT_FALSE(enabled("cmbQ2_0") || enabled("txtQuery_0"));
        co_await picture("frmCreateQuery-empty");
        co_await type("txtName", "");
        co_await save("Введите название ярлыка!");
        EXPECT_EQ(focus(), "txtName");
        co_await type("txtName", "рок");
        co_await save("Хотя бы один запрос должен быть сформирован!");
        co_await select("cmbQ1_0", "Номер");
        EXPECT_EQ(items("cmbQ2_0"), "=\nLIKE\n<\n>\n");
        co_await select("cmbQ1_2", "Номер");
        co_await save("В условии запроса дважды указано одно и то же поле!");
        co_await select("cmbQ1_2", "Стиль");
        EXPECT_EQ(items("cmbQ2_2"), "=\nLIKE\n");
        EXPECT_TRUE(visible("cmbQuery_2") && !visible("txtQuery_2"));
        co_await save("Укажите условие запроса (для 1)!");
        co_await type("txtQuery_0", "1x2");
        EXPECT_EQ(shown("txtQuery_0") + ' ' + shown("lblQuery_0"), "12 1. - Верно");
        co_await save("Укажите условие запроса (для 3)!");
        EXPECT_EQ(focus(), "cmbQuery_2");
        co_await select("cmbQuery_2", "Rock & Roll");
        EXPECT_EQ(shown("lblQuery_2"), "3. - Верно");
        co_await select("cmbQ2_2", "LIKE");
        co_await save("Запрос с таким именем уже существует. Выберите другое название!");
        co_await type("txtName", "2003");
        co_await save("Название не может быть числом или словом 'Query'. Выберите другое название.");
        co_await picture("frmCreateQuery");
        co_await select("cmbQ1_0", "Название");
        EXPECT_EQ(shown("txtQuery_0") + ' ' + shown("lblQuery_0"), " 1.");
        co_await type("txtQuery_0", "it's");
        co_await type("txtName", "Мой");
        co_await click("imgButton_0");
    });
    EXPECT_EQ(stored("Query", "Count") + stored("2", "Name") + stored("Мой", "Num") + stored("Мой", "Category"),
              "2Мой2AD");
    EXPECT_EQ(stored("Мой", "Query1") + '|' + stored("Мой", "Query2") + '|' + stored("Мой", "Query3"),
              "And Название = 'it''s'||And Стиль LIKE '*Rock & Roll*'");
}

TEST_F(CreateQuery, ShowsAStoredOneAgainAndAnotherCatalogueBeginsAnew)
{
    const StoredQuery old{"Старый", "PC", {"And Описание = 'Квест'", "And Описание LIKE '*3D*'", "And Номер < 50"}};
    StoreQuery(program.queries(), old);
    const auto edit = [&](frmCreateQuery& form) { form.edit(*ReadStoredQuery(program.queries(), "Старый")); };
    runFilled<frmCreateQuery>(edit, [&]() -> Script {
        EXPECT_TRUE(checked("optCategory_1"));
        EXPECT_EQ(shown("cmbQ1_0") + shown("cmbQ2_0") + shown("cmbQuery_0"), "Описание=Квест");
        EXPECT_EQ(shown("cmbQ1_1") + shown("cmbQ2_1") + shown("txtQuery_1"), "ОписаниеLIKE3D");
        EXPECT_EQ(shown("cmbQ1_2") + shown("cmbQ2_2") + shown("txtQuery_2"), "Номер<50");
        EXPECT_EQ(shown("lblQuery_0") + shown("lblQuery_1") + shown("lblQuery_2"), "1. - Верно2. - Верно3. - Верно");
        co_await select("cmbQ1_0", "");
        co_await type("txtName", "Новый");
        co_await click("imgButton_0");
    });
    const StoredQuery changed{"Новый", "PC", {"", old.fragments[1], old.fragments[2]}};
    EXPECT_EQ(ReadStoredQuery(program.queries(), "Новый"), changed);
    EXPECT_EQ(stored("Query", "Count") + stored("Старый", "Category"), "1");

    run<frmCreateQuery>([&]() -> Script {
        co_await select("cmbQ1_0", "Название");
        co_await select("cmbQ2_0", "LIKE");
        co_await type("txtQuery_0", "x");
        co_await select("cmbQ1_1", "Альбом");
        co_await type("txtQuery_1", "y");
        co_await click("optCategory_2");
        EXPECT_EQ(items("cmbQ1_0"), "\nНомер\nНазвание\nЖанр\n");
        EXPECT_EQ(shown("cmbQ1_0") + shown("cmbQ2_0") + shown("txtQuery_0") + shown("lblQuery_0"),
                  "НазваниеLIKEx1. - Верно");
        EXPECT_EQ(shown("cmbQ1_1") + shown("txtQuery_1") + shown("lblQuery_1"), "2.");
        co_await key(Qt::Key_Escape);
    });
}

TEST_F(CreateQuery, KeepsConditionsThatItCannotShowUntilAnotherFieldIsChosen)
{
    const StoredQuery old{
        "Свой", "PC", {"And (Номер > 5 Or Номер < 3)", "And Описание = 'Нет в списке'", "And Номер LIKE 1*"}};
    StoreQuery(program.queries(), old);
    const auto edit = [&](frmCreateQuery& form) { form.edit(*ReadStoredQuery(program.queries(), "Свой")); };
    runFilled<frmCreateQuery>(edit, [&]() -> Script {
        EXPECT_EQ(shown("cmbQ1_0") + shown("txtQuery_0") + shown("lblQuery_0"),
                  "(вручную)" + old.fragments[0] + "1. - Верно");
        EXPECT_TRUE(control<QLineEdit>("txtQuery_0").isReadOnly() && !enabled("cmbQ2_0"));
        EXPECT_EQ(shown("cmbQ2_1") + shown("txtQuery_1"), "=Нет в списке");
        co_await picture("frmCreateQuery-by-hand");
        co_await type("txtName", "Чужой");
        co_await click("imgButton_0");
    });
    EXPECT_EQ(ReadStoredQuery(program.queries(), "Чужой"), (StoredQuery{"Чужой", "PC", old.fragments}));

    program.queries().write(u"Чужой", u"Category", "LP");
    const auto again = [&](frmCreateQuery& form) {
        expectBox("Каталог 'LP' этого ярлыка неизвестен. Проверьте, какой выбран, прежде чем сохранить ярлык.", 48);
        form.edit(*ReadStoredQuery(program.queries(), "Чужой"));
    };
    runFilled<frmCreateQuery>(again, [&]() -> Script {
        co_await select("cmbQ1_0", "Название");
        EXPECT_EQ(shown("txtQuery_0") + shown("lblQuery_0"), "1.");
        co_await type("txtQuery_0", "日本");
        co_await save("В ярлыке нельзя сохранить: 日本 (условие 1). Выберите сравнение LIKE, вместо этих знаков "
                      "подойдут любые.");
        co_await select("cmbQ2_0", "LIKE");
        co_await click("imgButton_0");
    });
    EXPECT_EQ(stored("Чужой", "Query1") + stored("Чужой", "Query3"), "And Название LIKE '*??*'And Номер LIKE 1*");
}
