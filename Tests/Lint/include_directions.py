#!/usr/bin/env python3
"""Fails on an include that runs against the direction of the modules, or that brings the toolkit where it may not be.

    AmbrelRecoveryApp -> AmbrelRecoveryAppSupport, AmbrelLocalization -> AmbrelPlatform
    StandInEngine is a program of its own: no code of the application in it, none of it in the application

Usage: include_directions.py [top of the project]
"""

import pathlib
import re
import sys

# Module: (the folder that its project includes start from, the modules that it may include besides itself).
MODULES = {
    "Sources/AmbrelPlatform": ("Sources", []),
    "Sources/AmbrelRecoveryAppSupport": ("Sources", ["Sources/AmbrelPlatform"]),
    "Sources/AmbrelLocalization": ("Sources", ["Sources/AmbrelPlatform"]),
    "Sources/AmbrelRecoveryApp": (
        "Sources",
        ["Sources/AmbrelRecoveryAppSupport", "Sources/AmbrelLocalization", "Sources/AmbrelPlatform"],
    ),
    "StandInEngine": ("StandInEngine", []),
}
WITHOUT_TOOLKIT = ["Sources/AmbrelPlatform", "Sources/AmbrelRecoveryAppSupport", "StandInEngine"]

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')
TOOLKIT = re.compile(r"(Q\w+(/.*)?|q[a-z]\w*\.h)$")
SOURCE_SUFFIXES = {".h", ".cpp", ".mm", ".inc"}


def violations(top):
    """Every include of the project below `top` that breaks a rule, as "file:line: reason", in order."""
    found = []
    for module in MODULES:
        for path in sorted((top / module).rglob("*")):
            if path.suffix in SOURCE_SUFFIXES and path.is_file():
                found += _violations_in(top, module, path)
    return found


def _violations_in(top, module, path):
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), start=1):
        match = INCLUDE.match(line)
        if match:
            reason = _project_include(top, module, match[1]) if match[1] else _library_include(module, match[2])
            if reason:
                yield f"{path.relative_to(top)}:{number}: {reason}"


def _project_include(top, module, included):
    if included.endswith(".moc"):
        return None
    start, allowed = MODULES[module]
    target = top / start / included
    if ".." in pathlib.PurePath(included).parts or not target.is_file():
        return f'"{included}" is no file below {start}/'
    for candidate in [module, *allowed]:
        if target.is_relative_to(top / candidate):
            return None
    return f'{module} may not include "{included}"'


def _library_include(module, included):
    if module in WITHOUT_TOOLKIT and TOOLKIT.match(included):
        return f"{module} does without Qt, but includes <{included}>"
    return None


def main(arguments):
    top = pathlib.Path(arguments[0] if arguments else pathlib.Path(__file__).parents[2]).resolve()
    missing = [module for module in MODULES if not (top / module).is_dir()]
    if missing:
        print(f"{top} has no {', '.join(missing)}", file=sys.stderr)
        return 2
    found = violations(top)
    for line in found:
        print(line, file=sys.stderr)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
