"""Everything that could change in a folder, in one comparable value."""

import hashlib
import os
import pathlib
import stat


def digest(folder):
    """Names, kinds, contents, permissions and times of modification of a folder and all in it.

    Gives a dictionary from relative path to these, so that a difference can be read.
    """
    folder = pathlib.Path(folder)
    paths = [folder] + sorted(folder.rglob("*"))
    return {str(path.relative_to(folder)): _properties(path) for path in paths}


def contents(folder):
    """The files of a folder by relative path, as digests of their bytes alone."""
    folder = pathlib.Path(folder)
    return {str(path.relative_to(folder)): _hash(path) for path in sorted(folder.rglob("*")) if path.is_file()}


def _properties(path):
    status = os.lstat(path)
    mode = stat.filemode(status.st_mode)
    if stat.S_ISLNK(status.st_mode):
        return mode, status.st_mtime_ns, os.readlink(path)
    return mode, status.st_mtime_ns, _hash(path) if stat.S_ISREG(status.st_mode) else ""


def _hash(path):
    with open(path, "rb") as file:
        return hashlib.file_digest(file, "sha256").hexdigest()
