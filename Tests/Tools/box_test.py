"""What runs in the box harms nothing outside, and ends."""

import os
import pathlib
import subprocess
import sys
import tempfile
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "Tools"))

from mutation.box import TOO_BUSY, NoBox, run_boxed  # noqa: E402

SOON = 60


class Box(unittest.TestCase):
    def setUp(self):
        # Not in /tmp, since the box has one of its own.
        directory = tempfile.TemporaryDirectory(dir="/var/tmp")
        self.addCleanup(directory.cleanup)
        self.folder = pathlib.Path(directory.name)
        self.log = self.folder / "log"
        try:
            is_granted = self.run_in_box("true") == 0
        except NoBox:
            is_granted = False
        if not is_granted:
            self.skipTest("this system grants no namespaces")

    def run_in_box(self, script, limit=SOON, processor_limit=SOON):
        return run_boxed(["sh", "-c", script, "sh", str(self.folder)], self.log, limit, processor_limit)

    def test_the_status_and_the_output_are_returned(self):
        self.assertEqual(3, self.run_in_box("echo said; exit 3"))
        self.assertEqual("said\n", self.log.read_text(encoding="utf-8"))

    def test_nothing_outside_can_be_removed_or_written(self):
        (self.folder / "precious").write_text("kept", encoding="utf-8")
        self.assertNotEqual(0, self.run_in_box('rm -rf "$1/precious"'))
        self.assertNotEqual(0, self.run_in_box('echo lost > "$1/precious"'))
        self.assertEqual("kept", (self.folder / "precious").read_text(encoding="utf-8"))

    def test_temporary_folders_are_empty_every_time(self):
        for _ in range(2):
            self.assertEqual(0, self.run_in_box('[ "$(ls "$TMPDIR" /dev/shm)" = "$(printf "/dev/shm:\\n\\n/tmp:\\nhome")" ]'
                                                ' && : > "$TMPDIR/left" && : > /dev/shm/left && : > "$HOME/left"'))

    def test_processes_outside_are_out_of_reach(self):
        outside = subprocess.Popen(["sleep", str(SOON)])
        self.addCleanup(outside.wait)
        self.addCleanup(outside.kill)
        self.assertNotEqual(0, self.run_in_box(f"kill -KILL {outside.pid}"))
        self.run_in_box("kill -KILL -1")
        self.assertIsNone(outside.poll())

    def test_what_takes_too_long_is_ended_with_all_of_its_processes(self):
        mark = f"{SOON}.{os.getpid()}"
        started = time.monotonic()
        self.assertIsNone(self.run_in_box(f"setsid sleep {mark} & sleep {mark}", limit=1))
        self.assertLess(time.monotonic() - started, SOON)
        self.assertNotIn(f"sleep {mark}", subprocess.run(["ps", "-eo", "args"], check=True, capture_output=True,
                                                        text=True).stdout)

    def test_what_keeps_the_processor_busy_is_ended(self):
        self.assertIn(self.run_in_box("while :; do :; done", processor_limit=1), TOO_BUSY)

    def test_memory_is_limited(self):
        self.assertNotEqual(0, self.run_in_box(f"{sys.executable} -c 'bytearray(7 << 30)'"))
        self.assertIn("MemoryError", self.log.read_text(encoding="utf-8"))


if __name__ == "__main__":
    unittest.main()
