#pragma once

#include <QWidget>

/// A rounded sheet in the pale colour of what is overdue: a warning among fields that is not overlooked. It keeps its place
/// in the layout while it is hidden.
class Notice : public QWidget {
public:
    explicit Notice(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
