#include "AmbrelRecoveryApp/Controls/PathView.h"

#include "../Screens/RecoveryRootViewTestCase.h"
#include "../Support/TestEnvironment.h"
#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QTest>

namespace {

/// What the copy key copies of the whole path.
QString copied(PathView& view) {
    QApplication::clipboard()->clear();
    view.selectAll();
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    return QApplication::clipboard()->text();
}

TEST(PathViewTest, copiesThePathExactlyInEveryScript) {
    for (const char* const path :
         {"/home/someone/Ambrel Recovered", "/home/سارة/صور العائلة", "/", "/a//b/", "/home/\u2068strange\u2069/name",
          "/a\nb/gpj.\u202Eexe\x7F", "/no\u00A0break/\u202Fnarrow", "/line\u2028separator\u2029s", "/ blanks  /  ",
          "/\uFDD0\uFFFC\uFEFF", "/tag\U000E0041/\U0001F468\u200D\U0001F469"}) {
        PathView view;
        view.setPath(path);
        EXPECT_EQ(copied(view), QString::fromUtf8(path));
    }
}

TEST(PathViewTest, keepsEachPartOfThePathTogetherAndInItsPlace) {
    PathView view;
    view.setPath("/home/سارة/صور");
    EXPECT_EQ(view.toPlainText(), QStringLiteral(u"/\u2068home\u2069/\u2068سارة\u2069/\u2068صور\u2069"));
    EXPECT_EQ(view.document()->defaultTextOption().textDirection(), Qt::LeftToRight);
}

TEST(PathViewTest, showsInvisibleAndDirectionChangingCharacters) {
    PathView view;
    view.setPath("/a\nb/\u202Egpj.exe\U000E0041");
    EXPECT_EQ(view.toPlainText(), QStringLiteral(u"/\u2068a\u240Ab\u2069/\u2068[U+202E]gpj.exe[U+E0041]\u2069"));
}

TEST(PathViewTest, aPartCanBeSelectedByKeyboard) {
    PathView view;
    view.setPath("/ab/cd");
    view.show();
    view.setFocus();
    QTest::keyClick(&view, Qt::Key_End, Qt::ControlModifier);
    for (int step = 0; step < 3; ++step) {
        QTest::keyClick(&view, Qt::Key_Left, Qt::ShiftModifier);
    }
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("cd"));
}

TEST(PathViewTest, copiesTheWholeCharacterIfPartOfItsSubstituteIsSelected) {
    PathView view;
    view.setPath("/a\u202Eb");
    QTextCursor cursor = view.textCursor();
    cursor.setPosition(static_cast<int>(view.toPlainText().indexOf(u'[')));
    cursor.movePosition(QTextCursor::Right, QTextCursor::KeepAnchor, 3);
    view.setTextCursor(cursor);
    view.copy();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral(u"\u202E"));
}

TEST(PathViewTest, keepsItsSelectionWhenItIsGivenTheSamePath) {
    for (const char* const path : {"/ab/cd", "/a\u00A0b/cd", "/a\uFDD0b"}) {
        PathView view;
        view.setPath(path);
        view.selectAll();
        view.setPath(path);
        EXPECT_TRUE(view.textCursor().hasSelection()) << path;
    }
}

TEST(PathViewTest, isReadOnly) {
    PathView view;
    view.setPath("/ab/cd");
    const QString before = view.toPlainText();
    QTest::keyClicks(&view, QStringLiteral("x"));
    QTest::keyClick(&view, Qt::Key_Delete);
    QTest::keyClick(&view, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(view.toPlainText(), before);
    EXPECT_FALSE(view.acceptDrops());
}

TEST(PathViewTest, isAsHighAsThePathNeeds) {
    PathView view;
    view.setPath("/short");
    const int oneLine = view.heightForWidth(400);
    view.setPath("/" + std::string(300, 'w'));
    EXPECT_GT(view.heightForWidth(400), 3 * oneLine);
    EXPECT_GT(view.heightForWidth(400), view.heightForWidth(800));
}

class CompletionPathTest : public RecoveryRootViewTestCase {
protected:
    void complete() {
        open();
        inspect(inspectionDocument());
        exportEverything();
        redraw();
    }

    PathView& pathView() const { return *view->findChild<PathView*>(); }
};

TEST_F(CompletionPathTest, thePathIsHiddenUntilItIsNeeded) {
    complete();
    EXPECT_FALSE(pathView().isVisible());
}

TEST_F(CompletionPathTest, thePathIsShownReadyToCopyIfNoFileManagerShowsTheFolder) {
    complete();
    view->showPath(path("Ambrel Recovered"));
    EXPECT_TRUE(pathView().isVisible());
    EXPECT_TRUE(pathView().hasFocus());
    EXPECT_TRUE(pathView().textCursor().hasSelection());
    const QAccessibleInterface& accessible = *QAccessible::queryAccessibleInterface(&pathView());
    EXPECT_EQ(accessible.text(QAccessible::Name), QStringLiteral("Folder"));
    EXPECT_TRUE(accessible.state().readOnly);
    EXPECT_EQ(copied(pathView()).toStdString(), path("Ambrel Recovered").native());
    model->setFactor(AmbrelRecoveryAppFactor::recoveryKey);
    redraw();
    EXPECT_TRUE(pathView().textCursor().hasSelection());
    QTest::keyClick(&pathView(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(), QStringLiteral("Show in Finder"));
}

TEST_F(CompletionPathTest, thePathIsHiddenWhenTheUserStartsAgain) {
    complete();
    view->showPath(path("Ambrel Recovered"));
    model->startAgain();
    redraw();
    view->showPath(path("Ambrel Recovered"));
    EXPECT_FALSE(pathView().isVisibleTo(view.get()));
}

TEST_F(CompletionPathTest, anAnswerForAnotherFolderIsNotShown) {
    complete();
    view->showPath(path("Another"));
    EXPECT_FALSE(pathView().isVisible());
}

} // namespace
