"""What is checked: an engine with a package and the secrets that open it."""

import dataclasses
import decimal
import os
import pathlib
import shutil
import statistics

import documents
import folders
from judgement import NotRun


@dataclasses.dataclass(frozen=True)
class Factor:
    """One of the two kinds of secret, with the engine's word and option for it."""

    word: str
    flag: str


PASSPHRASE = Factor("backup-passphrase", "--backup-passphrase")
RECOVERY_KEY = Factor("recovery-key", "--recovery-key")
FACTORS = (PASSPHRASE, RECOVERY_KEY)
_ORDINARY_USER = 65534


@dataclasses.dataclass
class Export:
    """A finished export: how it ended, and what its place holds now, besides what was there before."""

    outcome: object
    place: pathlib.Path
    destination: pathlib.Path
    new: list

    @property
    def contents(self):
        return folders.contents(self.destination) if self.destination.is_dir() else None

    def remove(self):
        folders.remove(self.place)


class Subject:
    """Runs the engine on the package. Every place it exports to is new and lies in the scratch folder."""

    def __init__(self, engine, package, secrets, scratch):
        self.engine = engine
        self.package = package
        self.scratch = scratch
        # Every export, so that those that failed or were stopped can be judged together.
        self.exports = []
        self._secrets = secrets
        self._kept = {}
        self._places = 0
        self.state_before = folders.state(package)

    def secret(self, factor):
        return self._secrets[factor.word]

    @property
    def secrets(self):
        return list(self._secrets.values())

    def redacted(self, text):
        """A text that can be shown: without secrets, in one line."""
        for secret in self._secrets.values():
            text = text.replace(secret.decode("utf-8", "replace"), "(secret)")
        return "".join(character if character.isprintable() else "?" for character in text)

    def inspect(self, factor=PASSPHRASE, *, secret=None, pieces=None, package=None, **options):
        pieces = [self._input(factor, secret)] if pieces is None else pieces
        return self.engine.run(["inspect", package or self.package, factor.flag, "--credential-stdin"], pieces, **options)

    def export(self, factor=PASSPHRASE, *, secret=None, package=None, code=None, place=None, destination=None,
               **options):
        """Exports a snapshot to a new place, or to the one that is given."""
        place = place or self.new_place()
        destination = pathlib.Path(destination or place / "Recovered")
        code = self.snapshot["selectionCode"] if code is None else code
        before = set(os.listdir(place))
        outcome = self.engine.run(["export", package or self.package, "--snapshot", code, "--destination", destination,
                                   factor.flag, "--credential-stdin"], [self._input(factor, secret)], **options)
        export = Export(outcome, place, destination, sorted(set(os.listdir(place)) - before))
        self.exports.append(export)
        return export

    def new_place(self):
        self._places += 1
        place = self.scratch / f"place {self._places}"
        place.mkdir()
        return place

    def copy_of_package(self):
        """A copy that may be changed. Raises NotRun if the package is too large for that."""
        size = folders.size(self.package)
        if size > self.engine.limits.most_copied_bytes:
            raise NotRun(f"a package of {size} bytes is not copied")
        copy = self.new_place() / "Copy.ambrel"
        shutil.copytree(self.package, copy, symlinks=True)
        return copy

    def ordinary_user(self):
        """Who to run as where permissions matter: nothing is forbidden to root."""
        return _ORDINARY_USER if os.geteuid() == 0 else None

    def first_inspection(self, factor=PASSPHRASE):
        """The first inspection with a factor, however it ended. It is done once."""
        return self.once(("inspection", factor), lambda: self.inspect(factor))

    def first_export(self, factor=PASSPHRASE):
        """The first export with a factor, however it ended, and what it has written. It is done once."""
        def run():
            export = self.export(factor)
            contents = export.contents
            export.remove()
            return export, contents
        return self.once(("export", factor), run)

    def exported(self, factor=PASSPHRASE):
        """What a whole export writes. Raises NotRun unless the first one succeeded."""
        export, contents = self.first_export(factor)
        if not export.outcome.has_succeeded or contents is None:
            raise NotRun("the first export did not succeed")
        return contents

    def seconds_of(self, first):
        """How long such a run takes. The first one alone says little: it had to read everything from the disk."""
        return statistics.median_low(outcome.seconds for outcome in self.engine.outcomes
                                     if outcome.has_succeeded and not outcome.sent and outcome.work == first.work)

    def once(self, name, run):
        """What `run` gives, which is called the first time only."""
        if name not in self._kept:
            self._kept[name] = run()
        return self._kept[name]

    @property
    def document(self):
        """The inspection document. Raises NotRun if it cannot be read."""
        outcome = self.first_inspection()
        if not outcome.has_succeeded:
            raise NotRun("the first inspection did not succeed")
        try:
            return documents.parse(outcome.output)
        except ValueError:
            raise NotRun("the inspection document cannot be read") from None

    @property
    def sound_document(self):
        """The inspection document, with all its fields. Raises NotRun if it is another."""
        document = self.document
        if any(documents.inspection_faults(document).values()):
            raise NotRun("the inspection document does not have the fields that it must have")
        return document

    @property
    def report(self):
        """The export document, with all its fields. Raises NotRun if it is another."""
        self.exported()
        try:
            report = documents.parse(self.first_export()[0].outcome.output)
        except ValueError:
            raise NotRun("the export document cannot be read") from None
        if documents.faults(report, documents.EXPORT, "document"):
            raise NotRun("the export document does not have the fields that it must have")
        return report

    @property
    def snapshot(self):
        """The smallest snapshot that can be exported whole, so that many exports of it take little time and space."""
        return min(self._whole_snapshots(), key=_size_of)

    @property
    def largest_snapshot(self):
        return max(self._whole_snapshots(), key=_size_of)

    def _whole_snapshots(self):
        snapshots = self.document.get("snapshots")
        whole = [snapshot for snapshot in snapshots if _is_whole(snapshot)] if isinstance(snapshots, list) else []
        if not whole:
            raise NotRun("the inspection names no snapshot that is complete and has content")
        return whole

    def _input(self, factor, secret):
        return (self.secret(factor) if secret is None else secret) + b"\n"


def _size_of(snapshot):
    return snapshot["logicalPlaintextByteCount"]


def _is_whole(snapshot):
    """Whether a snapshot can be asked for and has everything. A document that lacks such fields is judged elsewhere."""
    try:
        return (isinstance(snapshot["selectionCode"], str) and documents.can_be_argument(snapshot["selectionCode"])
                and snapshot["payloadFileEvidence"]["complete"] is True
                and isinstance(_size_of(snapshot), decimal.Decimal) and _size_of(snapshot) > 0)
    except (KeyError, TypeError):
        return False
