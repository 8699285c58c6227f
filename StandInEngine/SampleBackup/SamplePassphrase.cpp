#include "SampleBackup/SamplePassphrase.h"

#include <sodium.h>

#include <cstddef>
#include <string_view>

SecretBytes SamplePassphrase::generate() {
    constexpr std::string_view consonants = "bdfgklmnprstv";
    constexpr std::string_view vowels = "aeiou";
    constexpr std::size_t words = 4;
    constexpr std::size_t wordLength = 6;
    SecretBytes text(words * (wordLength + 1) - 1);
    for (std::size_t index = 0; index < text.size(); ++index) {
        const std::size_t place = index % (wordLength + 1);
        const std::string_view letters = place == wordLength ? "-" : place % 2 == 0 ? consonants : vowels;
        const auto choice = randombytes_uniform(static_cast<std::uint32_t>(letters.size()));
        text.bytes()[index] = static_cast<std::uint8_t>(letters[choice]);
    }
    return text;
}
