#include "mainwindow/ToolbarLayout.h"

#include <QDataStream>
#include <QFile>
#include <QSaveFile>

namespace {
// file    = magic checksum payload                     ; checksum of the payload, CRC-16
// payload = count *toolbar panel count *group          ; as QDataStream writes them
// toolbar = name area newLine visible count *tool      ; area: 1 left, 2 right, 4 top, 8 bottom
constexpr quint32 magic = 0x61746233; // "atb3"
constexpr qint64 largest = 1 << 16;
constexpr quint32 mostEntries = 64; // toolbars, tools of one, groups

void prepare(QDataStream& stream) { stream.setVersion(QDataStream::Qt_6_4); }

/// Reads what a count announces, as many as there may be; the stream is corrupt otherwise.
template<class List, class Read> void readAll(QDataStream& in, List& list, Read read)
{
    quint32 count = 0;
    in >> count;
    if (count > mostEntries) in.setStatus(QDataStream::ReadCorruptData);
    for (quint32 i = 0; i < count && in.status() == QDataStream::Ok; ++i) read(list.emplace_back());
}

void readNames(QDataStream& in, QStringList& names)
{
    readAll(in, names, [&](QString& name) { in >> name; });
}

void readToolbar(QDataStream& in, ToolbarPlace& place)
{
    qint32 area = 0;
    in >> place.name >> area >> place.newLine >> place.visible;
    readNames(in, place.tools);
    switch (area) {
    case Qt::LeftToolBarArea:
    case Qt::RightToolBarArea:
    case Qt::TopToolBarArea:
    case Qt::BottomToolBarArea: place.area = Qt::ToolBarArea(area); break;
    default: in.setStatus(QDataStream::ReadCorruptData);
    }
}
}

std::optional<ToolbarLayout> LoadToolbarLayout(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > largest) return {};
    QDataStream outer(&file);
    prepare(outer);
    quint32 found = 0;
    quint16 checksum = 0;
    QByteArray payload;
    outer >> found;
    if (found != magic) return {};
    outer >> checksum >> payload;
    if (outer.status() != QDataStream::Ok || qChecksum(payload) != checksum) return {};

    QDataStream in(payload);
    prepare(in);
    ToolbarLayout layout;
    readAll(in, layout.toolbars, [&](ToolbarPlace& place) { readToolbar(in, place); });
    in >> layout.panel;
    readNames(in, layout.foldedGroups);
    if (in.status() != QDataStream::Ok) return {};
    return layout;
}

bool SaveToolbarLayout(const QString& path, const ToolbarLayout& layout)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    QByteArray payload;
    QDataStream in(&payload, QIODevice::WriteOnly);
    prepare(in);
    in << quint32(layout.toolbars.size());
    for (const ToolbarPlace& place : layout.toolbars)
        in << place.name << qint32(place.area) << place.newLine << place.visible << place.tools;
    in << layout.panel << layout.foldedGroups;
    QDataStream out(&file);
    prepare(out);
    out << magic << qChecksum(payload) << payload;
    return file.flush() && file.commit(); // which does not see that the rest of the buffer could not be written
}
