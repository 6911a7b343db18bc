#include "contents/Mp3Tag.h"

#include "harness/Print.h"
#include "platform/CodePage1251.h"
#include "platform/disc/Disc.h"

#include <gtest/gtest.h>

namespace {

QByteArray tag(const QByteArray& title, const QByteArray& artist)
{
    return "TAG" + title.leftJustified(30, '\0') + artist.leftJustified(30, '\0') + QByteArray(65, '\0');
}

/// "artist|title" of a file with these bytes, "failed" if it could not be read.
QString read(const QByteArray& file)
{
    MP3TagEditor editor;
    editor.setTitle(u"von davor"_s);
    const bool done = editor.read(u"\\a.mp3"_s, {file.size(), [&](qint64 at, qint64 n) { return file.mid(at, n); }});
    EXPECT_EQ(editor.hasTag(), done && file.size() > 128 && file.mid(file.size() - 128).startsWith("TAG"));
    return done ? editor.artist() + u'|' + editor.title() : u"failed"_s;
}

}

TEST(Mp3Tag, ReadsArtistAndTitleInCodePage1251)
{
    EXPECT_EQ(read("music" + tag(EncodeCp1251(u"Группа крови"_s), EncodeCp1251(u"Кино"_s))), u"Кино|Группа крови"_s);
    EXPECT_EQ(read("music" + tag("  [Live] \"One\"  ", "A\0rest of the field"_ba)), u"A|(Live) 'One'"_s);
    EXPECT_EQ(read("music" + tag(QByteArray(30, 'x'), QByteArray(30, 'y'))),
              QString(30, u'y') + u'|' + QString(30, u'x'));
}

TEST(Mp3Tag, FilesWithoutOneGiveEmptyTexts)
{
    EXPECT_EQ(read(tag("title", "artist")), u"|"_s) << "a tag alone is no music";
    EXPECT_EQ(read("music" + tag("title", "artist").replace("TAG", "tag")), u"|"_s);
    EXPECT_EQ(read({}), u"|"_s);
}

TEST(Mp3Tag, AFailingOrShortReadIsToldByTheResult)
{
    MP3TagEditor editor;
    EXPECT_FALSE(editor.read(u"a.mp3"_s, {1000, [](qint64, qint64) -> QByteArray { throw DiscError(u"царапина"_s); }}));
    EXPECT_FALSE(editor.read(u"a.mp3"_s, {1000, [](qint64, qint64) { return QByteArray("TAG"); }}));
    EXPECT_EQ(editor.artist() + editor.title(), QString());
    EXPECT_EQ(editor.fileName(), u"a.mp3"_s);
}

TEST(Mp3Tag, PadCutsOrFills)
{
    EXPECT_EQ(MP3TagEditor::pad(u"abc"_s, 5), u"abc  "_s);
    EXPECT_EQ(MP3TagEditor::pad(u"abcdef"_s, 5), u"abcde"_s);
}
