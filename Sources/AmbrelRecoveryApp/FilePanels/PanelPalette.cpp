#include "AmbrelRecoveryApp/FilePanels/PanelPalette.h"

#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"

QPalette PanelPalette::colors() {
    QPalette colors;
    colors.setColor(QPalette::Window, RecoveryPalette::rail());
    colors.setColor(QPalette::WindowText, RecoveryPalette::primary());
    colors.setColor(QPalette::Base, RecoveryPalette::background());
    colors.setColor(QPalette::AlternateBase, RecoveryPalette::rail());
    colors.setColor(QPalette::Text, RecoveryPalette::primary());
    colors.setColor(QPalette::PlaceholderText, RecoveryPalette::muted());
    colors.setColor(QPalette::Button, RecoveryPalette::alert());
    colors.setColor(QPalette::ButtonText, RecoveryPalette::primary());
    colors.setColor(QPalette::Highlight, RecoveryPalette::copper());
    colors.setColor(QPalette::HighlightedText, RecoveryPalette::onCopper());
    colors.setColor(QPalette::ToolTipBase, RecoveryPalette::alert());
    colors.setColor(QPalette::ToolTipText, RecoveryPalette::primary());
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        colors.setColor(QPalette::Disabled, role, RecoveryPalette::muted());
    }
    return colors;
}
