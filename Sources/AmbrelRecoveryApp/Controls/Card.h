#pragma once

#include <QColor>
#include <QWidget>

/// A rounded panel with a border that holds other widgets.
class Card : public QWidget {
    Q_OBJECT

public:
    /// Creates a panel in the default colors.
    explicit Card(QWidget* parent = nullptr);
    Card(const QColor& fill, const QColor& border, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QColor fill_;
    const QColor border_;
};
