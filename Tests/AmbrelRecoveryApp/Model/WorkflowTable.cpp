#include "WorkflowTable.h"

#include "AmbrelRecoveryApp/Model/RecoveryEngineCommandLine.h"
#include "AmbrelRecoveryApp/Model/RecoveryErrorPresentation.h"

#include <algorithm>
#include <stdexcept>

namespace {

using WorkflowTable::Change;
using WorkflowTable::Expected;
using WorkflowTable::Operation;
using WorkflowTable::Step;
using Driver = WorkflowDriver;
using Factor = AmbrelRecoveryAppFactor;
using Kind = AmbrelRecoveryFailureKind;
using Model = RecoveryViewModel;
using Phase = RecoveryViewModel::Phase;
using Reply = ScriptedEngine::Reply;

// The published properties

const Change packageTaken{[](Expected& e) { e.shown.package = e.folder / Driver::package(e.number); }};
const Change noPackage{[](Expected& e) { e.shown.package.clear(); }};
const Change otherFactor{[](Expected& e) {
    e.shown.factor = e.shown.factor == Factor::recoveryKey ? Factor::backupPassphrase : Factor::recoveryKey;
}};
const Change secretTyped{[](Expected& e) { e.shown.credential = Driver::secret(e.number); }};
const Change secretGivenBack{[](Expected& e) { e.shown.credential = e.session->credential; }};
const Change noSecret{[](Expected& e) { e.shown.credential.clear(); }};
const Change inspectionTaken{[](Expected& e) { e.shown.inspection = static_cast<std::uint64_t>(e.number); }};
const Change noInspection{[](Expected& e) { e.shown.inspection = 0; }};
const Change newSelected{[](Expected& e) { e.shown.selection = "new"; }};
const Change oldSelected{[](Expected& e) { e.shown.selection = "old"; }};
const Change noSelection{[](Expected& e) { e.shown.selection.clear(); }};
const Change destinationTaken{[](Expected& e) { e.shown.destination = e.folder / Driver::destination(e.number); }};
const Change noDestination{[](Expected& e) { e.shown.destination.clear(); }};
const Change reportTaken{[](Expected& e) { e.shown.report = static_cast<std::uint64_t>(e.number); }};
const Change noReport{[](Expected& e) { e.shown.report = 0; }};
const Change wholeProgress{[](Expected& e) { e.shown.progress = 1.0; }};
const Change noProgress{[](Expected& e) { e.shown.progress.reset(); }};
const Change noError{[](Expected& e) {
    e.shown.errorTitle.clear();
    e.shown.errorBody.clear();
    e.shown.errorNumber = 0;
}};

Change error(Kind kind) {
    const auto presented = RecoveryErrorPresentation::errorPresentation(kind);
    return {[title = presented.title.toStdString(), body = presented.body.toStdString()](Expected& e) {
        e.shown.errorTitle = title;
        e.shown.errorBody = body;
        e.shown.errorNumber = ++e.errors;
    }};
}

Change phase(Phase phase) {
    return {[phase](Expected& e) { e.shown.phase = phase; }};
}

const Change phaseBack{
    [](Expected& e) { e.shown.phase = e.shown.inspection != 0 ? Phase::snapshots : Phase::chooseBackup; }};

// Behind them

const Change sessionMade{[](Expected& e) { e.session = {e.shown.factor, Driver::secret(e.number)}; }, false};
const Change sessionDropped{[](Expected& e) { e.session.reset(); }, false};
const Change sessionDroppedWithoutInspection{[](Expected& e) {
                                                 if (e.shown.inspection == 0) {
                                                     e.session.reset();
                                                 }
                                             },
                                             false};
const Change engineInspects{
    [](Expected& e) {
        e.runs.push_back(
            {RecoveryEngineCommandLine::inspectArguments(e.shown.package, e.shown.factor), e.session->credential});
    },
    false};
const Change engineExports{[](Expected& e) {
                               e.runs.push_back({RecoveryEngineCommandLine::exportArguments(
                                                     e.shown.package, e.shown.selection,
                                                     e.folder / Driver::destination(e.number), e.shown.factor),
                                                 e.session->credential});
                           },
                           false};
const Change engineAskedToEnd{[](Expected& e) { ++e.cancellations; }, false};

// The operations

bool always(const Expected&) {
    return true;
}

std::vector<Change> operator+(std::vector<Change> first, const std::vector<Change>& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

const std::vector<Change> acceptance = {packageTaken,  noInspection,   noSelection,
                                        noDestination, noReport,       noProgress,
                                        noSecret,      sessionDropped, phase(Phase::chooseBackup),
                                        noError};
const std::vector<Change> anotherStart = {engineAskedToEnd,
                                          noPackage,
                                          noInspection,
                                          noSelection,
                                          noDestination,
                                          noReport,
                                          noProgress,
                                          noSecret,
                                          sessionDropped,
                                          noError,
                                          phase(Phase::chooseBackup)};
const std::vector<Change> cancellation = {engineAskedToEnd, noProgress, sessionDroppedWithoutInspection, phaseBack};

std::vector<Step> inspection(const std::vector<Change>& outcome) {
    const std::vector<Change> preparation = {noSecret, sessionMade, noError, noProgress,
                                             phase(Phase::preparingPackage)};
    return {{always, {secretTyped}}, {&Expected::canInspect, preparation + outcome}};
}

std::vector<Step> engineInspection(const std::vector<Change>& outcome) {
    // The preparation tells of its end, and so does the model.
    const std::vector<Change> start = {wholeProgress, wholeProgress, phase(Phase::inspecting), engineInspects};
    return inspection(start + outcome);
}

std::vector<Change> inspectionFailure(Kind kind) {
    return {phase(Phase::chooseBackup), sessionDropped, error(kind)};
}

std::vector<Step> exportRun(const std::vector<Change>& outcome) {
    const std::vector<Change> start = {destinationTaken, noError, phase(Phase::exporting), engineExports};
    return {{&Expected::canExport, start + outcome}};
}

std::vector<Change> exportFailure(Kind kind) {
    return {phase(Phase::snapshots), error(kind)};
}

std::vector<Step> refusedDestination(Kind kind) {
    return {{&Expected::canExport, {error(kind)}}};
}

std::vector<Operation> choosing() {
    return {
        {"choose", [](Driver& d) { d.choosePackage(Driver::package(d.number())); }, {{always, acceptance}}},
        {"choose, refused", [](Driver& d) { d.choosePackage("Photos"); }, {{always, {error(Kind::invalidPackage)}}}},
        {"type", [](Driver& d) { d.type(); }, {{always, {secretTyped}}}},
        {"other factor",
         [](Driver& d) {
             d.model().setFactor(d.model().factor() == Factor::recoveryKey ? Factor::backupPassphrase
                                                                           : Factor::recoveryKey);
         },
         {{always, {otherFactor}}}},
        {"dismiss", [](Driver& d) { d.model().dismissPresentedError(); }, {{always, {noError}}}},
        {"start again", [](Driver& d) { d.model().startAgain(); }, {{always, anotherStart}}},
        {"cancel", [](Driver& d) { d.model().cancelOperation(); }, {{always, cancellation}}},
    };
}

std::vector<Operation> inspecting() {
    return {
        {"inspect", [](Driver& d) { d.inspect(Reply::succeeds, Driver::inspection(d.number(), "single-branch")); },
         engineInspection({inspectionTaken, newSelected, phase(Phase::snapshots)})},
        {"inspect, forked",
         [](Driver& d) { d.inspect(Reply::succeeds, Driver::inspection(d.number(), "unresolved-fork")); },
         engineInspection({inspectionTaken, noSelection, phase(Phase::snapshots)})},
        {"inspect, no document", [](Driver& d) { d.inspect(Reply::succeeds, "{}"); },
         engineInspection(inspectionFailure(Kind::generic))},
        {"inspect, failed", [](Driver& d) { d.inspect(Reply::fails, "integrity verification failed"); },
         engineInspection(inspectionFailure(Kind::integrityFailure))},
        {"inspect, no engine", [](Driver& d) { d.inspect(Reply::cannotRun); },
         engineInspection(std::vector{noProgress} + inspectionFailure(Kind::generic))},
        {"inspect, behind an engine that never ends", [](Driver& d) { d.inspect(Reply::isRefused); },
         engineInspection(std::vector{noProgress, secretGivenBack} + inspectionFailure(Kind::generic))},
        {"inspect, not prepared", [](Driver& d) { d.failPreparation(); },
         inspection(std::vector{noProgress} + inspectionFailure(Kind::packageUnavailable))},
        {"prepare, cancelled", [](Driver& d) { d.interruptPreparation(&Model::cancelOperation); },
         inspection(cancellation)},
        {"prepare, another start", [](Driver& d) { d.interruptPreparation(&Model::startAgain); },
         inspection(anotherStart)},
        {"inspect, cancelled", [](Driver& d) { d.interruptInspection(&Model::cancelOperation); },
         engineInspection(cancellation)},
        {"inspect, another start", [](Driver& d) { d.interruptInspection(&Model::startAgain); },
         engineInspection(anotherStart)},
    };
}

std::vector<Operation> exporting() {
    return {
        {"select", [](Driver& d) { d.model().setSelectedSnapshotCode("old"); }, {{always, {oldSelected}}}},
        {"export",
         [](Driver& d) { d.exportTo(Driver::destination(d.number()), Reply::succeeds, Driver::report(d.number())); },
         exportRun({reportTaken, sessionDropped, phase(Phase::complete)})},
        {"export, taken", [](Driver& d) { d.exportTo("Photos", Reply::succeeds); },
         refusedDestination(Kind::destinationExists)},
        {"export, inside", [](Driver& d) { d.exportTo(d.model().packageURL().value_or("") / "New", Reply::succeeds); },
         refusedDestination(Kind::destinationUnavailable)},
        {"export, failed",
         [](Driver& d) { d.exportTo(Driver::destination(d.number()), Reply::fails, "output could not be written"); },
         exportRun(exportFailure(Kind::destinationUnavailable))},
        {"export, no engine", [](Driver& d) { d.exportTo(Driver::destination(d.number()), Reply::cannotRun); },
         exportRun(exportFailure(Kind::generic))},
        {"export, cancelled", [](Driver& d) { d.interruptExport(&Model::cancelOperation); }, exportRun(cancellation)},
        {"export, another start", [](Driver& d) { d.interruptExport(&Model::startAgain); }, exportRun(anotherStart)},
    };
}

} // namespace

const std::vector<Operation>& WorkflowTable::operations() {
    static const std::vector<Operation> all = [] {
        std::vector<Operation> operations;
        for (const auto& part : {choosing(), inspecting(), exporting()}) {
            operations.insert(operations.end(), part.begin(), part.end());
        }
        return operations;
    }();
    return all;
}

const Operation& WorkflowTable::operation(const std::string& name) {
    const auto found = std::ranges::find(operations(), name, &Operation::name);
    if (found == operations().end()) {
        throw std::out_of_range(name);
    }
    return *found;
}
