"""What Tools/install-dependencies does with a package manager that is busy, out of reach, or not there."""

import fcntl
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

_TOOL = pathlib.Path(__file__).resolve().parents[2] / "Tools/install-dependencies"
_WAITING = "Another package manager is at work. Waiting for it…\n"
_LOCKED = "E: Could not get lock {}. It is held by process 1 (apt-get)"
_LISTS_LOCK = _LOCKED.format("/var/lib/apt/lists/lock")
_SYSTEM_LOCK = _LOCKED.format("/var/lib/dpkg/lock-frontend")

# Notes how it was called. Each line of the file named after its command is an answer that fails, given once.
_PACKAGE_MANAGER = """\
echo "$*" >>"$STAND_INS/calls"
answers=$STAND_INS/$2
[ -s "$answers" ] || exit 0
head -n 1 "$answers" >&2
sed -i 1d "$answers"
exit 100"""


class InstallDependencies(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.folder = pathlib.Path(directory.name)
        self.environment = os.environ | {"PATH": f"{self.folder}:/usr/bin:/bin", "STAND_INS": str(self.folder)}
        self.stand_in("id", "echo 0")
        self.stand_in("sleep", "")
        self.stand_in("dpkg-query", "echo installed clang; echo installed xz-utils")
        self.stand_in("apt-get", _PACKAGE_MANAGER)

    def stand_in(self, name, script):
        file = self.folder / name
        file.write_text(f"#!/bin/bash\n{script}\n", encoding="utf-8")
        file.chmod(0o755)

    def let_fail(self, command, *answers):
        (self.folder / command).write_text("".join(f"{answer}\n" for answer in answers), encoding="utf-8")

    def run_tool(self, *arguments):
        return subprocess.run([_TOOL, *arguments], env=self.environment, stdin=subprocess.DEVNULL, timeout=60,
                              capture_output=True, text=True, check=False)

    def calls(self):
        file = self.folder / "calls"
        return file.read_text(encoding="utf-8").splitlines() if file.exists() else []

    def test_only_what_is_missing_is_installed(self):
        result = self.run_tool("clang")
        self.assertEqual((0, "Installing 1 Debian packages: libclang-rt-dev\n", ""),
                         (result.returncode, result.stdout, result.stderr))
        self.assertEqual(["--quiet update", "--quiet install --yes --no-install-recommends libclang-rt-dev"], self.calls())

    def test_the_network_is_not_used_if_nothing_is_missing(self):
        self.stand_in("dpkg-query", "echo installed clang; echo installed libclang-rt-dev; echo installed xz-utils")
        result = self.run_tool("clang")
        self.assertEqual((0, "", ""), (result.returncode, result.stdout, result.stderr))
        self.assertEqual([], self.calls())

    def test_a_check_names_what_is_missing_and_changes_nothing(self):
        result = self.run_tool("--check", "clang")
        self.assertEqual((1, "libclang-rt-dev\n"), (result.returncode, result.stdout))
        self.assertEqual([], self.calls())

    def test_the_lock_of_the_package_lists_is_awaited(self):
        self.let_fail("update", _LISTS_LOCK, _LISTS_LOCK)
        result = self.run_tool("clang")
        self.assertEqual((0, 1), (result.returncode, result.stdout.count(_WAITING)), result.stderr)
        self.assertEqual(4, len(self.calls()))

    def test_the_lock_of_the_installed_packages_is_awaited(self):
        self.let_fail("install", _SYSTEM_LOCK, _SYSTEM_LOCK)
        result = self.run_tool("clang")
        self.assertEqual((0, 1), (result.returncode, result.stdout.count(_WAITING)), result.stderr)
        self.assertEqual(4, len(self.calls()))

    def test_a_lock_that_is_never_released_is_an_error_in_the_end(self):
        self.let_fail("install", *[_SYSTEM_LOCK] * 1000)
        result = self.run_tool("clang")
        self.assertEqual(1, result.returncode)
        self.assertIn(_SYSTEM_LOCK, result.stderr)
        self.assertIn("The packages could not be installed.", result.stderr)

    def test_an_unreadable_package_source_is_tolerated(self):
        self.let_fail("update", "E: The repository does not have a Release file.")
        self.assertEqual(0, self.run_tool("clang").returncode)

    def test_an_unavailable_package_is_an_error_at_once(self):
        self.let_fail("update", "E: No network.")
        self.let_fail("install", "E: Unable to locate package libclang-rt-dev")
        result = self.run_tool("clang")
        self.assertEqual(1, result.returncode)
        self.assertEqual("E: No network.\nE: Unable to locate package libclang-rt-dev\n"
                         "The packages could not be installed.\n", result.stderr)
        self.assertEqual(2, len(self.calls()))

    def test_without_the_package_manager_the_build_is_left_to_say_what_is_missing(self):
        for program in ("bash", "dirname"):
            (self.folder / program).symlink_to(shutil.which(program))
        for program in ("apt-get", "dpkg-query"):
            with self.subTest(without=program):
                self.environment["PATH"] = str(self.folder)
                (self.folder / program).unlink()
                result = self.run_tool()
                self.assertEqual((0, 1, ""), (result.returncode, len(result.stdout.splitlines()), result.stderr))
                self.assertEqual([], self.calls())

    @unittest.skipUnless(shutil.which("apt-get"), "the real package manager is not here")
    def test_the_real_package_manager_is_understood_when_it_meets_a_lock(self):
        (self.folder / "apt-get").unlink()
        self.stand_in("sleep", "/bin/sleep 0.1")
        for name in ("lists/partial", "archives/partial", "etc", "dpkg"):
            (self.folder / name).mkdir(parents=True)
        (self.folder / "dpkg/status").touch()
        (self.folder / "apt.conf").write_text(f"""
            Dir::State::lists "{self.folder}/lists/";
            Dir::State::status "{self.folder}/dpkg/status";
            Dir::Cache "{self.folder}/";
            Dir::Etc "{self.folder}/etc/";
            APT::Update::Post-Invoke-Success "";
            APT::Update::Post-Invoke "";
            """, encoding="utf-8")
        self.environment["APT_CONFIG"] = str(self.folder / "apt.conf")
        with open(self.folder / "lists/lock", "w", encoding="utf-8") as lock:
            fcntl.lockf(lock, fcntl.LOCK_EX)
            with subprocess.Popen([_TOOL, "clang"], env=self.environment, stdin=subprocess.DEVNULL,
                                  stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True) as tool:
                self.assertEqual("Installing 1 Debian packages: libclang-rt-dev\n", tool.stdout.readline())
                self.assertEqual(_WAITING, tool.stdout.readline())
                fcntl.lockf(lock, fcntl.LOCK_UN)
                rest, errors = tool.communicate(timeout=60)
        self.assertEqual("", rest)
        # There is no package in this root; what matters is that it was looked for once the lock was free.
        self.assertIn("Unable to locate package", errors)
        self.assertNotIn("lock", errors)


if __name__ == "__main__":
    unittest.main()
