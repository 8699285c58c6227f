"""Everything that could change in a folder, in one comparable value."""

import hashlib
import os
import pathlib
import stat


def digest(path):
    """All that can be known of a file, a link, or a folder and all in it; a link to a folder is followed once.

    Gives a dictionary from relative path to a dictionary of properties, so that a difference can be read. The time of
    the last access is left out: reading is what a package is for, and the system notes it where it is mounted so.
    """
    top = pathlib.Path(path)
    digests = {".": _properties(top)}
    if top.is_symlink():
        digests["(target)"] = _properties(pathlib.Path(os.path.realpath(top)))
    for folder, folders, files in os.walk(top, onerror=_unreadable):
        for name in sorted(folders + files):
            entry = pathlib.Path(folder) / name
            digests[str(entry.relative_to(top))] = _properties(entry)
    return digests


def contents(folder):
    """The files of a folder by relative path, as digests of their bytes alone."""
    folder = pathlib.Path(folder)
    return {str(path.relative_to(folder)): _hash(path) for path in sorted(folder.rglob("*")) if path.is_file()}


def without_status_times(digests):
    """A digest without the times that every change of a name or of permissions leaves, even one that was undone."""
    return {path: {name: value for name, value in properties.items() if name != "status changed"}
            for path, properties in digests.items()}


def differences(before, after):
    """What differs between two digests, one text each; empty if nothing does."""
    found = [f"{path} is gone" for path in sorted(before.keys() - after.keys())]
    found += [f"{path} is new" for path in sorted(after.keys() - before.keys())]
    for path in sorted(before.keys() & after.keys()):
        found += [f"{path}: {name} was {before[path].get(name)}, is {after[path].get(name)}"
                  for name in sorted(before[path].keys() | after[path].keys())
                  if before[path].get(name) != after[path].get(name)]
    return found


def _properties(path):
    try:
        status = os.lstat(path)
    except FileNotFoundError:
        return {"kind": "nothing"}
    properties = {
        "mode": stat.filemode(status.st_mode), "owner": (status.st_uid, status.st_gid),
        "file": (status.st_dev, status.st_ino), "links": status.st_nlink,
        "modified": status.st_mtime_ns, "status changed": status.st_ctime_ns, "attributes": _attributes(path),
    }
    if stat.S_ISLNK(status.st_mode):
        properties["target"] = os.readlink(path)
    elif stat.S_ISREG(status.st_mode):
        properties["size"] = status.st_size
        properties["content"] = _hash(path)
    return properties


def _attributes(path):
    """The extended attributes, among which are access control lists."""
    try:
        names = os.listxattr(path, follow_symlinks=False)
    except OSError:  # not every file system has them
        return {}
    return {name: os.getxattr(path, name, follow_symlinks=False) for name in sorted(names)}


def _hash(path):
    with open(path, "rb") as file:
        return hashlib.file_digest(file, "sha256").hexdigest()


def _unreadable(error):
    """A folder that cannot be looked into is no folder without changes; what is no folder is none to look into."""
    if not isinstance(error, (NotADirectoryError, FileNotFoundError)):
        raise error
