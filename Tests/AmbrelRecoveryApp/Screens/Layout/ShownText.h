#pragma once

#include <QRect>
#include <QString>
#include <QWidget>

/// A text as a widget shows it.
struct ShownText {
    QString text;
    const QWidget* widget = nullptr;
    /// Where in the widget the text stands, in the widget's coordinates.
    QRect place;
    /// What is wrong with the text in its place; empty where nothing is.
    QString defect;
    /// Whether the widget can scroll the text into sight, so that its place may be outside of the widget.
    bool isScrolledByWidget = false;
    /// Whether it is in the alert, which lies over everything else.
    bool isInAlert = false;

    QString kind() const { return QLatin1String(widget->metaObject()->className()); }
};
