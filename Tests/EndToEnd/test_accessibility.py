"""Everything that is shown stands in the accessibility tree, with its role, its name and its states."""

from accessibility_events import Announcements, StateChanges
from catalogue import NO_ACCOUNT, OKAY, READ_ONLY, STEP_COMPLETED
from engines import fails, gated, inspection, prints, snapshot, waits
from recovery_test_case import RecoveryTestCase
from role import Role
from waiting import wait_for
import case_results

CONTROLS = (Role.PUSH_BUTTON, Role.RADIO_BUTTON, Role.PASSWORD_TEXT, Role.LIST_ITEM)


class Accessibility(RecoveryTestCase):
    def setUp(self):
        super().setUp()
        self.engine = self.scripted_engine()

    def assert_shows(self, application, *texts):
        for text in texts:
            application.wait_for_text(text)

    def assert_every_control_has_a_name(self, application):
        for item, role, name, *_ in application.shown():
            if role in CONTROLS:
                self.assertNotEqual("", name, f"a {role} has no name: {item.extents}")

    def test_the_first_screen(self):
        application = self.start()
        texts = self.catalogue
        self.assert_shows(
            application, "Ambrel", "Recovery", "01", "02", "03", NO_ACCOUNT, READ_ONLY, "AMBREL RECOVERY",
            texts["recovery.choose-package.body"], texts["recovery.credential.title"],
            texts["recovery.credential.body"], texts["recovery.credential-kind"],
            texts["recovery.first-launch.footnote"], texts["recovery.snapshots.title"],
            texts["files-export.completed.title"])
        self.assert_every_control_has_a_name(application)
        self.assertTrue(application.is_enabled(texts["recovery.choose-package.action"]))
        self.assertFalse(application.is_enabled(texts["recovery.inspect.action"]))
        passphrase = application.wait_for_object(texts["backup.factor.passphrase"], Role.RADIO_BUTTON)
        key = application.wait_for_object(texts["backup.factor.recovery-key"], Role.RADIO_BUTTON)
        self.assertEqual((True, False), ("checked" in passphrase.states, "checked" in key.states))
        application.wait_for_object(texts["recovery.credential-kind"], Role.PANEL)

    def test_the_steps_expose_which_one_is_current_and_which_are_completed(self):
        application = self.start()
        texts = self.catalogue
        names = [texts["recovery.choose-package.action"], texts["recovery.snapshots.title"],
                 texts["files-export.completed.title"]]

        def assert_steps(*states):
            self.assertEqual([(name, STEP_COMPLETED if "checked" in told else "", told)
                              for name, told in zip(names, states)], application.steps())

        assert_steps({"selected"}, set(), set())
        for name in names:
            self.assertIn("selectable", application.find(name, Role.LIST_ITEM).states)
        heard = StateChanges(self.desktop.accessibility, "selected", "checked")
        application.choose_package(self.empty_package())
        application.inspect("secret")
        application.wait_for_snapshots()
        assert_steps({"checked"}, {"selected"}, set())
        for change in ((names[0], "checked", True), (names[0], "selected", False), (names[1], "selected", True)):
            wait_for(f"the event of {change}", lambda: change in heard.changes)
        application.choose_destination(self.scratch / "Recovered")
        application.wait_for_completion()
        assert_steps({"checked"}, {"checked"}, {"selected"})

    def test_the_secure_field_reveals_nothing(self):
        application = self.start()
        application.choose_package(self.empty_package())
        application.type_credential("Correct Horse 1", by_keyboard=True)
        wait_for("the typed text", lambda: application.secure_field().character_count == 15)
        field = application.secure_field()
        self.assertNotIn("Horse", field.text)
        self.assertNotIn("Horse", " ".join(application.texts()))
        application.press_inspect()
        application.wait_for_snapshots()
        self.assertEqual(b"Correct Horse 1\n", self.engine.runs[0].input)

    def test_the_secure_field_reports_caps_lock(self):
        application = self.start()
        application.choose_package(self.empty_package())
        application.type_credential("a", by_keyboard=True)
        self.assertEqual("", application.secure_field().description)
        application.key("Caps_Lock")
        self.addCleanup(self.desktop.keys, "key", "Caps_Lock")
        wait_for("the description", lambda: application.secure_field().description == "Caps Lock is on")
        application.wait_for_object("Caps Lock is on", Role.LABEL)

    def test_the_prompt_follows_the_factor(self):
        application = self.start()
        for factor, prompt in (("recovery-key", "recovery-key"), ("passphrase", "backup-passphrase")):
            application.choose_factor(factor)
            expected = self.catalogue[f"recovery.prompt.{prompt}"]
            wait_for(f"the prompt “{expected}”", lambda: application.secure_field().name == expected)

    def test_blank_text_cannot_be_inspected(self):
        application = self.start()
        application.choose_package(self.empty_package())
        application.type_credential(" \t ")
        self.assertFalse(application.is_enabled(self.catalogue["recovery.inspect.action"]))

    def test_the_progress_of_an_inspection(self):
        self.engine.behave(inspect=waits())
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        application.wait_for_text(self.catalogue["recovery.inspecting"])
        application.wait_for_object(self.catalogue["recovery.action.cancel-restore"], Role.PUSH_BUTTON)
        self.assert_every_control_has_a_name(application)
        bar = application.find(self.catalogue["recovery.inspecting"], Role.PROGRESS_BAR)
        self.assertIn("busy", bar.states)
        # How far the engine is it does not tell.
        self.assertNotIn("Value", bar.interfaces)
        self.assertIsNone(application.find(self.catalogue["recovery.inspect.action"], Role.PUSH_BUTTON))
        application.press(self.catalogue["recovery.action.cancel-restore"])
        application.button(self.catalogue["recovery.inspect.action"])

    def test_the_snapshots_newest_first_with_their_facts(self):
        snapshots = [
            snapshot("old", 1_000_000_000_000, retained_tip=False, items=1, resources=2, size=999),
            snapshot("new", 1_700_000_000_000, items=12_345, resources=23_456, size=5_000_000_000),
            snapshot("middle", 1_500_000_000_000, retained_tip=False, complete=False),
        ]
        self.engine.behave(inspect=prints(inspection(snapshots)))
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        application.wait_for_snapshots()
        names = application.rows()
        self.assertEqual(3, len(names))
        for name, parts in zip(names, (
                ("Nov 14, 2023", "10:13", "Items: 12,345", "Files: 23,456", "5 GB", "Complete"),
                ("Jul 14, 2017", "2:40", "Items: 3", "Incomplete"),
                ("Sep 9, 2001", "1:46", "Items: 1", "Files: 2", "999 bytes", "Complete"))):
            for part in parts:
                self.assertIn(part, name)
        self.assert_every_control_has_a_name(application)
        self.assertTrue(application.is_enabled(self.catalogue["files-export.start"]))
        chosen = {"selectable", "selected", "checked"}
        self.assertEqual([chosen, {"selectable"}, {"selectable"}],
                         [states & chosen for states in application.row_states()])

        application.choose_row(names[2])
        wait_for("the choice", lambda: [states & chosen for states in application.row_states()]
                 == [{"selectable"}, {"selectable"}, chosen])
        application.choose_destination(self.scratch / "Recovered")
        application.wait_for_completion()
        self.assertEqual("old", self.engine.runs[1].arguments[3])

    def test_without_a_recommendation_nothing_is_picked(self):
        for disposition in ("unresolved-fork", "no-published-head"):
            with self.subTest(disposition):
                self.engine.behave(inspect=prints(inspection(disposition=disposition)))
                application = self.start()
                application.choose_package(self.empty_package(f"{disposition}.ambrel"))
                application.inspect("secret")
                application.wait_for_snapshots()
                notice = application.find(self.catalogue["recovery.branch.fork.title"])
                self.assertEqual(disposition == "unresolved-fork", notice is not None)
                self.assertFalse(application.is_enabled(self.catalogue["files-export.start"]))
                application.choose_row(application.rows()[0])
                wait_for("the export", lambda: application.is_enabled(self.catalogue["files-export.start"]))
                application.stop()

    def test_a_hundred_thousand_snapshots_are_exposed(self):
        many = [snapshot(f"code {number}", 1_000_000_000_000 + number * 1000, retained_tip=False)
                for number in range(100_000)]
        document = self.scratch / "document"
        document.write_text(inspection(many), encoding="utf-8")
        self.engine.behave(inspect=f"cat '{document}'")
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        application.wait_for_snapshots()
        self.assertEqual(100_000, application.wait_for_object(
            self.catalogue["recovery.snapshots.title"], Role.LIST).child_count)

    def test_steps_errors_and_completion_are_announced(self):
        texts = self.catalogue
        self.engine.behave(inspect=fails("integrity verification failed"))
        heard = Announcements(self.desktop.accessibility)
        application = self.start()
        application.choose_package(self.empty_package())
        application.inspect("secret")
        title, body = texts.failure("integrity")
        self.hears(heard, f"{title}\n{body}")
        application.press(OKAY)

        self.engine.behave()
        gate = self.scratch / "gate"
        gated(self.installation.engine, gate)
        application.inspect("secret")
        self.hears(heard, texts["recovery.inspecting"])
        gate.touch()
        self.hears(heard, texts["recovery.snapshots.title"])
        gate.unlink()
        application.wait_for_snapshots()
        application.choose_destination(self.scratch / "Recovered")
        self.hears(heard, texts["files-export.running"])
        gate.touch()
        application.wait_for_completion()
        self.hears(heard, f"{texts['files-export.completed.title']}\n{texts['files-export.exported']}: 3")
        application.press(texts["recovery.choose-another-package.action"])
        self.hears(heard, texts["recovery.choose-package.action"])
        self.assertFalse([text for text in heard.texts if "secret" in text])

    def test_a_startup_error_is_announced(self):
        self.installation.engine.unlink()
        heard = Announcements(self.desktop.accessibility)
        self.start()
        self.hears(heard, "\n".join(self.catalogue.failure("generic")))

    @staticmethod
    def hears(heard, text):
        wait_for(f"the announcement “{text}”", lambda: text in heard.texts)

    def test_an_alert_can_be_dismissed_and_shown_again(self):
        self.engine.behave(inspect=fails("integrity verification failed"))
        application = self.start()
        application.choose_package(self.empty_package())
        for round_number in range(2):
            with self.subTest(round=round_number):
                application.inspect("secret")
                self.assertEqual(self.catalogue.failure("integrity"), application.wait_for_alert())
                self.assert_every_control_has_a_name(application)
                application.press(OKAY)
                application.wait_until_gone(OKAY, Role.PUSH_BUTTON)


if __name__ == "__main__":
    case_results.main()
