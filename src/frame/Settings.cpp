#include "frame/Settings.h"

#include "platform/CodePage1251.h"

#include <QRegularExpression>
#include <QUrl>

static constexpr QStringView Section = u"Option";
static constexpr int LongestInterval = 65'535; // ms

bool OptionIsOn(const Program& program, QStringView key) { return program.settings().number(Section, key) == 1; }

QString DefaultDrive(const Program& program) { return program.settings().read(Section, u"Drive", 4).trimmed(); }

std::optional<int> BlinkInterval(const Program& program, QStringView key)
{
    const QString value = program.settings().read(Section, key, 5);
    if (value.isEmpty()) return {};
    const double number = Val(value);
    return number == 1 ? 1 : BoundedInt(number / 10, 0, LongestInterval);
}

static bool isHexDigit(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F') || (c >= u'a' && c <= u'f');
}

QString EncodePath(const QString& path)
{
    QString stored;
    for (qsizetype i = 0; i < path.size(); ++i) {
        const QChar c = path[i];
        const bool atEnd = i == 0 || i == path.size() - 1;
        const bool percent = c == u'%' && i + 2 < path.size() && isHexDigit(path[i + 1]) && isHexDigit(path[i + 2]);
        const QString character = c.isHighSurrogate() && i + 1 < path.size() ? path.mid(i++, 2) : QString(c);
        if (percent || c < u' ' || (atEnd && (c.isSpace() || c == u'"' || c == u'\'')) || !FitsCp1251(character))
            stored += QString::fromLatin1(character.toUtf8().toPercentEncoding({}, "%\"' "));
        else
            stored += character;
    }
    return stored;
}

QString DecodePath(const QString& text)
{
    // Other percent signs stand for themselves; QUrl would take them with the two characters behind them.
    static const QRegularExpression encoded(u"(?:%[0-9A-Fa-f]{2})+"_s);
    QString path;
    qsizetype done = 0;
    for (const QRegularExpressionMatch& bytes : encoded.globalMatch(text)) {
        path += text.mid(done, bytes.capturedStart() - done) + QUrl::fromPercentEncoding(bytes.captured().toLatin1());
        done = bytes.capturedEnd();
    }
    return path + text.mid(done);
}

QString LastFolder(const Profile& settings) { return DecodePath(settings.read(u"Folders", u"Last", 4096)); }
void KeepLastFolder(const Profile& settings, const QString& path)
{
    settings.write(u"Folders", u"Last", EncodePath(path));
}
