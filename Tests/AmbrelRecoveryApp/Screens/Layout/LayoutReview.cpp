#include "LayoutReview.h"

#include "ShownTexts.h"

#include <QScrollArea>

#include <cstddef>
#include <utility>

namespace {

/// Whether `widget` is the content of a scroll area, which may be higher than what is seen of it.
bool isContentOfScrollArea(const QWidget& widget) {
    const QWidget* const viewport = widget.parentWidget();
    const auto* const area = viewport ? qobject_cast<const QScrollArea*>(viewport->parentWidget()) : nullptr;
    return area && area->widget() == &widget;
}

class Review {
public:
    explicit Review(const QWidget& root) : root_(root), texts_(ShownTexts::of(root)) {}

    std::vector<std::string> findings() {
        for (const ShownText& text : texts_) {
            if (!text.defect.isEmpty()) {
                report(text, text.defect);
            }
            reviewAncestors(text);
        }
        reviewOverlaps();
        return std::move(findings_);
    }

private:
    void report(const ShownText& text, const QString& defect) {
        findings_.push_back(QStringLiteral("“%1” (%2): %3").arg(text.text, text.kind(), defect).toStdString());
    }

    /// Whatever a text lies in must be large enough for it, up to the root.
    void reviewAncestors(const ShownText& text) {
        QRect place = text.place;
        if (text.isScrolledByWidget) {
            place.setTop(text.widget->rect().top());
            place.setBottom(text.widget->rect().bottom());
        }
        const QWidget* widget = text.widget;
        while (widget->rect().contains(place)) {
            if (widget == &root_) {
                return;
            }
            place.translate(widget->pos());
            if (isContentOfScrollArea(*widget)) {
                place.setTop(widget->parentWidget()->rect().top());
                place.setBottom(widget->parentWidget()->rect().bottom());
            }
            widget = widget->parentWidget();
        }
        report(text, QStringLiteral("reaches out of %1").arg(QLatin1String(widget->metaObject()->className())));
    }

    void reviewOverlaps() {
        for (std::size_t one = 0; one < texts_.size(); ++one) {
            for (std::size_t other = one + 1; other < texts_.size(); ++other) {
                const bool isOnOneLayer = texts_[one].isInAlert == texts_[other].isInAlert;
                if (isOnOneLayer && placeInRoot(texts_[one]).intersects(placeInRoot(texts_[other]))) {
                    report(texts_[one], QStringLiteral("lies over “%1”").arg(texts_[other].text));
                }
            }
        }
    }

    QRect placeInRoot(const ShownText& text) const {
        const QRect seen = text.isScrolledByWidget ? text.place & text.widget->rect() : text.place;
        return seen.translated(text.widget->mapTo(&root_, QPoint(0, 0)));
    }

    const QWidget& root_;
    const std::vector<ShownText> texts_;
    std::vector<std::string> findings_;
};

} // namespace

std::vector<std::string> LayoutReview::findings(const QWidget& root) {
    return Review(root).findings();
}
