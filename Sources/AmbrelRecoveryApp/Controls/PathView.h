#pragma once

#include <QList>
#include <QString>
#include <QTextEdit>

#include <filesystem>

/// A read-only path that can be selected with mouse and keyboard, and copied. It wraps and is never cut off. Its parts
/// are shown from left to right, whatever the direction of their letters, and no character is invisible.
class PathView final : public QTextEdit {
    Q_OBJECT

public:
    explicit PathView(QWidget* parent = nullptr);

    /// Keeps the selection if `path` is already shown.
    void setPath(const std::filesystem::path& path);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    /// Returns the selected part of the original path, not of the text that is shown for it.
    QMimeData* createMimeDataFromSelection() const override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString path_;
    /// For each position in the shown text, and for its end, the corresponding offset in the path. Isolates have no
    /// counterpart in the path.
    QList<qsizetype> offsets_{0};
};
