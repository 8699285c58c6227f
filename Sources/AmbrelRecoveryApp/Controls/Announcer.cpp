#include "AmbrelRecoveryApp/Controls/Announcer.h"

#include <chrono>

namespace {

/// Screen readers ask for the text after they were told of it, and may be busy with an earlier one.
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

/// In the next turn, since the toolkit's side of it is made only after this call.
void Announcer::accessibilityActiveChanged(bool isActive) {
    if (isActive) {
        QMetaObject::invokeMethod(this, &Announcer::announceAgain, Qt::QueuedConnection);
    }
}

void Announcer::announceAgain() {
    if (!isHidden()) {
        announce(accessibleName());
    }
}

void Announcer::announce(const QString& text) {
    withdraw();
    setAccessibleName(text);
    // Showing a notification is what makes it heard.
    show();
    lifetime_.start();
}

void Announcer::withdraw() {
    lifetime_.stop();
    hide();
    setAccessibleName(QString());
}
