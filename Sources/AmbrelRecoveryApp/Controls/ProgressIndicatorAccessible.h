#pragma once

#include <QAccessibleWidget>

class ProgressIndicator;

/// The accessible interface of a progress indicator: a progress bar from 0 to 1, busy while the fraction is unknown.
class ProgressIndicatorAccessible final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit ProgressIndicatorAccessible(ProgressIndicator* indicator);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QAccessible::State state() const override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& /*value*/) override {}
    QVariant maximumValue() const override { return 1.0; }
    QVariant minimumValue() const override { return 0.0; }
    QVariant minimumStepSize() const override { return 0.0; }

private:
    ProgressIndicator& indicator() const;
};
