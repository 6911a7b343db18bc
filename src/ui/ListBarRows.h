#pragma once

#include <QAbstractButton>
#include <QLabel>

/// The caption of a group of the list bar, with the sign that says whether the group is folded. `checked` is unfolded.
class ListBarCaption : public QAbstractButton {
public:
    explicit ListBarCaption(const QString& caption);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// One item of the list bar, shortened with a tooltip where the bar is too narrow for it: lit under the mouse, marked at
/// its edge while the keyboard is used on it. A click leaves no mark, which would say that what it opened is still open.
class ListBarItem : public QAbstractButton {
public:
    ListBarItem(const QString& key, const QString& caption, const QIcon& icon);

    const QString& key() const { return m_key; }
    const QString& caption() const { return m_caption; }
    QSize sizeHint() const override;
    bool byKeyboard() const { return m_byKeyboard; }
    bool marked() const { return hasFocus() && m_byKeyboard; }

protected:
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// Of the whole caption, as it is drawn when it is marked.
    int wordsWidth() const;

    QString m_key, m_caption;
    bool m_byKeyboard = false; ///< came the focus here
};

/// A few small words under the caption of a group that has no items. As wide as the items make the bar.
QLabel* ListBarHint(const QString& text);
