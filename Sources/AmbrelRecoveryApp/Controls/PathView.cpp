#include "AmbrelRecoveryApp/Controls/PathView.h"

#include "AmbrelRecoveryApp/Controls/FileNameText.h"
#include "AmbrelRecoveryApp/Controls/FocusRing.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RoundedPanel.h"
#include "AmbrelRecoveryApp/RecoveryPalette.h"

#include <QFile>
#include <QMimeData>
#include <QPainter>
#include <QTextDocument>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

constexpr int padding = 12;
constexpr qreal cornerRadius = 10;
constexpr QChar firstStrongIsolate(0x2068);
constexpr QChar popDirectionalIsolate(0x2069);
constexpr QChar separator(u'/');

} // namespace

PathView::PathView(QWidget* parent) : QTextEdit(parent) {
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setFocusPolicy(Qt::StrongFocus);
    setContextMenuPolicy(Qt::NoContextMenu);
    setAcceptRichText(false);
    setAcceptDrops(false);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
    setFont(recoveryFont(13, QFont::Normal));
    setTextColor(RecoveryPalette::primary());
    document()->setDocumentMargin(padding);
    QTextOption option = document()->defaultTextOption();
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(Qt::LeftToRight);
    document()->setDefaultTextOption(option);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void PathView::setPath(const std::filesystem::path& path) {
    const QString name = QFile::decodeName(path.c_str());
    QString shown;
    marks_.clear();
    replaced_.clear();
    const auto mark = [&](QChar character) {
        marks_.append(shown.size());
        shown.append(character);
    };
    bool isInsidePart = false;
    for (const QChar character : name) {
        if (isInsidePart != (character != separator)) {
            mark(isInsidePart ? popDirectionalIsolate : firstStrongIsolate);
            isInsidePart = !isInsidePart;
        }
        const QString readable = character.isSurrogate()
                                     ? QString(character)
                                     : FileNameText::readable(QString(character).toUtf8().toStdString());
        if (readable != character) {
            replaced_.insert(shown.size(), character);
        }
        shown.append(readable.front());
        for (const QChar more : readable.sliced(1)) {
            mark(more);
        }
    }
    if (isInsidePart) {
        mark(popDirectionalIsolate);
    }
    if (shown != toPlainText()) {
        setPlainText(shown);
        updateGeometry();
    }
}

int PathView::heightForWidth(int width) const {
    const std::unique_ptr<QTextDocument> measured(document()->clone());
    measured->setTextWidth(width);
    return static_cast<int>(std::ceil(measured->size().height()));
}

QSize PathView::sizeHint() const {
    const int width = static_cast<int>(std::ceil(document()->idealWidth()));
    return {width, heightForWidth(width)};
}

QSize PathView::minimumSizeHint() const {
    return {0, fontMetrics().height() + 2 * padding};
}

QMimeData* PathView::createMimeDataFromSelection() const {
    const QString shown = toPlainText();
    QString selected;
    for (qsizetype place = textCursor().selectionStart(); place < textCursor().selectionEnd(); ++place) {
        if (!std::ranges::binary_search(marks_, place)) {
            selected.append(replaced_.value(place, shown.at(place)));
        }
    }
    auto* const copied = new QMimeData;
    copied->setText(selected);
    return copied;
}

void PathView::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(viewport());
        RoundedPanel::paint(painter, viewport()->rect(), cornerRadius, RecoveryPalette::input(),
                            RecoveryPalette::line());
        if (FocusRing::isShown(*this)) {
            FocusRing::paint(painter, viewport()->rect(), cornerRadius, RecoveryPalette::copper());
        }
    }
    QTextEdit::paintEvent(event);
}
