#include "AmbrelRecoveryApp/Controls/PathView.h"

#include "AmbrelRecoveryApp/Controls/FocusRing.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/RoundedPanel.h"
#include "AmbrelRecoveryApp/Foundation/FileNameText.h"

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
constexpr char32_t separator = U'/';

} // namespace

PathView::PathView(QWidget* parent) : QTextEdit(parent) {
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::StrongFocus);
    setContextMenuPolicy(Qt::NoContextMenu);
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
    if (path_ == name) {
        return;
    }
    path_ = name;
    offsets_.clear();
    QString shown;
    qsizetype offset = 0;
    // Shows `text` for the next `length` code units of the path.
    const auto show = [&](const QString& text, qsizetype length) {
        for (qsizetype unit = 0; unit < text.size(); ++unit) {
            offsets_.append(offset + std::min(unit, length));
        }
        shown += text;
        offset += length;
    };
    bool isInsidePart = false;
    for (const char32_t character : name.toUcs4()) {
        if (isInsidePart != (character != separator)) {
            show(isInsidePart ? FileNameText::popDirectionalIsolate : FileNameText::firstStrongIsolate, 0);
            isInsidePart = !isInsidePart;
        }
        const QString original = QStringView(QChar::fromUcs4(character)).toString();
        show(FileNameText::readable(original.toStdString()), original.size());
    }
    if (isInsidePart) {
        show(FileNameText::popDirectionalIsolate, 0);
    }
    offsets_.append(offset);
    setPlainText(shown);
    updateGeometry();
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
    const qsizetype start = offsets_.at(textCursor().selectionStart());
    const qsizetype end = offsets_.at(textCursor().selectionEnd());
    auto* const copied = new QMimeData;
    copied->setText(path_.sliced(start, end - start));
    return copied;
}

void PathView::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(viewport());
        RoundedPanel::paint(painter, viewport()->rect(), cornerRadius, RecoveryPalette::input(),
                            RecoveryPalette::line());
        FocusRing::paint(painter, *this, viewport()->rect(), cornerRadius, RecoveryPalette::copper());
    }
    QTextEdit::paintEvent(event);
}
