#pragma once

#include <QWidget>
#include <optional>

/// A rounded sheet on the window's ground with a hairline around it: one subject of a dashboard.
class Card : public QWidget {
public:
    explicit Card(QWidget* parent = nullptr);

    /// A coloured upper edge in the accent of a catalogue, see Theme::accent.
    void setAccent(int index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::optional<int> m_accent;
};
