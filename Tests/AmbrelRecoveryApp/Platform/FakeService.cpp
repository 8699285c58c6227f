#include "FakeService.h"

#include <QDBusConnectionInterface>
#include <gtest/gtest.h>

#include <utility>

FakeService::FakeService(const QString& address, const QString& name, const QString& path, Answer theAnswer)
    : answer(std::move(theAnswer)), name_(name), path_(path),
      connection_(QDBusConnection::connectToBus(address, name)) {
    EXPECT_TRUE(connection_.registerVirtualObject(path_, this));
    EXPECT_TRUE(connection_.registerService(name_));
}

FakeService::~FakeService() {
    connection_ = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(name_);
}

void FakeService::answerLate() {
    for (const QDBusMessage& call : std::exchange(unanswered_, {})) {
        connection_.send(answer(call).value());
    }
}

void FakeService::emitSignal(const QString& interface, const QString& signal, const QVariantList& arguments) {
    QDBusMessage message = QDBusMessage::createSignal(path_, interface, signal);
    message.setArguments(arguments);
    connection_.send(message);
}

bool FakeService::isCallerGone() const {
    return !calls.isEmpty() && !connection_.interface()->isServiceRegistered(calls.first().service()).value();
}

bool FakeService::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    calls.append(message);
    if (const std::optional<QDBusMessage> reply = answer(message)) {
        connection.send(*reply);
    } else {
        unanswered_.append(message);
    }
    return true;
}

std::optional<QDBusMessage> FakeService::refuses(const QDBusMessage& call) {
    return call.createErrorReply(QDBusError::AccessDenied, "no");
}

std::optional<QDBusMessage> FakeService::isSilent(const QDBusMessage&) {
    return std::nullopt;
}

std::optional<QDBusMessage> FakeService::talksNonsense(const QDBusMessage& call) {
    return call.createReply(QVariantList{3.14, QStringList{"what?"}});
}
