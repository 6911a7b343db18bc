#pragma once

#include "platform/ImageDrive.h"
#include "platform/Literals.h"
#include "platform/disc/AudioDisc.h"

#include <QMap>
#include <algorithm>
#include <cerrno>
#include <initializer_list>
#include <limits>
#include <vector>

/// A disc written down in a test:
///
///     auto disc = FakeDisc::data("BACKUP", 0x1A2B3C4D);
///     disc->file("\\Музыка\\a.mp3", 4096).file("\\secret.txt", QByteArray("x"), FakeDisc::Hidden);
class FakeDisc : public Disc {
public:
    enum Visibility { Shown, Hidden };

    VolumeProperties properties;
    TableOfContents contents;
    VolumeSize extent;
    /// Calls of list and read so far.
    int touched = 0;
    /// The medium breaks after so many of them: each further one throws DiscError.
    int healthy = std::numeric_limits<int>::max();

    static std::shared_ptr<FakeDisc> data(const QString& label, quint32 serial, quint32 componentLength = 110)
    {
        auto disc = std::make_shared<FakeDisc>();
        disc->properties = {true, label, serial, componentLength, 0, componentLength == 255 ? u"UDF"_s : u"CDFS"_s};
        disc->contents.tracks.append({1, false, {0, 2, 0}, {}, {}});
        disc->contents.leadOut = {10, 0, 0};
        return disc;
    }
    static std::shared_ptr<FakeDisc> dvd(const QString& label, quint32 serial) { return data(label, serial, 255); }
    /// Tracks from their starts; the serial and the Track01.cda files follow from them.
    static std::shared_ptr<FakeDisc> audio(std::initializer_list<Msf> starts, Msf leadOut)
    {
        auto disc = std::make_shared<FakeDisc>();
        for (const Msf& start : starts)
            disc->contents.tracks.append({int(disc->contents.tracks.size()) + 1, true, start, {}, {}});
        disc->contents.leadOut = leadOut;
        disc->properties = AudioVolume(disc->contents);
        for (const DiscEntry& entry : AudioTrackFiles(disc->contents))
            disc->file(u'\\' + entry.name, AudioTrackFile(disc->contents, entry.name));
        return disc;
    }

    /// "\\A\\B\\", with the folders above it.
    FakeDisc& folder(const QString& path, Visibility visibility = Shown)
    {
        const qsizetype cut = path.lastIndexOf(u'\\', path.size() - 2);
        if (m_folders.contains(path) || cut < 0) return *this;
        const QString parent = path.first(cut + 1);
        folder(parent);
        m_folders[parent].append({path.sliced(cut + 1).chopped(1), true, visibility == Hidden, 0});
        m_folders[path];
        return *this;
    }
    FakeDisc& file(const QString& path, const QByteArray& content, Visibility visibility = Shown)
    {
        m_contents[path] = content;
        return file(path, content.size(), visibility);
    }
    /// Of zeros, however large.
    FakeDisc& file(const QString& path, qint64 size, Visibility visibility = Shown)
    {
        const qsizetype cut = path.lastIndexOf(u'\\');
        const QString parent = path.first(cut + 1);
        folder(parent);
        m_folders[parent].append({path.sliced(cut + 1), false, visibility == Hidden, size});
        return *this;
    }
    FakeDisc& file(const QString& path, int size, Visibility visibility = Shown)
    {
        return file(path, qint64(size), visibility);
    }
    /// Listing this folder, or reading this file, throws DiscError.
    FakeDisc& damaged(const QString& path)
    {
        m_damaged.append(path);
        return *this;
    }

    VolumeProperties volume() override { return properties; }
    VolumeSize size() override { return extent; }
    TableOfContents tableOfContents() override
    {
        if (healthy == 0) throw DiscError(u"Ошибка чтения оглавления."_s);
        return contents;
    }
    QList<DiscEntry> list(const QString& folder) override
    {
        touch(folder);
        if (!m_folders.contains(folder)) throw FileError(ENOTDIR, folder);
        QList<DiscEntry> entries = m_folders[folder];
        std::stable_sort(entries.begin(), entries.end(), [](const DiscEntry& a, const DiscEntry& b) {
            return a.name.compare(b.name, Qt::CaseInsensitive) < 0;
        });
        return entries;
    }
    QByteArray read(const QString& folder, const QString& name, qint64 offset, qint64 length) override
    {
        touch(folder + name);
        for (const DiscEntry& entry : m_folders.value(folder)) {
            if (entry.name != name || entry.folder) continue;
            const qint64 count = std::clamp<qint64>(entry.size - offset, 0, length);
            const auto content = m_contents.constFind(folder + name);
            return content != m_contents.constEnd() ? content->mid(offset, count) : QByteArray(count, '\0');
        }
        throw FileError(ENOENT, folder + name);
    }

private:
    void touch(const QString& path)
    {
        if (touched++ >= healthy || m_damaged.contains(path)) throw DiscError(u"Ошибка чтения '%1'."_s.arg(path));
    }

    QMap<QString, QList<DiscEntry>> m_folders{{u"\\"_s, {}}};
    QMap<QString, QByteArray> m_contents;
    QStringList m_damaged;
};

/// What the two kinds of fake drive share. `Base` is Drive or VirtualDrive.
template<class Base> class FakeDriveOf : public Base {
public:
    explicit FakeDriveOf(QChar letter) : m_letter(letter) {}

    std::shared_ptr<FakeDisc> medium;
    QString mounted;
    QString name = u"drive"_s;
    /// Questions that may touch the medium, and glances that may not.
    int asked = 0, glances = 0;

    QChar letter() const override { return m_letter; }
    QString description() const override { return name; }
    VolumeProperties lastKnown() override
    {
        ++glances;
        return medium ? medium->properties : VolumeProperties();
    }
    VolumeProperties volume() override
    {
        ++asked;
        return medium ? medium->properties : VolumeProperties();
    }
    std::shared_ptr<Disc> disc() override { return medium; }
    QString mountPoint() override { return mounted; }

private:
    QChar m_letter;
};

class FakeDrive final : public FakeDriveOf<Drive> {
public:
    using FakeDriveOf::FakeDriveOf;
    bool isVirtual() const override { return false; }
};

class FakeVirtualDrive final : public FakeDriveOf<VirtualDrive> {
public:
    using FakeDriveOf::FakeDriveOf;
    /// What stands behind the paths that can be inserted.
    QMap<QString, std::shared_ptr<FakeDisc>> images;

    void insert(const QString& imagePath) override
    {
        if (!images.contains(imagePath)) throw FileError(ENOENT, imagePath);
        medium = images[imagePath];
        m_path = imagePath;
    }
    void restore(const QString& imagePath) override
    {
        medium = images.value(imagePath);
        m_path = imagePath;
    }
    void eject() override
    {
        medium.reset();
        m_path.clear();
    }
    QString imagePath() const override { return m_path; }
    VolumeSize size() override { return medium ? medium->extent : VolumeSize(); }

private:
    QString m_path;
};

/// One virtual drive V, and others with letters as a test adds them.
class FakeDrives final : public Drives {
public:
    FakeVirtualDrive v{u'V'};
    bool none = false; ///< a machine without any drive

    FakeDrive& add(QChar letter, std::shared_ptr<FakeDisc> medium = {})
    {
        auto drive = std::make_unique<FakeDrive>(letter);
        drive->medium = std::move(medium);
        FakeDrive& added = *drive;
        m_devices.push_back(std::move(drive));
        return added;
    }
    /// No fake: an image file behind a letter.
    void add(QChar letter, const QString& image)
    {
        auto drive = std::make_unique<ImageDrive>(letter);
        drive->insert(image);
        m_devices.push_back(std::move(drive));
    }
    QList<Drive*> all() override
    {
        QList<Drive*> drives;
        if (none) return drives;
        for (const auto& device : m_devices) drives.append(device.get());
        drives.append(&v);
        return drives;
    }
    VirtualDrive& virtualDrive() override { return v; }

private:
    std::vector<std::unique_ptr<Drive>> m_devices;
};
