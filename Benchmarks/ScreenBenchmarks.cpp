// The snapshot list, and the redraw after a change of the model, on the current display (DISPLAY).
//
// The time for a picture is the time that the program needs; the display draws asynchronously afterwards.

#include "AmbrelRecoveryApp/Controls/CopperGlow.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Desktop/DesktopFileViewer.h"
#include "AmbrelRecoveryApp/FilePanels/FilePanels.h"
#include "AmbrelRecoveryApp/Model/RecoveryViewModel.h"
#include "AmbrelRecoveryApp/Screens/RecoveryRootView.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotList.h"
#include "AmbrelRecoveryAppSupport/CloudItems.h"
#include "BareRows.h"
#include "RowWidgets.h"
#include "SampleSnapshots.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QWindow>
#include <benchmark/benchmark.h>

#include <memory>

namespace {

constexpr QSize listSize(620, 480);
/// Less than half a row, so that rows are drawn at many offsets.
constexpr int scrollStep = 37;

/// Counts paint events, to make sure that something is actually shown.
class PaintCount final : public QObject {
public:
    explicit PaintCount(QWidget* widget) { widget->installEventFilter(this); }
    int value() const { return count_; }

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        count_ += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(object, event);
    }

private:
    int count_ = 0;
};

void showAndSettle(QWidget& widget, const QSize& size) {
    widget.resize(size);
    widget.show();
    for (int turn = 0; turn < 20 || !widget.windowHandle()->isExposed(); ++turn) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
}

void scrollOn(QAbstractScrollArea& area) {
    QScrollBar& bar = *area.verticalScrollBar();
    bar.setValue(bar.value() + scrollStep > bar.maximum() ? 0 : bar.value() + scrollStep);
    area.viewport()->repaint();
}

/// Done once per inspection, regardless of what shows it.
void sortSnapshots(benchmark::State& state) {
    const auto inspection = SampleSnapshots::inspection(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(SampleSnapshots::rows(inspection));
    }
}
BENCHMARK(sortSnapshots)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);

/// From the sorted snapshots to the painted list: model reset, layout, and the texts of the visible rows.
void openSnapshotList(benchmark::State& state) {
    const SnapshotRows rows = SampleSnapshots::rows(SampleSnapshots::inspection(static_cast<int>(state.range(0))));
    SnapshotList list;
    showAndSettle(list, listSize);
    const PaintCount painted(list.viewport());
    for (auto _ : state) {
        list.apply(rows);
        list.viewport()->repaint();
        if (list.verticalScrollBar()->maximum() == 0 || !list.indexAt({300, 30}).isValid()) {
            state.SkipWithError("nothing was laid out");
        }
        state.PauseTiming();
        list.apply({});
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
    if (painted.value() < static_cast<int>(state.iterations())) {
        state.SkipWithError("nothing was painted");
    }
}
BENCHMARK(openSnapshotList)->RangeMultiplier(10)->Range(100, 100'000)->Unit(benchmark::kMicrosecond);

void openRowWidgets(benchmark::State& state) {
    const SnapshotRows rows = SampleSnapshots::rows(SampleSnapshots::inspection(static_cast<int>(state.range(0))));
    QWidget window;
    showAndSettle(window, listSize);
    for (auto _ : state) {
        auto area = std::make_unique<RowWidgets>(rows, &window);
        area->resize(listSize);
        area->show();
        area->repaint();
        state.PauseTiming();
        area.reset();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(openRowWidgets)->Arg(100)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMicrosecond)->MinTime(0.01);

void scrollSnapshotList(benchmark::State& state) {
    SnapshotList list;
    list.apply(SampleSnapshots::rows(SampleSnapshots::inspection(static_cast<int>(state.range(0)))));
    showAndSettle(list, listSize);
    for (auto _ : state) {
        scrollOn(list);
    }
}
BENCHMARK(scrollSnapshotList)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);

void scrollBareRows(benchmark::State& state) {
    BareRows rows(SampleSnapshots::rows(SampleSnapshots::inspection(static_cast<int>(state.range(0)))));
    showAndSettle(rows, listSize);
    for (auto _ : state) {
        scrollOn(rows);
    }
}
BENCHMARK(scrollBareRows)->Arg(1'000)->Unit(benchmark::kMicrosecond);

void selectAnotherSnapshot(benchmark::State& state) {
    const auto inspection = SampleSnapshots::inspection(static_cast<int>(state.range(0)));
    SnapshotRows rows = SampleSnapshots::rows(inspection);
    SnapshotList list;
    list.apply(rows);
    showAndSettle(list, listSize);
    std::size_t row = 0;
    for (auto _ : state) {
        row = 1 - row;
        rows.selectedCode = rows.snapshots->at(row).selectionCode;
        list.apply(rows);
        list.viewport()->repaint();
    }
}
BENCHMARK(selectAnotherSnapshot)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);

/// The visible window of the first screen, with a chosen package.
class FirstScreen {
public:
    FirstScreen() {
        const std::filesystem::path package = folder_.filePath(QStringLiteral("Sample.ambrel")).toStdString();
        std::filesystem::create_directory(package);
        model.acceptPackage(package);
        showAndSettle(view, {980, 720});
    }

private:
    QTemporaryDir folder_;
    FilePanels panels_{nullptr};
    DesktopFileViewer viewer_;

public:
    RecoveryViewModel model{"/bin/true", {panels_, viewer_, std::make_shared<CloudItems>()}};
    RecoveryRootView view{model};
};

/// The user switches between the two kinds of secret: texts, a button's state and the entry field change.
void redrawAfterModelChange(benchmark::State& state) {
    FirstScreen screen;
    const PaintCount painted(&screen.view);
    for (auto _ : state) {
        screen.model.setFactor(screen.model.factor() == AmbrelRecoveryAppFactor::backupPassphrase
                                   ? AmbrelRecoveryAppFactor::recoveryKey
                                   : AmbrelRecoveryAppFactor::backupPassphrase);
        const int before = painted.value();
        while (painted.value() == before) {
            QCoreApplication::processEvents();
        }
    }
}
BENCHMARK(redrawAfterModelChange)->Unit(benchmark::kMicrosecond);

/// Repaints the whole window, as after it has been covered.
void repaintWindow(benchmark::State& state) {
    FirstScreen screen;
    for (auto _ : state) {
        screen.view.repaint();
    }
}
BENCHMARK(repaintWindow)->Unit(benchmark::kMicrosecond);

/// The part of it that is the background, without and with the glow.
void paintGround(benchmark::State& state) {
    const bool hasGlow = state.range(0) != 0;
    QImage window(980, 720, QImage::Format_RGB32);
    CopperGlow glow;
    QPainter painter(&window);
    for (auto _ : state) {
        painter.fillRect(window.rect(), RecoveryPalette::background());
        if (hasGlow) {
            glow.paint(painter, window.size(), Qt::LeftToRight);
        }
    }
    painter.end();
    if (hasGlow == (window.pixel(875, 63) == RecoveryPalette::background().rgb())) {
        state.SkipWithError("not what was to be painted");
    }
}
BENCHMARK(paintGround)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argumentCount, char** arguments) {
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication application(argumentCount, arguments);
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
