#include "AmbrelRecoveryApp/Controls/ProgressRow.h"

#include "AmbrelRecoveryApp/Controls/FocusRing.h"
#include "AmbrelRecoveryApp/Controls/ProgressIndicator.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/ReturnKey.h"
#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QPainter>
#include <QStyle>

namespace {

constexpr int textSize = 14;

/// A plain symbol as large as the text beside it. Return does not press it.
class CancelButton final : public QAbstractButton {
public:
    explicit CancelButton(QWidget* parent) : QAbstractButton(parent) {
        // Larger than the symbol, so that it is easy to hit.
        setFixedSize(28, 28);
        setFocusPolicy(Qt::StrongFocus);
    }

protected:
    /// On some desktops, Qt would press the button.
    void keyPressEvent(QKeyEvent* event) override {
        if (isReturnKey(*event)) {
            event->ignore();
        } else {
            QAbstractButton::keyPressEvent(event);
        }
    }

    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        // At the trailing edge, aligned with the content above and below.
        const QRect place(width() - textSize, (height() - textSize) / 2, textSize, textSize);
        const bool isLit = isDown() || underMouse();
        SymbolPainter::paint(painter, RecoverySymbol::xmark, QStyle::visualRect(layoutDirection(), rect(), place),
                             isLit ? RecoveryPalette::primary() : RecoveryPalette::muted());
        FocusRing::paint(painter, *this, QStyle::visualRect(layoutDirection(), rect(), place.adjusted(-8, -6, 0, 6)), 8,
                         RecoveryPalette::copper());
    }
};

} // namespace

ProgressRow::ProgressRow(QWidget* parent)
    : QWidget(parent), indicator_(new ProgressIndicator(this)),
      percent_(new TextLabel(recoveryFont(textSize, QFont::DemiBold), RecoveryPalette::primary(), this)),
      title_(new TextLabel(recoveryFont(textSize, QFont::Medium), RecoveryPalette::primary(), this)),
      cancel_(new CancelButton(this)) {
    percent_->hide();
    percent_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(12);
    layout->addWidget(indicator_);
    layout->addWidget(percent_);
    layout->addWidget(title_, 1);
    layout->addWidget(cancel_);
    connect(cancel_, &QAbstractButton::clicked, this, &ProgressRow::cancelled);
}

void ProgressRow::apply(const ProgressRowContent& content) {
    indicator_->setFraction(content.fraction);
    indicator_->setAccessibleName(content.title);
    percent_->setText(content.percent);
    percent_->setVisible(content.fraction.has_value());
    title_->setText(content.title);
    if (cancel_->toolTip().isEmpty()) {
        // Only once there is a tooltip: most rows of the first window are never seen.
        cancel_->setStyleSheet(RecoveryPalette::toolTipStyleSheet());
    }
    cancel_->setAccessibleName(content.cancelLabel);
    cancel_->setToolTip(content.cancelLabel);
}

QWidget* ProgressRow::cancelButton() const {
    return cancel_;
}
