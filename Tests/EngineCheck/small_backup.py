"""A small backup for the checks, where every user can read it."""

import contextlib
import dataclasses
import json
import os
import pathlib
import random
import shutil
import subprocess
import tempfile

PROJECT = pathlib.Path(__file__).resolve().parents[2]
CHECK_ENGINE = PROJECT / "Tools/check-engine"
_PICTURES = 5
_PICTURE_BYTES = 150_000


@dataclasses.dataclass(frozen=True)
class SmallBackup:
    """A folder with a stand-in engine, a package and what opens it."""

    folder: pathlib.Path
    engine: pathlib.Path
    package: pathlib.Path
    passphrase: str
    recovery_key: str

    def snapshots(self):
        """The snapshots that the engine reports, the smallest first."""
        output = subprocess.run([self.engine, "inspect", self.package, "--backup-passphrase", "--credential-stdin"],
                                input=self.passphrase.encode() + b"\n", capture_output=True, check=True).stdout
        return sorted(json.loads(output)["snapshots"], key=lambda snapshot: snapshot["logicalPlaintextByteCount"])

    def copy(self, folder):
        """The package and its secrets in another folder."""
        shutil.copytree(self.package, folder / self.package.name)
        shutil.copy(self.folder / "secrets.txt", folder)
        return folder / self.package.name


@contextlib.contextmanager
def small_backup():
    """Made with the tools of the build that AMBREL_BUILD names, and removed at the end."""
    tools = pathlib.Path(os.environ["AMBREL_BUILD"]) / "StandInEngine"
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        folder.chmod(0o755)
        engine = folder / "ambrel-recovery"
        shutil.copy(tools / "ambrel-recovery", engine)
        pictures = folder / "Pictures"
        pictures.mkdir()
        source = random.Random(1)
        for number in range(_PICTURES):
            (pictures / f"{number}.jpg").write_bytes(source.randbytes(_PICTURE_BYTES))
        package = folder / "Small.ambrel"
        told = subprocess.run([tools / "make-sample-backup", "--pictures", pictures, "--output", package, "--fast"],
                              capture_output=True, text=True, check=True).stdout
        (folder / "secrets.txt").write_text(told, encoding="utf-8")
        secrets = dict(line.split(": ", 1) for line in told.splitlines())
        yield SmallBackup(folder, engine, package, secrets["passphrase"], secrets["recovery key"])


def check(engine, package, results, *options):
    """Runs Tools/check-engine. Gives how it ended, and its findings by name if it wrote any."""
    results.unlink(missing_ok=True)
    ended = subprocess.run([CHECK_ENGINE, engine, package, "--json", results, *options], stdin=subprocess.DEVNULL,
                           capture_output=True, text=True, check=False)
    findings = json.loads(results.read_text(encoding="utf-8"))["checks"] if results.exists() else []
    return ended, {finding["name"]: finding for finding in findings}


def checks():
    """The names of all checks, as Tools/check-engine lists them."""
    listing = subprocess.run([CHECK_ENGINE, "--list"], capture_output=True, text=True, check=True).stdout
    return [line.partition(": ")[0] for line in listing.splitlines()]
