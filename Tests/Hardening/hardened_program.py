"""Looks into built programs and their object files for what makes a mistake in memory harder to exploit, and for ways
to a network.

Usage: hardened_program.py PROGRAM-LIST OBJECT-LIST COMPILE-COMMANDS

The lists are files that name one file a line. Prints what is missing, one line each, and fails if anything is.
"""

import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

# The C library's functions that check the size of a buffer.
_CHECKED_FUNCTION = re.compile(r"\b__\w+_chk\b")
# What a program calls that talks over a network, and the libraries that would do it for it.
_NETWORK_FUNCTIONS = {"socket", "connect", "bind", "listen", "accept", "accept4", "sendto", "getaddrinfo",
                      "gethostbyname"}
_NETWORK_LIBRARIES = re.compile(r"lib(Qt6Network|Qt6WebSockets|curl|soup|ssl|gnutls|resolv)\b")
# What does not show in every file, since not every file has a place for it.
_OPTIONS = ["-D_FORTIFY_SOURCE=3", "-D_GLIBCXX_ASSERTIONS", "-fstack-protector-strong", "-fstack-clash-protection"]
_LANDING_PADS = {"Advanced Micro Devices X86-64": {"IBT", "SHSTK"}, "AArch64": {"BTI", "PAC"}}
_RETURN_CHECKS = {"Advanced Micro Devices X86-64": {"SHSTK"}, "AArch64": set()}


def _readelf(path, *options):
    command = ["readelf", "--wide", *options, str(path)]
    result = subprocess.run(command, capture_output=True, encoding="utf-8", errors="replace", check=False,
                            env=dict(os.environ, LC_ALL="C"))
    if result.returncode != 0 or result.stderr:
        raise ValueError(f"{path} cannot be read: {result.stderr.strip()}")
    return result.stdout


def _machine(path):
    return re.search(r"^ *Machine: +(.*?)$", _readelf(path, "--file-header"), re.MULTILINE).group(1).strip()


def _features(path):
    """What the note of a file says about control flow: IBT, SHSTK, BTI, PAC."""
    found = re.findall(r"(?:x86|AArch64) feature: ([^\n]*)", _readelf(path, "--notes"))
    return {feature.strip() for line in found for feature in line.split(",")}


def _segments(path):
    """The flags of each segment by its type."""
    pattern = re.compile(r"^  (\w+) +(?:0x[0-9a-f]+ +){5}([RWE ]{3}) ", re.MULTILINE)
    return dict(pattern.findall(_readelf(path, "--program-headers")))


def _imports(path):
    """The names of the functions that a program takes from libraries."""
    lines = _readelf(path, "--dyn-syms").splitlines()
    return {line.split()[7].partition("@")[0] for line in lines if re.search(r"\bUND \S", line)}


def _library_paths(path):
    """The folders that a program names for its libraries."""
    found = re.findall(r"\((?:RPATH|RUNPATH)\).*\[(.*)\]", _readelf(path, "--dynamic"))
    return [folder for line in found for folder in line.split(":")]


def _needed(path):
    """The libraries that a program names."""
    return re.findall(r"\(NEEDED\).*\[(.*)\]", _readelf(path, "--dynamic"))


def _inside(folder):
    """Whether a folder for libraries is the program's own or below it."""
    return re.match(r"\$(ORIGIN|\{ORIGIN\})(/|$)", folder) is not None and ".." not in folder.split("/")


def missing_in_program(path):
    """What a program lacks, as a list of texts."""
    dynamic, segments, imports = _readelf(path, "--dynamic"), _segments(path), _imports(path)
    header = _readelf(path, "--file-header")
    return [text for text, present in {
        "cannot be loaded at any address (PIE)": re.search(r"Type: +DYN ", header) and "INTERP" in segments
                                                 and re.search(r"\(FLAGS_1\).*\bPIE\b", dynamic),
        "tables of addresses stay writable (RELRO)": "GNU_RELRO" in segments,
        "functions are bound when first called (BIND_NOW)": re.search(r"\(FLAGS_1\).*\bNOW\b", dynamic),
        "the stack can be executed": "E" not in segments.get("GNU_STACK", "E"),
        "memory is writable and executable": not any({"W", "E"} <= set(flags) for flags in segments.values()),
        "the stack is not guarded (__stack_chk_fail)": "__stack_chk_fail" in imports,
        "return addresses are not checked (SHSTK)": _RETURN_CHECKS[_machine(path)] <= _features(path),
        "it can reach for the network": not _NETWORK_FUNCTIONS & imports
                                        and not any(map(_NETWORK_LIBRARIES.match, _needed(path))),
        "libraries are looked for outside of its folder": all(map(_inside, _library_paths(path))),
    }.items() if not present]


def missing_in_object(path):
    """What an object file lacks, as a list of texts."""
    missing = _LANDING_PADS[_machine(path)] - _features(path)
    return [f"control flow is not protected ({', '.join(sorted(missing))})"] if missing else []


def checks_sizes(path):
    """Whether an object file calls a function that checks the size of a buffer. Few have a size to check."""
    return _CHECKED_FUNCTION.search(_readelf(path, "--symbols")) is not None


def missing_in_command(command):
    """What is missing in the command line that compiled a file, as a list of texts."""
    options = shlex.split(command)
    optimization = [option for option in options if re.fullmatch(r"-O\w*", option)]
    missing = [f"compiled without {option}" for option in _OPTIONS if option not in options]
    undone = [option for option in options if option.startswith(("-fno-stack-", "-U_GLIBCXX"))]
    if not optimization or optimization[-1] == "-O0":
        missing.append("compiled without optimization, without which no size is checked")
    return missing + [f"compiled with {option}" for option in undone]


def complaints_about(programs, objects, commands):
    """Everything that is missing, as a list of texts. `commands` are command lines by the object file they make."""
    complaints = [f"{path}: {text}" for path in programs for text in missing_in_program(path)]
    for path in objects:
        texts = missing_in_object(path)
        texts += missing_in_command(commands[path]) if path in commands else ["no command is known that made it"]
        complaints += [f"{path}: {text}" for text in texts]
    if not programs or not objects:
        complaints.append("there is nothing to look into")
    elif not any(map(checks_sizes, objects)):
        complaints.append("no size of a buffer is checked anywhere (__*_chk)")
    return complaints


def _commands(path):
    """The command lines of compile_commands.json by the object file they make."""
    commands = {}
    for entry in json.loads(pathlib.Path(path).read_text(encoding="utf-8")):
        output = re.search(r" -o (\S+) ", entry["command"]).group(1)
        commands[os.path.normpath(os.path.join(entry["directory"], output))] = entry["command"]
    return commands


def _lines(path):
    return [os.path.normpath(line) for line in pathlib.Path(path).read_text(encoding="utf-8").splitlines() if line]


def main(arguments):
    if len(arguments) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    complaints = complaints_about(_lines(arguments[0]), _lines(arguments[1]), _commands(arguments[2]))
    for complaint in complaints:
        print(complaint)
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
