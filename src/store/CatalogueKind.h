#pragma once

#include "frame/Screens.h"

#include <QStringList>
#include <array>
#include <optional>

/// The screen that keeps a dictionary, and what it says: "%1" in it is a name.
struct DictionaryScreen {
    QString name;  ///< "frmEditStyle"
    QString title; ///< "Стили аудио дисков"
    QString addTitle, addPrompt;
    QString changeTitle, changePrompt;
    QString duplicateQuestion;
    QString quotationMarkMessage;
    QString deleteQuestion;
    QString protectedFromDelete, protectedFromChange; ///< told about the empty name
    QString inUseMessage;
};

/// The names that discs of a catalogue refer to: styles, descriptions, genres.
struct DictionaryKind {
    QString table;            ///< "Стиль"; the name's field is called the same
    QString key;              ///< "КодСтиля"
    QString lengthMessage;    ///< told about more than 50 characters
    bool editorTests = false; ///< it is told in the editor of discs too, whose box otherwise takes no more
    QString caption;          ///< "Сти&ль", before boxes; its mnemonic is free on every screen
    QString listName;         ///< control of the browser: "cmbStyle"
    QString boxName;          ///< control of the editor: "txtStyle"
    DictionaryScreen screen;
};

/// Endings of the names of a catalogue's controls in the main window.
struct ControlEndings {
    QString counter, sign, logo; ///< "lblCDsAudio", "imgNewAD", "imgLogoAD"
};

struct SortOrder {
    QString item;  ///< "по номеру"
    QString field; ///< "Номер"
};

/// The lists that a catalogue keeps, one per disc, and the command that opens them.
struct ListKind {
    enum Contents { Tracks, Files } contents; ///< also which database keeps them
    QString screen;                           ///< "frmTrackList"
    QString command;                          ///< routine of the browser: "cmdTracks"
    void (Screens::*show)(Form& opener, const ListRequest& request);
    QString icon, text, hint; ///< of the browser's button
};

/// Everything that tells one catalogue from another. Code that asks "which one is it?" asks here; a fourth catalogue
/// would be one more of these and a form file.
struct CatalogueKind {
    QString code;     ///< "AD", "PC", "DVD": in loans, skipcd.ini and query.ini
    QString kindWord; ///< "AudioCD", "PcCD", "DVD": what a medium in a drive is
    int accent;       ///< of Theme
    QString icon;     ///< of Icons
    QString listText; ///< "Аудио диски": in the list bar and on the dashboard
    ControlEndings endings;
    bool presentUnidentified = true; ///< the watch tells that such a disc is in the drive before it knows which one

    QString table; ///< "Аудио"
    QString key;   ///< "КодАудиоДиск"
    QString stamp; ///< field of _Информация that a change sets
    QString coverPrefix;
    DictionaryKind dictionary;
    std::optional<ListKind> list = {};
    bool album = false;        ///< titles are "Название - Альбом"
    bool titleSources = false; ///< the add dialog can fetch the titles of a disc

    // Browser
    QString browser;     ///< "frmCatalogueAudioCD"
    QString title;       ///< "Каталог Аудио дисков"
    QString pickerTitle; ///< "Выбор Аудио диска"
    QString nameCaption; ///< "Гр&уппа/Исполнитель", before boxes; its mnemonic is free on every screen
    QString mediumCaption; ///< "Аудио диск", "Компьютерный диск", "DVD диск"
    QString deleteQuestionTail;
    QString sortedSetting; ///< "ADCDsorted"; with "DESC" behind it the direction
    QList<SortOrder> sortOrders;
    int autoRespSlots;   ///< how many bindings AutoResp looks at
    int coverButton = 8; ///< imgButton that changes the cover; the next one deletes it

    // Editor
    QString editor; ///< "frmAddInCatalogueAudio"
    QString addCaption; ///< "Добавление Аудио диска": the caption that puts editor and add dialog into adding
    QString changeCaption;
    QString requiredMessage;
    QString reductionTail; ///< behind "Вы изменили общее число дисков c N на M"; empty: no reduction step
    bool clearsAutoDetectTag;
    /// Fields of a row beside number, title, dictionary, year and count.
    QStringList extraFields = {};
    /// Where a reduction of the set looks up the list of disc 5. The computer catalogue asks for a field that no table
    /// has, on purpose: taking away a fifth disc that has a list ends in the fault routine.
    QString reductionFifthField = listField(5);

    // Add dialog
    /// A new disc is offered the performer and title of the medium's CD-TEXT, not its label, as its titles.
    bool titleFromCdText = false;
    QString noIdentifierMessage;
    int searchEnd = 0; ///< a search for a free number gives up when a refusal brings it here; 0: never
    /// A disc that is entered by hand ends CatalogueQueryFilter, so that the list on view is a query no longer.
    bool addingEndsFilter = true;

    QString queryTitle() const { return title + u" - Результат запроса"_s; }
    /// SELECT of table and dictionary, ending in a blank; a filter and an ORDER BY follow.
    QString join() const;
    /// SELECT of the row with one key, its only parameter.
    QString rowByKey() const;
    /// nameCaption without its mnemonic, over lists.
    QString nameHeading() const { return QString(nameCaption).remove(u'&'); }
    /// Name of the binding of disc k, 1 to 6: "ДискID1_d".
    static QString bindingField(int k) { return u"ДискID%1_d"_s.arg(k); }
    /// Name of the field that names the list of disc k: "ДискID1".
    static QString listField(int k) { return u"ДискID%1"_s.arg(k); }
    /// The field that a reduction asks for the name of the list of disc k, 2 to 6.
    QString reductionField(int k) const { return k == 5 ? reductionFifthField : listField(k); }
    /// "Название", and for audio " - " and the album unless it is empty.
    QString discTitle(const QString& name, const QString& albumText) const;
};

const CatalogueKind& Audio();
const CatalogueKind& Computer();
const CatalogueKind& Dvd();
/// In the order of the program's lists: audio, computer, DVD.
const std::array<const CatalogueKind*, 3>& AllCatalogues();
/// Place in AllCatalogues().
std::size_t CatalogueIndex(const CatalogueKind& kind);
/// Null for anything else.
const CatalogueKind* CatalogueByCode(QStringView code);
const CatalogueKind* CatalogueByKindWord(QStringView kindWord);
