#pragma once

#include "platform/disc/DiscLayout.h"

#include <QMap>
#include <QtEndian>
#include <gtest/gtest.h>
#include <ostream>

inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

inline QString text(const Msf& position)
{
    return QString::asprintf("%02d:%02d:%02d", position.minutes, position.seconds, position.frames);
}

/// A line per track, the lead-out, then a line per extent: "frame+sectors file@offset size/user".
inline std::string text(const DiscLayout& layout)
{
    const auto titles = [](const QString& title, const QString& performer) {
        return title.isEmpty() && performer.isEmpty() ? QString() : " " + performer + " - " + title;
    };
    const TableOfContents& contents = layout.contents;
    QString lines;
    for (const DiscTrack& track : contents.tracks)
        lines += QString::number(track.number) + (track.audio ? " audio " : " data ") + text(track.start) +
                 titles(track.title, track.performer) + u'\n';
    lines += "out " + text(contents.leadOut) + titles(contents.title, contents.performer) + u'\n';
    for (const DataExtent& extent : layout.data)
        lines += QString("%1+%2 %3@%4 %5/%6\n")
                     .arg(extent.frame)
                     .arg(extent.sectors)
                     .arg(extent.path)
                     .arg(extent.offset)
                     .arg(extent.format.size)
                     .arg(extent.format.user);
    if (layout.lastSession > LeadInFrames) lines += QString("session %1\n").arg(layout.lastSession);
    return lines.toStdString();
}

/// Files that exist in name and length only: raw ones by their bytes, sound by its frames.
class NamedFiles {
public:
    NamedFiles& raw(const QString& name, qint64 length)
    {
        files[name] = {name, 0, length, false};
        return *this;
    }
    NamedFiles& sound(const QString& name, qint64 frames)
    {
        files[name] = {name, 0, frames * 2352, true};
        return *this;
    }
    operator FindSectorFile() const
    {
        return [files = files](const QString& name) {
            return files.contains(name) ? std::optional(files[name]) : std::nullopt;
        };
    }

private:
    QMap<QString, SectorFile> files;
};

/// What came of it: the layout, or the error.
template<class Read> std::string outcome(Read read)
{
    try {
        return text(read());
    } catch (const DiscError& error) {
        return "error: " + error.description().toStdString();
    }
}

/// The sheet cut after every byte gives a layout or a DiscError; both kinds must have been seen.
template<class Read> void cutEverywhere(const QByteArray& sheet, Read read)
{
    int layouts = 0, errors = 0;
    for (qsizetype length = 0; length <= sheet.size(); ++length) {
        const QByteArray cut(sheet.constData(), length); // a copy of its own, so that a sanitizer sees a step too far
        ++(outcome([&] { return read(cut); }).starts_with("error") ? errors : layouts);
    }
    EXPECT_GT(layouts, 0);
    EXPECT_GT(errors, 0);
}
