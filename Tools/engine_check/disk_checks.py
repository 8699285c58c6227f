"""Disks that are full or can only be read."""

import os

import disks
import failure_kinds
import folders
from judgement import NotRun, check, require
from package_checks import require_failure

_KILOBYTES = 32
_LEAST_BYTES = 64 * 1024


def _require_nothing_on(place, seen):
    left = os.listdir(place)
    require(not left, f"{', '.join(left)} is left on the disk")
    return seen


@check("destination-full-disk",
       f"a disk that becomes full fails an export with {failure_kinds.texts_of('destination unavailable')}, and nothing is "
       "left on it")
def full_disk(subject):
    snapshot = subject.snapshot
    if snapshot["logicalPlaintextByteCount"] < _LEAST_BYTES:
        raise NotRun("the snapshot is too small to fill a disk")
    place = subject.new_place()

    def export():
        outcome = subject.export(place=place, code=snapshot["selectionCode"]).outcome
        return _require_nothing_on(place, require_failure(outcome, "destination unavailable"))

    return disks.with_mounts(lambda: disks.mount_small(place, _KILOBYTES), export, subject.engine)


@check("destination-read-only-disk", "a destination on a disk that can only be read fails in the same way")
def read_only_disk(subject):
    place = subject.new_place()
    code = subject.snapshot["selectionCode"]

    def export():
        outcome = subject.export(place=place, code=code).outcome
        return _require_nothing_on(place, require_failure(outcome, "destination unavailable"))

    return disks.with_mounts(lambda: disks.make_read_only(place), export, subject.engine)


@check("package-on-read-only-disk", "a package on a disk that can only be read is inspected and exported like any other")
def package_on_a_read_only_disk(subject):
    contents = subject.exported()
    place = subject.new_place()

    def recover():
        inspection = subject.inspect()
        require(inspection.has_succeeded, str(inspection))
        export = subject.export(place=place)
        require(export.outcome.has_succeeded, str(export.outcome))
        require(export.contents == contents, "the files are others than those from the writable disk")
        return "status 0 twice"

    try:
        return disks.with_mounts(lambda: disks.make_read_only(subject.package), recover, subject.engine)
    finally:
        folders.remove(place)
