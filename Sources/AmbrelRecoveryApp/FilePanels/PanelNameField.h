#pragma once

#include <QLineEdit>

/// A panel's input field for a name, in the application's style. Its context menu is in the interface language.
class PanelNameField final : public QLineEdit {
    Q_OBJECT

public:
    /// `label` is the accessible name.
    explicit PanelNameField(const QString& label, QWidget* parent = nullptr);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};
