#pragma once

#include <QWidget>

#include <filesystem>
#include <optional>

class QDropEvent;

/// Accepts one local file or folder that is dropped onto a widget, and shows a subtle frame over the widget while a
/// dragged item would be accepted. Only the path of the item is reported; the item is never moved.
class DropArea final : public QWidget {
    Q_OBJECT

public:
    /// Covers `parent`, which accepts drops anywhere on it.
    explicit DropArea(QWidget* parent);

    /// Sets whether drops are accepted; initially they are not.
    void setAccepting(bool isAccepting);

signals:
    /// The user dropped the item at `path`, which is absolute.
    void dropped(const std::filesystem::path& path);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// Accepts a drag with an action that leaves the item in place, or ignores it.
    void answer(QDropEvent& drag);
    void showHint(bool isShown);

    bool isAccepting_ = false;
    /// The local item that is dragged over the widget, if it is the only one.
    std::optional<std::filesystem::path> dragged_;
};
