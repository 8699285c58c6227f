"""Tools/make-sample says where the sample lies, wherever that is."""

import os
import pathlib
import subprocess
import tempfile
import unittest

_TOOL = pathlib.Path(__file__).resolve().parents[2] / "Tools/make-sample"


class MakeSample(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.folder = pathlib.Path(directory.name).resolve() / "Ä b&c|d\\1"
        self.stand_in("draw-sample-pictures", 'mkdir "$1"')
        self.stand_in("make-sample-backup", 'echo "package: $4"; echo "passphrase: one two"; mkdir "$4"')

    def stand_in(self, name, script):
        file = self.folder / "build/StandInEngine" / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(f"#!/bin/bash\n{script}\n", encoding="utf-8")
        file.chmod(0o755)

    def make(self):
        subprocess.run([_TOOL, self.folder / "build", self.folder / "sample"], check=True)
        return (self.folder / "sample/secrets.txt").read_text(encoding="utf-8").splitlines()

    def test_the_secrets_file_names_the_package_in_its_place(self):
        package = self.folder / "sample/Family Photos.ambrel"
        self.assertEqual([f"package: {package}", "passphrase: one two"], self.make())
        self.assertTrue(package.is_dir())
        self.assertEqual({"Family Photos.ambrel", "Pictures", "secrets.txt"},
                         {entry.name for entry in (self.folder / "sample").iterdir()})

    def test_a_sample_that_is_newer_than_its_tools_is_kept(self):
        self.stand_in("make-sample-backup", 'echo "package: $4"; echo "passphrase: $RANDOM$RANDOM"; mkdir "$4"')
        self.assertEqual(self.make(), self.make())

    def test_a_sample_is_made_again_when_either_tool_is_newer(self):
        self.stand_in("make-sample-backup", 'echo "package: $4"; echo "passphrase: $RANDOM$RANDOM"; mkdir "$4"')
        for tool in ("make-sample-backup", "draw-sample-pictures"):
            first = self.make()
            later = (self.folder / "sample/secrets.txt").stat().st_mtime + 1
            os.utime(self.folder / "build/StandInEngine" / tool, (later, later))
            self.assertNotEqual(first, self.make())
            os.utime(self.folder / "build/StandInEngine" / tool, (0, 0))


if __name__ == "__main__":
    unittest.main()
