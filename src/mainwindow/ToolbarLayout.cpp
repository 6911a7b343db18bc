#include "mainwindow/ToolbarLayout.h"

#include <QDataStream>
#include <QFile>
#include <QSaveFile>

namespace {
constexpr quint32 magic = 0x61746231; // "atb1"
constexpr qint64 largest = 1 << 20;
}

std::optional<ToolbarLayout> LoadToolbarLayout(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > largest) return {};
    QDataStream in(&file);
    in.setVersion(QDataStream::Qt_6_4);
    quint32 found = 0;
    ToolbarLayout layout;
    in >> found;
    if (found != magic) return {};
    in >> layout.toolbars >> layout.panel >> layout.foldedGroups;
    if (in.status() != QDataStream::Ok) return {};
    return layout;
}

bool SaveToolbarLayout(const QString& path, const ToolbarLayout& layout)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    QDataStream out(&file);
    out.setVersion(QDataStream::Qt_6_4);
    out << magic << layout.toolbars << layout.panel << layout.foldedGroups;
    return file.commit();
}
