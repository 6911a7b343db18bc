#pragma once

#include "catalogue/SoundFormats.h"
#include "catalogue/frmAddInCatalogue.h"
#include "ui/ListView.h"

#include <QComboBox>
#include <QPlainTextEdit>

/// The editor of DVDs: playing time, region, sound formats and a description besides.
class frmAddInCatalogueDVD : public frmAddInCatalogue {
public:
    explicit frmAddInCatalogueDVD(Program& program);

    QLineEdit* txtTime = named("txtTime"); ///< minutes
    UpDown* udTime = named("udTime");
    QComboBox* cmbZone = named("cmbZone");
    QPlainTextEdit* txtDescription = named("txtDescription");
    ListView* lvSoundFormat = named("lvSoundFormat");

protected:
    void showExtras(const QHash<QString, Value>& extra) override;
    QHash<QString, Value> extras() const override;
    void Form_Load() override;

private:
    void showZone(const QString& zone);
    void LoadSoundFormats(const QString& field);
    QStringList checkedFormats() const;

    std::optional<SoundFormats> m_formats;
};
