#include "contents/ListScreen.h"

#include "ui/Lettering.h"
#include "ui/Theme.h"

#include <algorithm>

ListScreen::ListScreen(Program& program, const CatalogueKind& kind, const ListWords& words, const ListRequest& request)
    : Screen(program, words.screen, words.title), request(request), kind(kind), words(words)
{
    setMaximizable();
    lblHeader->setText(words.header);
    lettered(lblHeader, Lettering::Heading);
    lblNoList->setAlignment(Qt::AlignCenter);
    lblNoList->setWordWrap(true);
    lblNoList->setTextFormat(Qt::PlainText);
    lblNoList->setEnabled(false);
    imgButton[0]->setup(u"close"_s, u"&Закрыть"_s, words.closeHint);
    imgButton[1]->setup(u"scan"_s, u"&Создать…"_s, words.createHint);
    imgButton[2]->setup(u"delete"_s, u"&Удалить"_s, words.deleteHint);
    imgButton[3]->setup(u"refresh"_s, u"&Пересоздать…"_s, words.recreateHint);
    imgButton[1]->setWhyDisabled(u"Список уже есть: его можно пересоздать"_s);
    for (const std::size_t onList : {2, 3}) imgButton[onList]->setWhyDisabled(u"Списка ещё нет: его можно создать"_s);
    connect(cmbCountCD, &QComboBox::currentIndexChanged, this, &ListScreen::cmbCountCD_Click);
    connect(imgButton[0], &QPushButton::clicked, this, &Form::reject);
    connect(imgButton[1], &QPushButton::clicked, this, &ListScreen::cmdCreate);
    connect(imgButton[2], &QPushButton::clicked, this, &ListScreen::DeleteListAsk);
    connect(imgButton[3], &QPushButton::clicked, this, &ListScreen::RecreateListAsk);
}

void ListScreen::build(const Parts& parts)
{
    m_list = parts.list;
    QLabel* numberCaption = lettered(label(u"Диск №"_s), Lettering::Caption);
    parts.about->setContentsMargins(Theme::Gap, 0, 0, 0);
    QLabel* discCaption = label(u"C&D:"_s, cmbCountCD);
    QBoxLayout* page = column(
        row(lblHeader, stretch, discCaption, cmbCountCD), row(numberCaption, lblNumber, parts.about),
        stack(parts.list, lblNoList), parts.edit,
        row(parts.state, stretch, imgButton[1], imgButton[2], imgButton[3], parts.more, imgButton[0]));
    page->setStretch(2, 1);
    setLayout(page);
}

void ListScreen::Form_Load()
{
    Routine("Form_Load"_L1, [&] {
        program.shared.DiscIDSlots = ListsOfDisc(program.mainDatabase(), kind, request.key);
        program.shared.CurrentDiscID = program.shared.DiscIDSlots[0];
        lblNumber->setText(QString::number(request.number));
        lblName->setText(request.title);
        {
            const QSignalBlocker quiet(cmbCountCD);
            for (int k = 1; k <= std::clamp(std::max(request.discs, request.disc), 1, 6); ++k)
                cmbCountCD->addItem(QString::number(k));
            cmbCountCD->setEnabled(cmbCountCD->count() > 1);
            cmbCountCD->setCurrentIndex(std::clamp(request.disc, 1, cmbCountCD->count()) - 1);
        }
        cmbCountCD_Click();
        focusList();
        if (request.place && !m_list->isHidden()) showPlace(*request.place);
    });
}

/// What the user wants first: the list, or what makes one.
void ListScreen::focusList() { (m_list->isHidden() ? m_insteadOfList : firstControl())->setFocus(); }

void ListScreen::cmbCountCD_Click()
{
    Routine("cmbCountCD_Click"_L1, [&] {
        const Hourglass hourglass;
        program.shared.CurrentDiscID = slot();
        const bool listed = !program.shared.CurrentDiscID.isEmpty();
        imgButton[1]->setEnabled(!listed);
        imgButton[2]->setEnabled(listed);
        imgButton[3]->setEnabled(listed);
        if (listed) return showList();
        sayNoList(words.none, imgButton[1]);
        showNoList();
    });
}

void ListScreen::sayNoList(const QString& why, QWidget* next)
{
    m_insteadOfList = next ? next : imgButton[3];
    lblNoList->setText(why);
    m_list->setVisible(why.isEmpty());
    lblNoList->setVisible(!why.isEmpty());
}

void ListScreen::cmdCreate()
{
    Routine("cmdCreate"_L1, [&] {
        openOptions();
        if (!std::exchange(program.shared.DialogDone, false)) return;
        cmbCountCD_Click();
        focusList();
    });
}

void ListScreen::DeleteListAsk()
{
    QString question = words.deleteQuestion;
    question.replace(u"%1"_s, QString::number(request.number)).replace(u"%2"_s, QString::number(discNumber()));
    if (!Ask(question, Box::Question | Box::SafeDefault)) return;
    DeleteList();
    cmbCountCD_Click();
    focusList();
}

void ListScreen::RecreateListAsk()
{
    if (!Ask(words.recreateQuestion, Box::Warning)) return;
    DeleteList();
    cmbCountCD_Click();
    cmdCreate();
}

void ListScreen::DeleteList()
{
    Routine(words.deleteRoutine, [&] {
        letGo();
        ::DeleteList(ListDatabase(program, kind), program.mainDatabase(), kind, disc(), program.shared.CurrentDiscID);
        slot().clear();
    });
}
