#pragma once

#include <QHash>
#include <QString>

/// A settings file of sections and keys, lines end in CR LF, in code page 1251:
///
///     file    = *( section )
///     section = "[" name "]" *( key "=" value / anything else )
///
/// Names are compared without regard to case; blanks around names and values do not count; a value in a pair of quotation
/// marks loses them. Nothing is cached: each call goes to the file. A file that cannot be read is an empty one, and a
/// write that fails has no effect besides its result, so nobody needs to catch anything here.
///
/// Untrusted: a file of more than 4 MiB counts as empty.
class Profile {
public:
    explicit Profile(const QString& path);

    const QString& path() const { return m_path; }

    /// The value cut to `buffer` - 1 characters, as the readers' buffers have always been measured; empty when there is
    /// no such key.
    QString read(QStringView section, QStringView key, int buffer = 255) const;
    /// Whether a value came back, and its numeric prefix (0 without one).
    bool has(QStringView section, QStringView key) const { return !read(section, key).isEmpty(); }
    double number(QStringView section, QStringView key, int buffer = 255) const;
    /// The whole section as it stands, in order.
    QStringList keys(QStringView section) const;
    /// All values of the section by their keys in lower case, for who reads many: the file is read once. Of a key that
    /// stands there twice the first one counts, as in read().
    QHash<QString, QString> values(QStringView section, int buffer = 255) const;

    /// Replaces the value in place, or adds key and section at the end; what stands around it, comments too, is kept.
    /// A character outside the code page becomes "?". The file is replaced in one step.
    bool write(QStringView section, QStringView key, const QString& value) const;
    /// Several keys, in this order, in one step.
    using Entries = QList<std::pair<QString, QString>>;
    bool write(QStringView section, const Entries& entries) const;
    bool removeKey(QStringView section, QStringView key) const;
    bool removeSection(QStringView section) const;

private:
    QString m_path;
};

/// The number that a text begins with, blanks inside it passed over, "1 000,5 kg" giving 1000; 0 when it begins with none.
double Val(QStringView text);
/// The whole part of a number of any size, within bounds: a settings file may hold 9e99.
int BoundedInt(double number, int lowest, int highest);
