"""Sample backups, made once for a build and kept there."""

import dataclasses
import fcntl
import os
import pathlib
import subprocess

_PROJECT = pathlib.Path(__file__).resolve().parents[2]


@dataclasses.dataclass(frozen=True)
class Sample:
    """A package, the pictures that went into it, and what unlocks it."""

    package: pathlib.Path
    originals: pathlib.Path
    passphrase: str
    recovery_key: str

    @staticmethod
    def read(folder):
        """The sample that Tools/make-sample left in a folder."""
        lines = (pathlib.Path(folder) / "secrets.txt").read_text(encoding="utf-8").splitlines()
        secrets = dict(line.split(": ", 1) for line in lines)
        return Sample(pathlib.Path(secrets["package"]), pathlib.Path(folder) / "Pictures", secrets["passphrase"],
                      secrets["recovery key"])


def sample(kind):
    """The sample of a kind. It may be read by every test and changed by none. Quick to unlock, unlike a real one."""
    build = pathlib.Path(os.environ["AMBREL_BUILD"])
    samples = build / "EndToEndSamples"
    samples.mkdir(exist_ok=True)
    with open(samples / f"{kind}.lock", "w", encoding="utf-8") as lock:
        # Of several tests at once one makes it. A second one would put its own in the place of what is already read.
        fcntl.flock(lock, fcntl.LOCK_EX)
        subprocess.run([_PROJECT / "Tools" / "make-sample", build, samples / kind, "--kind", kind, "--fast"],
                       check=True, stdin=subprocess.DEVNULL)
    return Sample.read(samples / kind)
