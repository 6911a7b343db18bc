#pragma once

#include <QColor>
#include <QWidget>
#include <optional>

/// A picture of the icon set that is not a button: a sign, a decoration. Scales with the font.
class IconLabel : public QWidget {
public:
    explicit IconLabel(QWidget* parent = nullptr);

    /// `accent` as in icon(). Without one the palette's own.
    void setIcon(const QString& name, const QColor& accent = {});
    /// The second colour is a catalogue's accent, as light or dark as the palette asks for: see Theme::accent.
    void setAccent(int index);
    const QString& iconName() const { return m_name; }
    /// Edge length in heights of the font, 1.4 at first.
    void setScale(double heights);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_name;
    QColor m_accent;
    std::optional<int> m_catalogue;
    double m_scale = 1.4;
};
