"""How Tools/package compiles: the same sources must always give the same programs."""

import json
import pathlib
import subprocess
import tempfile
import unittest

_ROOT = pathlib.Path(__file__).resolve().parents[2]


class PackageConfiguration(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        build = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory(prefix="ambrel-configuration.")))
        subprocess.run(("cmake", "--preset", "package", "-B", build), cwd=_ROOT, stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL, check=True)
        cls.commands = {entry["file"]: entry["command"]
                        for entry in json.loads((build / "compile_commands.json").read_text())}

    def test_compiles_nothing_with_a_precompiled_header(self):
        self.assertTrue(self.commands)
        self.assertEqual([], [file for file, command in self.commands.items() if "cmake_pch" in command])

    def test_leaves_the_folder_of_the_source_out_of_every_program(self):
        self.assertEqual([], [file for file, command in self.commands.items()
                              if f"-ffile-prefix-map={_ROOT}=." not in command])


if __name__ == "__main__":
    unittest.main()
