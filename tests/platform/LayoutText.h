#pragma once

#include "platform/disc/DiscLayout.h"

#include <QMap>
#include <QTextStream>
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
    QString lines;
    QTextStream out(&lines);
    const auto titles = [](const QString& title, const QString& performer) {
        return title.isEmpty() && performer.isEmpty() ? "\n" : " " + performer + " - " + title + u'\n';
    };
    const TableOfContents& contents = layout.contents;
    for (const DiscTrack& track : contents.tracks)
        out << track.number << (track.audio ? " audio " : " data ") << text(track.start)
            << titles(track.title, track.performer);
    out << "out " << text(contents.leadOut) << titles(contents.title, contents.performer);
    for (const DataExtent& extent : layout.data)
        out << extent.frame << '+' << extent.sectors << ' ' << extent.path << '@' << extent.offset << ' '
            << extent.format.size << '/' << extent.format.user << '\n';
    if (layout.lastSession > LeadInFrames) out << "session " << layout.lastSession << '\n';
    return lines.toStdString();
}

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
