#include "platform/disc/TocSheet.h"

#include "platform/Literals.h"
#include "platform/disc/SheetText.h"

namespace {
constexpr int SamplesPerFrame = 588;
constexpr int BytesPerSample = 4;
constexpr int SubchannelSize = 96;

struct TrackMode {
    QLatin1StringView name;
    SectorFormat format;
};
constexpr TrackMode TrackModes[] = {
    {"AUDIO"_L1, {2352, 0, true}},       {"MODE1"_L1, {2048, 0, false}},          {"MODE1_RAW"_L1, {2352, 16, false}},
    {"MODE2"_L1, {2336, 8, false}},      {"MODE2_FORM1"_L1, {2048, 0, false}},    {"MODE2_FORM2"_L1, {2324, 0, false}},
    {"MODE2_RAW"_L1, {2352, 24, false}}, {"MODE2_FORM_MIX"_L1, {2336, 8, false}},
};

struct Token {
    enum Kind { Word, Text, Sign, End } kind = End;
    QString text;
    int line = 0;

    bool is(QLatin1StringView word) const { return kind == Word && text == word; }
    bool is(QChar sign) const { return kind == Sign && text == sign; }
};

class Tokens {
public:
    explicit Tokens(QByteArrayView sheet) : m_sheet(sheet) { next(); }

    const Token& peek() const { return m_token; }
    Token next()
    {
        Token token = scan();
        std::swap(token, m_token);
        return token;
    }

private:
    Token scan()
    {
        skip();
        if (m_at >= m_sheet.size()) return {Token::End, {}, m_line};
        const char c = m_sheet[m_at];
        if (c == '"') return {Token::Text, DecodeDiscText(text()), m_line};
        if (isSign(c)) {
            ++m_at;
            return {Token::Sign, QString(QLatin1Char(c)), m_line};
        }
        const qsizetype start = m_at;
        while (m_at < m_sheet.size() && !isBlank(m_sheet[m_at]) && !isSign(m_sheet[m_at]) && m_sheet[m_at] != '"')
            ++m_at;
        return {Token::Word, QString::fromLatin1(m_sheet.sliced(start, m_at - start)), m_line};
    }

    void skip()
    {
        for (; m_at < m_sheet.size(); ++m_at) {
            if (m_sheet.sliced(m_at).startsWith("//"))
                while (m_at + 1 < m_sheet.size() && m_sheet[m_at + 1] != '\n') ++m_at;
            else if (!isBlank(m_sheet[m_at]))
                return;
            if (m_sheet[m_at] == '\n') ++m_line;
        }
    }

    QByteArray text()
    {
        QByteArray text;
        for (++m_at; m_at < m_sheet.size() && m_sheet[m_at] != '\n'; ++m_at) {
            if (m_sheet[m_at] == '"') {
                ++m_at;
                return text;
            }
            text.append(m_sheet[m_at] == '\\' ? escaped() : m_sheet[m_at]);
        }
        throw SheetError(m_line, u"текст не закрыт кавычкой."_s);
    }

    /// Stays on the last character of the escape.
    char escaped()
    {
        const QByteArrayView rest = m_sheet.sliced(m_at + 1);
        bool octal = rest.size() >= 3;
        for (int i = 0; octal && i < 3; ++i) octal = rest[i] >= '0' && rest[i] <= '7';
        if (octal) {
            m_at += 3;
            return char((rest[0] - '0') * 64 + (rest[1] - '0') * 8 + (rest[2] - '0'));
        }
        if (rest.isEmpty() || (rest[0] != '"' && rest[0] != '\\')) return '\\';
        ++m_at;
        return rest[0];
    }

    static bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
    static bool isSign(char c) { return c == '{' || c == '}' || c == ',' || c == '#'; }

    QByteArrayView m_sheet;
    qsizetype m_at = 0;
    int m_line = 1;
    Token m_token;
};

class TocReader {
public:
    TocReader(QByteArrayView sheet, const FindSectorFile& find) : m_tokens(sheet), m_find(find) {}

    DiscLayout read()
    {
        while (m_tokens.peek().kind != Token::End) {
            const Token token = m_tokens.next();
            if (token.is("TRACK"_L1))
                track();
            else if (token.is("CD_TEXT"_L1))
                cdText(m_layout.contents.title, m_layout.contents.performer);
            else if (token.is("CATALOG"_L1))
                text();
            else if (!token.is("CD_DA"_L1) && !token.is("CD_ROM"_L1) && !token.is("CD_ROM_XA"_L1) &&
                     !token.is("CD_I"_L1))
                throw unknown(token);
        }
        m_layout.contents.leadOut = Msf::fromFrames(m_frame);
        return Checked(std::move(m_layout));
    }

private:
    /// Until the next TRACK or the end.
    void track()
    {
        const Token mode = m_tokens.next();
        const auto known = modeOf(mode);
        if (!known) throw SheetError(mode.line, u"неизвестный вид дорожки '%1'."_s.arg(mode.text));
        m_format = *known;
        if (subchannel()) m_format.size += SubchannelSize;
        m_length = m_start = 0;
        m_pieces.clear();

        DiscTrack track{int(m_layout.contents.tracks.size()) + 1, m_format.audio, {}, {}, {}};
        while (m_tokens.peek().kind != Token::End && !m_tokens.peek().is("TRACK"_L1)) statement(track);

        if (m_start > m_length) throw SheetError(mode.line, u"пауза длиннее дорожки."_s);
        const int start = BoundedFrames(m_frame + whole(m_start));
        track.start = Msf::fromFrames(start);
        m_layout.contents.tracks.append(track);
        if (!track.audio && m_layout.lastSession == 0) m_layout.lastSession = start;
        m_layout.data += m_pieces;
        m_frame = BoundedFrames(m_frame + whole(m_length));
    }

    void statement(DiscTrack& track)
    {
        const Token token = m_tokens.next();
        if (token.is("FILE"_L1) || token.is("AUDIOFILE"_L1))
            audioFile(token.line);
        else if (token.is("DATAFILE"_L1))
            dataFile(token.line);
        else if (token.is("FIFO"_L1))
            text(), grow(length());
        else if (token.is("SILENCE"_L1))
            grow(length());
        else if (token.is("ZERO"_L1))
            zero();
        else if (token.is("PREGAP"_L1))
            grow(length()), m_start = m_length;
        else if (token.is("START"_L1))
            m_start = isLength() ? length() : m_length;
        else if (token.is("END"_L1) || token.is("INDEX"_L1))
            isLength() ? void(length()) : void();
        else if (token.is("CD_TEXT"_L1))
            cdText(track.title, track.performer);
        else if (token.is("ISRC"_L1))
            text();
        else if (!token.is("NO"_L1) && !token.is("COPY"_L1) && !token.is("PRE_EMPHASIS"_L1) &&
                 !token.is("TWO_CHANNEL_AUDIO"_L1) && !token.is("FOUR_CHANNEL_AUDIO"_L1))
            throw unknown(token);
    }

    void audioFile(int line)
    {
        const SectorFile file = namedFile(line);
        if (m_tokens.peek().is("SWAP"_L1)) m_tokens.next();
        const qint64 available = (file.length - skippedBytes()) / BytesPerSample;
        const qint64 from = length();
        const qint64 count = isLength() ? length() : available - from;
        if (count < 0 || from > available - count) throw SheetError(line, u"файл короче указанного."_s);
        grow(count);
    }

    void dataFile(int line)
    {
        const SectorFile file = namedFile(line);
        if (m_format.audio || file.sound) throw SheetError(line, u"вид файла не подходит дорожке."_s);
        const qint64 skip = skippedBytes();
        const qint64 available = file.length - skip;
        const qint64 sectors = isLength() ? whole(length()) : available / m_format.size;
        // The last sector of a file is not always padded.
        if (available < 0 || sectors > (available + m_format.size - 1) / m_format.size)
            throw SheetError(line, u"файл короче указанного."_s);
        const int frame = BoundedFrames(m_frame + whole(m_length));
        m_pieces.append({frame, BoundedFrames(sectors), file.path, file.offset + skip, m_format});
        grow(sectors * SamplesPerFrame);
    }

    void zero()
    {
        if (modeOf(m_tokens.peek())) m_tokens.next();
        subchannel();
        grow(length());
    }

    /// The first title and the first performer inside, of whatever language comes first.
    void cdText(QString& title, QString& performer)
    {
        if (!m_tokens.next().is(u'{')) throw SheetError(m_tokens.peek().line, u"ожидалась '{'."_s);
        for (int depth = 1; depth > 0;) {
            const Token token = m_tokens.next();
            if (token.kind == Token::End) throw SheetError(token.line, u"нет закрывающей '}'."_s);
            if (token.is(u'{')) ++depth;
            if (token.is(u'}')) --depth;
            QString* const value = token.is("TITLE"_L1) ? &title : token.is("PERFORMER"_L1) ? &performer : nullptr;
            if (value && value->isEmpty() && m_tokens.peek().kind == Token::Text) *value = m_tokens.next().text;
        }
    }

    SectorFile namedFile(int line)
    {
        const QString name = text();
        const auto file = m_find(name);
        if (!file) throw SheetError(line, u"файл '%1' не найден."_s.arg(name));
        return *file;
    }

    qint64 skippedBytes()
    {
        if (!m_tokens.peek().is(u'#')) return 0;
        m_tokens.next();
        return number(m_tokens.next());
    }

    bool subchannel()
    {
        const bool with = m_tokens.peek().is("RW"_L1) || m_tokens.peek().is("RW_RAW"_L1);
        if (with) m_tokens.next();
        return with;
    }

    bool isLength() const { return m_tokens.peek().kind == Token::Word && m_tokens.peek().text[0].isDigit(); }

    /// In samples, whatever it was written in.
    qint64 length()
    {
        const Token token = m_tokens.next();
        if (const auto frames = FramesOfMsf(token.text)) return qint64(*frames) * SamplesPerFrame;
        const qint64 count = number(token);
        return m_format.audio ? count : (count + m_format.size - 1) / m_format.size * SamplesPerFrame;
    }

    void grow(qint64 samples)
    {
        BoundedFrames(whole(m_length + samples));
        m_length += samples;
    }
    static qint64 whole(qint64 samples) { return (samples + SamplesPerFrame - 1) / SamplesPerFrame; }

    qint64 number(const Token& token) const
    {
        bool isWhole = false;
        const qint64 number = token.text.toLongLong(&isWhole);
        constexpr qint64 most = qint64(1) << 50;
        if (token.kind != Token::Word || !isWhole || number < 0 || number > most)
            throw SheetError(token.line, u"'%1' - не длина."_s.arg(token.text));
        return number;
    }

    QString text()
    {
        const Token token = m_tokens.next();
        if (token.kind != Token::Text) throw SheetError(token.line, u"ожидался текст в кавычках."_s);
        return token.text;
    }

    static std::optional<SectorFormat> modeOf(const Token& token)
    {
        for (const TrackMode& mode : TrackModes)
            if (token.is(mode.name)) return mode.format;
        return {};
    }

    static DiscError unknown(const Token& token)
    {
        return SheetError(token.line, u"непонятное слово '%1'."_s.arg(token.text));
    }

    Tokens m_tokens;
    const FindSectorFile& m_find;
    DiscLayout m_layout;
    int m_frame = LeadInFrames; ///< where the track at hand begins, its pause included
    SectorFormat m_format;
    qint64 m_length = 0, m_start = 0; ///< of the track at hand, in samples
    QList<DataExtent> m_pieces;
};
}

DiscLayout ReadTocSheet(QByteArrayView sheet, const FindSectorFile& find) { return TocReader(sheet, find).read(); }
