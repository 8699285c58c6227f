#pragma once

#include <QStringView>
#include <unicode/brkiter.h>
#include <unicode/unistr.h>

#include <memory>

/// Iterates over the user-perceived characters of a text: what a reader sees as one letter or sign, including combining
/// marks. Refers to the text, which must outlive it. Use on one thread.
class UserPerceivedCharacters {
public:
    explicit UserPerceivedCharacters(QStringView text);
    UserPerceivedCharacters(const UserPerceivedCharacters&) = delete;
    UserPerceivedCharacters& operator=(const UserPerceivedCharacters&) = delete;

    bool isAtEnd() const { return position_ == text_.size(); }

    /// Returns the next character; empty at the end of the text.
    QStringView next();

private:
    qsizetype nextBoundary();

    QStringView text_;
    // The iterator refers to this text.
    icu::UnicodeString unicodeText_;
    std::unique_ptr<icu::BreakIterator> boundaries_;
    qsizetype position_ = 0;
};
