#include "platform/disc/DiscLayout.h"

#include "platform/Literals.h"

namespace {
constexpr qint64 MostFrames = 1 << 30;
}

int BoundedFrames(qint64 frames)
{
    if (frames < 0 || frames > MostFrames) throw DiscError(u"Образ описывает диск невозможного размера."_s);
    return int(frames);
}

DiscLayout Checked(DiscLayout layout)
{
    const TableOfContents& contents = layout.contents;
    if (contents.tracks.isEmpty()) throw DiscError(u"В образе нет ни одной дорожки."_s);
    int number = 0, frame = -1;
    for (const DiscTrack& track : contents.tracks) {
        if (track.number <= number || track.number > 99)
            throw DiscError(u"Неверный номер дорожки: %1."_s.arg(track.number));
        if (track.start.toFrames() <= frame)
            throw DiscError(u"Дорожка %1 начинается раньше предыдущей."_s.arg(track.number));
        number = track.number;
        frame = track.start.toFrames();
    }
    if (contents.leadOut.toFrames() <= frame) throw DiscError(u"Дорожка %1 пуста."_s.arg(number));
    qint64 end = 0;
    for (const DataExtent& extent : layout.data) {
        if (extent.frame < end || extent.sectors < 0) throw DiscError(u"Дорожки образа накладываются друг на друга."_s);
        end = qint64(extent.frame) + extent.sectors;
    }
    return layout;
}
