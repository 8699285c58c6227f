#pragma once

#include <QLineEdit>

/// A panel's input field for a name, in the application's style. Its context menu is in the interface language. It must
/// be the buddy of a label, which is then its accessible name.
class PanelNameField final : public QLineEdit {
    Q_OBJECT

public:
    explicit PanelNameField(QWidget* parent = nullptr);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
};
