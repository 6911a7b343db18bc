#include "platform/disc/TreeFileSystem.h"

#include "platform/Literals.h"

#include <QSet>
#include <algorithm>

static constexpr qint64 maximumFolder = 64 * 1024 * 1024;
static constexpr int maximumDepth = 256;

/// A name that can stand in a path of the catalogue.
static QString Portable(QString name)
{
    const auto hurts = [](QChar c) { return c == u'\\' || c == u'/' || c.unicode() < 0x20; };
    if (std::ranges::any_of(name, hurts)) std::ranges::replace_if(name, hurts, u'_');
    return name.isEmpty() ? u"_"_s : name;
}

static bool CaselessBefore(const QString& a, const QString& b)
{
    return QString::compare(a, b, Qt::CaseInsensitive) < 0;
}

TreeFileSystem::TreeFileSystem(quint64 root, qint64 mediumSize)
    : m_unpaid(mediumSize), m_folders{{root}}, m_owners{{root, {0, QString()}}}
{}

QList<DiscEntry> TreeFileSystem::list(const QString& folder)
{
    const std::vector<Node>& found = nodes(find(folder));
    QList<DiscEntry> entries;
    entries.reserve(static_cast<qsizetype>(found.size()));
    for (const Node& node : found) entries.append(node.entry);
    return entries;
}

QByteArray TreeFileSystem::read(const QString& folder, const QString& name, qint64 offset, qint64 length)
{
    const std::vector<Node>& found = nodes(find(folder));
    const Node* file = nullptr;
    const auto nameOf = [](const Node& node) -> const QString& { return node.entry.name; };
    auto node = std::ranges::lower_bound(found, name, CaselessBefore, nameOf);
    for (; node != found.end() && !CaselessBefore(name, node->entry.name); ++node)
        if (!node->entry.folder && (!file || node->entry.name == name)) file = &*node;
    if (!file) throw RuntimeError(53, u"Файл %1%2 на диске не найден."_s.arg(folder, name));
    return content(file->place, std::max<qint64>(offset, 0), std::max<qint64>(length, 0));
}

size_t TreeFileSystem::find(const QString& path)
{
    size_t number = 0;
    int depth = 0;
    for (QStringView name : QStringView(path).tokenize(u'\\', Qt::SkipEmptyParts)) {
        if (++depth > maximumDepth) throw DiscError(u"Диск поврежден: папки на нем вложены слишком глубоко."_s);
        number = child(number, name.toString());
        if (!number) throw RuntimeError(76, u"Папка %1 на диске не найдена."_s.arg(path));
    }
    return number;
}

/// Number of the subfolder; 0, the root's own, when there is none.
size_t TreeFileSystem::child(size_t parent, const QString& name)
{
    if (!m_folders[parent].listed) nodes(parent);
    if (const auto exact = m_byName.constFind({parent, name}); exact != m_byName.cend()) return *exact;
    return m_byFoldedName.value({parent, name.toCaseFolded()}, 0);
}

const std::vector<TreeFileSystem::Node>& TreeFileSystem::nodes(size_t number)
{
    if (m_lastListed == number && m_folders[number].listed) return m_lastNodes;

    pay(m_folders[number]);
    std::vector<Node> found = folder(m_folders[number].place);
    std::erase_if(found, [](const Node& node) { return node.entry.name == u"."_s || node.entry.name == u".."_s; });
    for (Node& node : found) node.entry.name = Portable(node.entry.name);
    found = claimed(number, std::move(found));
    std::ranges::stable_sort(found, [](const Node& a, const Node& b) {
        const int order = QString::compare(a.entry.name, b.entry.name, Qt::CaseInsensitive);
        return order ? order < 0 : a.entry.name < b.entry.name;
    });

    m_folders[number].listed = true;
    m_lastListed = number;
    m_lastNodes = std::move(found);
    return m_lastNodes;
}

void TreeFileSystem::pay(Folder& folder)
{
    if (folder.paid) return;
    const qint64 size = folderSize(folder.place);
    if (size > maximumFolder || size > m_unpaid)
        throw DiscError(u"Диск поврежден: папка на нем больше, чем может быть."_s);
    m_unpaid -= size;
    folder.paid = true;
}

/// The entries without the folders that have been shown elsewhere, or here already.
std::vector<TreeFileSystem::Node> TreeFileSystem::claimed(size_t parent, std::vector<Node> found)
{
    std::vector<Node> result;
    result.reserve(found.size());
    QSet<quint64> shown;
    for (Node& node : found) {
        if (node.entry.folder) {
            if (shown.contains(node.place) || !claim(parent, node)) continue;
            shown.insert(node.place);
        }
        result.push_back(std::move(node));
    }
    return result;
}

/// Whether `node` stands where its folder was met first; it takes the name that the folder was given then.
bool TreeFileSystem::claim(size_t parent, Node& node)
{
    if (const auto owner = m_owners.constFind(node.place); owner != m_owners.cend()) {
        node.entry.name = owner->second;
        return owner->first == parent && !node.entry.name.isEmpty(); // the root has no name
    }
    Key key{parent, node.entry.name};
    if (!freeName(key)) return false;
    node.entry.name = key.second;
    m_owners.insert(node.place, key);
    m_byName.insert(key, m_folders.size());
    const Key folded{parent, key.second.toCaseFolded()};
    if (!m_byFoldedName.contains(folded)) m_byFoldedName.insert(folded, m_folders.size());
    m_folders.push_back({node.place});
    return true;
}

/// Numbers the name of a second folder, as of names that differed in characters that no path can hold. False when that
/// is not enough: no honest medium has so many of one name.
bool TreeFileSystem::freeName(Key& key) const
{
    constexpr int mostOfAName = 9;
    const QString name = key.second;
    for (int number = 2; m_byName.contains(key) && number <= mostOfAName; ++number)
        key.second = u"%1~%2"_s.arg(name, QString::number(number));
    return !m_byName.contains(key);
}
