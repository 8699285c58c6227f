#pragma once

#include <QHash>
#include <QList>
#include <QTextEdit>

#include <filesystem>

/// A path that can be read, selected by mouse and keyboard, and copied, but not changed. It wraps and is never cut off;
/// its parts stand in their order from left to right whatever the direction of their letters, and no character is
/// invisible.
class PathView final : public QTextEdit {
    Q_OBJECT

public:
    explicit PathView(QWidget* parent = nullptr);

    void setPath(const std::filesystem::path& path);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    /// The selected part of the path, without the marks that keep its parts in order.
    QMimeData* createMimeDataFromSelection() const override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// The places of those marks in what is shown.
    QList<qsizetype> marks_;
    /// The characters that would not be seen or act on others, by the places where something readable begins for them;
    /// the rest of it counts as marks.
    QHash<qsizetype, QChar> replaced_;
};
