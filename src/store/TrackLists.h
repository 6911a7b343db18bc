#pragma once

#include "store/DiscTables.h"

/// Makes an empty track list named `id`, in place of one that no row of the audio catalogue owns. False when a row owns it.
bool CreateTrackTable(const Database& tracks, const Database& main, const QString& id);

class TrackListWriter {
public:
    TrackListWriter(const Database& tracks, const QString& id);
    /// The next track, from 1 on. A name is cut to what its field holds; an empty one is Null.
    void add(const QString& name);

private:
    Recordset m_list;
    int m_number = 0;
};

/// Names from cdplayer.ini into the empty list `id`; "- нет -" stands for an empty one.
void ImportTrackList(const Database& tracks, const QString& id, const QStringList& names);

/// The row's disc has the list `id` from now on, so many tracks, and the playing time "45:10". An empty one, and one that
/// its field does not hold, of 100 minutes or more, leaves the time as it was.
void CreateLinkDiskID(const Database& main, DiscOfRow disc, const QString& id, int tracks, const QString& time);

/// The record source that shows the list.
QString TrackListSource(const QString& id);
/// False when the list is missing, or lacks a field as one of a foreign database may.
bool TrackListIsReadable(const Database& tracks, const QString& id);
/// The names in their stored order, empty for Null.
QStringList TrackNames(const Database& tracks, const QString& id);
