#include "AmbrelRecoveryApp/Controls/FocusRing.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QWidget>

#include <algorithm>

namespace {

/// The keys that move the focus or a selection, or press something.
constexpr Qt::Key navigationKeys[] = {
    Qt::Key_Tab,   Qt::Key_Backtab, Qt::Key_Left,      Qt::Key_Right,    Qt::Key_Up,     Qt::Key_Down,
    Qt::Key_Home,  Qt::Key_End,     Qt::Key_PageUp,    Qt::Key_PageDown, Qt::Key_Return, Qt::Key_Enter,
    Qt::Key_Space, Qt::Key_Select,  Qt::Key_Backspace, Qt::Key_Escape,
};

/// Remembers whether the user last used the keyboard or a pointer, in any window of the application. Qt also sends
/// mouse events for a pen or a finger that no widget handles itself.
class LastInput final : public QObject {
public:
    explicit LastInput(QObject* application) : QObject(application) { application->installEventFilter(this); }

    bool wasNavigationKey() const { return wasNavigationKey_; }

protected:
    bool eventFilter(QObject* /*object*/, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonPress) {
            update(false);
        } else if (event->type() == QEvent::KeyPress && isNavigation(*static_cast<const QKeyEvent*>(event))) {
            update(true);
        }
        return false;
    }

private:
    static bool isNavigation(const QKeyEvent& event) {
        return std::ranges::count(navigationKeys, Qt::Key(event.key())) > 0;
    }

    void update(bool isNavigationKey) {
        const bool changes = wasNavigationKey_ != isNavigationKey;
        wasNavigationKey_ = isNavigationKey;
        if (QWidget* const focused = QApplication::focusWidget(); changes && focused != nullptr) {
            focused->window()->update();
        }
    }

    bool wasNavigationKey_ = false;
};

} // namespace

void FocusRing::paint(QPainter& painter, const QWidget& control, const QRectF& rect, qreal radius,
                      const QColor& color) {
    static const auto* const lastInput = new LastInput(qApp);
    if (lastInput->wasNavigationKey() && control.hasFocus()) {
        constexpr qreal thickness = 2;
        constexpr qreal inset = thickness / 2;
        painter.setPen(QPen(color, thickness));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius - inset, radius - inset);
    }
}
