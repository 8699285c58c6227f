"""An application that is killed takes its engine with it, and the next start removes what it left."""

import os
import signal
import unittest

from engines import waits
from recovery_test_case import RecoveryTestCase
from waiting import wait_for
import processes


class Killed(RecoveryTestCase):
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
        wait_for("the end of the engine", lambda: run.pid not in processes.descendants(os.getpid()), 10.0)
        self.assertFalse((self.scratch / "Recovered").exists())
        self.assertEqual(1, len(self.temporary_files()))

        foreign = self.scratch / "temporary" / "com.ambrel.recovery-output.01234567-89AB-4CDE-8F01-23456789ABCD"
        foreign.symlink_to(self.scratch)
        self.start()
        wait_for("the removal of what was left", lambda: self.temporary_files() == [foreign.name])
        foreign.unlink()
        self.assertTrue((self.scratch / "engine runs").is_dir())


if __name__ == "__main__":
    unittest.main()
