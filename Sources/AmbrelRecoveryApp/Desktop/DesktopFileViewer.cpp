#include "AmbrelRecoveryApp/Desktop/DesktopFileViewer.h"

#include "AmbrelRecoveryApp/Desktop/BusAddress.h"
#include "AmbrelRecoveryApp/Desktop/BusConnection.h"
#include "AmbrelRecoveryApp/Foundation/FileURL.h"
#include "AmbrelRecoveryApp/Foundation/MainThread.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDesktopServices>
#include <QTimer>
#include <QUrl>

namespace {

QDBusMessage showItems(const std::filesystem::path& item) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call.setArguments({QStringList(QString::fromLatin1(FileURL::encoded(item))), QString()});
    return call;
}

} // namespace

DesktopFileViewer::DesktopFileViewer(std::chrono::milliseconds answerLimit) : answerLimit_(answerLimit) {}

void DesktopFileViewer::reveal(const std::filesystem::path& folder) {
    MainThread::require();
    const Attempt attempt{folder, ++lastNumber_};
    if (!unanswered_.emplace(folder, attempt.number).second) {
        return;
    }
    QTimer::singleShot(answerLimit_, this, [this, attempt] { settle(attempt, false); });
    // A new connection for each call: a session bus may come and go while the application runs.
    BusConnection::open(BusAddress::ofSessionBus(), answerLimit_, this,
                        [this, attempt](const std::shared_ptr<BusConnection>& bus) {
                            bus ? askFileManager(attempt, bus) : settle(attempt, false);
                        });
}

void DesktopFileViewer::askFileManager(const Attempt& attempt, const std::shared_ptr<BusConnection>& bus) {
    bus->call(showItems(attempt.folder), answerLimit_, this,
              [this, attempt, bus](const QDBusPendingCall& answer) { settle(attempt, !answer.isError()); });
}

void DesktopFileViewer::settle(const Attempt& attempt, bool isShown) {
    const auto unanswered = unanswered_.find(attempt.folder);
    if (unanswered == unanswered_.end() || unanswered->second != attempt.number) {
        return;
    }
    unanswered_.erase(unanswered);
    if (isShown) {
        return;
    }
    QDesktopServices::openUrl(QUrl::fromEncoded(FileURL::encoded(attempt.folder.parent_path())));
    emit revealUnconfirmed(attempt.folder);
}
