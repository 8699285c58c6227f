#pragma once

#include <QString>

/// The content above every screen.
struct HeaderContent {
    QString badge;
    QString title;
    QString body;

    bool operator==(const HeaderContent&) const = default;
};

/// Returns the header in the current interface language. Any thread.
HeaderContent headerContent();
