#include "platform/disc/NrgImage.h"
#include "LayoutText.h"
#include "harness/FileSystemImages.h"
#include "platform/disc/CdText.h"

#include <QtEndian>

namespace {
template<class Number> QByteArray big(Number value)
{
    value = qToBigEndian(value);
    return QByteArray(reinterpret_cast<const char*>(&value), sizeof value);
}

/// Writes images of one version: bytes of the file, chunks, footer.
struct NrgWriter {
    bool wide;
    qint64 sectors; ///< bytes in front of the chunks
    QByteArray chunks = {};

    QByteArray offset(qint64 value) const { return wide ? big<qint64>(value) : big<qint32>(qint32(value)); }
    NrgWriter& chunk(const char* id, const QByteArray& content)
    {
        chunks += id + big<qint32>(qint32(content.size())) + content;
        return *this;
    }
    QByteArray dao(int first, const QList<QList<qint64>>& tracks) const
    {
        QByteArray content(22, '\0');
        content[20] = char(first);
        for (const auto& t : tracks) // size, mode, pause, start, end
            content += QByteArray(12, ' ') + big<qint16>(qint16(t[0])) + char(t[1]) + QByteArray("\0\0\1", 3) +
                       offset(t[2]) + offset(t[3]) + offset(t[4]);
        return content;
    }
    QByteArray tao(const QList<QList<qint64>>& tracks) const
    {
        QByteArray content;
        for (const auto& t : tracks) // offset, length, mode, sector
            content += offset(t[0]) + offset(t[1]) + big<qint32>(qint32(t[2])) + big<qint32>(qint32(t[3])) +
                       QByteArray(wide ? 8 : 4, '\0');
        return content;
    }
    QByteArray image() const
    {
        return QByteArray(sectors, '\0') + chunks + "END!" + big<qint32>(0) +
               (wide ? "NER5" + big<qint64>(sectors) : "NERO" + big<qint32>(qint32(sectors)));
    }
};

QByteArray pack(int type, int track, int sequence, const QByteArray& text)
{
    QByteArray pack;
    for (const int byte : {type, track, sequence, 0}) pack.append(char(byte));
    pack += text.leftJustified(12, '\0', true);
    return pack + big<quint16>(CdTextCrc(pack));
}

std::string nrg(const QByteArray& image)
{
    return outcome([&] {
        TestSource file(image);
        return ReadNrgImage(file, "i.nrg").value_or(DiscLayout());
    });
}
}

TEST(NrgImage, DiscAtOnceInBothVersions)
{
    for (const bool wide : {false, true}) {
        NrgWriter writer{wide, 352 * 2352 + 10 * 2448};
        writer.chunk(wide ? "DAOX" : "DAOI", writer.dao(1, {{2352, 7, 0, 152 * 2352, 252 * 2352},
                                                            {2352, 5, 252 * 2352, 262 * 2352, 352 * 2352}}));
        writer.chunk("SINF", big<qint32>(2));
        writer.chunk(wide ? "DAOX" : "DAOI", writer.dao(3, {{2448, 0x11, 352 * 2352, 352 * 2352, 352 * 2352 + 24480}}));
        writer.chunk("CDTX", pack(0x80, 0, 0, QByteArray("Disc\0One\0\xC4\xE2\xE0", 12)) + pack(0x80, 2, 1, "!"));
        EXPECT_EQ(nrg(writer.image()), "1 audio 00:02:02  - One\n2 data 00:03:37  - Два!\n3 data 02:36:52\n"
                                       "out 02:36:62  - Disc\n"
                                       "262+90 i.nrg@616224 2352/16\n11752+10 i.nrg@827904 2448/24\nsession 11752\n")
            << wide;
    }
}

TEST(NrgImage, TrackAtOnceAndTheCueSheetTellWhereTracksBegin)
{
    for (const bool wide : {false, true}) {
        NrgWriter tao{wide, 1 << 20};
        tao.chunk(wide ? "ETN2" : "ETNF", tao.tao({{0, 204800, 0, 0}, {204800, 23520, 7, 12000}}));
        EXPECT_EQ(nrg(tao.image()), "1 data 00:02:00\n2 audio 02:42:00\nout 02:42:10\n150+100 i.nrg@0 2048/0\n")
            << wide;
    }
    NrgWriter dao{true, 2352 * 100};
    dao.chunk("CUEX", QByteArray::fromHex("01010000FFFFFF6A"
                                          "0101010000000010"
                                          "01020100000000FF"));
    dao.chunk("DAOX", dao.dao(1, {{2352, 7, 0, 0, 23520}, {2352, 7, 23520, 23520, 47040}}));
    EXPECT_EQ(nrg(dao.image()), "1 audio 00:02:16\n2 audio 00:05:30\nout 00:05:40\n");
}

TEST(NrgImage, DamageHasOneWayOut)
{
    const auto with = [](const QList<qint64>& track) {
        NrgWriter writer{true, 2352 * 10};
        return nrg(writer.chunk("DAOX", writer.dao(1, {track})).image());
    };
    EXPECT_EQ(with({2352, 7, 0, 0, 23520}), "1 audio 00:02:00\nout 00:02:10\n");
    const QList<qint64> damaged[] = {{2352, 9, 0, 0, 23520},   {2048, 7, 0, 0, 23520}, {2352, 7, 1, 0, 5},
                                     {2352, 7, 0, 0, 1 << 30}, {2352, 7, 0, 0, -1},    {0, 7, 0, 0, 9}};
    for (const QList<qint64>& track : damaged)
        EXPECT_TRUE(with(track).starts_with("error")) << track[1] << " " << track[4];
    for (const qint64 chunks : {-5, 0}) EXPECT_TRUE(nrg("NER5" + big<qint64>(chunks)).starts_with("error"));
    EXPECT_EQ(nrg("no footer at all"), "out 00:00:00\n");

    NrgWriter writer{false, 2352 * 10};
    writer.chunk("DAOI", writer.dao(1, {{2352, 7, 0, 0, 23520}})).chunk("CDTX", pack(0x80, 0, 0, "x"));
    const QByteArray chunks = writer.chunks + "END!" + big<qint32>(0);
    cutEverywhere(chunks, [&](const QByteArray& cut) {
        TestSource file(QByteArray(23520, '\0') + cut + "NERO" + big<qint32>(23520));
        return *ReadNrgImage(file, "i.nrg");
    });
}

TEST(CdText, PassesOverWhatIsNoText)
{
    TableOfContents contents;
    contents.tracks = {{1, true, {0, 2, 0}, "mine", {}}, {2, true, {0, 3, 0}, {}, {}}, {3, true, {0, 4, 0}, {}, {}}};
    QByteArray wrongCrc = pack(0x80, 0, 0, "Wrong");
    wrongCrc[5] = 'X';
    QByteArray wide = pack(0x80, 0, 0, "W");
    wide[3] = char(0x80);
    wide.chop(2);
    wide += big<quint16>(CdTextCrc(wide));
    ReadCdText(wrongCrc + wide + pack(0x80, 0, 0, QByteArray("A\0B\0C", 5)) +
                   pack(0x81, 0, 1, QByteArray("P\0\t\0Q\0\t", 7)) + pack(0x8F, 0, 2, "sizes") +
                   pack(0x81, 0, 1, "x").first(17),
               contents);
    DiscLayout layout;
    layout.contents = contents;
    EXPECT_EQ(text(layout),
              "1 audio 00:02:00 P - mine\n2 audio 00:03:00 Q - C\n3 audio 00:04:00 Q - \nout 00:00:00 P - A\n");

    TableOfContents garbage;
    for (int length = 0; length < 64; ++length) ReadCdText(QByteArray(length, char(length * 37)), garbage);
    EXPECT_EQ(garbage.title, "");
}
