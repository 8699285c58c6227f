"""The command lines, with the secret of each factor."""

from judgement import check, require
from subject import PASSPHRASE, RECOVERY_KEY

_DIFFICULT_NAME = "-a 'b' \"c\" $d\\e a\u0301 😀 --snapshot"


def _require_inspection(outcome):
    require(outcome.has_succeeded, str(outcome))
    require(outcome.output, "status 0, but nothing on standard output")
    return f"status 0, {len(outcome.output)} bytes"


@check("inspect-passphrase",
       "`inspect PACKAGE --backup-passphrase --credential-stdin` with the passphrase ends with status 0")
def inspect_with_passphrase(subject):
    return _require_inspection(subject.first_inspection(PASSPHRASE))


@check("inspect-recovery-key",
       "`inspect PACKAGE --recovery-key --credential-stdin` with the recovery key ends with status 0")
def inspect_with_recovery_key(subject):
    return _require_inspection(subject.first_inspection(RECOVERY_KEY))


def _require_export(subject, factor):
    export, contents = subject.first_export(factor)
    require(export.outcome.has_succeeded, str(export.outcome))
    require(contents is not None, "status 0, but the destination is no folder")
    require(contents, "status 0, but the destination is empty")
    require(export.new == [export.destination.name],
            f"status 0, but beside the destination there is {', '.join(export.new) or 'nothing'}")
    return contents


def _files_in(contents):
    return sum(content[0] == "file" for content in contents.values())


@check("export-passphrase",
       "`export PACKAGE --snapshot CODE --destination FOLDER --backup-passphrase --credential-stdin` makes the folder, "
       "which holds the files of the snapshot, and nothing beside it")
def export_with_passphrase(subject):
    return f"status 0, {_files_in(_require_export(subject, PASSPHRASE))} files"


@check("export-recovery-key", "the same with `--recovery-key` and the recovery key, with the same files")
def export_with_recovery_key(subject):
    contents = _require_export(subject, RECOVERY_KEY)
    require(contents == subject.exported(PASSPHRASE), "the files are others than those with the passphrase")
    return f"status 0, {_files_in(contents)} files, the same"


@check("path-of-package", "the path of the package is taken as it is, whatever characters are in it")
def difficult_path_of_package(subject):
    link = subject.new_place() / _DIFFICULT_NAME
    link.symlink_to(subject.package.parent, target_is_directory=True)
    return _require_inspection(subject.inspect(package=link / subject.package.name))


@check("path-of-destination", "the path of the destination is taken as it is, whatever characters are in it")
def difficult_path_of_destination(subject):
    place = subject.new_place()
    export = subject.export(place=place, destination=place / _DIFFICULT_NAME)
    require(export.outcome.has_succeeded, str(export.outcome))
    require(export.new == [_DIFFICULT_NAME], f"there is {', '.join(export.new) or 'nothing'}")
    export.remove()
    return "status 0"


@check("self-test", "`self-test` as the only argument, with the null device as input, ends with status 0")
def self_test(subject):
    outcome = subject.engine.run(["self-test"])
    require(outcome.has_succeeded, str(outcome))
    return f"status 0 after {outcome.seconds:.1f} s"
