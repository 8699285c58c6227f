"""Packages that are missing, no packages, or damaged; codes that no snapshot has."""

import documents
import failure_kinds
from judgement import NotRun, check, require

_LARGEST_FILES = 6
_SMALLEST_FILES = 4


def require_failure(outcome, kind):
    """The run failed with a text of this kind."""
    if outcome.forced:
        raise NotRun(str(outcome))
    require(outcome.status != 0, "status 0")
    require(outcome.kind == kind, str(outcome))
    return str(outcome)


@check("package-missing", f"a package that is not there fails with {failure_kinds.texts_of('package unavailable')}")
def missing_package(subject):
    return require_failure(subject.inspect(package=subject.new_place() / "Missing.ambrel"), "package unavailable")


@check("package-unreadable", "a package without permission to read it fails with the same text")
def unreadable_package(subject):
    package = subject.new_place() / "Locked.ambrel"
    package.mkdir(mode=0)
    try:
        return require_failure(subject.inspect(package=package, user=subject.ordinary_user()), "package unavailable")
    finally:
        package.chmod(0o700)


@check("package-empty-folder", f"a folder that is no package fails with {failure_kinds.texts_of('invalid package')}")
def empty_folder(subject):
    package = subject.new_place() / "Empty.ambrel"
    package.mkdir()
    return require_failure(subject.inspect(package=package), "invalid package")


@check("package-file", "a file that is no package fails with the same text")
def plain_file(subject):
    package = subject.new_place() / "File.ambrel"
    package.write_text("no package\n", encoding="utf-8")
    return require_failure(subject.inspect(package=package), "invalid package")


@check("snapshot-unknown", "the code of no snapshot fails an export")
def unknown_snapshot(subject):
    export = subject.export(code=subject.snapshot["selectionCode"] + "-unknown")
    if export.outcome.forced:
        raise NotRun(str(export.outcome))
    require(export.outcome.status != 0, "status 0")
    return str(export.outcome)


def _reports_failed_resources(outcome):
    """Whether an export succeeded, and says that not everything was written."""
    if not outcome.has_succeeded:
        return False
    try:
        return documents.parse(outcome.output).get("failedResourceCount", 0) > 0
    except (ValueError, TypeError):
        return False


class _Damage:
    """Exports of the largest snapshot from a copy of the package in which one byte of one file is another."""

    def __init__(self, subject):
        package = subject.copy_of_package()
        code = subject.largest_snapshot["selectionCode"]
        files = sorted((path for path in package.rglob("*") if path.is_file() and path.stat().st_size > 0),
                       key=lambda path: path.stat().st_size, reverse=True)
        whole = subject.export(package=package, code=code)
        if not whole.outcome.has_succeeded:
            raise NotRun("an export of the undamaged copy did not succeed")
        self.whole = whole.contents
        whole.remove()
        self.exports = []
        for file in dict.fromkeys(files[:_LARGEST_FILES] + files[-_SMALLEST_FILES:]):
            _change_byte(file)
            export = subject.export(package=package, code=code)
            self.exports.append((file.relative_to(package), export.outcome, export.contents))
            export.remove()
            _change_byte(file)


def _change_byte(path):
    """Inverts the byte in the middle. Done twice, the file is as before."""
    with open(path, "r+b") as file:
        middle = path.stat().st_size // 2
        file.seek(middle)
        byte = file.read(1)[0]
        file.seek(middle)
        file.write(bytes([byte ^ 0xFF]))


@check("damage-noticed", "damage to a file that a snapshot needs fails its export with "
       f"{failure_kinds.texts_of('integrity failure')}, or is reported as failed resources")
def damage_is_noticed(subject):
    exports = subject.once("damage", lambda: _Damage(subject)).exports
    found = [outcome for _, outcome, _ in exports
             if _reports_failed_resources(outcome) or outcome.status != 0 and outcome.kind == "integrity failure"]
    require(found, f"none of {len(exports)} damaged files was reported so: {exports[0][1]}")
    return f"{len(found)} of {len(exports)} damaged files: {found[0]}"


@check("damage-never-passes", "no export of a damaged package that reports neither a failure nor failed resources has other "
       "files than before")
def damage_never_passes(subject):
    damage = subject.once("damage", lambda: _Damage(subject))
    for file, outcome, contents in damage.exports:
        if outcome.has_succeeded and not _reports_failed_resources(outcome):
            require(contents == damage.whole, f"{file} is damaged, and the export is another with status 0")
    return f"{len(damage.exports)} damaged files"
