#include "store/Schema.h"

namespace {

FieldDef counter(const QString& name) { return {.name = name, .type = FieldType::Long, .counter = true}; }
FieldDef longInt(const QString& name) { return {.name = name, .type = FieldType::Long}; }
FieldDef integer(const QString& name) { return {.name = name, .type = FieldType::Integer}; }
FieldDef text(const QString& name, int size) { return {.name = name, .type = FieldType::Text, .size = size}; }
FieldDef textOrEmpty(const QString& name, int size)
{
    return {.name = name, .type = FieldType::Text, .size = size, .emptyAllowed = true};
}
FieldDef date(const QString& name) { return {.name = name, .type = FieldType::Date}; }
FieldDef dateOfToday(const QString& name)
{
    return {.name = name, .type = FieldType::Date, .byDefault = FieldDefault::Today};
}
FieldDef boolean(const QString& name) { return {.name = name, .type = FieldType::Boolean}; }
FieldDef trueUnlessToldOtherwise(const QString& name)
{
    return {.name = name, .type = FieldType::Boolean, .byDefault = FieldDefault::True};
}

/// One field per disc of a set, the disc's number 1 to 6 in the place of "%1".
template<class Make> QList<FieldDef> perDisc(const QString& pattern, Make make)
{
    QList<FieldDef> fields;
    for (int disc = 1; disc <= 6; ++disc) fields += make(pattern.arg(disc));
    return fields;
}
QList<FieldDef> identifiers(const QString& pattern)
{
    return perDisc(pattern, [](const QString& name) { return textOrEmpty(name, 10); });
}
QList<FieldDef> lists() { return identifiers(u"ДискID%1"_s); }
QList<FieldDef> bindings() { return identifiers(u"ДискID%1_d"_s); }

/// What discs refer to can get another key, and cannot be deleted.
Relation dictionaryOf(const QString& name, const QString& dictionary, const QString& key, const QString& catalogue)
{
    return {.name = name,
            .table = dictionary,
            .field = key,
            .foreignTable = catalogue,
            .foreignField = key,
            .updateCascade = true};
}

TableDef dictionary(const QString& name, const QString& key)
{
    return {.name = name,
            .fields = {counter(key), textOrEmpty(name, FieldLength::DictionaryName)},
            .primaryKey = key,
            .relations = {}};
}

TableDef updates()
{
    return {.name = u"_Информация"_s,
            .fields = {date(u"ПослОбновлАудио"_s), date(u"ПослОбновлКомпьютер"_s), date(u"ПослОбновлDVD"_s),
                       date(u"РезервнаяКопия"_s)},
            .primaryKey = {},
            .relations = {}};
}

/// What one catalogue has beside the others.
struct OwnFields {
    QList<FieldDef> afterTitle, afterCount;
    FieldDef changed;
    QList<FieldDef> discs; ///< lists and bindings of the discs of a set
};

/// `referred` names its dictionary: the relation, the table, the key.
TableDef catalogue(const QString& name, const QString& key, const OwnFields& own, const QStringList& referred)
{
    return {.name = name,
            .fields = QList{counter(key), integer(u"Номер"_s), text(u"Название"_s, 60)} + own.afterTitle +
                      QList{text(u"Год"_s, 5), integer(u"Дисков"_s)} + own.afterCount +
                      QList{dateOfToday(u"ДатаЗаписи"_s), own.changed, boolean(u"Должник"_s)} + own.discs,
            .primaryKey = key,
            .relations = {dictionaryOf(referred[0], referred[1], referred[2], name)}};
}

TableDef audio()
{
    const auto time = [](const QString& field) { return text(field, FieldLength::PlayingTime); };
    return catalogue(
        u"Аудио"_s, u"КодАудиоДиск"_s,
        {.afterTitle = {textOrEmpty(u"Альбом"_s, 60)},
         .afterCount = perDisc(u"Записей%1"_s, integer) + perDisc(u"Время%1"_s, time) + QList{longInt(u"КодСтиля"_s)},
         .changed = dateOfToday(u"ДатаИзменения"_s),
         .discs = lists() + bindings()},
        {u"АудиоСтиль"_s, u"Стиль"_s, u"КодСтиля"_s});
}

TableDef computer()
{
    return catalogue(u"Компьютер"_s, u"КодКомпьютерныйДиск"_s,
                     {.afterTitle = {longInt(u"КодОписания"_s), textOrEmpty(u"РасОписание"_s, 255)},
                      .afterCount = {},
                      .changed = date(u"ДатаИзменения"_s), // no default here, unlike the other two catalogues
                      .discs = lists() + bindings()},
                     {u"КомпьютерСтиль"_s, u"Описание"_s, u"КодОписания"_s});
}

TableDef dvd()
{
    return catalogue(u"DVD"_s, u"КодDVDДиск"_s,
                     {.afterTitle = {textOrEmpty(u"Описание"_s, 255)},
                      .afterCount = {integer(u"Время"_s), integer(u"Зона"_s), longInt(u"КодЖанр"_s),
                                     textOrEmpty(u"ФорматЗвука"_s, 30)},
                      .changed = dateOfToday(u"ДатаИзменения"_s),
                      .discs = bindings()},
                     {u"DVDЖанр"_s, u"Жанр"_s, u"КодЖанр"_s});
}

TableDef loans()
{
    const QString name = u"Должники"_s, key = u"КодДолжника"_s;
    return {.name = name,
            .fields = {counter(key), longInt(u"КодИмяДолжника"_s), longInt(u"КодДиска"_s), text(u"Категория"_s, 3),
                       dateOfToday(u"ДатаВыдачи"_s), date(u"ДатаВозврата"_s), date(u"ДатаВозвратаРеальная"_s),
                       trueUnlessToldOtherwise(u"Долг"_s)},
            .primaryKey = key,
            .relations = {{.name = name,
                           .table = u"ИменаДолжников"_s,
                           .field = u"КодИмени"_s,
                           .foreignTable = name,
                           .foreignField = u"КодИмяДолжника"_s,
                           .deleteCascade = true}}};
}

TableDef borrowers()
{
    const QString key = u"КодИмени"_s;
    return {.name = u"ИменаДолжников"_s,
            .fields = {counter(key), text(u"Имя"_s, 50), text(u"Телефон"_s, 15)},
            .primaryKey = key,
            .relations = {}};
}

TableDef filter(const QString& name)
{
    return {.name = name,
            .fields = {text(u"Файл"_s, FieldLength::FilterEntry), trueUnlessToldOtherwise(u"Use"_s)},
            .primaryKey = {},
            .relations = {}};
}

}

const QList<TableDef>& MainSchema()
{
    static const QList<TableDef> tables{updates(),
                                        audio(),
                                        dictionary(u"Стиль"_s, u"КодСтиля"_s),
                                        loans(),
                                        borrowers(),
                                        computer(),
                                        dictionary(u"Описание"_s, u"КодОписания"_s),
                                        dvd(),
                                        dictionary(u"Жанр"_s, u"КодЖанр"_s),
                                        dictionary(u"ФорматЗвука"_s, u"КодФорматЗвука"_s)};
    return tables;
}

const QList<TableDef>& FilterSchema()
{
    static const QList<TableDef> tables{filter(u"Фильтр1"_s), filter(u"Фильтр2"_s)};
    return tables;
}

TableDef FileTable(const QString& id)
{
    return {.name = id,
            .fields = {text(u"Имя"_s, FieldLength::FileName), text(u"Путь"_s, FieldLength::FolderPath),
                       text(u"Размер"_s, FieldLength::FileSize), text(u"Комментарий"_s, FieldLength::Comment)},
            .primaryKey = {},
            .relations = {}};
}

TableDef TrackTable(const QString& id)
{
    return {.name = id,
            .fields = {integer(u"Номер"_s), text(u"Название"_s, FieldLength::TrackName),
                       text(u"Комментарий"_s, FieldLength::Comment)},
            .primaryKey = {},
            .relations = {}};
}

/// The empty name that three dictionaries begin with stands for nothing chosen: key 1.
const QList<Seed>& MainSeeds()
{
    const QString none = u""_s;
    static const QList<Seed> seeds{
        {u"Стиль"_s, u"Стиль"_s, {none,          u"Ballad"_s, u"Blues"_s,       u"Classical"_s,   u"Country"_s,
                                  u"Dance"_s,    u"Disco"_s,  u"Dream"_s,       u"Duet"_s,        u"Folk"_s,
                                  u"Hardcore"_s, u"Funk"_s,   u"Hard Rock"_s,   u"Heavy Metal"_s, u"Instrumental"_s,
                                  u"Jazz"_s,     u"Jungle"_s, u"Metal"_s,       u"Opera"_s,       u"Pop"_s,
                                  u"Punk"_s,     u"Raggae"_s, u"Rap"_s,         u"Punk Rock"_s,   u"Rave"_s,
                                  u"Retro"_s,    u"Rock"_s,   u"Rock & Roll"_s, u"Soundtrack"_s,  u"Techno"_s,
                                  u"Trance"_s}},
        {u"Описание"_s,
         u"Описание"_s,
         {none,
          u"Сборник программ"_s,
          u"Симулятор автогонок"_s,
          u"Симулятор истребителя"_s,
          u"Сборник игр"_s,
          u"3D-шутер"_s,
          u"3D Action/Adventure"_s,
          u"3D Action"_s,
          u"Квест"_s,
          u"RPG"_s,
          u"Музыка в формате MP3"_s,
          u"Стратегия"_s,
          u"VideoCD"_s,
          u"Энциклопедия"_s,
          u"Мультимедиа"_s,
          u"Словарь"_s,
          u"Графика"_s,
          u"Мультимедиа каталог"_s,
          u"Программирование"_s,
          u"Электронный справочник"_s,
          u"Мультимедиа журнал"_s,
          u"Офисные программы"_s,
          u"WEB-дизайн"_s}},
        {u"Жанр"_s,
         u"Жанр"_s,
         {none, u"Боевик"_s, u"Фантастика"_s, u"Комедия"_s, u"Мультфильм"_s, u"Ужасы"_s, u"Мистика"_s, u"Мелодрама"_s,
          u"Исторический"_s, u"Триллер"_s}},
        {u"ФорматЗвука"_s,
         u"ФорматЗвука"_s,
         {u"Dolby Digital 2.0"_s, u"Dolby Digital 5.1"_s, u"Dolby Sorround"_s, u"Dolby Pro Logic"_s, u"DTS"_s, u"AS3"_s,
          u"Stereo"_s, u"Mono"_s}}};
    return seeds;
}

const QList<Seed>& FilterSeeds()
{
    static const QList<Seed> seeds{
        {u"Фильтр1"_s,
         u"Файл"_s,
         {u".txt"_s, u".doc"_s, u".diz"_s, u".nfo"_s, u".htm"_s, u".inf"_s, u".ini"_s, u".log"_s}},
        {u"Фильтр2"_s, u"Файл"_s, {u".exe"_s, u".zip"_s, u".rar"_s}}};
    return seeds;
}
