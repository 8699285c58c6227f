#include "AmbrelRecoveryApp/Controls/SecureField.h"

#include "../Support/TestEnvironment.h"

#include <QAccessible>
#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QProxyStyle>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

/// The lock among the modifiers of X11 and Wayland.
constexpr quint32 lockModifier = 2;

/// A style of a desktop with a mask of its own, which shows what is typed for a while.
class RevealingStyle final : public QProxyStyle {
public:
    RevealingStyle() : QProxyStyle(QStringLiteral("Windows")) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override {
        switch (hint) {
        case SH_LineEdit_PasswordCharacter:
            return '*';
        case SH_LineEdit_PasswordMaskDelay:
            return 60'000;
        default:
            return QProxyStyle::styleHint(hint, option, widget, result);
        }
    }
};

class SecureFieldTest : public testing::Test {
protected:
    SecureFieldTest() {
        field.resize(300, field.height());
        field.show();
        field.activateWindow();
        field.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&field));
    }

    ~SecureFieldTest() override { QGuiApplication::clipboard()->clear(); }

    QString secret() const { return field.secret().toString(); }
    void type(const QString& text) { QTest::keyClicks(&field, text); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&field, key, modifiers);
    }
    void paste(const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        press(Qt::Key_V, Qt::ControlModifier);
    }
    /// As the window system delivers it.
    void pressWithNativeModifiers(Qt::Key key, const QString& text, quint32 modifiers) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, 0, 0, modifiers, text);
        QApplication::sendEvent(&field, &press);
    }
    QAccessibleInterface& accessible() { return *QAccessible::queryAccessibleInterface(&field); }

    SecureField field;
};

TEST_F(SecureFieldTest, holdsWhatIsTypedAndShowsOnlyAMask) {
    type(QStringLiteral(" correct horse "));
    EXPECT_EQ(secret(), QStringLiteral(" correct horse "));
    EXPECT_EQ(static_cast<QLineEdit&>(field).text(), QString(15, QChar(0x2022)));
    EXPECT_EQ(field.echoMode(), QLineEdit::Password);
}

TEST_F(SecureFieldTest, masksInItsOwnWayWhateverTheStyleOfTheDesktop) {
    type(QStringLiteral("abc"));
    const QImage before = field.grab().toImage();
    QApplication::setStyle(new RevealingStyle);
    const auto restore = qScopeGuard([] { QApplication::setStyle(QStringLiteral("Fusion")); });
    SecureField other;
    other.resize(field.size());
    other.show();
    other.activateWindow();
    other.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    QTest::keyClicks(&other, QStringLiteral("abc"));
    EXPECT_EQ(other.displayText(), QString(3, QChar(0x2022)));
    EXPECT_EQ(other.style()->styleHint(QStyle::SH_LineEdit_PasswordMaskDelay, nullptr, &other), 0);
    EXPECT_EQ(other.grab().toImage(), before);
}

TEST_F(SecureFieldTest, writesItsMaskFromTheRightInARightToLeftInterface) {
    const auto caret = [this] {
        // A line edit places its text when it is painted.
        field.grab();
        return field.inputMethodQuery(Qt::ImCursorRectangle).toRectF().center().x();
    };
    const auto marginal = field.width() / 4.0;
    type(QStringLiteral("abc"));
    const QString mask = static_cast<QLineEdit&>(field).text();
    EXPECT_LT(caret(), marginal);
    field.setLayoutDirection(Qt::RightToLeft);
    EXPECT_GT(caret(), field.width() - marginal);
    const qreal end = caret();
    press(Qt::Key_Home);
    EXPECT_GT(caret(), end);
    EXPECT_EQ(static_cast<QLineEdit&>(field).text(), mask);
    EXPECT_EQ(secret(), QStringLiteral("abc"));
    field.setLayoutDirection(Qt::LeftToRight);
    EXPECT_LT(caret(), marginal);
}

TEST_F(SecureFieldTest, tellsInputMethodsNotToLearn) {
    const Qt::InputMethodHints hints = field.inputMethodHints();
    EXPECT_TRUE(hints.testFlag(Qt::ImhHiddenText));
    EXPECT_TRUE(hints.testFlag(Qt::ImhSensitiveData));
    EXPECT_TRUE(hints.testFlag(Qt::ImhNoPredictiveText));
    EXPECT_TRUE(hints.testFlag(Qt::ImhNoAutoUppercase));
}

TEST_F(SecureFieldTest, typesAtTheCursorAndOverTheSelection) {
    type(QStringLiteral("ad"));
    press(Qt::Key_Left);
    type(QStringLiteral("bc"));
    EXPECT_EQ(secret(), QStringLiteral("abcd"));
    field.setSelection(1, 2);
    type(QStringLiteral("-"));
    EXPECT_EQ(secret(), QStringLiteral("a-d"));
    EXPECT_EQ(field.cursorPosition(), 2);
}

TEST_F(SecureFieldTest, deletesWhatTheKeysDelete) {
    type(QStringLiteral("abcdef"));
    press(Qt::Key_Backspace);
    EXPECT_EQ(secret(), QStringLiteral("abcde"));
    press(Qt::Key_Home);
    press(Qt::Key_Delete);
    EXPECT_EQ(secret(), QStringLiteral("bcde"));
    field.setSelection(1, 2);
    press(Qt::Key_Backspace);
    EXPECT_EQ(secret(), QStringLiteral("be"));
    press(Qt::Key_End);
    press(Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(secret(), QString());
}

TEST_F(SecureFieldTest, deletesWholeCharacters) {
    field.setSecret(u"a🔑b");
    EXPECT_EQ(static_cast<QLineEdit&>(field).text().size(), 3);
    press(Qt::Key_Left);
    press(Qt::Key_Backspace);
    EXPECT_EQ(secret(), QStringLiteral("ab"));
}

TEST_F(SecureFieldTest, cannotBeCopiedOrCutFrom) {
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    type(QStringLiteral("secret"));
    field.selectAll();
    for (const Qt::Key key : {Qt::Key_C, Qt::Key_X, Qt::Key_Insert}) {
        press(key, Qt::ControlModifier);
    }
    press(Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
    EXPECT_EQ(secret(), QStringLiteral("secret"));
    EXPECT_EQ(field.contextMenuPolicy(), Qt::NoContextMenu);
    EXPECT_FALSE(field.dragEnabled());
}

TEST_F(SecureFieldTest, acceptsNoDropsAndSelectsOnlyItsMask) {
    EXPECT_FALSE(field.acceptDrops());
    type(QStringLiteral("secret"));
    field.selectAll();
    EXPECT_EQ(field.selectedText(), QString(6, QChar(0x2022)));
}

TEST_F(SecureFieldTest, showsThatCapsLockIsOnOnceAKeyRevealsIt) {
    field.setCapsLockHint(QStringLiteral("Caps Lock is on"));
    const auto* const hint = field.findChild<QLabel*>();
    ASSERT_NE(hint, nullptr);
    pressWithNativeModifiers(Qt::Key_A, QStringLiteral("a"), 0);
    EXPECT_FALSE(hint->isVisible());
    EXPECT_EQ(accessible().text(QAccessible::Description), QString());
    pressWithNativeModifiers(Qt::Key_A, QStringLiteral("A"), lockModifier);
    EXPECT_TRUE(hint->isVisible());
    EXPECT_EQ(hint->text(), QStringLiteral("Caps Lock is on"));
    EXPECT_EQ(accessible().text(QAccessible::Description), QStringLiteral("Caps Lock is on"));
    EXPECT_TRUE(field.rect().contains(hint->geometry()));
    pressWithNativeModifiers(Qt::Key_A, QStringLiteral("a"), 0);
    EXPECT_FALSE(hint->isVisible());
    EXPECT_EQ(secret(), QStringLiteral("aAa"));
}

TEST_F(SecureFieldTest, followsTheCapsLockKeyItself) {
    const auto* const hint = field.findChild<QLabel*>();
    ASSERT_NE(hint, nullptr);
    // An event has the state before it.
    pressWithNativeModifiers(Qt::Key_CapsLock, QString(), 0);
    EXPECT_TRUE(hint->isVisible());
    pressWithNativeModifiers(Qt::Key_CapsLock, QString(), lockModifier);
    EXPECT_FALSE(hint->isVisible());
    EXPECT_EQ(secret(), QString());
}

TEST_F(SecureFieldTest, hidesTheCapsLockHintWithoutTheFocus) {
    const auto* const hint = field.findChild<QLabel*>();
    ASSERT_NE(hint, nullptr);
    pressWithNativeModifiers(Qt::Key_CapsLock, QString(), 0);
    field.clearFocus();
    EXPECT_FALSE(hint->isVisible());
}

TEST_F(SecureFieldTest, offersNoUndo) {
    type(QStringLiteral("secret"));
    field.selectAll();
    press(Qt::Key_Delete);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(field.isUndoAvailable());
    EXPECT_EQ(secret(), QString());
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(field.isRedoAvailable());
    EXPECT_EQ(secret(), QString());
}

TEST_F(SecureFieldTest, canBePastedInto) {
    type(QStringLiteral("<>"));
    press(Qt::Key_Left);
    paste(QStringLiteral(" two words "));
    EXPECT_EQ(secret(), QStringLiteral("< two words >"));
}

TEST_F(SecureFieldTest, pastesLinesAsOneLine) {
    paste(QStringLiteral("\nalpha\r\nbravo\ncharlie\n\n"));
    EXPECT_EQ(secret(), QStringLiteral("alpha bravo charlie"));
}

TEST_F(SecureFieldTest, takesAVeryLongSecret) {
    const QString text(200'000, u'x');
    paste(text);
    EXPECT_EQ(secret(), text);
}

TEST_F(SecureFieldTest, takesWhatAnInputMethodCommitsAndNotWhatItComposes) {
    QInputMethodEvent composing(QStringLiteral("geheim"), {});
    QApplication::sendEvent(&field, &composing);
    EXPECT_EQ(secret(), QString());
    EXPECT_EQ(field.displayText(), QString());
    QInputMethodEvent committing;
    committing.setCommitString(QStringLiteral("é漢"));
    QApplication::sendEvent(&field, &committing);
    EXPECT_EQ(secret(), QStringLiteral("é漢"));
}

TEST_F(SecureFieldTest, reportsOnlyEditsByTheUser) {
    const QSignalSpy edits(&field, &SecureField::secretEdited);
    field.setSecret(u"set");
    EXPECT_EQ(edits.count(), 0);
    type(QStringLiteral("a"));
    press(Qt::Key_Backspace);
    EXPECT_EQ(edits.count(), 2);
    EXPECT_EQ(secret(), QStringLiteral("set"));
}

TEST_F(SecureFieldTest, isAPasswordTextNamedByItsPrompt) {
    field.setPrompt(QStringLiteral("Recovery key"));
    EXPECT_EQ(accessible().role(), QAccessible::EditableText);
    EXPECT_TRUE(accessible().state().passwordEdit);
    EXPECT_TRUE(accessible().state().focused);
    EXPECT_EQ(accessible().text(QAccessible::Name), QStringLiteral("Recovery key"));
    EXPECT_EQ(field.placeholderText(), QStringLiteral("Recovery key"));
}

TEST_F(SecureFieldTest, canBeEditedButNotReadByAssistiveTechnology) {
    const QSignalSpy edits(&field, &SecureField::secretEdited);
    QAccessibleEditableTextInterface* const editing = accessible().editableTextInterface();
    QAccessibleTextInterface* const reading = accessible().textInterface();
    ASSERT_NE(editing, nullptr);
    ASSERT_NE(reading, nullptr);
    editing->insertText(0, QStringLiteral("abcdef"));
    editing->replaceText(1, 3, QStringLiteral("-"));
    editing->deleteText(3, 4);
    EXPECT_EQ(secret(), QStringLiteral("a-df"));
    EXPECT_EQ(edits.count(), 3);
    EXPECT_EQ(reading->characterCount(), 4);
    EXPECT_EQ(reading->text(0, -1), QString(4, QChar(0x2022)));
    EXPECT_EQ(accessible().text(QAccessible::Value), QString(4, QChar(0x2022)));
    editing->replaceText(-5, 100, QStringLiteral(" x "));
    EXPECT_EQ(secret(), QStringLiteral(" x "));
}

} // namespace
