#pragma once

#include <QWidget>

#include <filesystem>

/// Shows the path of a panel's folder, elided in the middle if there is not enough room. Assistive technology gets the
/// full path.
class PathLabel final : public QWidget {
    Q_OBJECT

public:
    explicit PathLabel(QWidget* parent = nullptr);

    void setPath(const std::filesystem::path& path);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString text_;
};
