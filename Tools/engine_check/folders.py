"""What is in a folder, in values that can be compared."""

import hashlib
import os
import pathlib
import shutil
import stat


def contents(folder):
    """All entries below a folder: by relative path the kind, and what is in them."""
    folder = pathlib.Path(folder)
    return {str(path.relative_to(folder)): _content(path) for path in sorted(folder.rglob("*"))}


def state(path):
    """By relative path three values of each entry of a package: content, attributes and times.

    The time of the last access is left out: reading is what a package is for, and the system decides whether it is noted.
    """
    top = pathlib.Path(path)
    return {str(entry.relative_to(top)): (_content(entry), _attributes(entry), _times(entry))
            for entry in (top, *sorted(top.rglob("*")))}


def size(folder):
    return sum(path.lstat().st_size for path in pathlib.Path(folder).rglob("*"))


def remove(folder):
    """Removes a folder, also with folders in it that may not be entered."""
    os.chmod(folder, 0o700)
    for path, folders, _ in os.walk(folder):
        for name in folders:
            entry = os.path.join(path, name)
            if not os.path.islink(entry):
                os.chmod(entry, 0o700)
    shutil.rmtree(folder)


def _content(path):
    status = path.lstat()
    if stat.S_ISLNK(status.st_mode):
        return ("link", os.readlink(path))
    if stat.S_ISREG(status.st_mode):
        with open(path, "rb") as file:
            return ("file", status.st_size, hashlib.file_digest(file, "sha256").hexdigest())
    return ("folder" if stat.S_ISDIR(status.st_mode) else "special",)


def _attributes(path):
    status = path.lstat()
    try:
        extended = {name: os.getxattr(path, name, follow_symlinks=False)
                    for name in os.listxattr(path, follow_symlinks=False)}
    except OSError:  # not every file system has them
        extended = {}
    return (status.st_mode, status.st_uid, status.st_gid, status.st_nlink, status.st_ino, extended)


def _times(path):
    status = path.lstat()
    return (status.st_mtime_ns, status.st_ctime_ns)
