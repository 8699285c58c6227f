#include "AmbrelRecoveryApp/FilePanels/PanelNameField.h"

#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"
#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>

using RecoveryAppCopy::Text;

namespace {

constexpr int fieldHeight = 40;
constexpr int fontSize = 14;

} // namespace

PanelNameField::PanelNameField(QWidget* parent) : QLineEdit(parent) {
    setFont(recoveryFont(fontSize, QFont::Normal));
    setFixedHeight(TextScale::scaled(fieldHeight));
    setStyleSheet(
        QStringLiteral("QLineEdit { background: %1; border: 1px solid %2; border-radius: 11px; padding: 0 11px; }"
                       "QLineEdit:focus { border-color: %3; }")
            .arg(RecoveryPalette::input().name(QColor::HexArgb), RecoveryPalette::line().name(QColor::HexArgb),
                 RecoveryPalette::copper().name()));
    // A widget with a style sheet does not inherit colors from its parent.
    setPalette(RecoveryPalette::ofToolkit());
}

void PanelNameField::contextMenuEvent(QContextMenuEvent* event) {
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setLayoutDirection(layoutDirection());
    QPalette colors = RecoveryPalette::ofToolkit();
    colors.setColor(QPalette::Window, RecoveryPalette::rail());
    menu->setPalette(colors);
    menu->setFont(font());
    menu->addAction(RecoveryAppCopy::localized(Text::cut), this, &QLineEdit::cut)->setEnabled(hasSelectedText());
    menu->addAction(RecoveryAppCopy::localized(Text::copy), this, &QLineEdit::copy)->setEnabled(hasSelectedText());
    menu->addAction(RecoveryAppCopy::localized(Text::paste), this, &QLineEdit::paste)
        ->setEnabled(!QGuiApplication::clipboard()->text().isEmpty());
    menu->addSeparator();
    menu->addAction(RecoveryAppCopy::localized(Text::selectAll), this, &QLineEdit::selectAll)
        ->setEnabled(!text().isEmpty());
    menu->popup(event->globalPos());
}
