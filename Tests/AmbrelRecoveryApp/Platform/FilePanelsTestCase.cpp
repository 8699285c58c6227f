#include "FilePanelsTestCase.h"

#include <QFileSystemModel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

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

ItemPanel& FilePanelsTest::savePanel() {
    panels->chooseDestination({"Choose where to export", "Export", "Ambrel Recovered"}, recording());
    return *window->findChild<ItemPanel*>();
}

QTreeView& FilePanelsTest::list(ItemPanel& panel) {
    return *panel.findChild<QTreeView*>("treeView");
}

QLineEdit& FilePanelsTest::nameField(ItemPanel& panel) {
    return *panel.findChild<QLineEdit*>("fileNameEdit");
}

QPushButton* FilePanelsTest::button(ItemPanel& panel, const QString& text) {
    for (auto* const candidate : panel.findChildren<QPushButton*>()) {
        if (candidate->text() == text && candidate->isVisible()) {
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

QModelIndex FilePanelsTest::row(ItemPanel& panel, const Path& item) {
    const auto& view = list(panel);
    QModelIndex found;
    const bool isShown = QTest::qWaitFor(
        [&] {
            for (int number = 0; number < view.model()->rowCount(view.rootIndex()); ++number) {
                const QModelIndex candidate = view.model()->index(number, 0, view.rootIndex());
                if (candidate.data(QFileSystemModel::FilePathRole) == QString::fromStdString(item.native())) {
                    found = candidate;
                    return true;
                }
            }
            return false;
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

void FilePanelsTest::expectOneChoice(const std::optional<Path>& expected) {
    ASSERT_EQ(choices.size(), 1U);
    EXPECT_EQ(choices[0], expected);
}
