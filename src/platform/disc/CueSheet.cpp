#include "platform/disc/CueSheet.h"

#include "platform/Literals.h"
#include "platform/disc/SheetText.h"

#include <algorithm>
#include <utility>

namespace {
/// Lead-out of a session, lead-in of the next and its pause: the first lead-out of a disc is a minute longer.
constexpr int FirstSessionGap = 6750 + 4500 + LeadInFrames;
constexpr int LaterSessionGap = 2250 + 4500 + LeadInFrames;

struct TrackMode {
    QLatin1StringView name;
    SectorFormat format;
};
constexpr TrackMode TrackModes[] = {
    {"AUDIO"_L1, {2352, 0, true}},        {"CDG"_L1, {2448, 0, true}},          {"MODE1/2048"_L1, {2048, 0, false}},
    {"MODE1/2352"_L1, {2352, 16, false}}, {"MODE1/2448"_L1, {2448, 16, false}}, {"MODE2/2048"_L1, {2048, 0, false}},
    {"MODE2/2336"_L1, {2336, 8, false}},  {"MODE2/2352"_L1, {2352, 24, false}}, {"MODE2/2448"_L1, {2448, 24, false}},
    {"CDI/2336"_L1, {2336, 8, false}},    {"CDI/2352"_L1, {2352, 24, false}},
};

/// Words of a line; a text in quotation marks is one word, its marks off.
QStringList Words(const QString& line)
{
    QStringList words;
    for (qsizetype i = 0; i < line.size();) {
        if (line[i].isSpace()) {
            ++i;
            continue;
        }
        const bool quoted = line[i] == u'"';
        const qsizetype start = quoted ? i + 1 : i;
        for (i = start; i < line.size() && (quoted ? line[i] != u'"' : !line[i].isSpace());) ++i;
        words.append(line.sliced(start, i - start));
        if (quoted) ++i;
    }
    return words;
}

class CueReader {
public:
    explicit CueReader(const FindSectorFile& find) : m_find(find) {}

    DiscLayout read(QByteArrayView sheet)
    {
        if (sheet.startsWith("\xEF\xBB\xBF")) sheet = sheet.sliced(3);
        for (const QByteArray& line : sheet.toByteArray().replace("\r\n", "\n").replace('\r', '\n').split('\n')) {
            ++m_line;
            statement(DecodeDiscText(line).trimmed());
        }
        endTrack();
        endFile();
        m_layout.contents.leadOut = Msf::fromFrames(BoundedFrames(m_base));
        return Checked(std::move(m_layout));
    }

private:
    void statement(const QString& line)
    {
        const QStringList words = Words(line);
        if (words.isEmpty()) return;
        const auto is = [&](QLatin1StringView keyword) { return words[0].compare(keyword, Qt::CaseInsensitive) == 0; };
        const auto word = [&](qsizetype i) {
            if (i >= words.size()) throw SheetError(m_line, u"строка не закончена."_s);
            return words[i];
        };
        if (is("FILE"_L1))
            file(line, word(1), word(words.size() < 3 ? 2 : words.size() - 1));
        else if (is("TRACK"_L1))
            track(number(word(1)), word(2));
        else if (is("INDEX"_L1))
            index(number(word(1)), frames(word(2)));
        else if (is("PREGAP"_L1))
            pregap(frames(word(1)));
        else if (is("POSTGAP"_L1))
            m_base += frames(word(1));
        else if (is("TITLE"_L1))
            (m_track ? m_track->title : m_layout.contents.title) = word(1);
        else if (is("PERFORMER"_L1))
            (m_track ? m_track->performer : m_layout.contents.performer) = word(1);
        else if (is("REM"_L1) && words.size() > 2 && words[1].compare("SESSION"_L1, Qt::CaseInsensitive) == 0)
            session(number(words[2]));
    }

    void file(const QString& line, QString name, const QString& type)
    {
        if (!line.contains(u'"')) // a name of several words
            name = line.sliced(4).chopped(type.size()).trimmed();
        endFile();
        m_file = m_find(name);
        if (!m_file) throw SheetError(m_line, u"файл '%1' не найден."_s.arg(name));
        const bool raw = type.compare("BINARY"_L1, Qt::CaseInsensitive) == 0 ||
                         type.compare("MOTOROLA"_L1, Qt::CaseInsensitive) == 0;
        if (!raw && !m_file->sound) throw SheetError(m_line, u"файл '%1' неизвестного формата."_s.arg(name));
    }

    void track(int number, const QString& mode)
    {
        endTrack();
        const auto* known = std::find_if(std::begin(TrackModes), std::end(TrackModes), [&](const TrackMode& m) {
            return mode.compare(m.name, Qt::CaseInsensitive) == 0;
        });
        if (known == std::end(TrackModes)) throw SheetError(m_line, u"неизвестный вид дорожки '%1'."_s.arg(mode));
        if (m_file && m_file->sound && !known->format.audio)
            throw SheetError(m_line, u"в звуковом файле не может быть данных."_s);
        m_track = DiscTrack{number, known->format.audio, {}, {}, {}};
        m_trackFormat = known->format;
        m_indexed = m_begun = false;
    }

    void pregap(int frames)
    {
        if (!m_track || m_indexed) throw SheetError(m_line, u"пауза не перед дорожкой."_s);
        if (m_layout.contents.tracks.isEmpty() && !m_track->audio) frames = std::max(0, frames - LeadInFrames);
        m_base += frames;
    }

    void index(int number, int position)
    {
        if (!m_file || !m_track) throw SheetError(m_line, u"позиция вне файла или дорожки."_s);
        const int size = m_sectorSize > 0 ? m_sectorSize : m_trackFormat.size;
        const qint64 offset = m_offset + qint64(position - m_position) * size;
        if (position < m_position || offset > m_file->length)
            throw SheetError(m_line, u"позиция вне файла или раньше предыдущей."_s);
        if (!std::exchange(m_indexed, true)) endExtent(offset);
        m_position = position;
        m_offset = offset;
        m_sectorSize = m_trackFormat.size;
        if (number == 1) begin();
    }

    void begin()
    {
        if (std::exchange(m_begun, true)) throw SheetError(m_line, u"дорожка начинается дважды."_s);
        const int frame = BoundedFrames(m_base + m_position);
        m_track->start = Msf::fromFrames(frame);
        if (m_track->audio) return;
        if (m_layout.lastSession == 0 || m_dataSession != m_session) m_layout.lastSession = frame;
        m_dataSession = m_session;
        m_extent = DataExtent{frame, 0, m_file->path, m_file->offset + m_offset, m_trackFormat};
    }

    void session(int number)
    {
        if (number <= m_session) return;
        endTrack();
        m_base += m_session == 1 ? FirstSessionGap : LaterSessionGap;
        m_session = number;
    }

    /// The titles of a track may follow its positions, so it is taken over only when the next one comes.
    void endTrack()
    {
        if (!m_track) return;
        if (!m_begun) throw SheetError(m_line, u"у дорожки %1 нет начала."_s.arg(m_track->number));
        m_layout.contents.tracks.append(*std::exchange(m_track, {}));
    }

    void endExtent(qint64 offset)
    {
        if (!m_extent) return;
        m_extent->sectors = BoundedFrames((m_file->offset + offset - m_extent->offset) / m_extent->format.size);
        m_layout.data.append(*std::exchange(m_extent, {}));
    }

    void endFile()
    {
        if (!m_file) return;
        endExtent(m_file->length);
        const int size = m_sectorSize > 0 ? m_sectorSize : RawSectorSize;
        m_base = BoundedFrames(m_base + m_position + (m_file->length - m_offset) / size);
        m_file.reset();
        m_position = m_sectorSize = 0;
        m_offset = 0;
    }

    int number(const QString& word) const
    {
        bool whole = false;
        const int number = word.toInt(&whole);
        if (!whole || number < 0 || number > 99) throw SheetError(m_line, u"'%1' - не номер."_s.arg(word));
        return number;
    }

    int frames(const QString& word) const
    {
        const auto frames = FramesOfMsf(word);
        if (!frames) throw SheetError(m_line, u"'%1' - не позиция вида 00:00:00."_s.arg(word));
        return *frames;
    }

    const FindSectorFile& m_find;
    DiscLayout m_layout;
    int m_line = 0;
    int m_session = 1, m_dataSession = 0;

    std::optional<SectorFile> m_file;
    qint64 m_base = LeadInFrames; ///< frame of the disc where the file's position 0 lies
    int m_position = 0;           ///< in the file, of the last INDEX
    qint64 m_offset = 0;          ///< its byte, which differs by the sectors of the tracks before it
    int m_sectorSize = 0;         ///< from there on; 0 before the file's first INDEX

    std::optional<DiscTrack> m_track;
    SectorFormat m_trackFormat;
    bool m_indexed = false, m_begun = false; ///< an INDEX was seen, INDEX 01 was
    std::optional<DataExtent> m_extent;
};
}

DiscLayout ReadCueSheet(QByteArrayView sheet, const FindSectorFile& find) { return CueReader(find).read(sheet); }
