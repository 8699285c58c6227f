#include "AmbrelRecoveryApp/Platform/DesktopFileViewer.h"

#include "AmbrelRecoveryApp/Model/BackgroundTask.h"
#include "AmbrelRecoveryApp/Platform/FileURL.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QPointer>
#include <QTimer>
#include <QUrl>
#include <QUuid>

#include <future>
#include <system_error>

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
    const Attempt attempt{folder, ++lastNumber_};
    if (!unanswered_.emplace(folder, attempt.number).second) {
        return;
    }
    QTimer::singleShot(answerLimit_, this, [this, attempt] { settle(attempt, false); });
    // A connection for this one call: a session bus may come and go while the application runs.
    const QString busName = QUuid::createUuid().toString();
    try {
        // Connecting lasts as long as the bus likes.
        BackgroundTask::run(
            [busName] { return QDBusConnection::connectToBus(QDBusConnection::SessionBus, busName).isConnected(); },
            [viewer = QPointer(this), attempt, busName](std::future<bool>& isConnected) {
                if (viewer && isConnected.get()) {
                    viewer->askFileManager(attempt, busName);
                    return;
                }
                QDBusConnection::disconnectFromBus(busName);
                if (viewer) {
                    viewer->settle(attempt, false);
                }
            });
    } catch (const std::system_error&) {
        settle(attempt, false);
    }
}

void DesktopFileViewer::askFileManager(const Attempt& attempt, const QString& busName) {
    const QDBusPendingCall call =
        QDBusConnection(busName).asyncCall(showItems(attempt.folder), static_cast<int>(answerLimit_.count()));
    auto* const answer = new QDBusPendingCallWatcher(call, this);
    connect(answer, &QDBusPendingCallWatcher::finished, this,
            [this, attempt, answer] { settle(attempt, !answer->isError()); });
    connect(answer, &QDBusPendingCallWatcher::finished, answer, &QObject::deleteLater);
    connect(answer, &QObject::destroyed, [busName] { QDBusConnection::disconnectFromBus(busName); });
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
