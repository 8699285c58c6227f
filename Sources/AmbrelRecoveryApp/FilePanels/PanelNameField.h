#pragma once

#include <QLineEdit>

/// The field of a panel in which a name is typed, in the dress of the window. Its menu is in the interface language.
class PanelNameField final : public QLineEdit {
    Q_OBJECT

public:
    /// `label` is the accessible name.
    explicit PanelNameField(const QString& label, QWidget* parent = nullptr);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};
