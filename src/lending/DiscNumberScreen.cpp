#include "lending/DiscNumberScreen.h"

#include "frame/Text.h"
#include "ui/Icons.h"

DiscNumberScreen::DiscNumberScreen(Program& program, const QString& screenName, const QString& title)
    : Screen(program, screenName, title)
{
    for (std::size_t i = 0; i < optCategory.size(); ++i) {
        const CatalogueKind& category = *AllCatalogues()[i];
        optCategory[i]->setText(u'&' + category.mediumCaption); // their first letters differ
        optCategory[i]->setIcon(catalogueIcon(category.icon, category.accent));
        connect(optCategory[i], &QRadioButton::toggled, this, [this, &category](bool chosen) {
            if (chosen) m_kind = &category;
            m_picked.reset();
        });
        // Arrow keys go on through the options all the same: they move the focus after the click.
        connect(optCategory[i], &QRadioButton::clicked, txtNumber, [this] { focusNumber(); });
    }
    optCategory[0]->setChecked(true);
    txtNumber->setMaxLength(5);
    txtNumber->setFixedWidth(fontMetrics().horizontalAdvance(u"0000000000"_s));
    DigitKeys(txtNumber);
    connect(txtNumber, &QLineEdit::textEdited, this, [this] { m_picked.reset(); });
}

void DiscNumberScreen::focusNumber()
{
    txtNumber->setFocus();
    txtNumber->selectAll();
}

std::optional<NumberedDisc> DiscNumberScreen::namedDisc()
{
    const int number = DiscNumber(txtNumber->text());
    if (number == 0) {
        refuse(txtNumber, u"Указан не верный номер диска. Повторите ввод."_s);
        return {};
    }
    const Database main = program.mainDatabase();
    const auto disc = m_picked ? DiscWithKey(main, kind(), *m_picked) : DiscNumbered(main, kind(), number);
    if (!disc) refuse(txtNumber, u"Диск № %1 отсутствует в каталоге."_s.arg(number));
    return disc;
}

void DiscNumberScreen::setUpPicker(ImageButton* button)
{
    button->setup(u"list-all"_s, u"&Выбрать…"_s, u"Выбрать диск из списка"_s, Qt::Key_F4);
    button->setEnabled(program.offers(u"frmSelectCD"));
}

bool DiscNumberScreen::pickDisc(const QString& purpose)
{
    const auto choice = program.screens->PickDisc(*this, purpose + kind().code);
    if (choice) {
        txtNumber->setText(QString::number(choice->number));
        m_picked = choice->key;
    }
    focusNumber();
    return choice.has_value();
}
