#pragma once

#include <QWidget>

#include <filesystem>
#include <optional>

class QDropEvent;

/// Takes one local file or folder that is dragged onto a widget, and shows a quiet frame over it while it would be
/// taken. What is dropped is only named: it is never moved.
class DropArea final : public QWidget {
    Q_OBJECT

public:
    /// Covers `parent`, which becomes the target of drops anywhere on it.
    explicit DropArea(QWidget* parent);

    /// Whether anything is taken now; at first nothing is.
    void setAccepting(bool isAccepting);

signals:
    /// The user dropped the item at `path`, which is absolute.
    void dropped(const std::filesystem::path& path);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// Answers a drag over the widget: with a copy of what is dragged, or not at all.
    void answer(QDropEvent& drag);
    void showHint(bool isShown);

    bool isAccepting_ = false;
    /// What is dragged over the widget and would be taken.
    std::optional<std::filesystem::path> dragged_;
};
