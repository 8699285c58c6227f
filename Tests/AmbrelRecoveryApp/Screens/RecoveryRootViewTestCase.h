#pragma once

#include "../Support/RecoveryViewModelTestCase.h"
#include "AmbrelRecoveryApp/Controls/Announcer.h"
#include "AmbrelRecoveryApp/Controls/SecureField.h"
#include "AmbrelRecoveryApp/Screens/ErrorAlert.h"
#include "AmbrelRecoveryApp/Screens/RecoveryRootView.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotList.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>

#include <memory>
#include <optional>

/// The whole content of the window over a real model, at the smallest size of the window.
class RecoveryRootViewTestCase : public RecoveryViewModelTestCase {
protected:
    void open() {
        makeModel();
        openOnModel();
    }

    void openOnModel() {
        view = std::make_unique<RecoveryRootView>(*model);
        view->resize(880, 660);
        view->show();
        view->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    }

    ~RecoveryRootViewTestCase() override { view.reset(); }

    /// Lets the view show what the model has become.
    static void redraw() { QCoreApplication::processEvents(); }

    SecureField& field() const { return *view->findChild<SecureField*>(); }
    ErrorAlert& alert() const { return *view->findChild<ErrorAlert*>(); }
    bool isAlertShown() const {
        const auto* const alert = view->findChild<ErrorAlert*>();
        return alert != nullptr && alert->isVisible();
    }
    SnapshotList& list() const { return *view->findChild<SnapshotList*>(); }

    /// The control in sight with this accessible name, or null.
    template<typename Control>
    Control* control(const QString& name) const {
        for (Control* const candidate : view->findChildren<Control*>()) {
            if (candidate->isVisible() && candidate->accessibleName() == name) {
                return candidate;
            }
        }
        return nullptr;
    }

    QAbstractButton* button(const char* name) const { return control<QAbstractButton>(QString::fromUtf8(name)); }

    /// What a screen reader is told now.
    std::optional<QString> announced() const {
        const auto& announcer = *view->findChild<Announcer*>();
        return announcer.isVisible() ? std::optional(announcer.accessibleName()) : std::nullopt;
    }

    /// What the focused control is called.
    static QString focused() {
        return QApplication::focusWidget() ? QApplication::focusWidget()->accessibleName() : QString();
    }

    static void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

    std::unique_ptr<RecoveryRootView> view;
};
