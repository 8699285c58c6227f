"""What is left where the application or its engine is killed, and who removes it."""

import os
import signal

from engines import held_back, waits
from package_digest import contents
from recovery_test_case import RecoveryTestCase
from samples import sample
from waiting import wait_for
import case_results
import processes


class KilledEngine(RecoveryTestCase):
    """The engine that the application was built with, killed in the middle of an export."""

    def partial_files(self):
        return [path for folder in self.scratch.glob(".ambrel-recovery-*.partial") for path in folder.rglob("*")
                if path.is_file()]

    def test_the_next_export_removes_what_it_left(self):
        made = sample("ordinary")
        gate = self.scratch / "gate"
        engine = held_back(self.installation.engine, gate)
        application = self.start()
        application.choose_package(made.package)
        application.inspect(made.passphrase)
        application.wait_for_snapshots()
        destination = self.scratch / "Recovered"
        application.choose_destination(destination)
        originals = sorted(contents(made.originals).values())
        wait_for("every file of the export", lambda: len(self.partial_files()) == len(originals))
        (pid,) = processes.running(str(engine))
        os.kill(pid, signal.SIGKILL)
        application.wait_for_alert()
        application.dismiss_alert()
        self.assertEqual(len(originals), len(self.partial_files()))
        self.assertFalse(destination.exists())

        gate.touch()
        application.choose_destination(destination)
        application.wait_for_completion()
        self.assertEqual([], list(self.scratch.glob(".ambrel-recovery-*")))
        self.assertEqual(originals, sorted(contents(destination).values()))


class KilledApplication(RecoveryTestCase):
    """It takes its engine with it, and the next start removes its own outputs."""

    def test_in_the_middle_of_an_export(self):
        engine = self.scripted_engine(export=waits())
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        application.wait_for_snapshots()
        application.choose_destination(self.scratch / "Recovered")
        run = engine.wait_for_run(2)
        self.assertIn(run.pid, processes.descendants(os.getpid()))

        application.process.send_signal(signal.SIGKILL)
        self.assertEqual(-signal.SIGKILL, application.wait_for_end())
        wait_for("the end of the engine", lambda: run.pid not in processes.descendants(os.getpid()))
        self.assertFalse((self.scratch / "Recovered").exists())
        self.assertEqual(1, len(self.temporary_files()))

        foreign = self.scratch / "temporary" / "com.ambrel.recovery-output.01234567-89AB-4CDE-8F01-23456789ABCD"
        foreign.symlink_to(self.scratch)
        self.start()
        wait_for("the removal of what was left", lambda: self.temporary_files() == [foreign.name])
        foreign.unlink()
        self.assertTrue((self.scratch / "engine runs").is_dir())


if __name__ == "__main__":
    case_results.main()
