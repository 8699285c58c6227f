#pragma once

#include <QString>

/// What stands above every screen.
struct HeaderContent {
    QString badge;
    QString title;
    QString body;

    bool operator==(const HeaderContent&) const = default;
};

/// The header in the current interface language. Any thread.
HeaderContent headerContent();
