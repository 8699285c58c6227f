#include "ShownTexts.h"

#include "AmbrelRecoveryApp/Controls/RecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/SecureField.h"
#include "AmbrelRecoveryApp/Controls/SegmentButton.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"
#include "AmbrelRecoveryApp/Screens/ErrorAlert.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotList.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotListModel.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRowDelegate.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRowLayout.h"
#include "AmbrelRecoveryApp/Screens/StepMark.h"
#include "WrappedText.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QFontMetricsF>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>

namespace {

/// What a text on a button keeps clear of the button's edges at least.
constexpr int leastPadding = 6;
/// What is still easy to read.
constexpr int leastPixelSize = 10;

/// What is wrong with `text` on one line in a place of this size, or an empty text.
QString defectOnOneLine(const QString& text, const QFont& font, const QSizeF& room) {
    const QSizeF needed = WrappedText::sizeOnOneLine(text, font);
    if (needed.width() > room.width()) {
        return QStringLiteral("needs %1 in width and has %2").arg(needed.width()).arg(room.width());
    }
    if (needed.height() > room.height()) {
        return QStringLiteral("needs %1 in height and has %2").arg(needed.height()).arg(room.height());
    }
    return {};
}

QString defectInLabel(const TextLabel& label) {
    const WrappedText wrapped(label.text(), label.font(), label.width());
    if (wrapped.width() > label.width()) {
        return QStringLiteral("needs %1 in width and has %2").arg(wrapped.width()).arg(label.width());
    }
    const qreal needed = std::max<qreal>(wrapped.height(), label.heightForWidth(label.width()));
    // Letters may reach into the line below by a part of a pixel.
    if (needed >= label.height() + 1) {
        return QStringLiteral("needs %1 in height and has %2").arg(needed).arg(label.height());
    }
    if (!wrapped.tornWord().isEmpty()) {
        return QStringLiteral("is torn within a word, after “%1”").arg(wrapped.tornWord());
    }
    return {};
}

class Collector {
public:
    explicit Collector(const QWidget& root) : alert_(root.findChild<ErrorAlert*>()) {
        for (const QWidget* const widget : root.findChildren<QWidget*>()) {
            if (widget->isVisibleTo(&root)) {
                addTextsOf(*widget);
            }
        }
    }

    std::vector<ShownText> texts;

private:
    void addTextsOf(const QWidget& widget) {
        if (const auto* const label = qobject_cast<const TextLabel*>(&widget)) {
            add(*label, label->text(), defectInLabel(*label));
        } else if (const auto* const mark = qobject_cast<const StepMark*>(&widget)) {
            add(*mark, mark->text(),
                defectOnOneLine(mark->text(), mark->font(), QSizeF(mark->height(), mark->height())));
        } else if (const auto* const button = qobject_cast<const RecoveryButton*>(&widget)) {
            addButton(*button, button->label(), button->shownFont(), button->minimumSizeHint());
        } else if (const auto* const segment = qobject_cast<const SegmentButton*>(&widget)) {
            addButton(*segment, segment->accessibleName(), recoveryFont(13, QFont::DemiBold),
                      segment->minimumSizeHint());
        } else if (const auto* const field = qobject_cast<const SecureField*>(&widget)) {
            addField(*field);
        } else if (const auto* const list = qobject_cast<const SnapshotList*>(&widget)) {
            addRows(*list);
        } else {
            addUnknown(widget);
        }
    }

    void add(const QWidget& widget, const QString& text, const QString& defect) {
        if (!text.isEmpty()) {
            texts.push_back({.text = text,
                             .widget = &widget,
                             .place = widget.rect(),
                             .defect = defect,
                             .isInAlert = alert_ && alert_->isAncestorOf(&widget)});
        }
    }

    void addButton(const QAbstractButton& button, const QString& text, const QFont& font, const QSize& least) {
        QString defect = defectOnOneLine(text, font, QSizeF(button.size()) - QSizeF(2 * leastPadding, 0));
        if (defect.isEmpty() && (button.width() < least.width() || button.height() < least.height())) {
            defect = QStringLiteral("is smaller than a button with its symbol has to be");
        }
        add(button, text, defect);
    }

    /// The bullets of a secret scroll in the field; its prompt does not.
    void addField(const SecureField& field) {
        constexpr int padding = 14;
        if (field.text().isEmpty()) {
            add(field, field.placeholderText(),
                defectOnOneLine(field.placeholderText(), field.font(), QSizeF(field.size()) - QSizeF(2 * padding, 0)));
        }
    }

    void addRows(const SnapshotList& list) {
        for (int number = 0; number < list.model()->rowCount(); ++number) {
            const QModelIndex index = list.model()->index(number, 0);
            const QRect row = SnapshotRowDelegate::rowRect(list.visualRect(index));
            const auto layout = SnapshotRowLayout::of(list.snapshotModel().content(index), row, list.layoutDirection());
            for (const SnapshotRowLayout::Text& text : {layout.date, layout.facts, layout.payload}) {
                addRowText(list, row, text);
            }
        }
    }

    void addRowText(const SnapshotList& list, const QRect& row, const SnapshotRowLayout::Text& text) {
        QString defect = defectOnOneLine(text.text, text.font, text.place.size());
        if (!row.contains(text.place)) {
            defect = QStringLiteral("reaches out of its row");
        } else if (text.font.pixelSize() < leastPixelSize) {
            defect = QStringLiteral("is too small to be read");
        }
        add(*list.viewport(), text.text, defect);
        texts.back().place = text.place;
        texts.back().isScrolledByWidget = true;
    }

    void addUnknown(const QWidget& widget) {
        const auto* const label = qobject_cast<const QLabel*>(&widget);
        const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
        const bool showsText = (label && !label->text().isEmpty()) || (button && !button->text().isEmpty()) ||
                               qobject_cast<const QLineEdit*>(&widget) ||
                               qobject_cast<const QAbstractItemView*>(&widget);
        if (showsText) {
            add(widget, QLatin1String(widget.metaObject()->className()), QStringLiteral("is not known to the review"));
        }
    }

    const QWidget* const alert_;
};

} // namespace

std::vector<ShownText> ShownTexts::of(const QWidget& root) {
    return Collector(root).texts;
}
