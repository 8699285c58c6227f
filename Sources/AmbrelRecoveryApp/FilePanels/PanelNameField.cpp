#include "AmbrelRecoveryApp/FilePanels/PanelNameField.h"

#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/RoundedPanel.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"
#include "AmbrelRecoveryApp/FilePanels/PanelTexts.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QPainter>

using PanelTexts::Text;

namespace {

constexpr int fieldHeight = 40;
constexpr int fontSize = 14;
constexpr qreal cornerRadius = 11;

} // namespace

PanelNameField::PanelNameField(const QString& label, QWidget* parent) : QLineEdit(parent) {
    setAccessibleName(label);
    setFont(recoveryFont(fontSize, QFont::Normal));
    setFixedHeight(TextScale::scaled(fieldHeight));
    setFrame(false);
    // paintEvent() draws the field's background and border.
    setStyleSheet(QStringLiteral("QLineEdit { background: transparent; border: none; padding: 0 12px; }"));
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
    menu->addAction(PanelTexts::localized(Text::cut), this, &QLineEdit::cut)->setEnabled(hasSelectedText());
    menu->addAction(PanelTexts::localized(Text::copy), this, &QLineEdit::copy)->setEnabled(hasSelectedText());
    menu->addAction(PanelTexts::localized(Text::paste), this, &QLineEdit::paste)
        ->setEnabled(!QGuiApplication::clipboard()->text().isEmpty());
    menu->addSeparator();
    menu->addAction(PanelTexts::localized(Text::selectAll), this, &QLineEdit::selectAll)->setEnabled(!text().isEmpty());
    menu->popup(event->globalPos());
}

void PanelNameField::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        RoundedPanel::paint(painter, rect(), cornerRadius, RecoveryPalette::input(),
                            hasFocus() ? RecoveryPalette::copper() : RecoveryPalette::line());
    }
    QLineEdit::paintEvent(event);
}
