#include "AmbrelLocalization/UserPerceivedCharacters.h"

#include "AmbrelLocalization/IcuText.h"

#include <algorithm>

namespace {

std::unique_ptr<icu::BreakIterator> newIterator() {
    // Creating an iterator parses its rules; a clone shares them.
    static const std::unique_ptr<const icu::BreakIterator> prototype = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<const icu::BreakIterator> made(
            icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
        return U_SUCCESS(status) ? std::move(made) : nullptr;
    }();
    return std::unique_ptr<icu::BreakIterator>(prototype ? prototype->clone() : nullptr);
}

} // namespace

UserPerceivedCharacters::UserPerceivedCharacters(QStringView text)
    : text_(text), unicodeText_(IcuText::view(text)), boundaries_(newIterator()) {
    if (boundaries_) {
        boundaries_->setText(unicodeText_);
    }
}

QStringView UserPerceivedCharacters::next() {
    const qsizetype start = position_;
    if (!isAtEnd()) {
        position_ = nextBoundary();
    }
    return text_.sliced(start, position_ - start);
}

qsizetype UserPerceivedCharacters::nextBoundary() {
    if (boundaries_) {
        const std::int32_t boundary = boundaries_->next();
        return boundary == icu::BreakIterator::DONE ? text_.size() : boundary;
    }
    const bool isPair = text_[position_].isHighSurrogate() && position_ + 1 < text_.size();
    return position_ + (isPair ? 2 : 1);
}
