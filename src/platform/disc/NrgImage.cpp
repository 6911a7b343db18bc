#include "platform/disc/NrgImage.h"

#include "platform/Literals.h"
#include "platform/disc/CdText.h"

#include <QMap>
#include <QtEndian>
#include <algorithm>

namespace {
constexpr qint64 MostChunkBytes = 1 << 20;
/// Lead-out of a session and lead-in of the next, without the pause: the first lead-out of a disc is a minute longer.
constexpr int FirstSessionGap = 6750 + 4500;
constexpr int LaterSessionGap = 2250 + 4500;

DiscError Damaged() { return DiscError(u"Образ повреждён: описание дорожек не читается."_s); }

/// The numbers of a chunk, one after the other; what it does not hold is damage.
class Chunk {
public:
    explicit Chunk(QByteArrayView bytes) : m_bytes(bytes) {}

    bool atEnd() const { return m_bytes.isEmpty(); }
    void skip(qsizetype count) { take(count); }
    template<class Number> Number number() { return qFromBigEndian<Number>(take(sizeof(Number)).data()); }
    /// A position in the file.
    qint64 offset(bool wide)
    {
        const quint64 value = wide ? number<quint64>() : number<quint32>();
        if (value > quint64(std::numeric_limits<qint64>::max())) throw Damaged();
        return qint64(value);
    }

private:
    QByteArrayView take(qsizetype count)
    {
        if (count > m_bytes.size()) throw Damaged();
        const QByteArrayView taken = m_bytes.first(count);
        m_bytes = m_bytes.sliced(count);
        return taken;
    }

    QByteArrayView m_bytes;
};

SectorFormat FormatOf(int mode)
{
    switch (mode) {
    case 0x00:
    case 0x02: return {2048, 0, false};
    case 0x03: return {2336, 8, false};
    case 0x05: return {2352, 16, false};
    case 0x06: return {2352, 24, false};
    case 0x07: return {2352, 0, true};
    case 0x0F: return {2448, 16, false};
    case 0x10: return {2448, 0, true};
    case 0x11: return {2448, 24, false};
    default: throw DiscError(u"Образ содержит дорожку неизвестного вида %1."_s.arg(mode));
    }
}

int OfBcd(quint8 value) { return (value >> 4) * 10 + (value & 15); }

class NrgReader {
public:
    NrgReader(SectorSource& file, const QString& path) : m_file(file), m_path(path) {}

    DiscLayout read(qint64 at)
    {
        QByteArray cdText;
        for (qint64 total = 0;;) {
            const QByteArray head = bytes(at, 8);
            const QByteArray id = head.first(4);
            const qint64 size = qFromBigEndian<quint32>(head.constData() + 4);
            total += size + 8;
            if (total > MostChunkBytes) throw Damaged();
            if (id == "END!") break;
            const QByteArray chunk = bytes(at + 8, size);
            if (id == "CUEX") cueSheet(Chunk(chunk));
            if (id == "DAOI" || id == "DAOX") discAtOnce(Chunk(chunk), id == "DAOX");
            if (id == "ETNF" || id == "ETN2") trackAtOnce(Chunk(chunk), id == "ETN2");
            if (id == "CDTX") cdText = chunk;
            at += 8 + size;
        }
        m_layout.contents.leadOut = Msf::fromFrames(m_end);
        ReadCdText(cdText, m_layout.contents);
        return Checked(std::move(m_layout));
    }

private:
    QByteArray bytes(qint64 at, qint64 length)
    {
        if (at < 0 || at > m_file.size() - length) throw Damaged();
        return m_file.read(at, length);
    }

    /// Where the tracks of the session begin, which the pauses stored in the file tell only for the first.
    void cueSheet(Chunk fields)
    {
        while (!fields.atEnd()) {
            fields.skip(1);
            const int track = OfBcd(fields.number<quint8>());
            const int index = fields.number<quint8>();
            fields.skip(1);
            const qint64 sector = fields.number<qint32>();
            if (index == 1 && sector >= 0) m_starts[track] = BoundedFrames(sector + LeadInFrames);
        }
    }

    void discAtOnce(Chunk fields, bool wide)
    {
        fields.skip(20);
        int number = fields.number<quint8>();
        fields.skip(1);
        newSession();
        for (bool first = true; !fields.atEnd(); first = false) {
            fields.skip(12);
            const int size = fields.number<quint16>();
            const SectorFormat format = FormatOf(fields.number<quint8>());
            fields.skip(3);
            const qint64 pause = fields.offset(wide), start = fields.offset(wide), end = fields.offset(wide);
            if (size != format.size || pause > start || start > end || end > m_file.size()) throw Damaged();
            // The pause before the first track of a session may be left out of the file.
            int frame = BoundedFrames(m_end + std::max<qint64>((start - pause) / size, first ? LeadInFrames : 0));
            frame = m_starts.value(number, frame);
            add(number++, format, frame, start, (end - start) / size);
        }
    }

    void trackAtOnce(Chunk fields, bool wide)
    {
        newSession();
        while (!fields.atEnd()) {
            const qint64 offset = fields.offset(wide), length = fields.offset(wide);
            const SectorFormat format = FormatOf(int(std::min<quint32>(fields.number<quint32>(), 0xFF)));
            const qint64 sector = fields.number<quint32>();
            fields.skip(wide ? 8 : 4);
            if (length > m_file.size() || offset > m_file.size() - length) throw Damaged();
            add(m_last + 1, format, BoundedFrames(sector + LeadInFrames), offset, length / format.size);
        }
    }

    void newSession()
    {
        if (++m_session > 1)
            m_end = BoundedFrames(qint64(m_end) + (m_session == 2 ? FirstSessionGap : LaterSessionGap));
    }

    void add(int number, const SectorFormat& format, int frame, qint64 offset, qint64 sectors)
    {
        m_layout.contents.tracks.append({number, format.audio, Msf::fromFrames(frame), {}, {}});
        m_end = BoundedFrames(frame + sectors);
        m_last = number;
        if (format.audio) return;
        m_layout.data.append({frame, int(sectors), m_path, offset, format});
        if (m_dataSession != m_session) m_layout.lastSession = frame;
        m_dataSession = m_session;
    }

    SectorSource& m_file;
    QString m_path;
    DiscLayout m_layout;
    QMap<int, int> m_starts; ///< frame by track
    int m_end = 0;           ///< frame behind the last track so far
    int m_last = 0;
    int m_session = 0, m_dataSession = 0;
};
}

std::optional<DiscLayout> ReadNrgImage(SectorSource& file, const QString& path)
{
    constexpr int footer = 12;
    if (file.size() < footer) return {};
    const QByteArray end = file.read(file.size() - footer, footer);
    if (end.startsWith("NER5")) return NrgReader(file, path).read(qFromBigEndian<qint64>(end.constData() + 4));
    if (end.sliced(4).startsWith("NERO"))
        return NrgReader(file, path).read(qFromBigEndian<quint32>(end.constData() + 8));
    return {};
}
