#include "mainwindow/ToolbarLayout.h"

#include <QDataStream>
#include <QFile>
#include <QSaveFile>

namespace {
// file    = magic checksum payload                ; checksum of the payload, CRC-16
// payload = toolbars panel count *count( group )  ; as QDataStream writes them
constexpr quint32 magic = 0x61746232; // "atb2"
constexpr qint64 largest = 1 << 20;
constexpr quint32 mostGroups = 64;

void prepare(QDataStream& stream) { stream.setVersion(QDataStream::Qt_6_4); }
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
    quint32 groups = 0;
    in >> layout.toolbars >> layout.panel >> groups;
    if (groups > mostGroups) return {};
    for (quint32 i = 0; i < groups; ++i) in >> layout.foldedGroups.emplace_back();
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
    in << layout.toolbars << layout.panel << layout.foldedGroups;
    QDataStream out(&file);
    prepare(out);
    out << magic << qChecksum(payload) << payload;
    return file.commit();
}
