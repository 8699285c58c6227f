"""The two documents, field by field, and what they say."""

import documents
from judgement import NotRun, check, require
from subject import RECOVERY_KEY

_INSPECTION_SCHEMA = "com.ambrel.recovery.cli-inspection.v1"
_FORMAT = "com.ambrel.backup.v1"
_EXPORT_SCHEMA = "com.ambrel.recovery.cli-export.v1"
_MOST_FAULTS_SHOWN = 3


def _require_document(outcome, what):
    if not outcome.has_succeeded:
        raise NotRun(f"the first {what} did not succeed")
    try:
        documents.parse(outcome.output)
    except ValueError as fault:
        require(False, str(fault))
    return f"{len(outcome.output)} bytes"


def _require_no_faults(faults, fields):
    shown = ", ".join(faults[:_MOST_FAULTS_SHOWN])
    more = len(faults) - _MOST_FAULTS_SHOWN
    require(not faults, shown + (f", and {more} more" if more > 0 else ""))
    return f"each of the {len(fields)} fields"


def _require_fields(subject, kind, fields):
    return _require_no_faults(documents.inspection_faults(subject.document)[kind], fields)


@check("inspection-json", "`inspect` prints one JSON object in UTF-8 and nothing else")
def inspection_is_json(subject):
    return _require_document(subject.first_inspection(), "inspection")


@check("inspection-fields", "the inspection document has its fields, each of its type")
def inspection_has_its_fields(subject):
    return _require_fields(subject, "document", documents.INSPECTION)


@check("inspection-branches", "each preserved branch has its fields, each of its type")
def branches_have_their_fields(subject):
    return _require_fields(subject, "branches", documents.BRANCH)


@check("inspection-snapshots", "each snapshot has its fields, each of its type")
def snapshots_have_their_fields(subject):
    return _require_fields(subject, "snapshots", documents.SNAPSHOT)


@check("inspection-counts", "the counts of each snapshot have their fields, each of its type")
def counts_have_their_fields(subject):
    return _require_fields(subject, "counts", documents.COUNTS)


@check("inspection-evidence", "the evidence of each snapshot has its fields, each of its type")
def evidence_has_its_fields(subject):
    return _require_fields(subject, "evidence", documents.EVIDENCE)


@check("inspection-identifiers", f"the inspection's schema is “{_INSPECTION_SCHEMA}”, its format “{_FORMAT}”")
def inspection_has_its_identifiers(subject):
    document = subject.document
    found = [document.get("schemaIdentifier"), document.get("formatIdentifier")]
    if not all(isinstance(text, str) for text in found):
        raise NotRun("an identifier is missing")
    require(found == [_INSPECTION_SCHEMA, _FORMAT], f"“{found[0]}”, “{found[1]}”")
    return "both"


@check("inspection-factor", "`unlockedFactor` is the word of the factor with which the package was unlocked")
def inspection_names_the_factor(subject):
    word = subject.sound_document["unlockedFactor"]
    require(word == "backup-passphrase", f"“{word}” with the passphrase")
    outcome = subject.first_inspection(RECOVERY_KEY)
    try:
        word = documents.parse(outcome.output).get("unlockedFactor")
    except ValueError:
        raise NotRun("with the recovery key there is no document") from None
    require(word == "recovery-key", f"“{word}” with the recovery key")
    return "“backup-passphrase”, “recovery-key”"


@check("inspection-codes", "no two snapshots have the same code, and each code can be an argument")
def codes_distinguish_snapshots(subject):
    codes = [snapshot["selectionCode"] for snapshot in subject.sound_document["snapshots"]]
    require(len(set(codes)) == len(codes), "two snapshots have the same code")
    require(all(code and documents.can_be_argument(code) for code in codes),
            "a code is empty, too long, or has a zero character")
    return f"{len(codes)} codes"


@check("inspection-references", "the tips, the snapshots of a branch and the canonical tip are codes of listed snapshots")
def references_lead_to_snapshots(subject):
    document = subject.sound_document
    codes = {snapshot["selectionCode"] for snapshot in document["snapshots"]}
    named = {code for branch in document["preservedBranches"]
             for code in (branch["tipSelectionCode"], *branch["snapshotSelectionCodes"])}
    if document.get("canonicalTipSelectionCode") is not None:
        named.add(document["canonicalTipSelectionCode"])
    require(named <= codes, f"there is no snapshot “{min(named - codes, default='')}”")
    return f"{len(named)} codes"


@check("inspection-figures", "the counts of the evidence add up, `complete` says whether every required file matches, and "
       "`maximumWriterEpoch` is not less than the epoch of a snapshot")
def figures_fit_together(subject):
    document = subject.sound_document
    for snapshot in document["snapshots"]:
        evidence = snapshot["payloadFileEvidence"]
        required, matching = evidence["requiredFileCount"], evidence["matchingFileCount"]
        others = sum(evidence[f"{state}FileCount"] for state in ("missing", "mismatched", "unreadable"))
        require(required == matching + others, f"{required} required files, but {matching} match and {others} do not")
        require(evidence["complete"] == (others == 0), f"complete is {evidence['complete']}, but {others} do not match")
        require(snapshot["writerEpoch"] <= document["maximumWriterEpoch"],
                f"the epoch {snapshot['writerEpoch']} is above {document['maximumWriterEpoch']}")
    return f"those of {len(document['snapshots'])} snapshots"


@check("export-json", "`export` prints one JSON object in UTF-8 and nothing else")
def export_is_json(subject):
    return _require_document(subject.first_export()[0].outcome, "export")


@check("export-fields", "the export document has its fields, each of its type")
def export_has_its_fields(subject):
    subject.exported()
    try:
        report = documents.parse(subject.first_export()[0].outcome.output)
    except ValueError:
        raise NotRun("the export document cannot be read") from None
    return _require_no_faults(documents.faults(report, documents.EXPORT, "document"), documents.EXPORT)


@check("export-identifier", f"the export's schema is “{_EXPORT_SCHEMA}”")
def export_has_its_identifier(subject):
    found = subject.report["schemaIdentifier"]
    require(found == _EXPORT_SCHEMA, f"“{found}”")
    return "the same"


@check("export-snapshot", "`selectedSnapshotCode` is the code that was asked for")
def export_names_the_snapshot(subject):
    found = subject.report["selectedSnapshotCode"]
    require(found == subject.snapshot["selectionCode"], f"“{found}”")
    return f"“{found}”"


@check("export-figures", "the totals are the snapshot's counts, recovered and failed resources add up, and there are as many "
       "files as recovered resources")
def export_figures_fit(subject):
    code = subject.snapshot["selectionCode"]
    report = subject.report
    counts = next(one["counts"] for one in subject.sound_document["snapshots"] if one["selectionCode"] == code)
    totals = report["totalItemCount"], report["totalResourceCount"]
    require(totals == (counts["items"], counts["resources"]),
            f"{totals[0]} items and {totals[1]} resources, but the snapshot has {counts['items']} and "
            f"{counts['resources']}")
    require(report["recoveredItemCount"] <= totals[0], "more items are recovered than there are")
    require(report["recoveredResourceCount"] + report["failedResourceCount"] == totals[1],
            f"{report['recoveredResourceCount']} recovered and {report['failedResourceCount']} failed of {totals[1]}")
    files = sum(content[0] == "file" for content in subject.exported().values())
    require(files >= report["recoveredResourceCount"], f"{files} files, but {report['recoveredResourceCount']} recovered")
    return f"{totals[0]} items, {totals[1]} resources, {files} files"
