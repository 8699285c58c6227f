#pragma once

#include <QColor>
#include <QWidget>

/// A rounded panel with a border, on which other widgets lie.
class Card : public QWidget {
    Q_OBJECT

public:
    /// A panel in the card's colour.
    explicit Card(QWidget* parent = nullptr);
    Card(const QColor& fill, const QColor& border, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QColor fill_;
    const QColor border_;
};
