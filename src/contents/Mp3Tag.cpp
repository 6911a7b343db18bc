#include "contents/Mp3Tag.h"

#include "frame/Text.h"
#include "platform/CodePage1251.h"
#include "platform/RuntimeError.h"

static constexpr int TagLength = 128;

bool MP3TagEditor::read(const QString& path, const TagSource& source)
{
    reset();
    setFileName(path);
    if (source.size <= TagLength) return true;
    QByteArray tag;
    try {
        tag = source.read(source.size - TagLength, TagLength);
    } catch (const RuntimeError&) {
        return false;
    }
    if (tag.size() != TagLength) return false;
    if (tag.startsWith("TAG")) {
        setHasTag(true);
        setTitle(DecodeCp1251(QByteArrayView(tag).sliced(3, FieldLength)));
        setArtist(DecodeCp1251(QByteArrayView(tag).sliced(3 + FieldLength, FieldLength)));
    }
    return true;
}

void MP3TagEditor::reset()
{
    setHasTag(false);
    setTitle({});
    setArtist({});
}

static QString cleaned(const QString& field)
{
    const qsizetype zero = field.indexOf(QChar::Null);
    const QString text = CleanText(zero < 0 ? field : field.left(zero));
    qsizetype from = 0, to = text.size();
    while (from < to && text[from] == u' ') ++from;
    while (to > from && text[to - 1] == u' ') --to;
    return text.mid(from, to - from);
}

QString MP3TagEditor::artist() const { return cleaned(m_artist); }
QString MP3TagEditor::title() const { return cleaned(m_title); }
