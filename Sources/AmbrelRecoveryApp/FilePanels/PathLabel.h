#pragma once

#include <QWidget>

#include <filesystem>

/// Shows where a panel is: the path of a folder, its middle left out where there is no room. Assistive technology has
/// all of it.
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
