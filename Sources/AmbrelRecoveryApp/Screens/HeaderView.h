#pragma once

#include "AmbrelRecoveryApp/Screens/HeaderContent.h"

#include <QWidget>

class TextLabel;

/// The lines above every screen.
class HeaderView final : public QWidget {
    Q_OBJECT

public:
    explicit HeaderView(QWidget* parent = nullptr);

    void apply(const HeaderContent& content);

private:
    TextLabel* const badge_;
    TextLabel* const title_;
    TextLabel* const body_;
};
