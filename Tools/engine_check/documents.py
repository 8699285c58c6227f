"""The two documents that an engine prints, as strictly as the application reads them."""

import decimal
import json

SIGNED = "signed 64-bit integer"
UNSIGNED = "unsigned 64-bit integer"
TEXT = "text"
OPTIONAL_TEXT = "text or null"
TRUTH = "true or false"
TEXTS = "list of texts"
OBJECT = "object"
OBJECTS = "list of objects"

INSPECTION = {
    "schemaIdentifier": TEXT, "formatIdentifier": TEXT, "formatVersion": UNSIGNED, "unlockedFactor": TEXT,
    "branchDisposition": TEXT, "canonicalTipSelectionCode": OPTIONAL_TEXT, "authenticatedCommitCount": SIGNED,
    "authenticatedHeadCount": SIGNED, "maximumWriterEpoch": UNSIGNED, "preservedBranches": OBJECTS, "snapshots": OBJECTS,
}
BRANCH = {"tipSelectionCode": TEXT, "snapshotSelectionCodes": TEXTS}
SNAPSHOT = {
    "selectionCode": TEXT, "createdAtUTCMilliseconds": SIGNED, "writerEpoch": UNSIGNED, "generation": UNSIGNED,
    "retainedTip": TRUTH, "counts": OBJECT, "logicalPlaintextByteCount": UNSIGNED, "encryptedPayloadByteCount": UNSIGNED,
    "payloadFileEvidence": OBJECT,
}
COUNTS = dict.fromkeys(("items", "resources", "folders", "albums", "memberships", "tombstones"), UNSIGNED)
EVIDENCE = {"complete": TRUTH} | dict.fromkeys(
    ("requiredFileCount", "matchingFileCount", "missingFileCount", "mismatchedFileCount", "unreadableFileCount"), SIGNED)
EXPORT = {
    "schemaIdentifier": TEXT, "status": TEXT, "selectedSnapshotCode": TEXT, "totalItemCount": SIGNED,
    "recoveredItemCount": SIGNED, "totalResourceCount": SIGNED, "recoveredResourceCount": SIGNED,
    "failedResourceCount": SIGNED,
}

# With its end, an argument is at most 128 KiB long.
_LONGEST_ARGUMENT = (128 << 10) - 1

_RANGES = {SIGNED: (-(1 << 63), (1 << 63) - 1), UNSIGNED: (0, (1 << 64) - 1)}
_NUMBER_BEYOND_ALL = decimal.Decimal("1e400")


def can_be_argument(text):
    """Whether a text can be one argument of a command line."""
    return "\0" not in text and len(text.encode("utf-8")) <= _LONGEST_ARGUMENT


def parse(data):
    """The object in a text. Raises ValueError with what is wrong with it."""
    text = data.decode("utf-8").removeprefix("\ufeff")
    try:
        value = json.loads(text, parse_int=_number, parse_float=_number, parse_constant=_refuse,
                           object_pairs_hook=_first_of_each)
        # A text may hold halves of characters, each escaped on its own.
        json.dumps(value, ensure_ascii=False, default=str).encode("utf-8")
    except RecursionError:
        raise ValueError("it is nested too deeply") from None
    if not isinstance(value, dict):
        raise ValueError("it is no object")
    return value


def faults(value, fields, name):
    """What keeps a value from being an object with these fields, one text each; nothing if it is one."""
    if not isinstance(value, dict):
        return [f"{name} is no object"]
    found = []
    for key, kind in fields.items():
        if key not in value:
            found += [] if kind == OPTIONAL_TEXT else [f"{name}.{key} is missing"]
        elif not _is(kind, value[key]):
            found.append(f"{name}.{key} is no {kind}")
    return found


def faults_of_each(values, fields, name):
    """The same for the objects of a list. What is no list is the fault of the object that holds it."""
    values = values if isinstance(values, list) else []
    return [fault for index, value in enumerate(values) for fault in faults(value, fields, f"{name}[{index}]")]


def inspection_faults(document):
    """Every fault of an inspection document, by the kind of object that has it."""
    snapshots = document.get("snapshots")
    objects = [snapshot for snapshot in snapshots if isinstance(snapshot, dict)] if isinstance(snapshots, list) else []
    return {
        "document": faults(document, INSPECTION, "document"),
        "branches": faults_of_each(document.get("preservedBranches"), BRANCH, "preservedBranches"),
        "snapshots": faults_of_each(snapshots, SNAPSHOT, "snapshots"),
        "counts": faults_of_each(_objects(objects, "counts"), COUNTS, "counts"),
        "evidence": faults_of_each(_objects(objects, "payloadFileEvidence"), EVIDENCE, "payloadFileEvidence"),
    }


def _objects(snapshots, key):
    return [snapshot[key] for snapshot in snapshots if isinstance(snapshot.get(key), dict)]


def _is(kind, value):
    if kind in _RANGES:
        least, greatest = _RANGES[kind]
        return (isinstance(value, decimal.Decimal) and least <= value <= greatest
                and value == value.to_integral_value())
    if kind == OPTIONAL_TEXT:
        return value is None or isinstance(value, str)
    if kind == TEXTS:
        return isinstance(value, list) and all(isinstance(item, str) for item in value)
    return isinstance(value, {TEXT: str, TRUTH: bool, OBJECT: dict, OBJECTS: list}[kind])


def _number(text):
    try:
        return decimal.Decimal(text)
    except decimal.InvalidOperation:  # an exponent beyond all measure
        return _NUMBER_BEYOND_ALL


def _refuse(word):
    raise ValueError(f"{word} is no number")


def _first_of_each(pairs):
    return dict(reversed(pairs))
