#include "recognition/frmSelectCategory.h"

#include "store/CatalogueKind.h"
#include "ui/Icons.h"
#include "ui/Theme.h"

#include <algorithm>

frmSelectCategory::frmSelectCategory(Program& program)
    : Screen(program, u"frmSelectCategory"_s, u"Выбор категории диска"_s)
{
    for (std::size_t i = 0; i < options().size(); ++i) {
        const CatalogueKind& kind = *AllCatalogues()[i];
        options()[i]->setText(u'&' + kind.mediumCaption); // their first letters differ
        options()[i]->setIcon(icon(kind.icon, Theme::accent(kind.accent, palette())));
    }
    optAD->setChecked(true);
    for (QLabel* text : {lblTrabl, lblInfo}) {
        text->setWordWrap(true);
        text->setMinimumWidth(fontMetrics().averageCharWidth() * 48);
    }
    imgButton[0]->setup(u"ok"_s, u"ОК"_s, u"Отнести диск к выбранной категории"_s);
    imgButton[0]->setDefault(true);
    imgButton[1]->setup(u"cancel"_s, u"Отмена"_s, u"Закрыть без выбора"_s);
    setLayout(column(lblTrabl, lblInfo, group(QString(), column(optAD, optPC, optDVD)),
                     row(stretch, imgButton[0], imgButton[1])));

    connect(imgButton[0], &QPushButton::clicked, this, [this] {
        this->program.shared.DialogDone = true;
        Unload();
    });
    connect(imgButton[1], &QPushButton::clicked, this, &Form::reject);
}

void frmSelectCategory::Form_Load()
{
    program.shared.DialogDone = false; // Cancel, Esc and the frame leave it so
}

int frmSelectCategory::choice() const
{
    const auto all = options();
    return int(std::ranges::find_if(all, &QRadioButton::isChecked) - all.begin());
}

void frmSelectCategory::choose(int category) { options()[std::size_t(category)]->setChecked(true); }

void frmSelectCategory::ask(const QString& question, const std::array<bool, 3>& offered)
{
    lblTrabl->setText(question);
    lblInfo->hide();
    imgButton[0]->setup(u"ok"_s, u"ОК"_s, {});
    for (std::size_t i = 0; i < offered.size(); ++i) options()[i]->setEnabled(offered[i]);
    choose(int(std::ranges::find(offered, true) - offered.begin()));
}
