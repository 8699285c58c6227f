#include "AmbrelRecoveryApp/Desktop/BusListener.h"

#include <utility>

BusListener::BusListener(Received received, QObject* parent) : QObject(parent), received_(std::move(received)) {}

void BusListener::receive(const QDBusMessage& message) {
    const Received received = received_;
    received(message);
}
