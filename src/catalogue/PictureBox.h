#pragma once

#include <QFutureWatcher>
#include <QImage>
#include <QPixmap>
#include <QWidget>

class QMimeData;

/// A picture as large as its place allows, its proportions kept; a small one is not enlarged. Without a picture it says
/// so, and how one comes in. The file is read when the box is first painted, so a box out of sight costs nothing, and on a
/// thread of its own, so a large picture does not hold up who leafs through many.
class PictureBox : public QWidget {
    Q_OBJECT
public:
    explicit PictureBox(QWidget* parent = nullptr);

    /// Empty for no picture. The same path again reads the file again.
    void setPath(const QString& path);
    const QString& path() const { return m_path; }
    /// What stands in an empty box, what in one whose file is no picture, and below either what can be done about it.
    void setTexts(const QString& empty, const QString& unreadable, const QString& hint);
    QSize sizeHint() const override { return {240, 240}; }

signals:
    /// While drops are accepted. The data goes when the receiver returns, and its giver waits as long.
    void pictureDropped(const QMimeData& data);
    void menuWanted(const QPoint& at);

protected:
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void read();
    void wasRead();
    void paintPicture(QPainter& painter) const;
    void paintText(QPainter& painter) const;
    void setDragOver(bool over);

    QString m_path;
    QString m_empty, m_unreadable, m_hint;
    QPixmap m_picture;
    QSize m_wanted;                  ///< physical pixels for which the file is or was read; empty: not yet
    QFutureWatcher<QImage> m_reader; ///< lets go of its reading when the box goes first
    bool m_reading = false;
    bool m_passed = false; ///< another picture is wanted than the one being read
    bool m_read = false;
    bool m_dragOver = false;
};
