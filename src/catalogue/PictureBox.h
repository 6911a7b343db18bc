#pragma once

#include <QPixmap>
#include <QWidget>

/// A picture as large as its place allows, its proportions kept. The file is read when the box is first painted, so a
/// box out of sight costs nothing.
class PictureBox : public QWidget {
public:
    explicit PictureBox(QWidget* parent = nullptr);

    /// Empty for no picture. The same path again reads the file again.
    void setPath(const QString& path);
    const QString& path() const { return m_path; }
    QSize sizeHint() const override { return {240, 240}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_path;
    QPixmap m_picture;
    QSize m_readFor; ///< physical pixels
};
