#include "AmbrelRecoveryApp/Desktop/DesktopFileViewer.h"

#include "AmbrelRecoveryApp/Desktop/BusConnection.h"
#include "AmbrelRecoveryApp/Foundation/FileURL.h"
#include "AmbrelRecoveryApp/Foundation/MainThread.h"

#include <QDesktopServices>
#include <QUrl>

#include <memory>

namespace {

BusConnection::Call showItems(const std::filesystem::path& item) {
    return {.service = QStringLiteral("org.freedesktop.FileManager1"),
            .path = QStringLiteral("/org/freedesktop/FileManager1"),
            .interface = QStringLiteral("org.freedesktop.FileManager1"),
            .method = QStringLiteral("ShowItems"),
            .arguments = {QStringList(QString::fromLatin1(FileURL::encoded(item))), QString()}};
}

} // namespace

void DesktopFileViewer::reveal(const std::filesystem::path& folder) {
    MainThread::require();
    if (!unanswered_.insert(folder).second) {
        return;
    }
    // A new connection for each call: a session bus may come and go while the application runs.
    BusConnection::open(
        QDBusConnection::SessionBus, limit_, this, [this, folder](const std::shared_ptr<BusConnection>& bus) {
            if (!bus) {
                settle(folder, false);
                return;
            }
            bus->call(showItems(folder), this,
                      [this, folder, bus](const QDBusPendingCall& answer) { settle(folder, !answer.isError()); });
        });
}

void DesktopFileViewer::settle(const std::filesystem::path& folder, bool isShown) {
    unanswered_.erase(folder);
    if (!isShown) {
        QDesktopServices::openUrl(QUrl::fromEncoded(FileURL::encoded(folder.parent_path())));
        emit revealUnconfirmed(folder);
    }
}
