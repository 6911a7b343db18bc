#pragma once

#include "platform/Drives.h"

#include <optional>

/// A virtual drive. Its whole state is the path of its image; what it knows of the medium it learns again whenever the
/// file behind the path becomes another one.
class ImageDrive final : public VirtualDrive {
public:
    explicit ImageDrive(QChar letter) : m_letter(letter) {}

    QChar letter() const override { return m_letter; }
    QString description() const override;
    VolumeProperties lastKnown() override;
    VolumeProperties volume() override;
    std::shared_ptr<Disc> disc() override;
    QString mountPoint() override;

    void insert(const QString& imagePath) override;
    void restore(const QString& imagePath) override;
    void eject() override;
    QString imagePath() const override { return m_path; }
    VolumeSize size() override { return m_disc ? m_disc->size() : VolumeSize(); }

private:
    /// What tells one state of a file from another.
    struct Stamp {
        quint64 device, inode;
        qint64 size, seconds, nanoseconds;
        bool operator==(const Stamp&) const = default;
    };
    static std::optional<Stamp> StampOf(const QString& path);

    void refresh();
    void load(const std::optional<Stamp>& stamp);

    QChar m_letter;
    QString m_path;
    std::optional<Stamp> m_stamp; ///< of the file that the following were read from
    std::shared_ptr<Disc> m_disc;
    VolumeProperties m_volume;
};
