#pragma once

#include <QDBusMessage>
#include <QObject>

#include <functional>

/// Receives the signals of one kind from a message bus connection. Main thread.
class BusListener final : public QObject {
    Q_OBJECT

public:
    using Received = std::function<void(const QDBusMessage& message)>;

    /// `received` may delete this object.
    BusListener(Received received, QObject* parent);

public slots:
    void receive(const QDBusMessage& message);

private:
    const Received received_;
};
