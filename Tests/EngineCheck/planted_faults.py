"""One fault for each requirement of the contract, as what a script does before it becomes the stand-in engine."""

import dataclasses


@dataclasses.dataclass(frozen=True)
class Fault:
    """What the script does, and which checks notice it. More than one has a reason."""

    script: str
    checks: tuple
    reason: str = ""


def _edited_inspection(expression):
    return f"is $command inspect && edit '{expression}' \"$@\""


def _edited_export(expression):
    # Only the report of the first export is looked at. The others are stopped and killed, which a pipe would disturb.
    return f"is $command export && first export && edit '{expression}' \"$@\""


def reading(condition, then):
    """Reads the credential, and does something with it if the condition is met."""
    return f"""
if {condition}; then
    given=$(cat; echo .)
    given=${{given%?}}
    text=${{given%?}}
    {then}
    [ -n "$given" ] || exec "$engine" "$@" </dev/null
    become_with "$text" "$@"
fi"""


INSPECTS_WITH_PASSPHRASE = "is $command inspect && is $factor --backup-passphrase"
INSPECTS_WITH_RECOVERY_KEY = "is $command inspect && is $factor --recovery-key"
AT_A_PLAIN_FILE = "is $command inspect && [ -f \"$package\" ]"

COMMANDS = {
    "refuses the passphrase": Fault(
        f"{INSPECTS_WITH_PASSPHRASE} && first inspection && fail 2 'The passphrase did not unlock this backup.'",
        ("inspect-passphrase",)),
    "refuses the recovery key": Fault(
        f"{INSPECTS_WITH_RECOVERY_KEY} && fail 2 'The recovery key did not unlock this backup.'",
        ("inspect-recovery-key",)),
    "writes beside the destination": Fault(
        'is $command export && first export && { run "$@"; : >"$destination.log"; finish; }', ("export-passphrase",)),
    "exports more with the recovery key": Fault(
        'is $command export && is $factor --recovery-key && { run "$@"; : >"$destination/more"; finish; }',
        ("export-recovery-key",)),
    "takes quotation marks out of the package's path": Fault(
        """case $package in *\\'*)
    shift 2
    set -- "$command" "$(printf %s "$package" | tr -d "'")" "$@" ;;
esac""",
        ("path-of-package",)),
    "takes quotation marks out of the destination's path": Fault(
        """case $destination in *\\'*)
    set -- "$1" "$2" "$3" "$4" "$5" "$(printf %s "$destination" | tr -d "'")" "$7" "$8" ;; esac""",
        ("path-of-destination",)),
    "fails its self-test": Fault("is $command self-test && fail 1 'FAILED: everything'", ("self-test",)),
}

DOCUMENTS = {
    "prints a word after the inspection": Fault(_edited_inspection("$a done"), ("inspection-json",)),
    "leaves out the version": Fault(_edited_inspection('s/"formatVersion":[0-9]*,//'), ("inspection-fields",)),
    "misnames the tip of a branch": Fault(_edited_inspection('s/"tipSelectionCode"/"tip"/g'), ("inspection-branches",)),
    "prints a generation as text": Fault(
        _edited_inspection('s/"generation":\\([0-9]*\\)/"generation":"\\1"/g'), ("inspection-snapshots",)),
    "misnames a count": Fault(_edited_inspection('s/"tombstones"/"tombStones"/g'), ("inspection-counts",)),
    "counts half files": Fault(
        _edited_inspection('s/"unreadableFileCount":0/"unreadableFileCount":0.5/g'), ("inspection-evidence",)),
    "names another format": Fault(_edited_inspection("s/backup.v1/backup.v2/"), ("inspection-identifiers",)),
    "has another word for a factor": Fault(
        _edited_inspection('s/"backup-passphrase"/"passphrase"/'), ("inspection-factor",)),
    "gives two snapshots one code": Fault(
        'is $command inspect && edit "s/$other/$smallest/g" "$@"', ("inspection-codes",)),
    "names a canonical tip that is no snapshot": Fault(
        _edited_inspection('s/"canonicalTipSelectionCode":"[^"]*"/"canonicalTipSelectionCode":"none"/'),
        ("inspection-references",)),
    "counts a file twice": Fault(
        _edited_inspection('s/"mismatchedFileCount":0/"mismatchedFileCount":1/g'), ("inspection-figures",)),
    "prints a word after the report": Fault(_edited_export("$a done"), ("export-json",)),
    "prints null for a count": Fault(
        _edited_export('s/"failedResourceCount":0/"failedResourceCount":null/'), ("export-fields",)),
    "names another schema": Fault(_edited_export("s/cli-export.v1/cli-export.v2/"), ("export-identifier",)),
    "reports another snapshot": Fault(
        _edited_export('s/"selectedSnapshotCode":"[^"]*"/"selectedSnapshotCode":"another"/'), ("export-snapshot",)),
    "reports more items than there are": Fault(
        _edited_export('s/"totalItemCount":/"totalItemCount":9/'), ("export-figures",)),
}

CREDENTIALS = {
    "accepts a passphrase with another letter": Fault(
        reading(INSPECTS_WITH_PASSPHRASE, '[ ${#text} -ne ${#passphrase} ] || text=$passphrase'),
        ("wrong-letter-passphrase",)),
    "accepts a recovery key with another letter": Fault(
        reading(INSPECTS_WITH_RECOVERY_KEY, '[ ${#text} -ne ${#recovery_key} ] || text=$recovery_key'),
        ("wrong-letter-recovery-key",)),
    "accepts another passphrase": Fault(
        reading(INSPECTS_WITH_PASSPHRASE, '[ ${#text} -ne $((${#passphrase} + 2)) ] || text=$passphrase'),
        ("wrong-passphrase",)),
    "accepts another recovery key": Fault(
        reading(INSPECTS_WITH_RECOVERY_KEY, '[ ${#text} -ne $((${#recovery_key} + 2)) ] || text=$recovery_key'),
        ("wrong-recovery-key",)),
    "accepts the recovery key as a passphrase": Fault(
        reading(INSPECTS_WITH_PASSPHRASE, '[ "$text" != "$recovery_key" ] || text=$passphrase'), ("wrong-factor",)),
    "does not say why an export did not unlock": Fault(
        reading("is $command export && is $factor --backup-passphrase",
                 '[ "$text" = "$passphrase" ] || fail 2 "The export failed."'), ("wrong-secret-export",)),
    "accepts an empty credential": Fault(
        reading(INSPECTS_WITH_PASSPHRASE, '[ -z "$given" ] || [ -n "$text" ] || text=$passphrase'), ("credential-empty",)),
    "reads one line": Fault(
        f'{INSPECTS_WITH_PASSPHRASE} && {{ IFS= read -r text || exec "$engine" "$@"; become_with "$text" "$@"; }}',
        ("credential-line-feed",)),
    # A single byte makes it wait for more, so that it does not end before it is asked to.
    "reads once": Fault(
        f"""{INSPECTS_WITH_PASSPHRASE} && {{
    text=$(dd bs=65536 count=1 2>/dev/null)
    [ ${{#text}} -gt 1 ] && [ ${{#text}} -lt 60000 ] || text=$text$(cat)
    become_with "$text" "$@"
}}""", ("credential-in-pieces",)),
    "reads 4096 bytes at most": Fault(
        f"""{INSPECTS_WITH_PASSPHRASE} && {{
    text=$(head -c 4096)
    become_with "$text" "$@"
}}""", ("credential-long",)),
    "does nothing without a credential": Fault(
        reading(INSPECTS_WITH_PASSPHRASE, '[ -n "$given" ] || exit 0'), ("credential-nothing",)),
}
