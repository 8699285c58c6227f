"""The memory of a running process, read from outside and searched for what is left of a secret."""

import contextlib
import dataclasses
import mmap
import os
import random
import re
import signal
import string
import sys

from waiting import wait_for

ENCODINGS = ("utf-8", "utf-16-le", "utf-32-le")
# As many consecutive characters of a secret are a fragment of it.
FRAGMENT_LENGTH = 8
SECRET_LENGTH = 48
# A fragment holds a whole probe wherever it begins: among any five neighboring characters one probe begins.
_PROBE_LENGTH = 4
_PROBE_DISTANCE = FRAGMENT_LENGTH - _PROBE_LENGTH + 1
# Pages of the kernel that can be mapped but not be read from outside; no program can write them.
_OF_THE_KERNEL = re.compile(r"\[(vvar|vvar_vclock|vsyscall)\]")
_MAPPING = re.compile(r"([0-9a-f]+)-([0-9a-f]+) (\S{4}) \S+ \S+ \S+ *(.*)\n")


def random_secret():
    """A secret to search for. No character is in it twice, so that every fragment is one of a kind."""
    return "".join(random.SystemRandom().sample(string.ascii_letters + string.digits, SECRET_LENGTH))


class MemoryNotReadable(Exception):
    """This process may not look into the other one."""


@dataclasses.dataclass(frozen=True)
class Mapping:
    start: int
    end: int
    permissions: str
    name: str
    flags: frozenset

    @property
    def is_locked(self):
        """Whether it is kept out of the swap space."""
        return "lo" in self.flags

    @property
    def is_left_out_of_dumps(self):
        return "dd" in self.flags

    def __str__(self):
        return f"{self.start:x}-{self.end:x} {self.permissions} {self.name or '(anonymous)'} {' '.join(sorted(self.flags))}"


@dataclasses.dataclass(frozen=True)
class Trace:
    """Consecutive characters of the secret that were found in one place."""

    encoding: str
    address: int
    text: str
    mapping: Mapping

    def __str__(self):
        return f"{len(self.text)} characters as {self.encoding} at {self.address:x} in {self.mapping}"


def mappings(pid):
    """Every mapping of a process."""
    found = []
    with open(f"/proc/{pid}/smaps", encoding="utf-8", errors="surrogateescape") as smaps:
        for line in smaps:
            head = _MAPPING.fullmatch(line)
            if head:
                found.append(Mapping(int(head[1], 16), int(head[2], 16), head[3], head[4], frozenset()))
            elif line.startswith("VmFlags:"):
                found[-1] = dataclasses.replace(found[-1], flags=frozenset(line.split()[1:]))
    return found


def fragments(contents, secret):
    """(encoding, offset, text) of everything in some bytes that is at least a fragment of the secret.

    The secret is ASCII and has no repetitions.
    """
    # Without the bytes that are none of the secret's, a fragment is the same in every encoding, and little is left to
    # search. Mostly that finds nothing, and nothing is there then.
    others = bytes(set(range(256)) - set(secret.encode()))
    if not _fragments(contents.translate(None, others), secret, ENCODINGS[:1]):
        return []
    return _fragments(contents, secret, ENCODINGS)


def _fragments(contents, secret, encodings):
    found = set()
    for encoding in encodings:
        whole = secret.encode(encoding)
        width = len(whole) // len(secret)
        for index in range(0, len(secret) - _PROBE_LENGTH + 1, _PROBE_DISTANCE):
            probe = whole[index * width:(index + _PROBE_LENGTH) * width]
            offset = contents.find(probe)
            while offset >= 0:
                first, last, begin = _extended(contents, whole, width, index, offset)
                if last - first >= FRAGMENT_LENGTH:
                    found.add((encoding, begin, secret[first:last]))
                offset = contents.find(probe, offset + 1)
    return sorted(found, key=lambda fragment: fragment[1])


def _extended(contents, whole, width, index, offset):
    """How far the secret reaches around the character `index` at `offset`: its first and last character, its offset."""
    first, begin = index, offset
    while first > 0 and begin >= width and contents[begin - width:begin] == whole[(first - 1) * width:first * width]:
        first -= 1
        begin -= width
    last, end = index + _PROBE_LENGTH, offset + _PROBE_LENGTH * width
    while last * width < len(whole) and contents[end:end + width] == whole[last * width:(last + 1) * width]:
        last += 1
        end += width
    return first, last, begin


def traces(pid, secret):
    """Every trace of the secret in all readable mappings of a process, which stands still meanwhile.

    Guard pages, which no program can read or write, are left out. Raises MemoryNotReadable where this process lacks the
    right to look; an empty list always means that everything else was searched.
    """
    found = []
    with _standing_still(pid), _opened(pid, "mem") as memory, _opened(pid, "pagemap") as pagemap:
        for mapping in mappings(pid):
            if "r" not in mapping.permissions or _OF_THE_KERNEL.fullmatch(mapping.name):
                continue
            for address, contents in _parts(memory, pagemap, mapping):
                found += [Trace(encoding, address + offset, text, mapping)
                          for encoding, offset, text in fragments(contents, secret)]
    return found


def _parts(memory, pagemap, mapping):
    """(address, contents) of what lies before, between and after the guard pages of a mapping."""
    address, contents = mapping.start, b""
    while (end := address + len(contents)) < mapping.end:
        if _is_guard_page(pagemap, end):
            yield address, contents
            address, contents = end + mmap.PAGESIZE, b""
        else:
            contents += _more(memory, mapping, end)
    yield address, contents


def _is_guard_page(pagemap, address):
    entry = os.pread(pagemap, 8, address // mmap.PAGESIZE * 8)
    # Bit 58, since Linux 6.15; 0 before.
    return int.from_bytes(entry, sys.byteorder) >> 58 & 1 == 1


def _more(memory, mapping, address):
    more = os.pread(memory, mapping.end - address, address)
    if not more:
        raise MemoryNotReadable(f"nothing can be read from {address:x} of {mapping}")
    return more


@contextlib.contextmanager
def _opened(pid, name):
    try:
        file = os.open(f"/proc/{pid}/{name}", os.O_RDONLY)
    except PermissionError as error:
        raise MemoryNotReadable(
            "The application's memory can only be searched with the capability CAP_SYS_PTRACE, as root has it: the "
            "application keeps its own user out.") from error
    try:
        yield file
    finally:
        os.close(file)


@contextlib.contextmanager
def _standing_still(pid):
    os.kill(pid, signal.SIGSTOP)
    try:
        wait_for(f"process {pid} to stand still", lambda: _state(pid) == "T")
        yield
    finally:
        os.kill(pid, signal.SIGCONT)


def _state(pid):
    with open(f"/proc/{pid}/stat", encoding="utf-8", errors="replace") as stat:
        return stat.read().rpartition(")")[2].split()[0]
