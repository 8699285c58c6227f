#include "AmbrelRecoveryApp/Platform/DesktopFileViewer.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QFile>
#include <QUrl>

namespace {

/// How long a file manager may take to answer, in milliseconds; it may have to be started first.
constexpr int answerLimit = 10'000;

QDBusMessage showItems(const QUrl& item) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call.setArguments({QStringList(QString::fromLatin1(item.toEncoded())), QString()});
    return call;
}

} // namespace

void DesktopFileViewer::reveal(const std::filesystem::path& folder) {
    const QUrl item = QUrl::fromLocalFile(QFile::decodeName(folder.c_str()));
    const QUrl parent = QUrl::fromLocalFile(QFile::decodeName(folder.parent_path().c_str()));
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        QDesktopServices::openUrl(parent);
        return;
    }
    auto* const answer = new QDBusPendingCallWatcher(bus.asyncCall(showItems(item), answerLimit));
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, parent] {
        if (answer->isError()) {
            QDesktopServices::openUrl(parent);
        }
        answer->deleteLater();
    });
}
