#pragma once

#include <QString>

/// What a notice shows.
struct NoticeContent {
    QString title;
    QString body;

    bool operator==(const NoticeContent&) const = default;
};
