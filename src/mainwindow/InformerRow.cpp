#include "mainwindow/InformerRow.h"

#include "mainwindow/Options.h"
#include "platform/Literals.h"

InformerRow::InformerRow(QSlider* slider, QLabel* period, QCheckBox* steady, QStringView key, int designed)
    : slider(slider), period(period), steady(steady), sample(new IconLabel), m_key(key), m_designed(designed),
      m_blinker({sample}, this)
{
    slider->setOrientation(Qt::Horizontal);
    slider->setRange(0, MostHundreds);
    slider->setPageStep(5);
    period->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    period->setMinimumWidth(period->fontMetrics().horizontalAdvance(u"0000 мс"_s));
    connect(slider, &QSlider::valueChanged, this, &InformerRow::show);
    connect(steady, &QCheckBox::toggled, this, [this](bool ticked) { open(!ticked); });
    m_blinker.setOn(true);
}

void InformerRow::load(const Profile& settings)
{
    const std::optional<Blinking> kept = ReadBlinking(settings, m_key);
    const bool isSteady = kept && kept->steady;
    slider->setValue(kept && !isSteady ? kept->hundreds : m_designed);
    steady->setChecked(isSteady);
    open(kept ? !isSteady : m_designed > 0);
}

void InformerRow::save(const Profile& settings) const
{
    WriteBlinking(settings, m_key, {.steady = steady->isChecked(), .hundreds = slider->value()});
}

void InformerRow::open(bool open)
{
    slider->setEnabled(open);
    slider->setToolTip(open || steady->isChecked() ? QString()
                                                   : u"Чтобы выбрать частоту, поставьте и снимите отметку"_s);
    show();
}

void InformerRow::show()
{
    const int hundreds = steady->isChecked() ? 0 : slider->value();
    period->setText(u"%1 мс"_s.arg(hundreds * 100));
    m_blinker.setInterval(hundreds * 10); // the signs take a tenth
}
