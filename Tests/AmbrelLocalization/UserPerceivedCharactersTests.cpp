#include "AmbrelLocalization/UserPerceivedCharacters.h"

#include "TestSupport.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace {

QStringList characters(const QString& text) {
    UserPerceivedCharacters all(text);
    QStringList result;
    // An iteration that never ends would fill the memory.
    while (!all.isAtEnd() && result.size() <= text.size()) {
        result.append(all.next().toString());
    }
    EXPECT_TRUE(all.isAtEnd());
    EXPECT_TRUE(all.next().isEmpty());
    return result;
}

TEST(UserPerceivedCharactersTest, areAbsentFromAnEmptyText) {
    EXPECT_EQ(characters(QString()), QStringList());
}

TEST(UserPerceivedCharactersTest, keepMarksAndSequencesTogether) {
    const QStringList expected = {QStringLiteral("a"),           QStringLiteral("e\u0301"), QStringLiteral("\r\n"),
                                  QStringLiteral("👩‍👧"), QStringLiteral("🇩🇪"),      QStringLiteral("각")};
    EXPECT_EQ(characters(expected.join(QString())), expected);
}

TEST(UserPerceivedCharactersTest, coverAMalformedText) {
    const QString text = QString(QChar(u'\xDC00')) + QChar(u'\xD800') + u'a';
    EXPECT_EQ(characters(text).join(QString()), text);
}

} // namespace
