#include "platform/Profile.h"

#include "platform/CodePage1251.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

namespace {
constexpr qint64 LargestFile = 4 << 20;

bool IsBlank(QChar c) { return c == u' ' || c == u'\t'; }

QStringView Trimmed(QStringView text)
{
    while (!text.isEmpty() && IsBlank(text.front())) text = text.sliced(1);
    while (!text.isEmpty() && IsBlank(text.back())) text.chop(1);
    return text;
}

bool SameName(QStringView a, QStringView b) { return Trimmed(a).compare(Trimmed(b), Qt::CaseInsensitive) == 0; }

/// What is written never breaks out of its line.
QString OneLine(QStringView text)
{
    QString line = Trimmed(text).toString();
    for (QChar& c : line)
        if (c == u'\r' || c == u'\n' || c.isNull()) c = u' ';
    return line;
}

QStringView Unquoted(QStringView value)
{
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == u'"' || value.front() == u'\'');
    return quoted ? value.sliced(1, value.size() - 2) : value;
}

/// The lines of a file with their ends. The character positions are those of the bytes, so what is not touched is
/// written back as it was.
class Lines {
public:
    explicit Lines(const QByteArray& content) : m_text(DecodeCp1251(content))
    {
        for (qsizetype start = 0; start < m_text.size();) {
            const qsizetype end = m_text.indexOf(u'\n', start);
            const qsizetype next = end < 0 ? m_text.size() : end + 1;
            m_lines.append(m_text.sliced(start, next - start));
            start = next;
        }
    }

    /// First line behind the section's heading and the line after its last; nothing when there is no such section.
    struct Range {
        qsizetype begin, end;
    };
    std::optional<Range> section(QStringView name) const
    {
        for (qsizetype i = 0; i < m_lines.size(); ++i) {
            const auto heading = headingAt(i);
            if (!heading || !SameName(*heading, name)) continue;
            qsizetype end = i + 1;
            while (end < m_lines.size() && !headingAt(end)) ++end;
            return Range{i + 1, end};
        }
        return {};
    }

    /// Index of the key's line, -1 without one.
    qsizetype find(const Range& range, QStringView key) const
    {
        for (qsizetype i = range.begin; i < range.end; ++i) {
            const auto name = keyAt(i);
            if (name && SameName(*name, key)) return i;
        }
        return -1;
    }

    /// The name before the equals sign; nothing for comments and whatever else stands in a section.
    std::optional<QStringView> keyAt(qsizetype i) const
    {
        const QStringView line = Trimmed(at(i));
        const qsizetype equals = line.indexOf(u'=');
        if (equals < 0 || line.startsWith(u';')) return {};
        return Trimmed(line.first(equals));
    }
    QStringView valueAt(qsizetype i) const { return Unquoted(Trimmed(at(i).sliced(at(i).indexOf(u'=') + 1))); }

    /// Replaces the value in place, or adds key and section; false for names that no line can carry.
    bool put(QStringView sectionName, const QString& key, const QString& value)
    {
        if (key.isEmpty() || key.contains(u'=')) return false;
        auto range = section(sectionName);
        if (!range) {
            insert(m_lines.size(), u'[' + OneLine(sectionName) + u']');
            range = section(sectionName);
            if (!range) return false;
        }
        const qsizetype line = find(*range, key);
        if (line >= 0)
            m_lines[line] = at(line).first(at(line).indexOf(u'=') + 1).toString() + value + QStringLiteral("\r\n");
        else
            append(*range, key + u'=' + value);
        return true;
    }
    void remove(qsizetype begin, qsizetype end) { m_lines.remove(begin, end - begin); }

    QByteArray content() const { return EncodeCp1251(m_lines.join(QString())); }

private:
    /// Without its end.
    QStringView at(qsizetype i) const
    {
        QStringView line = m_lines[i];
        while (line.endsWith(u'\n') || line.endsWith(u'\r')) line.chop(1);
        return line;
    }
    std::optional<QStringView> headingAt(qsizetype i) const
    {
        const QStringView line = Trimmed(at(i));
        const qsizetype bracket = line.lastIndexOf(u']');
        if (!line.startsWith(u'[') || bracket < 0) return {};
        return line.sliced(1, bracket - 1);
    }
    /// Behind the section's last line that is not blank, so that a gap before the next heading stays one.
    void append(const Range& range, const QString& line)
    {
        qsizetype i = range.end;
        while (i > range.begin && Trimmed(at(i - 1)).isEmpty()) --i;
        insert(i, line);
    }
    void insert(qsizetype i, const QString& line)
    {
        if (i > 0 && !m_lines[i - 1].endsWith(u'\n')) m_lines[i - 1] += QStringLiteral("\r\n");
        m_lines.insert(i, line + QStringLiteral("\r\n"));
    }

    QString m_text;
    QStringList m_lines;
};

/// Nothing when there is a file that cannot be read whole: it reads as empty, but is not to be overwritten.
std::optional<QByteArray> Content(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists()) return QByteArray();
    QFile file(path);
    if (!info.isFile() || info.size() > LargestFile || !file.open(QIODevice::ReadOnly)) return {};
    const QByteArray content = file.read(LargestFile + 1);
    if (content.size() > LargestFile || file.error() != QFileDevice::NoError) return {};
    return content;
}

bool Replace(const QString& path, const QByteArray& content)
{
    if (content.size() > LargestFile) return false;
    QSaveFile file(path);
    // Of what its buffer holds, commit() does not see that it could not be written.
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush() && file.commit();
}
}

Profile::Profile(const QString& path) : m_path(path) {}

QString Profile::read(QStringView section, QStringView key, int buffer) const
{
    const Lines lines(Content(m_path).value_or(QByteArray()));
    const auto range = lines.section(section);
    if (!range) return {};
    const qsizetype line = lines.find(*range, key);
    return line < 0 ? QString() : lines.valueAt(line).left(std::max(0, buffer - 1)).toString();
}

double Profile::number(QStringView section, QStringView key, int buffer) const
{
    return Val(read(section, key, buffer));
}

QStringList Profile::keys(QStringView section) const
{
    const Lines lines(Content(m_path).value_or(QByteArray()));
    const auto range = lines.section(section);
    QStringList keys;
    for (qsizetype i = range ? range->begin : 0; range && i < range->end; ++i)
        if (const auto key = lines.keyAt(i)) keys.append(key->toString());
    return keys;
}

QHash<QString, QString> Profile::values(QStringView section, int buffer) const
{
    const Lines lines(Content(m_path).value_or(QByteArray()));
    const auto range = lines.section(section);
    QHash<QString, QString> values;
    for (qsizetype i = range ? range->begin : 0; range && i < range->end; ++i) {
        const auto key = lines.keyAt(i);
        if (!key || values.contains(key->toString().toLower())) continue;
        values[key->toString().toLower()] = lines.valueAt(i).left(std::max(0, buffer - 1)).toString();
    }
    return values;
}

bool Profile::write(QStringView section, QStringView key, const QString& value) const
{
    return write(section, {{key.toString(), value}});
}

bool Profile::write(QStringView section, const Entries& entries) const
{
    const auto content = Content(m_path);
    if (!content) return false;
    Lines lines(*content);
    for (const auto& [key, value] : entries)
        if (!lines.put(section, OneLine(key), OneLine(value))) return false;
    return Replace(m_path, lines.content());
}

bool Profile::removeKey(QStringView section, QStringView key) const
{
    const auto content = Content(m_path);
    if (!content) return false;
    Lines lines(*content);
    const auto range = lines.section(section);
    const qsizetype line = range ? lines.find(*range, key) : -1;
    if (line < 0) return true;
    lines.remove(line, line + 1);
    return Replace(m_path, lines.content());
}

bool Profile::removeSection(QStringView section) const
{
    const auto content = Content(m_path);
    if (!content) return false;
    Lines lines(*content);
    const auto range = lines.section(section);
    if (!range) return true;
    lines.remove(range->begin - 1, range->end);
    return Replace(m_path, lines.content());
}

double Val(QStringView text)
{
    std::string digits;
    for (const QChar c : text) {
        if (IsBlank(c) || c == u'\r' || c == u'\n') continue;
        if (!QStringView(u"0123456789+-.eEdD").contains(c)) break;
        digits += c == u'd' || c == u'D' ? 'e' : c.toLatin1();
    }
    const bool positive = digits.starts_with('+');
    const char* begin = digits.data() + (positive ? 1 : 0);
    if (positive && *begin == '-') return 0;
    double value = 0;
    const auto result = std::from_chars(begin, digits.data() + digits.size(), value);
    return result.ec == std::errc() ? value : 0;
}

int BoundedInt(double number, int lowest, int highest)
{
    return int(std::clamp(number, double(lowest), double(highest)));
}
