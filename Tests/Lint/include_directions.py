#!/usr/bin/env python3
"""Fails on an include that runs against the direction of the libraries, or that brings the toolkit where it may not be.

Every folder of sources is a library, and a folder inside one that is not listed here belongs to it. The stand-in engine
is a program of its own: no code of the application in it, none of it in the application.

Usage: include_directions.py [top of the project]
"""

import pathlib
import re
import sys

# Each library, the lower ones first, and the libraries that it may include besides itself.
_PLATFORM = "Sources/AmbrelPlatform"
_SUPPORT = "Sources/AmbrelRecoveryAppSupport"
_LOCALIZATION = "Sources/AmbrelLocalization"
_APPLICATION = "Sources/AmbrelRecoveryApp"
_FOUNDATION = f"{_APPLICATION}/Foundation"
_SECRETS = f"{_APPLICATION}/Secrets"
_MODEL = f"{_APPLICATION}/Model"
_CONTROLS = f"{_APPLICATION}/Controls"
_FILE_PANELS = f"{_APPLICATION}/FilePanels"
_DESKTOP = f"{_APPLICATION}/Desktop"
_SCREENS = f"{_APPLICATION}/Screens"
_BELOW_THE_APPLICATION = [_PLATFORM, _SUPPORT, _LOCALIZATION]
LIBRARIES = {
    _PLATFORM: [],
    _SUPPORT: [_PLATFORM],
    _LOCALIZATION: [_PLATFORM],
    _FOUNDATION: [_PLATFORM, _LOCALIZATION],
    _SECRETS: [_PLATFORM, _SUPPORT],
    _MODEL: [*_BELOW_THE_APPLICATION, _FOUNDATION, _SECRETS],
    _CONTROLS: [*_BELOW_THE_APPLICATION, _FOUNDATION, _SECRETS],
    _FILE_PANELS: [*_BELOW_THE_APPLICATION, _FOUNDATION, _MODEL, _CONTROLS],
    _DESKTOP: [*_BELOW_THE_APPLICATION, _FOUNDATION, _MODEL, _CONTROLS],
    _SCREENS: [*_BELOW_THE_APPLICATION, _FOUNDATION, _SECRETS, _MODEL, _CONTROLS],
    _APPLICATION: [*_BELOW_THE_APPLICATION, _FOUNDATION, _SECRETS, _MODEL, _FILE_PANELS, _DESKTOP, _SCREENS,
                   _CONTROLS],
    "StandInEngine": [],
}
WITHOUT_TOOLKIT = [_PLATFORM, _SUPPORT, "StandInEngine"]

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')
TOOLKIT = re.compile(r"(Q\w+(/.*)?|q[a-z]\w*\.h)$")
SOURCE_SUFFIXES = {".h", ".cpp", ".mm", ".inc"}


def violations(top):
    """Every include of the project below `top` that breaks a rule, as "file:line: reason", in order."""
    found = []
    for start in ("Sources", "StandInEngine"):
        for path in sorted((top / start).rglob("*")):
            if path.suffix in SOURCE_SUFFIXES and path.is_file():
                found += _violations_in(top, path)
    return found


def library_of(path):
    """The library that the file at `path`, relative to the top of the project, belongs to; None where it is in none."""
    return next((str(folder) for folder in path.parents if str(folder) in LIBRARIES), None)


def _violations_in(top, path):
    library = library_of(path.relative_to(top))
    if library is None:
        yield f"{path.relative_to(top)}: it is in no library's folder"
        return
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), start=1):
        match = INCLUDE.match(line)
        if match:
            reason = _project_include(top, library, match[1]) if match[1] else _toolkit_include(library, match[2])
            if reason:
                yield f"{path.relative_to(top)}:{number}: {reason}"


def _project_include(top, library, included):
    if included.endswith(".moc"):
        return None
    start = pathlib.PurePath(library).parts[0]
    target = pathlib.PurePath(start, included)
    if ".." in target.parts or not (top / target).is_file():
        return f'"{included}" is no file below {start}/'
    if library_of(target) in [library, *LIBRARIES[library]]:
        return None
    return f'{library} may not include "{included}"'


def _toolkit_include(library, included):
    if library in WITHOUT_TOOLKIT and TOOLKIT.match(included):
        return f"{library} does without Qt, but includes <{included}>"
    return None


def main(arguments):
    top = pathlib.Path(arguments[0] if arguments else pathlib.Path(__file__).parents[2]).resolve()
    missing = [library for library in LIBRARIES if not (top / library).is_dir()]
    if missing:
        print(f"{top} has no {', '.join(missing)}", file=sys.stderr)
        return 2
    found = violations(top)
    for line in found:
        print(line, file=sys.stderr)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
