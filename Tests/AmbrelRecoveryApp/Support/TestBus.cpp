#include "TestBus.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

constexpr int generousMilliseconds = 60'000;

const char* const configuration = R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>%1</listen>
  <auth>EXTERNAL</auth>
  <policy context="default"><allow send_destination="*"/><allow receive_sender="*"/><allow own="*"/></policy>
</busconfig>
)";

} // namespace

TestBus::TestBus(const char* variable) : variable_(variable), previous_(qgetenv(variable)) {
    qputenv(variable, address().toUtf8());
}

TestBus::~TestBus() {
    if (daemon_.state() != QProcess::NotRunning) {
        daemon_.terminate();
        daemon_.waitForFinished(generousMilliseconds);
    }
    previous_.isNull() ? qunsetenv(variable_) : qputenv(variable_, previous_);
}

void TestBus::start() {
    QFile file(folder_.filePath("bus.conf"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QString(configuration).arg(address()).toUtf8());
    file.close();
    daemon_.start("dbus-daemon", {"--config-file=" + file.fileName(), "--nofork", "--print-address"});
    ASSERT_TRUE(daemon_.waitForReadyRead(generousMilliseconds));
}
