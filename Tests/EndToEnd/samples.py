"""Sample backups, made once for a build and kept there."""

import dataclasses
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
    folder = build / "EndToEndSamples" / kind
    subprocess.run([_PROJECT / "Tools" / "make-sample", build, folder, "--kind", kind, "--fast"], check=True,
                   stdin=subprocess.DEVNULL)
    return Sample.read(folder)
