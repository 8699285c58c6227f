#include "FakeFileManager.h"

#include <QDBusConnection>

void FakeFileManager::ShowItems(const QStringList& items, const QString&) {
    shown += items;
    if (answer_ == Answer::error) {
        sendErrorReply(QDBusError::Failed, "no");
    } else if (answer_ == Answer::none) {
        setDelayedReply(true);
        unanswered_ = message();
    }
}

void FakeFileManager::answerLate() {
    QDBusConnection("file manager").send(unanswered_.createReply());
}
