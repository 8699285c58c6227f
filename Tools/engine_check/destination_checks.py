"""Destinations that are taken or cannot be used."""

import time

import failure_kinds
import folders
from judgement import NotRun, check, require
from package_checks import require_failure

_MOMENTS = 6


def _require_refusal(subject, place, destination, kind, **options):
    """The export fails with a text of this kind, and what was in the place is as it was."""
    before = folders.contents(place)
    export = subject.export(place=place, destination=destination, **options)
    seen = require_failure(export.outcome, kind)
    after = folders.contents(place)
    # What is new is judged together with what other failed exports leave.
    changed = [name for name, content in before.items() if after.get(name) != content]
    require(not changed, f"{', '.join(changed)} is no longer as it was")
    return seen


@check("destination-folder",
       f"a destination that is a folder fails with {failure_kinds.texts_of('destination exists')}, and the folder is kept "
       "as it is")
def taken_by_a_folder(subject):
    for name in ("empty", "full"):
        place = subject.new_place()
        (place / name).mkdir()
        if name == "full":
            (place / name / "file").write_text("keep", encoding="utf-8")
        seen = _require_refusal(subject, place, place / name, "destination exists")
    return seen


@check("destination-file", "a destination that is a file fails in the same way")
def taken_by_a_file(subject):
    place = subject.new_place()
    (place / "file").write_text("keep", encoding="utf-8")
    return _require_refusal(subject, place, place / "file", "destination exists")


@check("destination-link", "a destination that is a link to nothing fails in the same way")
def taken_by_a_dangling_link(subject):
    place = subject.new_place()
    (place / "link").symlink_to(place / "nowhere")
    return _require_refusal(subject, place, place / "link", "destination exists")


@check("destination-appears", "a destination that appears during the export fails in the same way")
def taken_during_the_export(subject):
    subject.exported()
    duration = subject.seconds_of(subject.first_export()[0].outcome)
    refusals = []
    for moment in range(_MOMENTS):
        place = subject.new_place()
        rival = _Rival(place / "Recovered", duration * moment / _MOMENTS)
        export = subject.export(place=place, meanwhile=rival.act)
        if rival.was_first:
            # What is there is not the engine's.
            export.new.remove("Recovered")
            refusals.append(require_failure(export.outcome, "destination exists"))
            require(folders.contents(place / "Recovered") == {}, "something was written into the folder that appeared")
    if not refusals:
        raise NotRun("every export made its destination before anything else could")
    return f"{len(refusals)} of {_MOMENTS} times: {refusals[0]}"


class _Rival:
    """Makes a folder once, some time after the first call."""

    def __init__(self, folder, seconds):
        self._folder = folder
        self._seconds = seconds
        self._began = None
        self._has_acted = False
        self.was_first = False

    def act(self):
        now = time.monotonic()
        self._began = self._began or now
        if not self._has_acted and now >= self._began + self._seconds:
            self._has_acted = True
            try:
                self._folder.mkdir()
                self.was_first = True
            except FileExistsError:
                pass


@check("destination-in-package", f"a destination in the package fails with "
       f"{failure_kinds.texts_of('destination unavailable')}")
def inside_the_package(subject):
    package = subject.copy_of_package()
    folder = next((path for path in sorted(package.rglob("*")) if path.is_dir()), package)
    for parent in dict.fromkeys((package, folder)):
        seen = _require_refusal(subject, parent, parent / "Recovered", "destination unavailable", package=package)
    return seen


@check("destination-without-parent", "a destination in a folder that is not there fails in the same way")
def without_a_parent(subject):
    place = subject.new_place()
    return _require_refusal(subject, place, place / "missing" / "Recovered", "destination unavailable")


@check("destination-below-file", "a destination below a file fails in the same way")
def below_a_file(subject):
    place = subject.new_place()
    (place / "file").write_text("keep", encoding="utf-8")
    return _require_refusal(subject, place, place / "file" / "Recovered", "destination unavailable")


@check("destination-without-permission", "a destination in a folder that may not be written fails in the same way")
def without_permission(subject):
    # Somebody else's package may be closed to the ordinary user.
    package = subject.copy_of_package()
    for path in (package, *package.rglob("*")):
        path.chmod(0o755 if path.is_dir() else 0o644)
    place = subject.new_place()
    place.chmod(0o555)
    return _require_refusal(subject, place, place / "Recovered", "destination unavailable", package=package,
                            user=subject.ordinary_user())
