// Names of files as others write them: the system's table of volumes, the URL of what is dropped, and a name to be
// shown.

#include "AmbrelRecoveryApp/FilePanels/MountedVolumes.h"
#include "AmbrelRecoveryApp/Foundation/FileNameText.h"
#include "AmbrelRecoveryApp/Foundation/FileURL.h"
#include "Fuzz/FuzzInput.h"
#include "Fuzz/Fuzzing.h"

#include <QRegularExpression>
#include <QUrl>
#include <unicode/uchar.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using Fuzzing::expect;
using Paths = std::vector<std::filesystem::path>;

/// What a pattern finds in the table: a second opinion. One code unit stands for one byte.
Paths found(const QByteArray& table) {
    static const QRegularExpression pattern(
        QStringLiteral("\\A(?:(?!- )[^ ]* ){4}(?!- )([^ ]*) (?:(?!- )[^ ]* )*- ([^ ]*)"));
    static const QRegularExpression escape(QStringLiteral("\\\\([0-7]{3})"));
    Paths roots;
    for (const QString& line : QString::fromLatin1(table).split(u'\n')) {
        const QRegularExpressionMatch match = pattern.match(line);
        if (!match.hasMatch()) {
            continue;
        }
        QString root;
        qsizetype end = 0;
        QRegularExpressionMatchIterator escapes = escape.globalMatch(match.captured(1));
        while (escapes.hasNext()) {
            const QRegularExpressionMatch next = escapes.next();
            root += QStringView(match.capturedView(1)).sliced(end, next.capturedStart() - end);
            root += QChar(static_cast<char16_t>(next.captured(1).toUInt(nullptr, 8) & 0xFFU));
            end = next.capturedEnd();
        }
        root += match.capturedView(1).sliced(end);
        const std::filesystem::path path = root.toLatin1().toStdString();
        if (path.is_absolute() && MountedVolumes::isForFiles(path, match.captured(2).toLatin1().constData()) &&
            std::ranges::find(roots, path) == roots.end()) {
            roots.push_back(path);
        }
    }
    return roots;
}

void expectTable(std::string_view text) {
    const QByteArray table(text.data(), static_cast<qsizetype>(text.size()));
    const Paths roots = MountedVolumes::forFiles(table);
    expect(std::ranges::all_of(roots, &std::filesystem::path::is_absolute), "a volume has an absolute path");
    expect(roots == found(table), "the volumes are those that a pattern finds");
}

void expectURL(std::string_view text) {
    const QUrl url = QUrl::fromEncoded(QByteArray(text.data(), static_cast<qsizetype>(text.size())));
    const auto path = FileURL::path(url);
    if (!path) {
        return;
    }
    expect(path->is_absolute() && path->native().find('\0') == std::string::npos, "the URL of a file gives a path");
    expect(url.isLocalFile() && url.isValid(), "only a URL of a file gives a path");
    expect(FileURL::path(QUrl::fromEncoded(FileURL::encoded(*path))) == path, "a path comes back from its URL");
}

/// As the system's table has it.
std::string escaped(std::string_view path) {
    std::string text;
    for (const char character : path) {
        const auto byte = static_cast<unsigned char>(character);
        if (std::string_view(" \t\n\\#").find(character) == std::string_view::npos) {
            text += character;
        } else {
            for (const unsigned shift : {6U, 3U, 0U}) {
                text += shift == 6U ? "\\" : "";
                text += static_cast<char>('0' + (byte >> shift & 7U));
            }
        }
    }
    return text;
}

void expectShown(std::string_view name) {
    const QString shown = FileNameText::readable(name);
    expect(shown.isEmpty() == name.empty() && shown.isValidUtf16(), "every name can be shown");
    for (const char32_t character : shown.toUcs4()) {
        const auto category = ::u_charType(static_cast<UChar32>(character));
        const bool joins = character == 0x200C || character == 0x200D;
        expect(joins || (category != U_CONTROL_CHAR && category != U_FORMAT_CHAR && category != U_LINE_SEPARATOR &&
                         category != U_PARAGRAPH_SEPARATOR),
               "nothing that is shown is invisible or acts on what stands around it");
    }
    const QByteArray bytes(name.data(), static_cast<qsizetype>(name.size()));
    const bool isPrintable =
        std::ranges::all_of(name, [](char character) { return character >= 0x20 && character < 0x7F; });
    expect(!isPrintable || shown == QString::fromLatin1(bytes), "a plain name is shown as it is");
    expect(FileNameText::readable(shown.toStdString()) == shown, "what can be read stays as it is");
}

void expectName(std::string_view name) {
    expectShown(name);
    const std::string path = "/" + std::string(name.substr(0, name.find('\0')));
    const std::string line = "1 2 3:4 / " + escaped(path) + " rw shared:1 - ext4 /dev/sda rw\n";
    const Paths expected = MountedVolumes::isForFiles(path, "ext4") ? Paths{path} : Paths();
    expect(MountedVolumes::forFiles(QByteArray::fromStdString(line)) == expected, "a volume has its name as it is");
    const QByteArray url = FileURL::encoded(path);
    expect(FileURL::path(QUrl::fromEncoded(url)) == path, "a path comes back from its URL");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const std::size_t kind = input.takeIndex(3);
    const std::string_view text = input.takeRest();
    if (kind == 0) {
        expectTable(text);
    } else if (kind == 1) {
        expectURL(text);
    } else {
        expectName(text);
    }
    return 0;
}
