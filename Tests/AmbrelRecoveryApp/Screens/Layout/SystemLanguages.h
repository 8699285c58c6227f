#pragma once

#include <array>
#include <ostream>

/// A language of the interface, as a system that is set to it names it.
struct SystemLanguage {
    /// The language tag, which is the name of its table, too.
    const char* tag;
    /// The POSIX locale, which decides how dates and numbers are written.
    const char* locale;
};

// GoogleTest shows parameters through this.
inline void PrintTo(const SystemLanguage& language, std::ostream* stream) {
    *stream << language.tag;
}

/// All fourteen, English first.
inline constexpr std::array systemLanguages = {
    SystemLanguage{"en", "en_US.UTF-8"},      SystemLanguage{"es", "es_ES.UTF-8"},
    SystemLanguage{"pt-BR", "pt_BR.UTF-8"},   SystemLanguage{"de", "de_DE.UTF-8"},
    SystemLanguage{"fr", "fr_FR.UTF-8"},      SystemLanguage{"it", "it_IT.UTF-8"},
    SystemLanguage{"ja", "ja_JP.UTF-8"},      SystemLanguage{"ko", "ko_KR.UTF-8"},
    SystemLanguage{"ru", "ru_RU.UTF-8"},      SystemLanguage{"pl", "pl_PL.UTF-8"},
    SystemLanguage{"tr", "tr_TR.UTF-8"},      SystemLanguage{"ar", "ar_EG.UTF-8"},
    SystemLanguage{"zh-Hans", "zh_CN.UTF-8"}, SystemLanguage{"zh-Hant", "zh_TW.UTF-8"},
};
