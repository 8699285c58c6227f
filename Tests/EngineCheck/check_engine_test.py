"""Tools/check-engine with the stand-in engine, with what is no engine, and with the worst of engines."""

import json
import os
import pathlib
import signal
import subprocess
import tempfile
import unittest

from small_backup import CHECK_ENGINE, check, checks, small_backup


class CheckEngine(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.backup = cls.enterClassContext(small_backup())

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.folder = pathlib.Path(directory.name)
        self.folder.chmod(0o755)
        self.results = self.folder / "results.json"

    def engine(self, script):
        file = self.folder / "engine"
        file.write_text(f"#!/bin/sh\n{script}\n", encoding="utf-8")
        file.chmod(0o755)
        return file

    def test_the_stand_in_engine_passes_every_check(self):
        ended, findings = check(self.backup.engine, self.backup.package, self.results)
        self.assertEqual((0, ""), (ended.returncode, ended.stderr), ended.stdout)
        self.assertEqual(checks(), list(findings))
        not_held = {name: finding["seen"] for name, finding in findings.items() if finding["result"] != "held"}
        if not_held and all("mount a disk" in seen for seen in not_held.values()):
            self.skipTest("this system does not let the check mount a disk")
        self.assertEqual({}, not_held)

    def test_the_lines_say_the_same_as_the_file(self):
        ended, findings = check(self.backup.engine, self.backup.package, self.results, "--moments", "2")
        *lines, summary = ended.stdout.splitlines()
        counts = json.loads(self.results.read_text(encoding="utf-8"))["counts"]
        self.assertEqual(f"{counts['held']} held, {counts['not held']} not held, {counts['not run']} not run", summary)
        for line, finding in zip(lines, findings.values(), strict=True):
            self.assertEqual(finding["result"], line[:8].strip())
            self.assertEqual(f"{finding['name']} {finding['seen']}".split(), line[8:].split())

    def test_no_secret_is_shown(self):
        secrets = self.backup.passphrase, self.backup.recovery_key
        ended, _ = check(self.engine("cat >&2; exit 1"), self.backup.package, self.results, "--moments", "1")
        self.assertEqual(1, ended.returncode)
        self.assertIn("(secret)", ended.stdout)
        for secret in secrets:
            self.assertNotIn(secret, ended.stdout + ended.stderr + self.results.read_text(encoding="utf-8"))

    def test_the_secrets_come_from_files(self):
        package = self.folder / "Elsewhere.ambrel"
        package.symlink_to(self.backup.package)
        ended, findings = check(self.backup.engine, package, self.results, "--moments", "1")
        self.assertEqual((2, {}), (ended.returncode, findings))
        self.assertIn("no passphrase", ended.stderr)
        for name, secret in (("passphrase", self.backup.passphrase), ("key", self.backup.recovery_key)):
            (self.folder / name).write_text(f"{secret}\n", encoding="utf-8")
        _, findings = check(self.backup.engine, package, self.results, "--moments", "1",
                            "--passphrase-file", self.folder / "passphrase", "--recovery-key-file", self.folder / "key")
        for name in ("inspect-passphrase", "inspect-recovery-key"):
            self.assertEqual("held", findings[name]["result"])

    def test_what_cannot_be_checked_is_said(self):
        for engine, package in ((self.folder / "missing", self.backup.package), (self.folder, self.backup.package),
                                (self.backup.engine, self.folder / "missing"), (self.backup.engine, self.backup.engine)):
            with self.subTest(engine=engine, package=package):
                ended, findings = check(engine, package, self.results)
                self.assertEqual((2, {}), (ended.returncode, findings))
                self.assertEqual(1, len(ended.stderr.splitlines()))
        self.assertEqual(2, subprocess.run([CHECK_ENGINE], capture_output=True, check=False).returncode)

    def test_the_worst_engines_do_not_hold_it_up(self):
        for script in ("exit 0", "exit 1", "kill -KILL $$", "trap '' TERM; sleep 600", "yes", "yes >&2", "sleep 600 & exit",
                       "setsid sleep 600 & sleep 600", "printf '{\"snapshots\":[{}]}'", "printf '{\"snapshots\":7}'",
                       "chmod 0 .", 'rmdir "$PWD"', 'mkdir -p a/b; : >a/b/c; chmod 0 a'):
            with self.subTest(script):
                ended, findings = check(self.engine(script), self.backup.package, self.results, "--moments", "1",
                                        "--run-seconds", "1", "--stop-seconds", "0.5", "--output-bytes", "1000000")
                self.assertEqual((1, ""), (ended.returncode, ended.stderr))
                self.assertEqual(checks(), list(findings))

    def test_it_ends_with_its_engine_when_it_is_asked_to(self):
        environment = os.environ | {"TMPDIR": str(self.folder / "temporary")}
        (self.folder / "temporary").mkdir()
        engine = self.engine(f"echo $$ >{self.folder}/new; mv {self.folder}/new {self.folder}/pid; sleep 600")
        with subprocess.Popen([CHECK_ENGINE, engine, self.backup.package], env=environment, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE) as running:
            while not (self.folder / "pid").exists() and running.poll() is None:
                os.sched_yield()
            running.send_signal(signal.SIGTERM)
            running.communicate(timeout=60)
        self.assertEqual(2, running.returncode)
        self.assertFalse(pathlib.Path(f"/proc/{(self.folder / 'pid').read_text().strip()}").exists())
        self.assertEqual([], os.listdir(environment["TMPDIR"]))

    def test_it_ends_with_an_engine_that_it_is_just_starting(self):
        def yield_to_what_it_starts():
            os.sched_setaffinity(0, [min(os.sched_getaffinity(0))])
            os.sched_setscheduler(0, os.SCHED_IDLE | os.SCHED_RESET_ON_FORK, os.sched_param(0))

        engine = self.engine(f"echo $$ >{self.folder}/pid; kill -TERM $PPID; exec sleep 600")
        ended = subprocess.run([CHECK_ENGINE, engine, self.backup.package], stdout=subprocess.DEVNULL,
                               preexec_fn=yield_to_what_it_starts, check=False)
        self.assertEqual(2, ended.returncode)
        self.assertFalse(pathlib.Path(f"/proc/{(self.folder / 'pid').read_text().strip()}").exists())


if __name__ == "__main__":
    unittest.main()
