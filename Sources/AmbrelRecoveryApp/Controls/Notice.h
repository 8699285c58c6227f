#pragma once

#include "AmbrelRecoveryApp/Controls/Card.h"
#include "AmbrelRecoveryApp/Controls/NoticeContent.h"
#include "AmbrelRecoveryApp/Controls/RecoverySymbol.h"

class TextLabel;

/// Something that the user should know before going on: a symbol, a title and a body on a tinted panel.
class Notice final : public Card {
    Q_OBJECT

public:
    explicit Notice(RecoverySymbol symbol, QWidget* parent = nullptr);

    void apply(const NoticeContent& content);

private:
    TextLabel* const title_;
    TextLabel* const body_;
};
