#pragma once

#include <QIcon>
#include <QScrollArea>
#include <memory>
#include <vector>

class QVBoxLayout;

/// The bar at the left of the main window: groups of items under captions that fold. Up and Down walk through the items of
/// all groups, Home and End go to the first and last, Enter and Space choose one; Left folds the group, and Right on a
/// caption unfolds it. Each group is one stop of the Tab key, an item that can be chosen, and so is each caption; they
/// follow each other, and what comes before the bar, whenever they are added. An item's objectName is its text. As wide as
/// its texts need.
class ListBar : public QScrollArea {
    Q_OBJECT
public:
    explicit ListBar(QWidget* parent = nullptr);
    ~ListBar() override;

    /// Groups have a key ("g2") and a caption; items a text and a key that names what they are ("due1").
    void addGroup(const QString& key, const QString& caption);
    void removeGroup(const QString& key);
    bool hasGroup(const QString& key) const;
    int groupCount() const;
    void addItem(const QString& group, const QString& key, const QString& text, const QIcon& icon);
    /// Items of one kind in place of those that the group has. The keyboard stays where it is among them.
    void setItems(const QString& group, const QString& key, const QStringList& texts, const QIcon& icon);
    /// Stands in the group as long as it has no items.
    void setHint(const QString& group, const QString& text);
    QStringList items(const QString& group) const;
    /// Gives the keyboard to the first item that can be chosen.
    void focusFirstItem() { walk(nullptr, 1); }
    void setItemEnabled(const QString& group, const QString& text, bool enabled);
    /// Which groups are folded, for the layout file.
    QStringList foldedGroups() const;
    void setFoldedGroups(const QStringList& keys);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void itemClicked(const QString& group, const QString& text);
    /// Right button or menu key; `text` is empty beside an item.
    void contextMenu(const QString& group, const QString& text, const QPoint& globalPosition);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Group;
    Group* find(const QString& key) const;
    /// Null when neither a caption nor an item.
    Group* groupOf(const QObject* row) const;
    bool handleKey(QWidget* row, int key);
    void walk(QWidget* from, int direction);
    void fold(Group& group, bool folded);
    void giveTabStop(Group& group, QWidget* item);
    void mendTabStop(Group& group);
    void clearGroup(Group& group);
    QWidget* lastRow();

    std::vector<std::unique_ptr<Group>> m_groups;
    QVBoxLayout* m_column;
};
