#include "ScreensTestSupport.h"

#include <QTemporaryDir>

#include <utility>

void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toStdString() << '"';
}

ScopedLanguage::ScopedLanguage(const char* language, const char* locale)
    : previousLanguage_(qgetenv("LANGUAGE")), previousLocale_(qgetenv("LC_ALL")) {
    qputenv("LANGUAGE", language);
    qputenv("LC_ALL", locale);
}

ScopedLanguage::~ScopedLanguage() {
    qputenv("LANGUAGE", previousLanguage_);
    qputenv("LC_ALL", previousLocale_);
}

void prepareEnvironment() {
    static const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    qputenv("LANGUAGE", "en");
    qputenv("LC_ALL", "en_US.UTF-8");
    qputenv("TZ", "UTC");
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

AmbrelRecoveryInspectionDocument::Snapshot snapshot(const std::string& code, std::int64_t createdAtUTCMilliseconds) {
    return {
        .selectionCode = code,
        .createdAtUTCMilliseconds = createdAtUTCMilliseconds,
        .counts = {.items = 4812, .resources = 9630},
        .logicalPlaintextByteCount = 1'500'000,
        .payloadFileEvidence = {.complete = true},
    };
}

std::shared_ptr<const AmbrelRecoveryInspectionDocument>
inspection(std::vector<AmbrelRecoveryInspectionDocument::Snapshot> snapshots, const std::string& disposition) {
    return std::make_shared<const AmbrelRecoveryInspectionDocument>(AmbrelRecoveryInspectionDocument{
        .branchDisposition = disposition,
        .snapshots = std::move(snapshots),
    });
}

std::shared_ptr<const AmbrelRecoveryExportDocument> exportResult(const AmbrelRecoveryExportDocument& document) {
    return std::make_shared<const AmbrelRecoveryExportDocument>(document);
}

RecoveryScreenState stateIn(RecoveryScreenState::Phase phase) {
    using Phase = RecoveryScreenState::Phase;
    RecoveryScreenState state;
    state.phase = phase;
    if (phase != Phase::chooseBackup) {
        state.packageURL = "/backups/Family Photos.ambrel";
    }
    if (phase == Phase::snapshots || phase == Phase::exporting || phase == Phase::complete) {
        state.snapshots = std::make_shared<SortedSnapshots>(inspection({snapshot("a", 0)}));
    }
    return state;
}
