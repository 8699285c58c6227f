#pragma once

#include <QHash>
#include <QString>

#include <optional>
#include <string_view>

/// The texts of a settings file in the ini form that QSettings writes.
///
/// QSettings itself is not used for reading: it takes two states of a file for the same when size and time in
/// milliseconds agree, and would then miss what another process saved. An immutable value; may be used on any thread.
class SettingsText {
public:
    /// Any bytes give a value: a line that is not in the ini form is passed over.
    static SettingsText decoded(std::string_view bytes);

    /// The text under `key` ("name" in the section General, else "section/name"); none where the key is absent or its
    /// value is no text (a list, a byte array, an encoded object).
    std::optional<QString> text(const QString& key) const;

private:
    QHash<QString, QString> texts_;
};
