#include "TextFaults.h"

#include <gmock/gmock.h>

namespace {

using testing::Contains;
using testing::IsEmpty;

struct Sample {
    const char* locale;
    const char* good;
    const char* bad;
    const char* fault;
};

const Sample samples[] = {
    {"en", "It’s “here”", "It's here", "straight quote or apostrophe"},
    {"en", "Exporting…", "Exporting...", "three dots for an ellipsis"},
    {"en", "One. Two.", "One.  Two.", "double space or line break"},
    {"en", "One. Two.", "One.\nTwo.", "double space or line break"},
    {"ru", "Один — два", "Один - два", "hyphen for a dash"},
    {"en", "Done", "Done!", "exclamation mark"},
    {"es", "Listo", "¡Listo", "exclamation mark"},
    {"ja", "完了", "完了！", "exclamation mark"},
    {"en", "Selected: %lld", "Selected: 100 %", "percent sign"},
    {"en", "Selected: %lld", "%lld %%", "percent sign"},
    {"it", "Esportazione…", "Esportazione …", "space before an ellipsis"},
    {"fr", "Exportation…", "Exportation\u00A0…", "space before an ellipsis"},
    {"de", "Wird geladen\u00A0…", "Wird geladen …", "no no-break space before an ellipsis"},
    {"de", "Wird geladen\u00A0…", "Wird geladen…", "no no-break space before an ellipsis"},
    {"fr", "Un\u00A0: deux\u00A0; trois\u00A0?", "Un : deux", "no no-break space before a mark"},
    {"fr", "Un\u00A0; deux", "Un; deux", "no no-break space before a mark"},
    {"fr", "Un\u00A0?", "Un ?", "no no-break space before a mark"},
    {"fr", "«\u00A0Photos\u00A0»", "«\u00A0Photos »", "no no-break space before a mark"},
    {"fr", "«\u00A0Photos\u00A0»", "« Photos\u00A0»", "no no-break space after a quotation mark"},
    {"es", "Uno: dos; tres", "Uno : dos", "space before a mark"},
    {"ar", "أ، ب", "أ ، ب", "space before a mark"},
    {"es", "Esto. ¿Eliminar? ¿Y esto?", "Eliminar?", "question mark without its other half"},
    {"es", "¿Eliminar?", "¿Eliminar", "question mark without its other half"},
    {"es", "¿Uno? ¿Dos?", "¿Uno? Dos?", "question mark without its other half"},
    {"ja", "はい、Apple Inc.です。", "はい。Apple.", "half-width mark"},
    {"zh-Hans", "好，名称以“.ambrel”结尾。", "好,名称", "half-width mark"},
    {"zh-Hant", "要刪除嗎？", "要刪除嗎?", "half-width mark"},
    {"zh-Hans", "已选择：%lld", "已选择:%lld", "half-width colon"},
    {"ja", "移動日: %@", "移動日：%@", "colon that is not half-width with a space"},
    {"ja", "移動日: %@", "移動日:%@", "colon that is not half-width with a space"},
    {"ko", "네, 그렇습니다.", "네，그렇습니다.", "full-width mark"},
    {"zh-Hant", "好，「照片」", "好， 「照片」", "space beside a full-width mark"},
    {"zh-Hans", "在 Finder 中显示", "在Finder 中显示", "no space between Chinese and Latin"},
    {"zh-Hans", "最多 %lld 项", "最多 %lld项", "no space between Chinese and Latin"},
    {"ja", "Finderで表示", "Finder で表示", "space between Japanese and Latin"},
    {"ar", "بعد %lld ثانية", "بعد 30 ثانية", "digit"},
    {"ar", "بعد ثلاثين ثانية", "بعد ٣٠ ثانية", "digit"},
    {"ar", "العناصر: %lld، كلها", "العناصر, كلها", "European mark"},
    {"ar", "في Finder", "Finder في", "Latin letters at the beginning"},
    {"ar", "نعم. في Finder", "نعم. Finder في", "Latin letters at the beginning"},
    {"ar", "لشركة Apple أيضًا.", "لشركة Apple Inc.", "Latin letters at the end of a sentence"},
    {"en", "In 30 seconds", "In ٣٠ seconds", "Arabic digit or mark"},
    {"ko", "‘백업’", "‘백업", "quotation marks of another language or without their other half"},
    {"de", "„Dateien“", "„Dateien”", "quotation marks of another language or without their other half"},
    {"pl", "„Pliki”", "„Pliki“", "quotation marks of another language or without their other half"},
    {"ru", "«Файлы»", "“Файлы”", "quotation marks of another language or without their other half"},
    {"zh-Hant", "「檔案」", "“檔案”", "quotation marks of another language or without their other half"},
    {"tr", "Mac’i “%@”", "Mac’i “%@", "quotation marks of another language or without their other half"},
    {"en", "%1$lld of %2$lld", "%lld of %lld", "placeholders not numbered, or numbered without need"},
    {"en", "Selected: %lld", "Selected: %1$lld", "placeholders not numbered, or numbered without need"},
    {"ru", "Файлы", "Файлы ファイル", "letters of another script"},
    {"pl", "Pliki", "Plіki", "letters of another script"},
};

TEST(TextFaultsTest, areFoundByEveryRule) {
    for (const Sample& sample : samples) {
        EXPECT_THAT(textFaults(sample.locale, QString::fromUtf8(sample.good)), IsEmpty()) << sample.good;
        EXPECT_THAT(textFaults(sample.locale, QString::fromUtf8(sample.bad)), Contains(sample.fault)) << sample.bad;
    }
}

} // namespace
