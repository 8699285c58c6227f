#include "../AmbrelRecoveryApp/Support/TestEnvironment.h"
#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"
#include "AmbrelRecoveryApp/Model/RecoveryErrorPresentation.h"
#include "Support/TestFiles.h"

#include <QStringList>
#include <QUrl>
#include <gmock/gmock.h>

#include <map>
#include <set>

namespace {

namespace fs = std::filesystem;

using Kind = AmbrelRecoveryFailureKind;
using RecoveryAppCopy::Text;

/// Texts of messages, each as the paragraphs in which it is shown, by the heading of its page.
using Messages = std::map<QString, QStringList>;

/// Names every kind, so that a new one does not compile until it is named here, too.
bool isKind(Kind kind) {
    switch (kind) {
    case Kind::cancelled:
    case Kind::wrongPassphrase:
    case Kind::wrongRecoveryKey:
    case Kind::invalidPackage:
    case Kind::packageUnavailable:
    case Kind::integrityFailure:
    case Kind::destinationExists:
    case Kind::destinationUnavailable:
    case Kind::generic:
        return true;
    }
    return false;
}

/// Whether a text of the application tells the user that something failed or cannot go on. As above.
bool tellsOfFailure(Text text) {
    switch (text) {
    case Text::noSnapshots:
    case Text::nameIsTaken:
    case Text::folderNotCreated:
    case Text::folderCannotBeOpened:
        return true;
    case Text::noAccount:
    case Text::readOnly:
    case Text::okay:
    case Text::providerPreparationTitle:
    case Text::providerPreparation:
    case Text::showInFinder:
    case Text::capsLock:
    case Text::stepCompleted:
    case Text::chooseOrDrop:
    case Text::locations:
    case Text::home:
    case Text::computer:
    case Text::enclosingFolder:
    case Text::dateModified:
    case Text::create:
    case Text::loading:
    case Text::cut:
    case Text::copy:
    case Text::paste:
    case Text::selectAll:
        return false;
    }
    return false;
}

QString firstSentence(const QString& text) {
    QString sentence = text.section(QStringLiteral(". "), 0, 0);
    return sentence.endsWith(u'.') ? sentence.chopped(1) : sentence;
}

Messages everyFailure() {
    Messages messages;
    for (int number = 0; isKind(static_cast<Kind>(number)); ++number) {
        const auto error = RecoveryErrorPresentation::errorPresentation(static_cast<Kind>(number));
        messages[error.title] = {QStringLiteral("**") + error.title + QStringLiteral("**"), error.body};
    }
    for (std::size_t number = 0; number < RecoveryAppCopy::textCount; ++number) {
        if (tellsOfFailure(static_cast<Text>(number))) {
            const QString text = RecoveryAppCopy::localized(static_cast<Text>(number));
            messages[firstSentence(text)] = {text};
        }
    }
    return messages;
}

QString read(const fs::path& page) {
    return QString::fromStdString(TestFiles::read(page));
}

const fs::path guide = AMBREL_USER_GUIDE;

fs::path pageOf(const QString& heading) {
    return guide / (heading.toStdString() + ".md");
}

/// The paragraphs of the first quotation of a page, each in one line.
QStringList quotation(const QString& page) {
    QStringList paragraphs{QString()};
    bool isInside = false;
    for (const QString& line : page.split(u'\n')) {
        if (!line.startsWith(u'>')) {
            if (isInside) {
                break;
            }
            continue;
        }
        isInside = true;
        const QString text = line.mid(1).trimmed();
        if (text.isEmpty()) {
            paragraphs.append(QString());
        } else {
            paragraphs.last() += (paragraphs.last().isEmpty() ? QString() : QStringLiteral(" ")) + text;
        }
    }
    return paragraphs;
}

TEST(UserGuideTest, hasOnePageForEachFailure) {
    std::set<std::string> expected{"README.md"};
    for (const auto& [heading, message] : everyFailure()) {
        expected.insert(pageOf(heading).filename());
    }
    EXPECT_GT(expected.size(), 10U);
    EXPECT_EQ(expected, TestFiles::names(guide));
}

TEST(UserGuideTest, quotesEachFailureAsItIsShown) {
    for (const auto& [heading, message] : everyFailure()) {
        const QString page = read(pageOf(heading));
        EXPECT_TRUE(page.startsWith(QStringLiteral("# ") + heading + QStringLiteral("\n\n> ")))
            << heading.toStdString();
        EXPECT_EQ(message, quotation(page));
    }
}

TEST(UserGuideTest, saysOfEachFailureWhatToDo) {
    for (const auto& [heading, message] : everyFailure()) {
        QStringList sections = read(pageOf(heading)).split(QStringLiteral("\n## "));
        QStringList titles;
        for (const QString& section : sections.mid(1)) {
            titles.append(section.section(u'\n', 0, 0));
            EXPECT_GT(section.section(u'\n', 1).trimmed().size(), 40) << heading.toStdString();
        }
        EXPECT_EQ((QStringList{"What it means", "What to do", "What not to do", "When to get help"}), titles)
            << heading.toStdString();
    }
}

TEST(UserGuideTest, listsEveryFailure) {
    const QStringList lines = read(guide / "README.md").split(u'\n');
    for (const auto& [heading, message] : everyFailure()) {
        const QString target = QString::fromLatin1(QUrl::toPercentEncoding(heading + QStringLiteral(".md"), ","));
        EXPECT_EQ(1, lines.filter(QStringLiteral("| [%1](%2) | ").arg(heading, target)).size())
            << heading.toStdString();
    }
    EXPECT_EQ(everyFailure().size(), static_cast<std::size_t>(lines.filter(QStringLiteral("| [")).size()));
}

TEST(UserGuideTest, readsAQuotationWithItsParagraphs) {
    EXPECT_EQ((QStringList{"**A title**", "A body in two lines."}),
              quotation("# A title\n\n> **A title**\n>\n> A body\n> in two lines.\n\nMore.\n\n> Another.\n"));
    EXPECT_EQ(QStringList{""}, quotation("# A title\n\nNothing.\n"));
}

} // namespace
