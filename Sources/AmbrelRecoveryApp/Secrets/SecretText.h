#pragma once

#include "AmbrelRecoveryAppSupport/SecretBytes.h"

#include <QStringView>

#include <utility>

/// A typed secret as UTF-16 text in memory that is wiped. Movable, not copyable. Not synchronized.
class SecretText {
public:
    SecretText() = default;

    /// Copies `text`; wiping the original is up to the caller. Throws std::bad_alloc.
    explicit SecretText(QStringView text);

    /// Decodes `bytes` as UTF-8; invalid sequences become U+FFFD. Throws std::bad_alloc.
    static SecretText ofUtf8(const SecretBytes& bytes);

    /// Valid until this object is wiped, moved from, assigned to or destroyed.
    QStringView view() const;

    /// The number of characters; a surrogate pair counts as one.
    int characterCount() const;

    /// Replaces the characters from `start` up to but not including `end`, counted as in characterCount(), by `text`
    /// and wipes the old text. Throws std::bad_alloc.
    void replace(int start, int end, QStringView text);

    /// Whether the text is empty or consists only of white space and line breaks.
    bool isBlank() const;

    /// The whole text, untrimmed, as UTF-8; invalid UTF-16 becomes U+FFFD. Throws std::bad_alloc.
    SecretBytes utf8() const;

private:
    explicit SecretText(SecretBytes units) : units_(std::move(units)) {}

    SecretBytes units_;
};
