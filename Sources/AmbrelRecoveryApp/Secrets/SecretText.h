#pragma once

#include "AmbrelRecoveryAppSupport/SecretBytes.h"

#include <QStringView>

#include <utility>

/// A typed secret as UTF-16 text in memory that is wiped. Moves but does not copy. Not synchronised.
class SecretText {
public:
    SecretText() = default;

    /// A copy of `text`, which stays the caller's to wipe. Throws std::bad_alloc.
    explicit SecretText(QStringView text);

    /// The text that `bytes` are as UTF-8; what is no valid UTF-8 becomes U+FFFD. Throws std::bad_alloc.
    static SecretText ofUtf8(const SecretBytes& bytes);

    /// Valid until this object is wiped, moved from, assigned to or destroyed.
    QStringView view() const;

    /// How many characters there are; one outside of the basic plane counts once.
    int characterCount() const;

    /// Puts `text` in the place of the characters from `start` up to `end` and wipes the old text. Throws
    /// std::bad_alloc.
    void replace(int start, int end, QStringView text);

    /// Whether there is nothing but white space and line breaks.
    bool isBlank() const;

    /// The whole text, untrimmed, as UTF-8; what is no valid UTF-16 becomes U+FFFD. Throws std::bad_alloc.
    SecretBytes utf8() const;

private:
    explicit SecretText(SecretBytes units) : units_(std::move(units)) {}

    SecretBytes units_;
};
