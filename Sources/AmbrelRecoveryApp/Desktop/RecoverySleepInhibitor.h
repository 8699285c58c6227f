#pragma once

#include <QString>

/// Keeps the machine awake. Main thread.
class RecoverySleepInhibitor {
public:
    RecoverySleepInhibitor() = default;
    RecoverySleepInhibitor(const RecoverySleepInhibitor&) = delete;
    RecoverySleepInhibitor& operator=(const RecoverySleepInhibitor&) = delete;
    virtual ~RecoverySleepInhibitor() = default;

    /// Keeps the machine from falling asleep until end(), if the desktop allows it. The desktop may show `reason` to
    /// the user. Does nothing if already active.
    virtual void begin(const QString& reason) = 0;

    /// Lets the machine sleep again. Does nothing if not active.
    virtual void end() = 0;
};
