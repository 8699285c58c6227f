#include "AmbrelRecoveryApp/Screens/DropArea.h"

#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Foundation/FileURL.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QPainter>
#include <QUrl>

namespace {

std::optional<std::filesystem::path> onlyLocalItem(const QMimeData& dragged) {
    const QList<QUrl> urls = dragged.urls();
    return urls.size() == 1 ? FileURL::path(urls.first()) : std::nullopt;
}

/// Returns an action that leaves the dragged item in place, if there is one.
Qt::DropAction harmlessAction(Qt::DropActions possible) {
    return possible.testFlag(Qt::CopyAction) ? Qt::CopyAction : Qt::LinkAction;
}

} // namespace

DropArea::DropArea(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    parent->setAcceptDrops(true);
    parent->installEventFilter(this);
}

void DropArea::setAccepting(bool isAccepting) {
    isAccepting_ = isAccepting;
    if (!isAccepting) {
        showHint(false);
    }
}

bool DropArea::eventFilter(QObject* object, QEvent* event) {
    switch (event->type()) {
    case QEvent::DragEnter: {
        auto& drag = static_cast<QDropEvent&>(*event);
        dragged_ = onlyLocalItem(*drag.mimeData());
        answer(drag);
        return true;
    }
    case QEvent::DragMove:
        answer(static_cast<QDropEvent&>(*event));
        return true;
    case QEvent::DragLeave:
        dragged_.reset();
        showHint(false);
        return true;
    case QEvent::Drop: {
        auto& drop = static_cast<QDropEvent&>(*event);
        dragged_ = onlyLocalItem(*drop.mimeData());
        answer(drop);
        showHint(false);
        if (drop.isAccepted()) {
            emit dropped(*dragged_);
        }
        dragged_.reset();
        return true;
    }
    default:
        return QWidget::eventFilter(object, event);
    }
}

void DropArea::answer(QDropEvent& drag) {
    const Qt::DropAction action = harmlessAction(drag.possibleActions());
    // An open panel has to be answered first.
    const bool isTaken = isAccepting_ && dragged_ && drag.possibleActions().testFlag(action) &&
                         QApplication::activeModalWidget() == nullptr;
    if (isTaken) {
        drag.setDropAction(action);
        drag.accept();
    } else {
        drag.ignore();
    }
    showHint(isTaken);
}

void DropArea::showHint(bool isShown) {
    if (isShown) {
        setGeometry(parentWidget()->rect());
        raise();
    }
    setVisible(isShown);
}

void DropArea::paintEvent(QPaintEvent* /*event*/) {
    constexpr qreal inset = 10;
    constexpr qreal cornerRadius = 18;
    constexpr qreal thickness = 2;
    constexpr double frameOpacity = 0.8;
    constexpr double washOpacity = 0.07;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(RecoveryPalette::withOpacity(RecoveryPalette::copper(), frameOpacity), thickness));
    painter.setBrush(RecoveryPalette::withOpacity(RecoveryPalette::copper(), washOpacity));
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), cornerRadius, cornerRadius);
}
