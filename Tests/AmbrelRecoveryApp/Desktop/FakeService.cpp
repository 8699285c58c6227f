#include "FakeService.h"

#include <QDBusConnectionInterface>
#include <gtest/gtest.h>

#include <utility>

FakeService::FakeService(const QString& address, const QString& name, const QString& path, Answer theAnswer)
    : answer(std::move(theAnswer)), name_(name), path_(path),
      connection_(QDBusConnection::connectToBus(address, name)) {
    EXPECT_TRUE(connection_.registerVirtualObject(path_, this, QDBusConnection::SubPath));
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

void FakeService::forgeSignal(const QString& receiver, const QString& path, const QString& interface,
                              const QString& signal, const QVariantList& arguments) {
    QDBusMessage message = QDBusMessage::createTargetedSignal(receiver, path, interface, signal);
    message.setArguments(arguments);
    connection_.send(message);
    // The bus takes the messages of a connection one after the other.
    EXPECT_TRUE(connection_.interface()->isServiceRegistered(name_).value());
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
