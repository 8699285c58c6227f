#pragma once

#include <QDBusContext>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>

/// Notes what is to be shown, in the place of a file manager.
class FakeFileManager : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    enum class Answer { success, error, none };

    explicit FakeFileManager(Answer answer = Answer::success) : answer_(answer) {}

    QStringList shown;

    /// Answers what was not answered yet.
    void answerLate();

public slots:
    void ShowItems(const QStringList& items, const QString& startupIdentifier); // NOLINT: the interface's own name

private:
    const Answer answer_;
    QDBusMessage unanswered_;
};
