#include "catalogue/frmAddInCatalogueDVD.h"

#include "catalogue/LongText.h"
#include "frame/Text.h"

frmAddInCatalogueDVD::frmAddInCatalogueDVD(Program& program) : frmAddInCatalogue(program, Dvd())
{
    txtTime->setMaxLength(4);
    udTime->setup(txtTime, 4, CountBetween(0, 9999));
    DigitKeys(txtTime);
    cmbZone->addItem(QString()); // not known
    for (int zone = 0; zone <= 8; ++zone) cmbZone->addItem(QString::number(zone));
    cmbZone->setToolTip(u"Регион, на который рассчитан диск: 1–8, 0 – любой"_s);
    LimitText(txtDescription, 255);
    lvSoundFormat->setCheckable(true);
    lvSoundFormat->setColumns({{.caption = u"Формат звука"_s}});
    lvSoundFormat->setHeaderHidden(true);

    auto* below = row(column(label(u"&Описание:"_s, txtDescription), txtDescription),
                      column(label(u"&Формат звука:"_s, lvSoundFormat), lvSoundFormat));
    build({.behindCount = row(label(u"&Время, мин.:"_s, txtTime), udTime, label(u"&Зона:"_s, cmbZone), cmbZone),
           .below = below});
    moveOnByEnter({txtName, txtYear, txtCDs, txtTime, cmbZone, txtDictionary});
}

void frmAddInCatalogueDVD::Form_Load()
{
    frmAddInCatalogue::Form_Load();
    Routine("FormLoad"_L1, [&] {
        m_formats.emplace(program.mainDatabase());
        QList<ListView::Row> rows;
        for (const QString& name : m_formats->names()) rows.append({.texts = {name}});
        lvSoundFormat->setRows(rows);
    });
}

void frmAddInCatalogueDVD::showExtras(const QHash<QString, Value>& extra)
{
    txtTime->setText(extra.value(u"Время"_s).text());
    showZone(extra.value(u"Зона"_s).text());
    txtDescription->setPlainText(extra.value(u"Описание"_s).text());
    LoadSoundFormats(extra.value(u"ФорматЗвука"_s).text());
}

/// A zone that no disc has, of a row from elsewhere, is kept all the same.
void frmAddInCatalogueDVD::showZone(const QString& zone)
{
    if (cmbZone->findText(zone) < 0) cmbZone->addItem(zone);
    cmbZone->setCurrentIndex(cmbZone->findText(zone));
}

void frmAddInCatalogueDVD::LoadSoundFormats(const QString& field)
{
    const QStringList names = m_formats->namesOf(field);
    for (int i = 0; i < lvSoundFormat->rowCount(); ++i)
        lvSoundFormat->setChecked(i, names.contains(lvSoundFormat->text(i)));
}

QStringList frmAddInCatalogueDVD::checkedFormats() const
{
    QStringList names;
    for (int i = 0; i < lvSoundFormat->rowCount(); ++i)
        if (lvSoundFormat->isChecked(i)) names += lvSoundFormat->text(i);
    return names;
}

QHash<QString, Value> frmAddInCatalogueDVD::extras() const
{
    const auto number = [](const QString& text) { return text.isEmpty() ? Value() : Value(text.toInt()); };
    return {{u"Время"_s, number(txtTime->text())},
            {u"Зона"_s, number(cmbZone->currentText())},
            {u"Описание"_s, txtDescription->toPlainText()},
            {u"ФорматЗвука"_s, m_formats->fieldOf(checkedFormats())}};
}
