#pragma once

#include <QList>
#include <QString>
#include <QTextEdit>

#include <filesystem>

/// A path that can be read, selected by mouse and keyboard, and copied, but not changed. It wraps and is never cut off;
/// its parts stand in their order from left to right whatever the direction of their letters, and no character is
/// invisible.
class PathView final : public QTextEdit {
    Q_OBJECT

public:
    explicit PathView(QWidget* parent = nullptr);

    /// The selection stays where the path is the one that is shown.
    void setPath(const std::filesystem::path& path);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    /// The selected part of the path itself, whatever is shown in its place.
    QMimeData* createMimeDataFromSelection() const override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString path_;
    /// For each place in what is shown, and for its end, the offset in the path of what stands there; marks stand for
    /// nothing.
    QList<qsizetype> offsets_{0};
};
