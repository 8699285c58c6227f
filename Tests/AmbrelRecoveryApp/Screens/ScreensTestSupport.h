#pragma once

#include "AmbrelRecoveryApp/Screens/RecoveryScreenState.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

// GoogleTest shows failed comparisons through this.
void PrintTo(const QString& text, std::ostream* stream);

/// Until the end of the scope the system asks for another language than English.
class ScopedLanguage {
public:
    /// `language` is a language tag such as "de", `locale` the POSIX locale that goes with it.
    ScopedLanguage(const char* language, const char* locale);
    ScopedLanguage(const ScopedLanguage&) = delete;
    ScopedLanguage& operator=(const ScopedLanguage&) = delete;
    ~ScopedLanguage();

private:
    const QByteArray previousLanguage_;
    const QByteArray previousLocale_;
};

/// Makes the program independent of the user's settings: English, UTC, no stored language. To be called first in main.
void prepareEnvironment();

/// A snapshot with this code and creation time, complete and of a few items.
AmbrelRecoveryInspectionDocument::Snapshot snapshot(const std::string& code, std::int64_t createdAtUTCMilliseconds);

/// An inspection of these snapshots.
std::shared_ptr<const AmbrelRecoveryInspectionDocument>
inspection(std::vector<AmbrelRecoveryInspectionDocument::Snapshot> snapshots,
           const std::string& disposition = "single-branch");

/// A report of an export, to be put into a state.
std::shared_ptr<const AmbrelRecoveryExportDocument> exportResult(const AmbrelRecoveryExportDocument& document);

/// The state in `phase` after an inspection with one snapshot; without one for the phases before.
RecoveryScreenState stateIn(RecoveryScreenState::Phase phase);

/// Every phase, in the order of the workflow.
inline constexpr RecoveryScreenState::Phase allPhases[] = {
    RecoveryScreenState::Phase::chooseBackup, RecoveryScreenState::Phase::preparingPackage,
    RecoveryScreenState::Phase::inspecting,   RecoveryScreenState::Phase::snapshots,
    RecoveryScreenState::Phase::exporting,    RecoveryScreenState::Phase::complete,
};
