#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QList>
#include <QString>

#include <functional>
#include <optional>

/// A service of the desktop or the system: notes every call, and answers as a test wants.
class FakeService : public QDBusVirtualObject {
    Q_OBJECT

public:
    /// Gives the answer to a call, or none where it is to stay without one.
    using Answer = std::function<std::optional<QDBusMessage>(const QDBusMessage& call)>;

    /// The service of this name at the bus of `address`, with everything at `path` and below it.
    FakeService(const QString& address, const QString& name, const QString& path, Answer answer);
    ~FakeService() override;

    QList<QDBusMessage> calls;
    Answer answer;

    /// Answers with `answer` what has none yet.
    void answerLate();
    void emitSignal(const QString& interface, const QString& signal, const QVariantList& arguments);
    /// Sends the signal, which may claim to be any service's, to the connection of one caller; on its way when this
    /// returns.
    void forgeSignal(const QString& receiver, const QString& path, const QString& interface, const QString& signal,
                     const QVariantList& arguments);
    QString uniqueName() const { return connection_.baseService(); }
    /// Whether the connection of the first call has ended.
    bool isCallerGone() const;

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    QString introspect(const QString&) const override { return {}; }

    static std::optional<QDBusMessage> refuses(const QDBusMessage& call);
    static std::optional<QDBusMessage> isSilent(const QDBusMessage& call);
    static std::optional<QDBusMessage> talksNonsense(const QDBusMessage& call);

private:
    const QString name_;
    const QString path_;
    QDBusConnection connection_;
    QList<QDBusMessage> unanswered_;
};
