#pragma once

#include "platform/Literals.h"

#include <QList>
#include <QStringList>

/// A node of the tree that a list's folder paths are shown as.
struct FolderNode {
    QString text;      ///< one component of a path; "..." is the disc's root
    int parent = -1;   ///< index of its node in the list, -1 for a top-level one
    bool root = false; ///< the node "..."

    bool operator==(const FolderNode&) const = default;
};

/// Ascending order of folder paths: component by component, each compared exactly, so that a folder's subfolders follow
/// it at once.
bool FolderPathLess(QStringView a, QStringView b);

/// The tree of sorted, distinct folder paths ("\", "\DIR\", "\DIR\SUB\"). A parent stands before its children. There are
/// several roots: "..." beside the folders of the first level.
///
/// Each path is compared with the one before it only, position by position, and lists out there were commented by the
/// tree that comes of it: where a component stands at the same place with the same letters as in the path before, it
/// counts as the node that is there already, even under another parent. So "\B\X\" after "\A\X\" adds B and no X, and
/// what lies below X hangs under B.
///
/// Error `NoTreeOfPath` for a path of more than 40 components, or with an empty one, which no scan makes.
inline constexpr int NoTreeOfPath = 9;
QList<FolderNode> BuildFolderTree(const QStringList& paths);

/// The folder path that a node stands for: the texts from its top-level node down, in backslashes; "\" for "...".
QString FolderPathOf(const QList<FolderNode>& nodes, int index);
