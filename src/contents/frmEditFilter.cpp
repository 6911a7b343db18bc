#include "contents/frmEditFilter.h"

#include "store/Schema.h"
#include "ui/Lettering.h"

#include <algorithm>

frmEditFilter::frmEditFilter(Program& program) : Screen(program, u"frmEditFilter"_s, u"Фильтр файлов"_s)
{
    optFilter[0]->setText(u"н&енужные файлы"_s);
    optFilter[1]->setText(u"ну&жные файлы"_s);
    optFilter[0]->setChecked(true);
    lettered(lblHint, Lettering::Caption);
    lvFilter->setColumns({{u"Файлы (0)"_s}});
    lvFilter->setCheckable(true);
    lvFilter->setMinimumHeight(fontMetrics().height() * 12);
    lvFilter->setAccessibleName(u"Файлы"_s);
    cmdSelect->setup(u"select-all"_s, {}, u"Отметить все"_s, Qt::CTRL | Qt::Key_A);
    cmdDeselect->setup(u"deselect-all"_s, {}, u"Снять все отметки"_s, Qt::CTRL | Qt::SHIFT | Qt::Key_A);
    imgButton[0]->setup(u"close"_s, u"&Закрыть"_s, u"Закрыть фильтр"_s);
    imgButton[1]->setup(u"add"_s, u"&Добавить…"_s, u"Добавить файл"_s, Qt::Key_Insert);
    imgButton[2]->setup(u"delete"_s, u"&Удалить"_s, u"Удалить файл"_s, Qt::Key_Delete);
    imgButton[3]->setup(u"edit"_s, u"&Изменить…"_s, u"Изменить имя файла"_s, Qt::Key_F2);

    setLayout(column(row(optFilter[0], optFilter[1], stretch), lblInfo,
                     row(lvFilter, column(imgButton[1], imgButton[3], imgButton[2], stretch)), lblHint,
                     row(cmdSelect, cmdDeselect, stretch, imgButton[0])));
    resize(fontMetrics().averageCharWidth() * 74, fontMetrics().height() * 28);

    connect(optFilter[1], &QRadioButton::toggled, this, &frmEditFilter::optFilter_Click);
    connect(lvFilter, &ListView::rowChecked, this, &frmEditFilter::lvFilter_ItemCheck);
    connect(lvFilter, &ListView::rowActivated, this, &frmEditFilter::cmdChangeFile);
    connect(cmdSelect, &QPushButton::clicked, this, [this] { cmdSelect_Click(true); });
    connect(cmdDeselect, &QPushButton::clicked, this, [this] { cmdSelect_Click(false); });
    connect(imgButton[0], &QPushButton::clicked, this, &Form::reject);
    connect(imgButton[1], &QPushButton::clicked, this, &frmEditFilter::cmdAddFile);
    connect(imgButton[2], &QPushButton::clicked, this, &frmEditFilter::cmdDelete);
    connect(imgButton[3], &QPushButton::clicked, this, &frmEditFilter::cmdChangeFile);
}

void frmEditFilter::Form_Load()
{
    lvFilter->setFocus();
    optFilter_Click();
}

void frmEditFilter::optFilter_Click()
{
    Guarded("frmEditFilter, optFilter_Click()"_L1, [&] {
        lblInfo->setText(optFilter[0]->isChecked()
                             ? u"Отмеченные файлы не будут включены в создаваемую структуру диска"_s
                             : u"Только отмеченные файлы будут включены в создаваемую структуру диска"_s);
        fill();
    });
}

void frmEditFilter::fill(const QString& selected)
{
    QList<ListView::Row> rows;
    for (const FilterTable::Entry& entry : table().entries())
        rows.append({.texts = {entry.text}, .checked = entry.used});
    lvFilter->setRows(rows);
    lvFilter->setCurrentRow(std::max(0, lvFilter->find(selected)));
    enableFilterCommands();
}

void frmEditFilter::enableFilterCommands()
{
    lvFilter->setCaption(0, u"Файлы (%1)"_s.arg(lvFilter->rowCount()));
    for (QWidget* command : std::initializer_list<QWidget*>{cmdSelect, cmdDeselect, imgButton[2], imgButton[3]})
        command->setEnabled(lvFilter->rowCount() > 0);
    showHint();
}

void frmEditFilter::showHint()
{
    bool used = false;
    for (int row = 0; row < lvFilter->rowCount(); ++row) used = used || lvFilter->isChecked(row);
    lblHint->setText(used ? u"Отмеченное ищется в любом месте имени: «.txt» есть и в «a.txt.bak»."_s
                     : optFilter[0]->isChecked() ? u"Ничего не отмечено: в список войдут все файлы."_s
                                                 : u"Ничего не отмечено: в список не войдет ни один файл."_s);
}

void frmEditFilter::lvFilter_ItemCheck(int row)
{
    Guarded("frmEditFilter, lvFilter_ItemCheck()"_L1, [&] {
        table().use(lvFilter->text(row), lvFilter->isChecked(row));
        showHint();
    });
}

void frmEditFilter::cmdSelect_Click(bool ticked)
{
    Guarded("frmEditFilter, cmdSelect()"_L1, [&] {
        for (int row = 0; row < lvFilter->rowCount(); ++row) {
            lvFilter->setChecked(row, ticked);
            lvFilter_ItemCheck(row);
        }
    });
}

QString frmEditFilter::askName(Purpose purpose)
{
    const bool adding = purpose == Purpose::Add;
    for (;;) {
        if (adding && lvFilter->rowCount() >= MaximumFilterEntries) {
            MsgBox(u"Количество файлов не должно превышать 50!"_s);
            return {};
        }
        const QString entered = adding
                                    ? program.dialogs.InputBox(u"Введите имя файла:"_s, u"Добавление нового файла"_s)
                                    : program.dialogs.InputBox(u"Измените имени файла:"_s, u"Изменение имени файла"_s,
                                                               lvFilter->text(lvFilter->currentRow()));
        const QString name = entered.left(FieldLength::FilterEntry);
        if (name.isEmpty() || !table().contains(name)) return name;
        if (!Ask(u"Файл '%1' уже существует. Ввести другое?"_s.arg(name))) return {};
    }
}

void frmEditFilter::cmdAddFile()
{
    Guarded("frmEditFilter, cmdAddFile()"_L1, [&] {
        const QString name = askName(Purpose::Add);
        if (name.isEmpty()) return;
        table().add(name);
        fill(name);
    });
}

void frmEditFilter::cmdDelete()
{
    Guarded("frmEditFilter, cmdDelete()"_L1, [&] {
        const QString name = lvFilter->text(lvFilter->currentRow());
        if (!Ask(u"Вы действительно хотите удалить файл '%1'?"_s.arg(name), Box::Question | Box::SafeDefault)) return;
        table().remove(name);
        fill();
    });
}

void frmEditFilter::cmdChangeFile()
{
    Guarded("frmEditFilter, cmdChangeFile()"_L1, [&] {
        const QString name = askName(Purpose::Change);
        if (name.isEmpty()) return;
        table().rename(lvFilter->text(lvFilter->currentRow()), name);
        fill(name);
    });
}
