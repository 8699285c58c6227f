#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

/// A message bus of its own, on which nothing is started by itself.
class TestBus {
public:
    /// The bus of the address that an environment variable names, until the end of the scope. It does not run yet.
    explicit TestBus(const char* variable);
    TestBus(const TestBus&) = delete;
    TestBus& operator=(const TestBus&) = delete;
    ~TestBus();

    void start();
    QString socketPath() const { return folder_.filePath("bus"); }
    QString address() const { return "unix:path=" + socketPath(); }

private:
    const char* const variable_;
    const QByteArray previous_;
    const QTemporaryDir folder_;
    QProcess daemon_;
};
