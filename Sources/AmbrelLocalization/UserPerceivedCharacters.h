#pragma once

#include <QStringView>
#include <unicode/brkiter.h>
#include <unicode/unistr.h>

#include <memory>

/// The user-perceived characters of a text: what a reader takes for one letter or sign, combining marks included.
/// Refers to the text, which must outlive it. For use on one thread.
class UserPerceivedCharacters {
public:
    explicit UserPerceivedCharacters(QStringView text);
    UserPerceivedCharacters(const UserPerceivedCharacters&) = delete;
    UserPerceivedCharacters& operator=(const UserPerceivedCharacters&) = delete;

    bool isAtEnd() const { return position_ == text_.size(); }

    /// The next character; empty at the end of the text.
    QStringView next();

private:
    qsizetype nextBoundary();

    QStringView text_;
    // The iterator keeps referring to this one.
    icu::UnicodeString unicodeText_;
    std::unique_ptr<icu::BreakIterator> boundaries_;
    qsizetype position_ = 0;
};
