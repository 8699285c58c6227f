#pragma once

#include <QString>
#include <QStringList>

/// What one row of the snapshot list shows.
struct SnapshotRowContent {
    QString date;
    /// How many items and files there are, and how large they are.
    QStringList facts;
    /// Whether the engine found every payload file, as text.
    QString payload;
    bool isComplete = false;
    bool isSelected = false;

    /// The facts on one line.
    QString factsLine() const { return facts.join(QStringLiteral(" · ")); }
    /// The whole row as one sentence.
    QString sentence() const { return QStringList{date, factsLine(), payload}.join(QStringLiteral(", ")); }

    bool operator==(const SnapshotRowContent&) const = default;
};
