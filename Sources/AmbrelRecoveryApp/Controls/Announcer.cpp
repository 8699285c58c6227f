#include "AmbrelRecoveryApp/Controls/Announcer.h"

#include <chrono>

namespace {

/// Screen readers query the text after they are notified, and may still be reading an earlier one.
constexpr std::chrono::seconds lifetime(4);

} // namespace

Announcer::Announcer(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(0, 0, 1, 1);
    hide();
    lifetime_.setSingleShot(true);
    lifetime_.setInterval(lifetime);
    connect(&lifetime_, &QTimer::timeout, this, &Announcer::withdraw);
    QAccessible::installActivationObserver(this);
}

Announcer::~Announcer() {
    QAccessible::removeActivationObserver(this);
}

/// Deferred, because Qt creates its own side of the interface only after this call.
void Announcer::accessibilityActiveChanged(bool isActive) {
    const auto announceAgain = [this] {
        if (!isHidden()) {
            announce(accessibleName());
        }
    };
    if (isActive) {
        QMetaObject::invokeMethod(this, announceAgain, Qt::QueuedConnection);
    }
}

void Announcer::announce(const QString& text) {
    withdraw();
    setAccessibleName(text);
    // A notification is announced when it is shown.
    show();
    lifetime_.start();
}

void Announcer::withdraw() {
    lifetime_.stop();
    hide();
    setAccessibleName(QString());
}
