"""Where the secret is in the running process, and that it is nowhere once it is no longer needed.

The whole memory of the process is searched from outside, for every fragment of the secret in every encoding. That takes
the capability CAP_SYS_PTRACE, as root has it. Run by another user, this file gives itself a user namespace in which it
has it; where the system forbids that, the tests fail and say so.
"""

import hashlib
import os
import shlex
import subprocess
import sys

from accessibility import Gone
from application import WINDOW_TITLE
from engines import fails, inspection, prints, waits
from process_memory import SECRET_LENGTH, fragments, random_secret, traces
from recovery_test_case import RecoveryTestCase
from role import Role
from waiting import wait_for
import case_results
import processes
import x_selection

_IN_NAMESPACE = "AMBREL_TEST_IN_NAMESPACE"
# The engine notes only what tells that it got the secret.
_NOTE_DIGEST = 'sha256sum | cut -c 1-64 >"$run.new/input"'


class SecretMemory(RecoveryTestCase):
    def setUp(self):
        super().setUp()
        self.engine = self.scripted_engine(read_input=_NOTE_DIGEST)

    def behave(self, **behavior):
        self.engine.behave(read_input=_NOTE_DIGEST, **behavior)

    # Entering a secret

    def wait_until_entered(self, application):
        wait_for("the secret in the field", lambda: application.secure_field().character_count == SECRET_LENGTH)

    def type_secret(self, application, secret):
        application.type_credential(secret, by_keyboard=True)
        self.wait_until_entered(application)

    def paste_secret(self, application, secret):
        application.focus(WINDOW_TITLE, application.secure_field())
        with x_selection.copied(self.desktop.display, "CLIPBOARD", secret):
            application.key("ctrl+v")
            self.wait_until_entered(application)

    def click_into_the_field(self, application):
        x, y, width, height = application.secure_field().extents
        self.desktop.keys("mousemove", str(x + width // 2), str(y + height // 2), "click", "1")

    def paste_selected_secret(self, application, secret):
        x, y, width, height = application.secure_field().extents
        with x_selection.copied(self.desktop.display, "PRIMARY", secret):
            self.desktop.keys("mousemove", str(x + width // 2), str(y + height // 2), "click", "2")
            self.wait_until_entered(application)

    # Looking for it

    def assert_held_in_wiped_memory(self, application, secret, encoding):
        """The secret is found, and only as a whole, in one encoding and in memory that is neither swapped nor dumped."""
        found = traces(application.process.pid, secret)
        self.assertNotEqual([], found, "the secret is held, but the search does not find it")
        for trace in found:
            self.assertEqual((secret, encoding), (trace.text, trace.encoding), trace)
            self.assertTrue(trace.mapping.is_locked and trace.mapping.is_left_out_of_dumps, trace)
        return found

    def assert_gone(self, application, secret):
        found = [str(trace) for trace in traces(application.process.pid, secret)]
        self.assertEqual([], found, "traces of the secret were left in the memory of the application")

    def assert_not_in(self, contents, secret, where):
        self.assertEqual([], fragments(contents, secret), f"traces of the secret were left in {where}")

    def assert_nowhere_outside(self, application, secret):
        """Neither files nor the display nor assistive technology nor command lines have any of it."""
        for directory, folders, files in os.walk(self.scratch):
            if directory == str(self.scratch):
                folders.remove(self.installation.directory.name)
            for name in files:
                path = os.path.join(directory, name)
                with open(path, "rb") as file:
                    self.assert_not_in(file.read(), secret, path)
        for contents in x_selection.properties(self.desktop.display):
            self.assert_not_in(contents, secret, "a property of a window")
        for selection in ("PRIMARY", "CLIPBOARD"):
            self.assertFalse(x_selection.selection_has_owner(self.desktop.display, selection), selection)
        for text in self.accessible_texts(application):
            self.assert_not_in(text.encode(), secret, "the accessibility tree")
        for pid in processes.descendants(application.process.pid) | {application.process.pid}:
            for name in ("cmdline", "environ"):
                with open(f"/proc/{pid}/{name}", "rb") as file:
                    self.assert_not_in(file.read(), secret, f"{name} of {processes.command_of(pid)}")

    def accessible_texts(self, application):
        for shown in application.shown():
            yield shown.name
            try:
                yield shown.item.description
                yield shown.item.text
            except Gone:
                pass  # It has no text besides its name.

    def assert_engine_got(self, secret):
        self.assertEqual(hashlib.sha256(f"{secret}\n".encode()).hexdigest(), self.engine.runs[-1].input.decode().strip())

    # Recovering with it

    def refuse(self, application, enter):
        """Enters a secret that the engine refuses."""
        secret = random_secret()
        enter(application, secret)
        self.assert_held_in_wiped_memory(application, secret, "utf-16-le")
        self.assert_nowhere_outside(application, secret)
        self.behave(inspect=fails("credential does not unlock package"))
        application.press_inspect()
        application.wait_for_alert()
        self.assert_engine_got(secret)
        self.assert_gone(application, secret)
        application.dismiss_alert()

    def unlock(self, application, enter):
        """Enters a secret that the engine accepts; afterwards the session has the one copy of it."""
        secret = random_secret()
        enter(application, secret)
        self.behave()
        application.press_inspect()
        application.wait_for_snapshots()
        self.assert_engine_got(secret)
        found = self.assert_held_in_wiped_memory(application, secret, "utf-8")
        self.assertEqual(1, len(found), [str(trace) for trace in found])
        self.assert_nowhere_outside(application, secret)
        return secret

    def walk(self, application, enter_first, enter_second):
        application.choose_package(self.empty_package())
        self.refuse(application, enter_first)
        secret = self.unlock(application, enter_second)
        application.choose_destination(self.scratch / "Recovered")
        application.wait_for_completion()
        self.assert_engine_got(secret)
        self.assert_gone(application, secret)
        self.assert_nowhere_outside(application, secret)
        return secret

    def test_a_typed_secret(self):
        application = self.start()
        secret = self.walk(application, self.type_secret, self.type_secret)
        application.press(self.catalogue["recovery.choose-another-package.action"])
        application.button(self.catalogue["recovery.inspect.action"])
        self.assert_gone(application, secret)

    def test_a_pasted_secret(self):
        self.walk(self.start(), self.paste_secret, self.paste_selected_secret)

    def test_a_secret_with_a_preloaded_allocator(self):
        self.walk(self.start(LD_PRELOAD="libjemalloc.so.2"), self.type_secret, self.paste_secret)

    def test_a_secret_that_is_typed_and_deleted(self):
        application = self.start()
        secret = random_secret()
        self.type_secret(application, secret)
        application.key("ctrl+a")
        application.key("BackSpace")
        wait_for("the empty field", lambda: application.secure_field().character_count == 0)
        self.assert_gone(application, secret)

    def test_a_secret_whose_inspection_is_cancelled(self):
        self.behave(inspect=waits())
        application = self.start()
        application.choose_package(self.empty_package())
        secret = random_secret()
        self.type_secret(application, secret)
        application.press_inspect()
        self.engine.wait_for_run(1)
        self.assert_engine_got(secret)
        self.assert_held_in_wiped_memory(application, secret, "utf-8")
        self.assert_nowhere_outside(application, secret)
        application.press(self.catalogue["recovery.action.cancel-restore"])
        application.button(self.catalogue["recovery.inspect.action"])
        wait_for("the end of the engine", lambda: not processes.running(str(self.installation.engine)))
        wait_for("the removal of the output files", lambda: not self.temporary_files())
        self.assert_gone(application, secret)

    def test_a_secret_that_is_typed_again_during_the_inspection(self):
        gate = self.scratch / "gate"
        self.behave(inspect=f"while [ ! -e {shlex.quote(str(gate))} ]; do sleep 0.02; done; {prints(inspection())}")
        application = self.start()
        application.choose_package(self.empty_package())
        secret = random_secret()
        self.type_secret(application, secret)
        application.press_inspect()
        self.engine.wait_for_run(1)
        application.wait_for_keyboard_on(self.catalogue["recovery.action.cancel-restore"], Role.PUSH_BUTTON)
        again = random_secret()
        self.click_into_the_field(application)
        application.type_text(again)
        gate.touch()
        application.wait_for_snapshots()
        # Keys are taken in their order: once these have worked, those before them have.
        application.tab_to(self.catalogue["files-export.start"], Role.PUSH_BUTTON)
        self.assert_gone(application, again)
        application.choose_destination(self.scratch / "Recovered")
        application.wait_for_completion()
        self.assert_engine_got(secret)
        self.assert_gone(application, secret)
        self.assert_gone(application, again)
        self.assert_nowhere_outside(application, again)

    def test_a_secret_when_another_package_is_chosen(self):
        application = self.start()
        application.choose_package(self.empty_package())
        secret = random_secret()
        self.type_secret(application, secret)
        application.choose_package(self.empty_package("Other Photos.ambrel"))
        wait_for("the empty field", lambda: application.secure_field().character_count == 0)
        self.assert_gone(application, secret)


def _may_search():
    """Whether this process has CAP_SYS_PTRACE."""
    with open("/proc/self/status", encoding="utf-8") as status:
        effective = next(line.split()[1] for line in status if line.startswith("CapEff"))
    return int(effective, 16) >> 19 & 1


if __name__ == "__main__":
    if not _may_search() and _IN_NAMESPACE not in os.environ:
        os.environ[_IN_NAMESPACE] = "1"
        sys.stdout.flush()
        can_have_namespace = subprocess.run(["unshare", "--user", "--map-root-user", "true"], check=False,
                                            stdin=subprocess.DEVNULL).returncode == 0
        if can_have_namespace:
            os.execvp("unshare", ["unshare", "--user", "--map-root-user", sys.executable, "-B", *sys.argv])
    case_results.main()
