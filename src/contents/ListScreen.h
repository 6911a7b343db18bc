#pragma once

#include "frame/Screen.h"
#include "store/DiscTables.h"
#include "ui/ElidedLabel.h"
#include "ui/ImageButton.h"

#include <QComboBox>

/// What the screens of lists say, each of its own kind of list.
struct ListWords {
    QString screen, title, header;
    QString none;           ///< in place of the list of a disc that has none
    QString deleteQuestion; ///< %1 is the number in the catalogue, %2 the disc of the set
    QString recreateQuestion;
    QLatin1StringView deleteRoutine; ///< its name in the fault log
    QString createHint, deleteHint, recreateHint, closeHint;
};

/// The lists of one catalogue row, one per disc of its set: which of them is on view, and what makes and deletes it. The
/// forms of the lists show it.
class ListScreen : public Screen {
public:
    QLabel* lblHeader = named("lblHeader");
    QLabel* lblNumber = named("lblNumber");
    ElidedLabel* lblName = named("lblName");
    QComboBox* cmbCountCD = named("cmbCountCD");
    QLabel* lblNoList = named("lblNoList"); ///< in place of a list that is not there or cannot be shown
    std::array<ImageButton*, 4> imgButton = namedArray("imgButton"); ///< close, create, delete, re-create

protected:
    ListScreen(Program& program, const CatalogueKind& kind, const ListWords& words, const ListRequest& request);

    /// What a form adds to the common picture.
    struct Parts {
        QLayout* about;          ///< behind the number of the disc
        QWidget* list;           ///< in the middle, in one place with lblNoList
        QLayout* edit = nullptr; ///< below the list
        QLayout* state;          ///< before the buttons
        QWidget* more = nullptr; ///< one button more
    };
    void build(const Parts& parts);

    /// The list CurrentDiscID comes on view.
    virtual void showList() = 0;
    /// The row that the opener asked for, if it is there still.
    virtual void showPlace(const ListPlace& place) = 0;
    /// There is no list for this disc; lblNoList says so.
    virtual void showNoList() = 0;
    /// The dialog that makes a list.
    virtual void openOptions() = 0;
    /// What takes the keyboard while there is a list.
    virtual QWidget* firstControl() const = 0;
    /// The list is about to be dropped.
    virtual void letGo() {}

    void Form_Load() override;
    /// The list gives way to a text that says why there is none, or comes back with an empty one. `next` is what takes the
    /// keyboard then.
    void sayNoList(const QString& why, QWidget* next = nullptr);

    int discNumber() const { return cmbCountCD->currentText().toInt(); }
    DiscOfRow disc() const { return {request.key, discNumber()}; }

    const ListRequest request;

private:
    void cmbCountCD_Click();
    void cmdCreate();
    void DeleteListAsk();
    void RecreateListAsk();
    void DeleteList();
    void focusList();
    QString& slot() { return program.shared.DiscIDSlots.at(std::size_t(discNumber() - 1)); }

    const CatalogueKind& kind;
    const ListWords& words;
    QWidget* m_list = nullptr;
    QWidget* m_insteadOfList = nullptr; ///< takes the keyboard
};
