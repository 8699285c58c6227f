#pragma once

#include <QWidget>

/// The application's main window with its title, icon and sizes, filled by its content. Ctrl+Q and Ctrl+W close it.
/// Assistive technology is notified when it becomes active, which Qt does only for objects with the role of a window.
/// Main thread.
class RecoveryWindow final : public QWidget {
    Q_OBJECT

public:
    RecoveryWindow();

    /// Shows `content`, taking ownership of it, and deletes the previous content.
    void setContent(QWidget* content);

    /// Moves the window to the center of its screen.
    void center();
};
