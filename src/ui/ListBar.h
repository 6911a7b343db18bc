#pragma once

#include <QIcon>
#include <QScrollArea>

class QToolButton;
class QVBoxLayout;

/// The bar at the left of the main window: groups of items under captions that fold. Up and Down walk through the items,
/// Enter and Space choose one.
class ListBar : public QScrollArea {
    Q_OBJECT
public:
    explicit ListBar(QWidget* parent = nullptr);

    /// Groups have a key ("g2") and a caption; items a text and a key that names what they are ("due1").
    void addGroup(const QString& key, const QString& caption);
    void removeGroup(const QString& key);
    bool hasGroup(const QString& key) const;
    int groupCount() const;
    void addItem(const QString& group, const QString& key, const QString& text, const QIcon& icon);
    void clearGroup(const QString& group);
    QStringList items(const QString& group) const;
    void setItemEnabled(const QString& group, const QString& text, bool enabled);
    /// Which groups are folded, for the layout file.
    QStringList foldedGroups() const;
    void setFoldedGroups(const QStringList& keys);

signals:
    void itemClicked(const QString& group, const QString& text);
    /// Right button or menu key; `text` is empty beside an item.
    void contextMenu(const QString& group, const QString& text, const QPoint& globalPosition);

private:
    struct Group;
    QList<Group*> m_groups;
    QVBoxLayout* m_column;
};
