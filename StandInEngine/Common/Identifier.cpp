#include "Common/Identifier.h"

#include "Common/Hexadecimal.h"

#include <algorithm>

std::string Identifier::hexadecimal() const {
    return Hexadecimal::encode(bytes);
}

std::optional<Identifier> Identifier::fromHexadecimal(std::string_view text) {
    Identifier identifier;
    const auto decoded = Hexadecimal::decode(text);
    if (!decoded || decoded->size() != identifier.bytes.size()) {
        return std::nullopt;
    }
    std::copy(decoded->begin(), decoded->end(), identifier.bytes.begin());
    return identifier;
}
