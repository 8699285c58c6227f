"""The application by keyboard alone: where the keyboard is on each screen, and what its keys do there."""

import contextlib

from accessibility_events import StateChanges
from catalogue import NO_SNAPSHOTS, OKAY, SHOW_IN_FINDER
from engines import fails, inspection, prints, snapshot, waits
from recovery_test_case import RecoveryTestCase
from role import Role
from waiting import wait_for
import case_results
import window_manager

_THREE_SNAPSHOTS = [snapshot("newest", 1_700_000_000_000),
                    snapshot("middle", 1_500_000_000_000, retained_tip=False),
                    snapshot("oldest", 1_000_000_000_000, retained_tip=False)]


class Keyboard(RecoveryTestCase):
    # Only what every keyboard has is typed.
    scratch_prefix = "ambrel-recovery."

    def setUp(self):
        super().setUp()
        self.engine = self.scripted_engine()
        self.package = self.empty_package()
        self.choose = self.catalogue["recovery.choose-package.action"]
        self.cancel = self.catalogue["recovery.action.cancel-restore"]
        self.prompt = self.catalogue["recovery.prompt.backup-passphrase"]
        self.export = self.catalogue["files-export.start"]

    def started(self, **environment):
        application = self.start(**environment)
        application.focus_window()
        return application

    def choose_by_keyboard(self, application):
        """From the first screen, with the keyboard on its button, to the field for the secret."""
        application.key("space")
        application.answer_panel(self.choose, self.package, by_keyboard=True)
        application.focus_window()
        application.wait_for_keyboard_on(self.prompt, Role.PASSWORD_TEXT)

    def inspect_by_keyboard(self, application):
        self.choose_by_keyboard(application)
        application.type_text("secret")
        wait_for("“inspect”", lambda: application.is_enabled(self.catalogue["recovery.inspect.action"]))
        application.key("Return")

    @contextlib.contextmanager
    def held(self, application, key):
        """Keeps a key down; what it gives waits until the key has repeated in the main window."""
        with window_manager.key_presses(self.desktop.display, application.window_identifier) as presses:
            def wait_until_repeated():
                before = presses()
                wait_for("the key to repeat", lambda: presses() >= before + 3)

            self.desktop.keys("keydown", key)
            try:
                yield wait_until_repeated
            finally:
                self.desktop.keys("keyup", key)

    def wait_for_row(self, application, code, *states):
        """Waits until the row of the snapshot is in all these states, and no other row is in any of them."""
        index = [item["selectionCode"] for item in _THREE_SNAPSHOTS].index(code)

        def is_reached():
            rows = application.row_states()
            return len(rows) == 3 and all(
                (set(states) if at == index else set()) == row & set(states) for at, row in enumerate(rows))

        wait_for(f"“{code}” to be {' and '.join(states)}", is_reached)

    def test_a_whole_recovery_by_tab_and_space(self):
        destination = self.scratch / "Recovered"
        application = self.start()
        texts = self.catalogue
        application.tab_to(self.choose, Role.PUSH_BUTTON)
        application.key("space")
        application.answer_panel(self.choose, self.package, by_keyboard=True)
        application.tab_to(self.prompt, Role.PASSWORD_TEXT)
        application.type_text("secret")
        application.tab_to(texts["recovery.inspect.action"], Role.PUSH_BUTTON)
        application.key("space")
        application.wait_for_snapshots()
        application.tab_to(self.export, Role.PUSH_BUTTON)
        application.key("space")
        application.answer_panel(texts["files-export.choose-destination"], destination, by_keyboard=True)
        application.wait_for_completion()
        self.assertEqual(str(self.package), self.engine.runs[0].arguments[1])
        self.assertEqual(str(destination), self.engine.runs[1].arguments[5])

    def test_return_presses_the_main_button_and_the_focus_moves_to_the_next_control(self):
        self.engine.behave(inspect=prints(inspection(_THREE_SNAPSHOTS)))
        application = self.started()
        application.wait_for_keyboard_on(self.choose, Role.PUSH_BUTTON)
        self.inspect_by_keyboard(application)
        application.wait_for_snapshots()
        self.wait_for_row(application, "newest", "focused", "selected", "checked")
        application.key("Return")
        application.answer_panel(self.catalogue["files-export.choose-destination"], self.scratch / "Recovered",
                                 by_keyboard=True)
        application.wait_for_completion()
        self.assertEqual("newest", self.engine.runs[1].arguments[3])
        application.focus_window()
        application.wait_for_keyboard_on(SHOW_IN_FINDER, Role.PUSH_BUTTON)
        application.key("Return")
        self.assertEqual(("ShowItems", [(self.scratch / "Recovered").as_uri()]),
                         self.desktop.file_manager.wait_for_call())

    def test_held_return_stops_at_the_snapshots(self):
        application = self.started()
        self.choose_by_keyboard(application)
        application.type_text("secret")
        wait_for("“inspect”", lambda: application.is_enabled(self.catalogue["recovery.inspect.action"]))
        with self.held(application, "Return") as wait_until_repeated:
            application.wait_for_snapshots()
            wait_until_repeated()
        # Keys are taken in their order: once this one has worked, those before it have.
        application.key("Tab")
        application.wait_for_keyboard_on(self.export, Role.PUSH_BUTTON)
        self.assertIsNone(application.find(self.catalogue["files-export.choose-destination"], Role.DIALOG))

    def test_held_return_stops_at_the_snapshots_while_assistive_technology_listens(self):
        StateChanges(self.desktop.accessibility, "focused")
        self.test_held_return_stops_at_the_snapshots()

    def test_a_key_that_caused_an_alert_dismisses_it_only_when_it_is_pressed_again(self):
        self.engine.behave(inspect=fails("did not unlock"))
        application = self.started()
        self.choose_by_keyboard(application)
        application.type_text("secret")
        wait_for("“inspect”", lambda: application.is_enabled(self.catalogue["recovery.inspect.action"]))
        with self.held(application, "Return") as wait_until_repeated:
            application.wait_for_alert()
            wait_until_repeated()
            wait_until_repeated()
            self.assertIsNotNone(application.alert())
        self.assertIsNotNone(application.alert())
        application.key("Return")
        application.wait_until_gone(OKAY, Role.PUSH_BUTTON)

    def test_another_package_can_be_chosen_from_the_snapshots(self):
        another = self.catalogue["recovery.choose-another-package.action"]
        application = self.started()
        self.inspect_by_keyboard(application)
        application.wait_for_snapshots()
        application.tab_to(another, Role.PUSH_BUTTON)
        application.key("Return")
        application.wait_for_keyboard_on(self.choose, Role.PUSH_BUTTON)
        self.assertIsNone(application.find(another, Role.PUSH_BUTTON))

    def test_a_backup_without_snapshots_says_so_and_leads_back(self):
        self.engine.behave(inspect=prints(inspection([])))
        application = self.started()
        self.inspect_by_keyboard(application)
        application.wait_for_text(NO_SNAPSHOTS)
        application.wait_for_keyboard_on(self.catalogue["recovery.choose-another-package.action"], Role.PUSH_BUTTON)
        application.key("space")
        application.wait_for_keyboard_on(self.choose, Role.PUSH_BUTTON)

    def test_escape_cancels_an_inspection(self):
        self.engine.behave(inspect=waits())
        application = self.started()
        self.inspect_by_keyboard(application)
        application.wait_for_keyboard_on(self.cancel, Role.PUSH_BUTTON)
        application.key("Escape")
        application.wait_for_keyboard_on(self.prompt, Role.PASSWORD_TEXT)
        self.assertIsNone(application.alert())

    def test_escape_cancels_an_export(self):
        self.engine.behave(export=waits())
        application = self.started()
        self.inspect_by_keyboard(application)
        application.wait_for_snapshots()
        application.choose_destination(self.scratch / "Recovered")
        application.focus_window()
        application.wait_for_keyboard_on(self.cancel, Role.PUSH_BUTTON)
        application.key("Escape")
        application.wait_for_keyboard_on(self.export, Role.PUSH_BUTTON)
        self.assertIsNone(application.alert())

    def test_return_cancels_no_operation_on_any_desktop(self):
        for desktop in ("", "GNOME", "KDE", "XFCE"):
            with self.subTest(desktop):
                self.engine.behave(inspect=waits())
                application = self.started(XDG_CURRENT_DESKTOP=desktop)
                self.inspect_by_keyboard(application)
                application.wait_for_keyboard_on(self.cancel, Role.PUSH_BUTTON)
                for key in ("Return", "KP_Enter"):
                    application.key(key)
                # Keys are taken in their order. Had one of these cancelled, the next would be typed into the field.
                application.key("space")
                application.wait_for_keyboard_on(self.prompt, Role.PASSWORD_TEXT)
                self.assertEqual(0, application.secure_field().character_count)
                application.stop()

    def test_return_on_a_segment_presses_the_main_button_on_any_desktop(self):
        for desktop in ("", "GNOME"):
            with self.subTest(desktop):
                runs = len(self.engine.runs)
                application = self.started(XDG_CURRENT_DESKTOP=desktop)
                self.choose_by_keyboard(application)
                application.type_text("secret")
                application.tab_to(self.catalogue["backup.factor.passphrase"], Role.RADIO_BUTTON)
                application.key("Return")
                application.wait_for_snapshots()
                self.assertEqual(runs + 1, len(self.engine.runs))
                application.stop()

    def test_arrows_pick_the_factor(self):
        application = self.started()
        passphrase, key = (self.catalogue[f"backup.factor.{factor}"] for factor in ("passphrase", "recovery-key"))
        application.tab_to(passphrase, Role.RADIO_BUTTON)
        for arrow, name, prompt in (("Right", key, "recovery-key"), ("Left", passphrase, "backup-passphrase")):
            application.key(arrow)
            application.wait_for_keyboard_on(name, Role.RADIO_BUTTON)
            wait_for(f"“{name}”", lambda: "checked" in application.find(name, Role.RADIO_BUTTON).states)
            self.assertEqual(self.catalogue[f"recovery.prompt.{prompt}"], application.secure_field().name)

    def test_arrows_pick_a_snapshot(self):
        self.engine.behave(inspect=prints(inspection(_THREE_SNAPSHOTS)))
        application = self.started()
        heard = StateChanges(self.desktop.accessibility, "focused", "selected")
        self.inspect_by_keyboard(application)
        application.wait_for_snapshots()
        rows = dict(zip(("newest", "middle", "oldest"), application.rows()))
        wait_for("the event of the row", lambda: [name for name, state, is_set in heard.changes
                                                  if state == "focused" and is_set][-1:] == [rows["newest"]])
        left = "newest"
        for key, code in (("Down", "middle"), ("End", "oldest"), ("Up", "middle"), ("Home", "newest")):
            before = len(heard.changes)
            application.key(key)
            self.wait_for_row(application, code, "focused", "selected", "checked")
            for change in ((rows[code], "focused", True), (rows[code], "selected", True),
                           (rows[left], "selected", False)):
                wait_for(f"the event of {change}", lambda: change in heard.changes[before:])
            left = code

    def test_the_first_arrow_picks_the_newest_snapshot_if_none_is_recommended(self):
        self.engine.behave(inspect=prints(inspection(_THREE_SNAPSHOTS, disposition="unresolved-fork")))
        application = self.started()
        self.inspect_by_keyboard(application)
        application.wait_for_snapshots()
        self.wait_for_row(application, "newest", "focused")
        self.assertFalse(application.is_enabled(self.export))
        application.key("Down")
        self.wait_for_row(application, "newest", "focused", "selected", "checked")
        wait_for("the export", lambda: application.is_enabled(self.export))

    def test_the_field_has_the_focus_after_a_refused_secret(self):
        self.engine.behave(inspect=fails("did not unlock"))
        application = self.started()
        self.inspect_by_keyboard(application)
        application.wait_for_alert()
        application.wait_for_keyboard_on(OKAY, Role.PUSH_BUTTON)
        application.key("Return")
        application.wait_until_gone(OKAY, Role.PUSH_BUTTON)
        application.wait_for_keyboard_on(self.prompt, Role.PASSWORD_TEXT)


if __name__ == "__main__":
    case_results.main()
