#pragma once

#include "platform/Profile.h"
#include "ui/Blinker.h"
#include "ui/IconLabel.h"

#include <QCheckBox>
#include <QLabel>
#include <QSlider>

/// How one of the program's signs blinks: a slider with its figure, a tick for a steady sign, and a sample that blinks as
/// the sign will.
class InformerRow : public QObject {
public:
    /// `designed` is the slider's place while the key is missing, in hundreds of milliseconds. At 0 the sign is then
    /// steady without a tick, and the slider is closed until the tick has been set and taken away.
    InformerRow(QSlider* slider, QLabel* period, QCheckBox* steady, QStringView key, int designed);

    void load(const Profile& settings);
    void save(const Profile& settings) const;

    QSlider* slider;
    QLabel* period;
    QCheckBox* steady;
    IconLabel* sample; ///< to be placed

private:
    void open(bool open);
    void show();

    QStringView m_key;
    int m_designed;
    Blinker m_blinker;
};
