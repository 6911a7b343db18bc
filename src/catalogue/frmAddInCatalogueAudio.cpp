#include "catalogue/frmAddInCatalogueAudio.h"

#include "frame/Text.h"
#include "platform/CdToc.h"

frmAddInCatalogueAudio::frmAddInCatalogueAudio(Program& program) : frmAddInCatalogue(program, Audio())
{
    completeTitles(txtAlbum);
    txtAlbum->setMaxLength(60);
    txtTrack->setMaxLength(2);
    txtTime->setMaxLength(5);
    udTrack->setup(txtTrack, 2, CountBetween(0, 99, 2));
    udTime->setup(txtTime, 5, CountTime);
    DigitKeys(txtTrack);
    TimeKeys(txtTime);
    imgInfo->setup(u"scan"_s, u"О&пределить по диску"_s,
                   u"Узнать число треков и время воспроизведения у диска в устройстве"_s);
    connect(txtTrack, &QLineEdit::textChanged, this, [this](const QString& text) { shownDisc().tracks = text; });
    connect(txtTime, &QLineEdit::textChanged, this, [this](const QString& text) { shownDisc().time = text; });
    connect(cmbCountCD, &QComboBox::activated, this, [this] { showDisc(); });
    connect(imgInfo, &ImageButton::clicked, this, [this] { cmdInfo(); });

    build({.titleCaption = label(u"&Альбом:"_s, txtAlbum),
           .title = txtAlbum,
           .behindYear = row(label(u"&Треков:"_s, txtTrack), udTrack),
           .behindCount = row(label(u"&Время:"_s, txtTime), udTime, label(u"на ди&ске:"_s, cmbCountCD), cmbCountCD),
           .lastCaption = label(u"Устро&йство:"_s, cmbDrive),
           .last = row(cmbDrive, imgInfo, stretch)});
    moveOnByEnter({txtName, txtAlbum, txtYear, txtTrack, txtCDs, txtTime, txtDictionary});
}

void frmAddInCatalogueAudio::Form_Load()
{
    frmAddInCatalogue::Form_Load();
    Routine("FormLoad"_L1, [&] { imgInfo->setEnabled(loadDrives(cmbDrive)); });
}

void frmAddInCatalogueAudio::discsChanged()
{
    fillSet(cmbCountCD, discs());
    showDisc();
}

void frmAddInCatalogueAudio::showDisc()
{
    const Playing playing = shownDisc();
    txtTrack->setText(playing.tracks);
    txtTime->setText(playing.time);
}

void frmAddInCatalogueAudio::showExtras(const QHash<QString, Value>& extra)
{
    txtAlbum->setText(extra.value(u"Альбом"_s).text());
    for (int disc = 1; disc <= 6; ++disc) {
        Playing& playing = m_playing[std::size_t(disc - 1)];
        const Value tracks = extra.value(u"Записей%1"_s.arg(disc));
        const Value time = extra.value(u"Время%1"_s.arg(disc));
        if (!tracks.isNull()) playing.tracks = u"%1"_s.arg(tracks.toInt(), 2, 10, QChar(u'0'));
        if (!time.isNull()) playing.time = time.text();
    }
    showDisc();
}

QHash<QString, Value> frmAddInCatalogueAudio::extras() const
{
    QHash<QString, Value> extra{{u"Альбом"_s, txtAlbum->text()}};
    for (int disc = 1; disc <= 6; ++disc) {
        const Playing entered = disc <= discs() ? m_playing[std::size_t(disc - 1)] : Playing();
        const QString &tracks = entered.tracks, &time = entered.time;
        extra[u"Записей%1"_s.arg(disc)] = tracks.isEmpty() ? Value() : Value(tracks.toInt());
        extra[u"Время%1"_s.arg(disc)] = time.isEmpty() ? Value() : Value(time);
    }
    return extra;
}

void frmAddInCatalogueAudio::cmdInfo()
{
    Routine("cmdInfo"_L1, [&] {
        const auto question = u"Для получения информации о количестве треков и продолжительности воспроизведения диска "
                              "необходимо вставить Аудио диск в устройство для чтения компакт-дисков. Продоложить?"_s;
        if (MsgBox(question, Box::QuestionOkCancel) != Answer::Ok) return;
        CdToc toc;
        {
            const Hourglass hourglass;
            MMControl device(program.drives);
            device.Open(cmbDrive->currentText());
            toc = ReadToc(device);
            device.Close();
        }
        if (toc.Tracks() == 0) {
            MsgBox(u"Вставьте Аудио диск в устройство для чтения компакт-дисков!"_s);
            return;
        }
        txtTrack->setText(u"%1"_s.arg(toc.Tracks(), 2, 10, QChar(u'0')));
        if (toc.DiscLength() / 60 > 99)
            MsgBox(u"Ошибка определеня времени воспроизведения диска!"_s);
        else
            txtTime->setText(PlayingTime(toc));
    });
}
