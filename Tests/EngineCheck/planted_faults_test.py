"""An engine with one planted fault fails exactly the checks of that fault, and every check has such a fault.

All are checked before the first case, several at once. AMBREL_ONE_FAULT names the only one that is.
"""

import concurrent.futures
import os
import pathlib
import re
import tempfile
import unittest

import planted_engine
import planted_faults
import planted_faults_of_files
import planted_faults_of_runs
from small_backup import check, checks, small_backup

_FAULTS = {name: fault for module in (planted_faults, planted_faults_of_files, planted_faults_of_runs)
           for table in vars(module).values() if isinstance(table, dict)
           for name, fault in table.items() if isinstance(fault, planted_faults.Fault)}
# Most of the time the processes of one engine wait for each other.
_ENGINES_AT_ONCE = 3
_OPTIONS = ("--moments", "6", "--run-seconds", "20", "--stop-seconds", "3", "--output-bytes", "1000000")
_NEEDS_A_DISK = re.compile("does not let the check mount a disk")


def _check_faulty(backup, fault):
    """Checks a stand-in with this fault on a package of its own."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        folder.chmod(0o755)
        state = folder / "state"
        state.mkdir()
        # Some of its runs are another user's.
        state.chmod(0o777)
        snapshots = backup.snapshots()
        engine = folder / "engine"
        planted_engine.write(engine, fault.script, engine=backup.engine, state=state, passphrase=backup.passphrase,
                             recovery_key=backup.recovery_key, smallest=snapshots[0]["selectionCode"],
                             other=snapshots[1]["selectionCode"])
        return check(engine, backup.copy(folder), folder / "results.json", *_OPTIONS)


class PlantedFaults(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        with small_backup() as backup, concurrent.futures.ThreadPoolExecutor(_ENGINES_AT_ONCE) as pool:
            only = os.environ.get("AMBREL_ONE_FAULT")
            chosen = {name: fault for name, fault in _FAULTS.items() if not only or name == only}
            cls.checked = dict(zip(chosen, pool.map(lambda fault: _check_faulty(backup, fault), chosen.values())))

    def require_exactly(self, name):
        fault = _FAULTS[name]
        ended, findings = self.checked[name]
        self.assertTrue(findings, ended.stderr)
        for one in fault.checks:
            if _NEEDS_A_DISK.search(findings[one]["seen"]):
                self.skipTest("this system does not let the check mount a disk")
        failed = {one: finding["seen"] for one, finding in findings.items() if finding["result"] == "not held"}
        self.assertEqual(sorted(fault.checks), sorted(failed), f"\n{failed}\n{ended.stdout}")
        self.assertEqual(1, ended.returncode)

    def test_every_check_has_a_fault(self):
        found = {one for fault in _FAULTS.values() for one in fault.checks if len(fault.checks) == 1}
        several = {one for fault in _FAULTS.values() for one in fault.checks}
        self.assertEqual(sorted(checks()), sorted(several))
        self.assertEqual(set(), several - found, "found only together with others")

    def test_a_fault_that_several_checks_notice_has_a_reason(self):
        for name, fault in _FAULTS.items():
            self.assertEqual(len(fault.checks) > 1, bool(fault.reason), name)


def _add_case(name):
    """A case of its own for each fault, so that each is counted."""
    def case(self):
        self.require_exactly(name)
    setattr(PlantedFaults, "test_it_" + re.sub(r"\W+", "_", name), case)


for _name in _FAULTS:
    _add_case(_name)


if __name__ == "__main__":
    unittest.main()
