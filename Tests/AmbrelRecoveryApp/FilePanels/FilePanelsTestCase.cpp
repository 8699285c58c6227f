#include "FilePanelsTestCase.h"

#include "AmbrelRecoveryApp/FilePanels/FolderView.h"
#include "AmbrelRecoveryApp/FilePanels/PanelNameField.h"
#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <fstream>

namespace {

constexpr int generousMilliseconds = 60'000;

} // namespace

FilePanelsTest::FilePanelsTest() {
    qputenv("HOME", QByteArray::fromStdString(home().native()));
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString((root() / "configuration").native()));
    std::filesystem::create_directories(home() / "Family Photos.ambrel" / "inside");
    std::filesystem::create_directories(home() / "folder");
    std::ofstream(home() / "file.txt") << "x";
    panels = std::make_unique<FilePanels>(window.get());
    window->show();
}

RecoveryPanels::Completion FilePanelsTest::recording() {
    return [this](const std::optional<Path>& choice) { choices.push_back(choice); };
}

ItemPanel& FilePanelsTest::openPanel() {
    panels->chooseBackup({"Choose backup package", "Choose backup package"}, recording());
    return *window->findChild<ItemPanel*>();
}

ItemPanel& FilePanelsTest::savePanel(std::optional<std::uint64_t> requiredByteCount) {
    panels->chooseDestination({"Choose where to export", "Export", "Ambrel Recovered", requiredByteCount}, recording());
    return *window->findChild<ItemPanel*>();
}

FolderView& FilePanelsTest::list(ItemPanel& panel) {
    return *panel.findChild<FolderView*>();
}

QLineEdit& FilePanelsTest::nameField(ItemPanel& panel) {
    return *panel.findChild<PanelNameField*>();
}

QPushButton* FilePanelsTest::button(ItemPanel& panel, const QString& text) {
    for (auto* const candidate : panel.findChildren<QPushButton*>()) {
        if (candidate->accessibleName() == text && candidate->isVisible()) {
            return candidate;
        }
    }
    return nullptr;
}

void FilePanelsTest::enterAndReturn(ItemPanel& panel, const QString& text) {
    nameField(panel).selectAll();
    nameField(panel).insert(text);
    QTest::keyClick(&nameField(panel), Qt::Key_Return);
}

void FilePanelsTest::enterAndReturn(ItemPanel& panel, const Path& path) {
    enterAndReturn(panel, QString::fromStdString(path.native()));
}

QModelIndex FilePanelsTest::shownRow(const ItemPanel& panel, const std::string& name) {
    const auto& files = *panel.findChild<FolderModel*>();
    for (int row = 0; row < files.rowCount(); ++row) {
        if (files.item(files.index(row, 0)).name == name) {
            return files.index(row, 0);
        }
    }
    return {};
}

QModelIndex FilePanelsTest::row(ItemPanel& panel, const Path& item) {
    const auto& files = *panel.findChild<FolderModel*>();
    QModelIndex found;
    const bool isShown = QTest::qWaitFor(
        [&] {
            found = files.folder() == item.parent_path() ? shownRow(panel, item.filename()) : QModelIndex();
            return found.isValid();
        },
        generousMilliseconds);
    EXPECT_TRUE(isShown);
    return found;
}

void FilePanelsTest::select(ItemPanel& panel, const Path& item) {
    const QRect place = list(panel).visualRect(row(panel, item));
    QTest::mouseClick(list(panel).viewport(), Qt::LeftButton, {}, place.center());
}

void FilePanelsTest::doubleClick(ItemPanel& panel, const Path& item) {
    const QPoint place = list(panel).visualRect(row(panel, item)).center();
    QTest::mouseClick(list(panel).viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list(panel).viewport(), Qt::LeftButton, {}, place);
}

void FilePanelsTest::waitUntilAt(ItemPanel& panel, const Path& folder) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return panel.folder() == folder; }, generousMilliseconds));
}

void FilePanelsTest::waitForFolder(ItemPanel& panel, const Path& folder) {
    const auto& files = *panel.findChild<FolderModel*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return files.folder() == folder && files.state() == FolderModel::State::loaded; },
                                generousMilliseconds));
}

void FilePanelsTest::waitForBackground() {
    EXPECT_TRUE(
        QTest::qWaitFor([] { return BackgroundTask::waitForAll(std::chrono::milliseconds(0)); }, generousMilliseconds));
    QTest::qWait(0);
}

void FilePanelsTest::expectOneChoice(const std::optional<Path>& expected) {
    EXPECT_TRUE(QTest::qWaitFor([this] { return !choices.empty(); }, generousMilliseconds));
    ASSERT_EQ(choices.size(), 1U);
    EXPECT_EQ(choices[0], expected);
}
