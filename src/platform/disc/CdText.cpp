#include "platform/disc/CdText.h"

#include "platform/disc/SheetText.h"

#include <QMap>
#include <QtEndian>

namespace {
constexpr int PackSize = 18;
constexpr int TextSize = 12;

/// The texts of one type by track, 0 being the disc.
class Texts {
public:
    void add(QByteArrayView pack)
    {
        const int track = pack[1] & 0x7F;
        if (!m_running) m_track = track;
        for (const char c : pack.sliced(4, TextSize)) {
            if (c != '\0') {
                m_text.append(c);
                m_running = true;
            } else if (m_running) {
                finish();
            } else if (m_track <= track) {
                ++m_track; // an empty text
            }
        }
    }

    /// A text that was not ended is not whole.
    QString of(int track) const { return DecodeDiscText(m_texts.value(track)); }

private:
    void finish()
    {
        m_texts[m_track] = m_text == "\t" ? m_texts.value(m_track - 1) : m_text;
        ++m_track;
        m_text.clear();
        m_running = false;
    }

    QMap<int, QByteArray> m_texts;
    QByteArray m_text;
    int m_track = 0;
    bool m_running = false;
};
}

quint16 CdTextCrc(QByteArrayView bytes)
{
    quint16 crc = 0;
    for (const char byte : bytes) {
        crc = quint16(crc ^ (uchar(byte) << 8));
        for (int bit = 0; bit < 8; ++bit) crc = quint16(crc & 0x8000 ? crc << 1 ^ 0x1021 : crc << 1);
    }
    return quint16(~crc);
}

void ReadCdText(QByteArrayView packs, TableOfContents& contents)
{
    Texts titles, performers;
    for (; packs.size() >= PackSize; packs = packs.sliced(PackSize)) {
        const QByteArrayView pack = packs.first(PackSize);
        const bool firstBlock = (pack[3] & 0x70) == 0, twoByte = (pack[3] & 0x80) != 0;
        if (!firstBlock || twoByte || qFromBigEndian<quint16>(pack.data() + 16) != CdTextCrc(pack.first(16))) continue;
        if (uchar(pack[0]) == 0x80) titles.add(pack);
        if (uchar(pack[0]) == 0x81) performers.add(pack);
    }
    if (contents.title.isEmpty()) contents.title = titles.of(0);
    if (contents.performer.isEmpty()) contents.performer = performers.of(0);
    for (DiscTrack& track : contents.tracks) {
        if (track.title.isEmpty()) track.title = titles.of(track.number);
        if (track.performer.isEmpty()) track.performer = performers.of(track.number);
    }
}
