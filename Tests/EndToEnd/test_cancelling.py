"""Stopping a long step, and going on afterwards."""

import shlex

from engines import LEAVE_INPUT, waits
from recovery_test_case import RecoveryTestCase
from waiting import wait_for
import case_results
import processes


class Cancelling(RecoveryTestCase):
    def setUp(self):
        super().setUp()
        self.engine = self.scripted_engine()
        self.cancel = self.catalogue["recovery.action.cancel-restore"]

    def wait_for_engine_to_end(self):
        wait_for("the end of the engine", lambda: not processes.running(str(self.installation.engine)))

    def test_a_cancelled_inspection_shows_no_error_and_can_be_started_again(self):
        self.engine.behave(inspect=waits())
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        application.wait_for_text(self.catalogue["recovery.inspecting"])
        run = self.engine.wait_for_run(1)
        self.assertIn(run.pid, processes.descendants(application.process.pid))
        self.assertFalse(application.is_enabled(self.catalogue["recovery.choose-package.action"]))

        application.press(self.cancel)
        application.button(self.catalogue["recovery.inspect.action"])
        self.wait_for_engine_to_end()
        wait_for("the removal of the output files", lambda: not self.temporary_files())
        self.assertIsNone(application.alert())
        self.assertFalse(application.is_enabled(self.catalogue["recovery.inspect.action"]))

        self.engine.behave()
        application.inspect("secret again")
        application.wait_for_snapshots()
        self.assertEqual(b"secret again\n", self.engine.runs[1].input)

    def test_a_cancelled_export_keeps_the_secret(self):
        self.engine.behave(export=waits())
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        application.wait_for_snapshots()
        application.choose_destination(self.scratch / "Recovered")
        application.wait_for_text(self.catalogue["files-export.running"])
        self.engine.wait_for_run(2)

        application.press(self.cancel)
        application.button(self.catalogue["files-export.start"])
        self.wait_for_engine_to_end()
        self.assertIsNone(application.alert())

        self.engine.behave()
        application.choose_destination(self.scratch / "Recovered")
        application.wait_for_completion()
        self.assertEqual(b"secret\n", self.engine.runs[2].input)

    def test_an_engine_that_does_not_read_its_input_can_be_stopped(self):
        self.engine.behave(inspect=waits(), read_input=LEAVE_INPUT)
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("s" * 200_000)
        application.wait_for_text(self.catalogue["recovery.inspecting"])
        self.engine.wait_for_run(1)
        application.press(self.cancel)
        application.button(self.catalogue["recovery.inspect.action"])
        self.wait_for_engine_to_end()
        self.assertIsNone(application.alert())

    def test_an_operation_begun_before_the_cancelled_engine_has_ended_waits_for_it(self):
        ready, gate = self.scratch / "ready", self.scratch / "gate"
        self.engine.behave(inspect=f"trap '' TERM; touch {shlex.quote(str(ready))}; "
                                   f"while [ ! -e {shlex.quote(str(gate))} ]; do sleep 0.05; done")
        application = self.start()
        self.addCleanup(gate.touch)
        application.choose_package(self.empty_package())
        application.inspect("secret")
        wait_for("the engine", ready.exists)
        application.press(self.cancel)
        self.engine.behave()
        application.inspect("secret again")
        application.wait_for_text(self.catalogue["recovery.inspecting"])
        self.assertEqual(1, len(self.engine.runs))
        gate.touch()
        application.wait_for_snapshots()
        self.assertEqual(b"secret again\n", self.engine.runs[1].input)


if __name__ == "__main__":
    case_results.main()
