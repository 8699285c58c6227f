#pragma once

#include <QWidget>

/// The application's main window, of its title, icon and sizes; what it holds fills it. Ctrl+Q and Ctrl+W close it.
/// Assistive technology is told when it becomes the active one, as the toolkit does only for objects in the role of a
/// window. Main thread.
class RecoveryWindow final : public QWidget {
    Q_OBJECT

public:
    RecoveryWindow();

    /// Shows `content`, which the window owns from then on, and deletes what it showed before.
    void setContent(QWidget* content);

    /// Moves the window into the middle of its screen.
    void center();
};
