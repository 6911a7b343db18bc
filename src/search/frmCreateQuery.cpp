#include "search/frmCreateQuery.h"

#include "ui/Lettering.h"
#include "ui/Theme.h"

#include <QRegularExpressionValidator>

namespace {
/// In place of the field of a condition that the form cannot show, and keeps as it stands.
const auto ByHand = u"(вручную)"_s;
}

frmCreateQuery::frmCreateQuery(Program& program) : Screen(program, u"frmCreateQuery"_s, u"Ярлык запроса"_s)
{
    txtName->setMaxLength(LongestQueryName);
    const std::array<QString, 3> categories{u"&Аудио диски"_s, u"&Компьютерные диски"_s, u"&DVD диски"_s};
    for (int i = 0; i < 3; ++i) optCategory[i]->setText(categories[i]);
    optCategory[0]->setChecked(true);
    imgButton[0]->setup(u"save"_s, u"&Сохранить"_s, u"Сохранить ярлык"_s);
    imgButton[1]->setup(u"cancel"_s, u"&Отмена"_s, u"Закрыть без сохранения"_s);
    imgButton[0]->setDefault(true);
    buildLayout();

    for (QRadioButton* category : optCategory)
        connect(category, &QRadioButton::toggled, this, [this](bool on) {
            if (on) optCategory_Click();
        });
    for (int i = 0; i < Conditions; ++i) {
        connect(cmbQ1[i], &QComboBox::currentIndexChanged, this, [this, i] { cmbQ1_Click(i); });
        connect(txtQuery[i], &QLineEdit::textChanged, this, [this, i] { markCondition(i); });
        connect(cmbQuery[i], &QComboBox::currentIndexChanged, this, [this, i] { markCondition(i); });
    }
    connect(imgButton[0], &QPushButton::clicked, this, &frmCreateQuery::cmdSave);
    connect(imgButton[1], &QPushButton::clicked, this, &Form::reject);
}

void frmCreateQuery::buildLayout()
{
    QLabel* name = label(u"&Название:"_s, txtName);
    QLabel* category = label(u"Каталог:"_s);
    QBoxLayout* categories = row(optCategory[0], optCategory[1], optCategory[2], stretch);
    categories->setSpacing(Theme::Between);
    QGridLayout* head = grid({{name, txtName}, {category, categories}});

    auto* conditions = new QGridLayout;
    const std::array<QString, 3> captions{u"Поле"_s, u"Сравнение"_s, u"Значение"_s};
    for (int i = 0; i < 3; ++i) conditions->addWidget(lettered(label(captions[i]), Lettering::Caption), 0, i + 1);
    for (int i = 0; i < Conditions; ++i) {
        const QString ordinal = u" условия %1"_s.arg(i + 1);
        cmbQ1[i]->setAccessibleName(u"Поле"_s + ordinal);
        cmbQ2[i]->setAccessibleName(u"Сравнение"_s + ordinal);
        for (QWidget* value : std::initializer_list<QWidget*>{txtQuery[i], cmbQuery[i]})
            value->setAccessibleName(u"Значение"_s + ordinal);
        lblQuery[i]->setMinimumWidth(fontMetrics().horizontalAdvance(u"0. - Верно "_s));
        cmbQ1[i]->setMinimumWidth(fontMetrics().averageCharWidth() * 16);
        conditions->addWidget(lblQuery[i], i + 1, 0);
        conditions->addWidget(cmbQ1[i], i + 1, 1);
        conditions->addWidget(cmbQ2[i], i + 1, 2);
        conditions->addWidget(stack(txtQuery[i], cmbQuery[i]), i + 1, 3);
    }
    conditions->setColumnStretch(3, 1);
    conditions->setColumnMinimumWidth(3, fontMetrics().averageCharWidth() * 30);
    QLabel* hint = label(u"Найдутся диски, для которых верны все условия. LIKE ищет часть текста; * заменяет любые "
                         u"буквы, ? — одну, # — цифру."_s);
    hint->setWordWrap(true);
    lettered(hint, Lettering::Caption);
    setLayout(
        column(head, group(u"Условия"_s, column(conditions, hint)), stretch, row(stretch, imgButton[0], imgButton[1])));
}

void frmCreateQuery::Form_Load()
{
    Guarded("frmCreateQuery, Form_Load()"_L1, [&] {
        txtName->setText(NewQueryName(program.queries()));
        optCategory_Click();
        txtName->setFocus();
        txtName->selectAll();
    });
}

void frmCreateQuery::edit(const StoredQuery& query)
{
    Guarded("frmCreateQuery, LoadQuery()"_L1, [&] {
        m_edited = query.name;
        txtName->setText(query.name);
        if (const CatalogueKind* stored = CatalogueByCode(query.category))
            optCategory[CatalogueIndex(*stored)]->setChecked(true);
        else
            MsgBox(u"Каталог '%1' этого ярлыка неизвестен. Проверьте, какой выбран, прежде чем сохранить ярлык."_s.arg(
                query.category));
        for (int i = 0; i < Conditions; ++i) {
            const QString& fragment = query.fragments[i];
            if (fragment.size() <= 1) continue; // the catalogue passes it over, too
            if (const auto condition = SplitQueryFragment(kind(), fragment)) {
                showCondition(i, *condition);
            } else {
                m_byHand[i] = fragment;
                cmbQ1[i]->addItem(ByHand);
                cmbQ1[i]->setCurrentText(ByHand);
            }
        }
    });
}

void frmCreateQuery::showCondition(int i, const QueryCondition& condition)
{
    cmbQ1[i]->setCurrentText(condition.field);
    cmbQ2[i]->setCurrentText(condition.comparison);
    const int listed = cmbQuery[i]->findText(condition.value, Qt::MatchFixedString);
    // A part of a name is a text, and so is a name that the dictionary does not hold any more.
    const bool list = FromDictionary(kind(), condition.field) && condition.comparison == u"=" && listed >= 0;
    takeFromList(i, list);
    if (list)
        cmbQuery[i]->setCurrentIndex(listed);
    else
        txtQuery[i]->setText(condition.value);
}

const CatalogueKind& frmCreateQuery::kind() const
{
    for (std::size_t i = 0; i < optCategory.size(); ++i)
        if (optCategory[i]->isChecked()) return *AllCatalogues()[i];
    return Audio();
}

/// Another catalogue has other fields: conditions on those that it lacks are gone.
void frmCreateQuery::optCategory_Click()
{
    Guarded("frmCreateQuery, optCategory_Click()"_L1, [&] {
        const QString& dictionary = kind().dictionary.table;
        QStringList values;
        const Recordset names = program.mainDatabase().OpenRecordset(
            u"SELECT %1 FROM %1 WHERE %1 <> '' ORDER BY %1"_s.arg(dictionary));
        for (int i = 0; i < names.RecordCount(); ++i) values += names.row(i).constFirst().text();
        for (int i = 0; i < Conditions; ++i) {
            const QueryCondition before{field(i), cmbQ2[i]->currentText(), value(i)};
            {
                const QSignalBlocker fields(cmbQ1[i]), list(cmbQuery[i]);
                cmbQ1[i]->clear();
                cmbQ1[i]->addItem({});
                cmbQ1[i]->addItems(QueryFields(kind()));
                cmbQuery[i]->clear();
                cmbQuery[i]->addItems(values);
            }
            cmbQ1_Click(i);
            if (QueryFields(kind()).contains(before.field)) showCondition(i, before);
        }
    });
}

void frmCreateQuery::cmbQ1_Click(int i)
{
    const bool number = field(i) == NumberField, chosen = !field(i).isEmpty();
    cmbQ2[i]->clear();
    if (chosen && !byHand(i)) cmbQ2[i]->addItems(QueryComparisons(field(i)));
    delete txtQuery[i]->validator();
    if (number)
        txtQuery[i]->setValidator(new QRegularExpressionValidator(QRegularExpression(u"[0-9]*"_s), txtQuery[i]));
    txtQuery[i]->setMaxLength(byHand(i) ? int(m_byHand[i].size()) : number ? LongestQueryNumber : LongestQueryText);
    takeFromList(i, FromDictionary(kind(), field(i)));
    cmbQ2[i]->setEnabled(chosen && !byHand(i));
    txtQuery[i]->setEnabled(chosen);
    cmbQuery[i]->setEnabled(chosen);
    txtQuery[i]->setReadOnly(byHand(i));
    txtQuery[i]->setToolTip(byHand(i)
                                ? u"Это условие записано в файле ярлыков вручную. Оно сохранится как есть, пока не "
                                  u"выбрано другое поле."_s
                                : QString());
    if (byHand(i)) txtQuery[i]->setText(m_byHand[i]);
}

bool frmCreateQuery::byHand(int i) const { return field(i) == ByHand; }

void frmCreateQuery::takeFromList(int i, bool list)
{
    m_listed[i] = list;
    txtQuery[i]->clear();
    cmbQuery[i]->setCurrentIndex(-1);
    cmbQuery[i]->setVisible(list);
    txtQuery[i]->setVisible(!list);
    markCondition(i);
}

QString frmCreateQuery::value(int i) const { return m_listed[i] ? cmbQuery[i]->currentText() : txtQuery[i]->text(); }

bool frmCreateQuery::formed(int i) const { return !field(i).isEmpty() && !value(i).isEmpty(); }

void frmCreateQuery::markCondition(int i)
{
    const QString ordinal = u"%1."_s.arg(i + 1);
    lblQuery[i]->setText(formed(i) ? ordinal + u" - Верно"_s : ordinal);
}

/// What speaks against saving, in this order, with the keyboard where it can be mended.
bool frmCreateQuery::refused()
{
    const auto refuseBox = [this](QWidget* box, const QString& text) {
        MsgBox(text);
        box->setFocus();
        return true;
    };
    if (QueryName(txtName->text()).isEmpty()) {
        refuse(txtName, u"Введите название ярлыка!"_s);
        return true;
    }
    for (int i = 1; i < Conditions; ++i)
        for (int before = 0; before < i; ++before)
            if (!field(i).isEmpty() && !byHand(i) && field(i) == field(before))
                return refuseBox(cmbQ1[i], u"В условии запроса дважды указано одно и то же поле!"_s);
    for (int i = 0; i < Conditions; ++i) {
        if (field(i).isEmpty() || byHand(i) || (formed(i) && !cmbQ2[i]->currentText().isEmpty())) continue;
        QWidget* missing = cmbQuery[i];
        if (!m_listed[i]) missing = txtQuery[i];
        if (formed(i)) missing = cmbQ2[i];
        return refuseBox(missing, u"Укажите условие запроса (для %1)!"_s.arg(i + 1));
    }
    if (!formed(0) && !formed(1) && !formed(2))
        return refuseBox(cmbQ1[0], u"Хотя бы один запрос должен быть сформирован!"_s);
    if (QueryNameReserved(QueryName(txtName->text()))) {
        refuse(txtName, u"Название не может быть числом или словом 'Query'. Выберите другое название."_s);
        return true;
    }
    if (QueryNameTaken(program.queries(), QueryName(txtName->text()), m_edited)) {
        refuse(txtName, u"Запрос с таким именем уже существует. Выберите другое название!"_s);
        return true;
    }
    for (int i = 0; i < Conditions; ++i) {
        // To LIKE the sign in their place stands for any letter.
        const QString lost = byHand(i) || cmbQ2[i]->currentText() == u"LIKE" ? QString() : NotKept(value(i));
        if (!lost.isEmpty())
            return refuseBox(cmbQ2[i], u"В ярлыке нельзя сохранить: %1 (условие %2). Выберите сравнение LIKE, вместо "
                                       u"этих знаков подойдут любые."_s.arg(lost)
                                           .arg(i + 1));
    }
    return false;
}

void frmCreateQuery::cmdSave()
{
    Guarded("frmCreateQuery, cmdSave()"_L1, [&] {
        if (refused()) return;
        StoredQuery query{.name = QueryName(txtName->text()), .category = kind().code};
        for (int i = 0; i < Conditions; ++i)
            if (byHand(i))
                query.fragments[i] = m_byHand[i];
            else if (formed(i))
                query.fragments[i] = QueryFragment({field(i), cmbQ2[i]->currentText(), value(i)});
        if (!StoreQuery(program.queries(), query, m_edited)) {
            MsgBox(u"Ярлык не сохранен: файл '%1' не записывается."_s.arg(program.queries().path()));
            return;
        }
        Unload();
    });
}
