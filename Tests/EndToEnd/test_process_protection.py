"""What others learn of a process that holds a secret: a crash dumps no core, and no other program may look into it."""

import os
import resource
import signal

from application import WINDOW_TITLE
from recovery_test_case import RecoveryTestCase
from waiting import wait_for
import case_results
import processes

_SECRET = "correct horse"


class ProcessProtection(RecoveryTestCase):
    def core_was_dumped(self, process):
        """Waits for the end of a process by a signal; whether a core dump was made."""
        end = os.waitid(os.P_PID, process.pid, os.WEXITED | os.WNOWAIT)
        self.assertIn(end.si_code, (os.CLD_KILLED, os.CLD_DUMPED))
        self.assertEqual(signal.SIGSEGV, end.si_status)
        process.wait()
        return end.si_code == os.CLD_DUMPED

    def test_a_crash_dumps_no_core(self):
        limits = resource.getrlimit(resource.RLIMIT_CORE)
        self.addCleanup(resource.setrlimit, resource.RLIMIT_CORE, limits)
        resource.setrlimit(resource.RLIMIT_CORE, (limits[1], limits[1]))
        other = processes.start(["sleep", "60"], cwd=self.scratch)
        wait_for("another program", lambda: processes.command_of(other.pid).startswith("sleep"))
        os.kill(other.pid, signal.SIGSEGV)
        if not self.core_was_dumped(other):
            self.skipTest("this system dumps no core of any program, so that nothing can be shown")

        application = self.start()
        with open(f"/proc/{application.process.pid}/limits", encoding="utf-8") as limits_now:
            self.assertRegex(limits_now.read(), r"Max core file size +1 +1 ")
        application.type_credential(_SECRET, by_keyboard=True)
        wait_for("the typed secret", lambda: application.secure_field().character_count == len(_SECRET))
        before = set(os.listdir(self.scratch))
        os.kill(application.process.pid, signal.SIGSEGV)
        self.assertFalse(self.core_was_dumped(application.process))
        self.assertEqual(before, set(os.listdir(self.scratch)))

    def wait_until_closed_to_others(self, application):
        wait_for("the process to be closed", lambda: not processes.may_look_into(application.process.pid))

    def test_other_programs_of_the_same_user_are_kept_out_once_a_secret_can_be_typed(self):
        application = self.start()
        self.assertTrue(processes.may_look_into(application.process.pid))
        application.focus(WINDOW_TITLE, application.secure_field())
        self.wait_until_closed_to_others(application)

    def test_other_programs_of_the_same_user_are_kept_out_once_a_secret_was_set(self):
        application = self.start()
        application.choose_package(self.empty_package())
        application.type_credential(_SECRET)
        self.wait_until_closed_to_others(application)


if __name__ == "__main__":
    case_results.main()
