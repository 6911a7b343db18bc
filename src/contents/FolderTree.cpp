#include "contents/FolderTree.h"

#include "platform/RuntimeError.h"

#include <algorithm>
#include <array>

static constexpr int MaximumLevel = 40;

bool FolderPathLess(QStringView a, QStringView b)
{
    const auto rank = [](QChar c) { return c == u'\\' ? 0 : int(c.unicode()) + 1; };
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [&](QChar x, QChar y) { return rank(x) < rank(y); });
}

QList<FolderNode> BuildFolderTree(const QStringList& paths)
{
    QList<FolderNode> nodes;
    QStringView previous;
    int base = 0;   // the last top-level folder
    int parent = 0; // where the next node goes
    // Per level: the last node, counted from base, and the length of the last component.
    std::array<int, MaximumLevel + 1> relative{};
    std::array<qsizetype, MaximumLevel + 1> length{};

    const auto add = [&](QStringView text, int under, bool root = false) {
        nodes.append({text.toString(), under, root});
        return int(nodes.size()) - 1;
    };

    for (const QString& path : paths) {
        if (path == u"\\"_s) {
            base = parent = add(u"...", -1, true);
            previous = path;
            continue;
        }
        bool attached = false;
        int level = 0;
        qsizetype start = 1;
        for (qsizetype end = path.indexOf(u'\\', start); end >= 0; end = path.indexOf(u'\\', start)) {
            const QStringView component = QStringView(path).mid(start, end - start);
            if (component.isEmpty()) throw RuntimeError(NoTreeOfPath, u"В пути «%1» есть папка без имени."_s.arg(path));
            if (++level > MaximumLevel)
                throw RuntimeError(NoTreeOfPath,
                                   u"Папка «%1» вложена глубже %2 уровней."_s.arg(path).arg(MaximumLevel));
            if (previous.mid(start, component.size()) == component && length[level] == component.size()) {
                parent = base + relative[level];
            } else {
                length[level] = component.size();
                if (attached) {
                    parent = add(component, parent);
                    relative[level] = parent - base;
                } else {
                    base = parent = add(component, -1);
                    relative.fill(0);
                }
            }
            attached = true;
            start = end + 1;
        }
        previous = path;
    }
    return nodes;
}

QString FolderPathOf(const QList<FolderNode>& nodes, int index)
{
    if (nodes[index].root) return u"\\"_s;
    QString path = u"\\"_s;
    for (int i = index; i >= 0; i = nodes[i].parent) path.prepend(u'\\' + nodes[i].text);
    return path;
}
