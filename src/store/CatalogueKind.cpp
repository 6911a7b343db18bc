#include "store/CatalogueKind.h"

#include <algorithm>

QString CatalogueKind::join() const
{
    return u"SELECT * FROM %1, %2 WHERE %1.%3 = %2.%3 "_s.arg(table, dictionary.table, dictionary.key);
}

QString CatalogueKind::rowByKey() const { return u"SELECT * FROM %1 WHERE %2 = ?"_s.arg(table, key); }

QString CatalogueKind::discTitle(const QString& name, const QString& albumText) const
{
    return album && !albumText.isEmpty() ? name + u" - "_s + albumText : name;
}

const CatalogueKind& Audio()
{
    static const CatalogueKind kind{
        .code = u"AD"_s,
        .kindWord = u"AudioCD"_s,
        .accent = 0,
        .icon = u"disc-audio"_s,
        .listText = u"Аудио диски"_s,
        .endings = {.counter = u"Audio"_s, .sign = u"AD"_s, .logo = u"AD"_s},
        .presentUnidentified = false,
        .table = u"Аудио"_s,
        .key = u"КодАудиоДиск"_s,
        .stamp = u"ПослОбновлАудио"_s,
        .coverPrefix = u"ad_"_s,
        .dictionary =
            {.table = u"Стиль"_s,
             .key = u"КодСтиля"_s,
             .lengthMessage = u"Название стиля не должно быть длинее 50 символов!"_s,
             .editorTests = true,
             .caption = u"Сти&ль"_s,
             .listName = u"cmbStyle"_s,
             .boxName = u"txtStyle"_s,
             .screen = {.name = u"frmEditStyle"_s,
                        .title = u"Стили аудио дисков"_s,
                        .addTitle = u"Добавление нового стиля"_s,
                        .addPrompt = u"Введите название стиля:"_s,
                        .changeTitle = u"Изменение стиля"_s,
                        .changePrompt = u"Измените название стиля:"_s,
                        .duplicateQuestion = u"Стиль '%1' уже существует. Ввести другой?"_s,
                        .quotationMarkMessage = u"В имени стиля не должно быть символа кавычек!"_s,
                        .deleteQuestion = u"Вы действительно хотите удалить стиль '%1'?"_s,
                        .protectedFromDelete = u"Удаление или изменение этого стиля не допускается!"_s,
                        .protectedFromChange = u"Удаление или изменение этого стиля не допустимо!"_s,
                        // The first letter is a Latin one, as it has always been.
                        .inUseMessage =
                            u"Cтиль '%1' не может быть удален, т.к. он используется в одном или более дисках."_s}},
        .list = ListKind{.contents = ListKind::Tracks,
                         .screen = u"frmTrackList"_s,
                         .command = u"cmdTracks"_s,
                         .show = &Screens::ShowTrackList,
                         .icon = u"tracks"_s,
                         .text = u"Треки"_s,
                         .hint = u"Список треков диска"_s},
        .album = true,
        .titleSources = true,
        .browser = u"frmCatalogueAudioCD"_s,
        .title = u"Каталог Аудио дисков"_s,
        .pickerTitle = u"Выбор Аудио диска"_s,
        .nameCaption = u"Гр&уппа/Исполнитель"_s,
        .mediumCaption = u"Аудио диск"_s,
        .deleteQuestionTail = u"Список треков этого диска будет также удален."_s,
        .sortedSetting = u"ADCDsorted"_s,
        .sortOrders = {{u"по номеру"_s, u"Номер"_s},
                       {u"по группе/исполнителю"_s, u"Название"_s},
                       {u"по альбому"_s, u"Альбом"_s},
                       {u"по году"_s, u"Год"_s},
                       {u"по дискам"_s, u"Дисков"_s},
                       {u"по стилю"_s, u"Стиль"_s},
                       {u"по дате добавления"_s, u"ДатаЗаписи"_s},
                       {u"по дате изменения"_s, u"ДатаИзменения"_s}},
        .autoRespSlots = 6,
        .editor = u"frmAddInCatalogueAudio"_s,
        .addCaption = u"Добавление Аудио диска"_s,
        .changeCaption = u"Изменение информации Аудио диска"_s,
        .requiredMessage =
            u"Введите название группы или исполнителя.\rДанное поле является обязательным для заполнения."_s,
        .reductionTail = u"! Если для удаляемых дисков был создан списко треков, то он будет удален. Продолжить?"_s,
        .clearsAutoDetectTag = false,
        .extraFields = {u"Альбом"_s, u"Записей1"_s, u"Записей2"_s, u"Записей3"_s, u"Записей4"_s, u"Записей5"_s,
                        u"Записей6"_s, u"Время1"_s, u"Время2"_s, u"Время3"_s, u"Время4"_s, u"Время5"_s, u"Время6"_s},
        .titleFromCdText = true,
        .noIdentifierMessage = u"Идентификатор диска не обнаружен!"_s,
        .searchEnd = 10000,
        .addingEndsFilter = false,
    };
    return kind;
}

const CatalogueKind& Computer()
{
    static const CatalogueKind kind{
        .code = u"PC"_s,
        .kindWord = u"PcCD"_s,
        .accent = 1,
        .icon = u"disc-data"_s,
        .listText = u"Компьютерные диски"_s,
        .endings = {.counter = u"PC"_s, .sign = u"PC"_s, .logo = u"PCCD"_s},
        .table = u"Компьютер"_s,
        .key = u"КодКомпьютерныйДиск"_s,
        .stamp = u"ПослОбновлКомпьютер"_s,
        .coverPrefix = u"pc_"_s,
        .dictionary =
            {.table = u"Описание"_s,
             .key = u"КодОписания"_s,
             .lengthMessage = u"Описание не должно быть длинее 50 символов!"_s,
             .editorTests = true,
             .caption = u"&Описание"_s,
             .listName = u"cmbDescription"_s,
             .boxName = u"txtDescription"_s,
             .screen = {.name = u"frmEditDescription"_s,
                        .title = u"Описания компьютерных дисков"_s,
                        .addTitle = u"Добавление нового описания"_s,
                        .addPrompt = u"Введите название описания:"_s,
                        .changeTitle = u"Изменение названия описания"_s,
                        .changePrompt = u"Измените название описания:"_s,
                        .duplicateQuestion = u"Описание '%1' уже существует. Ввести другое?"_s,
                        .quotationMarkMessage = u"В имени описания не должно быть символа кавычек!"_s,
                        .deleteQuestion = u"Вы действительно хотите удалить описание '%1'?"_s,
                        .protectedFromDelete = u"Удаление или изменение этого описания не допускается!"_s,
                        .protectedFromChange = u"Удаление или изменение этого описания не допустимо!"_s,
                        .inUseMessage =
                            u"Описание '%1' не может быть удалено, т.к. оно используется в одном или более дисках."_s}},
        .list = ListKind{.contents = ListKind::Files,
                         .screen = u"frmFileList"_s,
                         .command = u"cmdFiles"_s,
                         .show = &Screens::ShowFileList,
                         .icon = u"files"_s,
                         .text = u"Файлы"_s,
                         .hint = u"Список файлов диска"_s},
        .browser = u"frmCataloguePCCD"_s,
        .title = u"Каталог Компьютерных дисков"_s,
        .pickerTitle = u"Выбор Компьютерного диска"_s,
        .nameCaption = u"&Название"_s,
        .mediumCaption = u"Компьютерный диск"_s,
        .deleteQuestionTail = u"Структура файлов этого диска будет также удалена."_s,
        .sortedSetting = u"PCCDsorted"_s,
        .sortOrders = {{u"по номеру"_s, u"Номер"_s},
                       {u"по названию"_s, u"Название"_s},
                       {u"по описанию"_s, u"Описание"_s},
                       {u"по году"_s, u"Год"_s},
                       {u"по дискам"_s, u"Дисков"_s},
                       {u"по дате добавления"_s, u"ДатаЗаписи"_s},
                       {u"по дате изменению"_s, u"ДатаИзменения"_s}},
        .autoRespSlots = 4,
        .editor = u"frmAddInCataloguePC"_s,
        .addCaption = u"Добавление Компьютерного диска"_s,
        .changeCaption = u"Изменение информации Компьютерного диска"_s,
        .requiredMessage = u"Введите название диска.\rДанное поле является обязательным для заполнения."_s,
        .reductionTail =
            u"! Если для удаляемых дисков была создана структура файлов, то она будет удалена. Продолжить?"_s,
        .clearsAutoDetectTag = true,
        .extraFields = {u"РасОписание"_s},
        .reductionFifthField = u"ДискID45"_s,
        .noIdentifierMessage = u"Идентификатор не обнаружен!"_s,
    };
    return kind;
}

const CatalogueKind& Dvd()
{
    static const CatalogueKind kind{
        .code = u"DVD"_s,
        .kindWord = u"DVD"_s,
        .accent = 2,
        .icon = u"disc-dvd"_s,
        .listText = u"DVD диски"_s,
        .endings = {.counter = u"DVD"_s, .sign = u"DVD"_s, .logo = u"DVD"_s},
        .table = u"DVD"_s,
        .key = u"КодDVDДиск"_s,
        .stamp = u"ПослОбновлDVD"_s,
        .coverPrefix = u"dvd_"_s,
        .dictionary =
            {.table = u"Жанр"_s,
             .key = u"КодЖанр"_s,
             .lengthMessage = u"Название жанра не должно быть длинее 50 символов!"_s,
             .caption = u"&Жанр"_s,
             .listName = u"cmbGenre"_s,
             .boxName = u"txtGenre"_s,
             .screen = {.name = u"frmEditGenre"_s,
                        .title = u"Жанры DVD"_s,
                        .addTitle = u"Добавление нового жанра"_s,
                        .addPrompt = u"Введите название жанра:"_s,
                        .changeTitle = u"Изменение жанра"_s,
                        .changePrompt = u"Измените название жанра:"_s,
                        .duplicateQuestion = u"Жанр '%1' уже существует. Ввести другой?"_s,
                        .quotationMarkMessage = u"В имени жанра не должно быть символа кавычек!"_s,
                        .deleteQuestion = u"Вы действительно хотите удалить жанр '%1'?"_s,
                        .protectedFromDelete = u"Удаление или изменение этого жанра не допустимо!"_s,
                        .protectedFromChange = u"Удаление или изменение этого жанра не допустимо!"_s,
                        .inUseMessage =
                            u"Жанр '%1' не может быть удален, т.к. он используется в одном или более дисках."_s}},
        .browser = u"frmCatalogueDVD"_s,
        .title = u"Каталог DVD дисков"_s,
        .pickerTitle = u"Выбор DVD диска"_s,
        .nameCaption = u"&Название"_s,
        .mediumCaption = u"DVD диск"_s,
        .deleteQuestionTail = u"Структура файлов и обложка этого диска будут также удалены."_s,
        .sortedSetting = u"DVDsorted"_s,
        .sortOrders = {{u"по номеру"_s, u"Номер"_s},
                       {u"по названию"_s, u"Название"_s},
                       {u"по жанру"_s, u"Жанр"_s},
                       {u"по году"_s, u"Год"_s},
                       {u"по дискам"_s, u"Дисков"_s},
                       {u"по зоне"_s, u"Зона"_s},
                       {u"по дате добавления"_s, u"ДатаЗаписи"_s},
                       {u"по дате изменению"_s, u"ДатаИзменения"_s}},
        .autoRespSlots = 6,
        .coverButton = 7,
        .editor = u"frmAddInCatalogueDVD"_s,
        .addCaption = u"Добавление DVD диска"_s,
        .changeCaption = u"Изменение информации DVD диска"_s,
        .requiredMessage = u"Введите название диска.\rДанное поле является обязательным для заполнения."_s,
        .reductionTail = {},
        .clearsAutoDetectTag = true,
        .extraFields = {u"Описание"_s, u"Время"_s, u"Зона"_s, u"ФорматЗвука"_s},
        .noIdentifierMessage = u"Идентификатор не обнаружен!"_s,
    };
    return kind;
}

const std::array<const CatalogueKind*, 3>& AllCatalogues()
{
    static const std::array<const CatalogueKind*, 3> all{&Audio(), &Computer(), &Dvd()};
    return all;
}

std::size_t CatalogueIndex(const CatalogueKind& kind)
{
    return std::size_t(std::ranges::find(AllCatalogues(), &kind) - AllCatalogues().begin());
}

static const CatalogueKind* find(QString CatalogueKind::*member, QStringView value)
{
    for (const CatalogueKind* kind : AllCatalogues())
        if (kind->*member == value) return kind;
    return nullptr;
}

const CatalogueKind* CatalogueByCode(QStringView code) { return find(&CatalogueKind::code, code); }
const CatalogueKind* CatalogueByKindWord(QStringView kindWord) { return find(&CatalogueKind::kindWord, kindWord); }
