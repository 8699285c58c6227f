"""The window: its size, its place, and that it comes to the front."""

import os
import pathlib

from accessibility_events import Activations
from recovery_test_case import RecoveryTestCase
from role import Role
from waiting import wait_for
import case_results
import window_manager

_SIZE = (980, 720)


class Window(RecoveryTestCase):
    def test_has_its_size_in_the_middle_of_the_display(self):
        left, top, *size = self.start().window.extents
        self.assertEqual(_SIZE, tuple(size))
        middle = tuple((whole - part) // 2 for whole, part in zip(self.desktop.size, _SIZE))
        self.assertEqual(middle, (left, top))

    def test_cannot_be_made_smaller_than_its_content_allows(self):
        application = self.start()
        self.assertEqual((880, 660),
                         window_manager.minimum_size(self.desktop.display, application.window_identifier))

    def test_comes_to_the_front_of_other_programs_and_takes_the_keyboard(self):
        display = self.desktop.display
        with window_manager.window_over_everything(display) as other:
            wait_for("the other window in front", lambda: window_manager.windows_from_below(display)[-1] == other)
            self.assertEqual(other, window_manager.keyboard_owner(display))
            window = self.start().window_identifier
            wait_for("the keyboard in the window", lambda: window_manager.keyboard_owner(display) == window)
            order = window_manager.windows_from_below(display)
            self.assertLess(order.index(other), order.index(window))

    def test_is_closed_by_its_shortcuts(self):
        for key in ("ctrl+q", "ctrl+w"):
            with self.subTest(key):
                application = self.start()
                application.focus_window()
                application.key(key)
                self.assertEqual(0, application.wait_for_end())

    def test_has_the_class_by_which_desktops_find_its_entry(self):
        command = self.scratch / "ambrel-recovery-app"
        command.symlink_to(self.installation.executable)
        self.installation.executable = command
        entry = pathlib.Path(os.environ["AMBREL_BUILD"]) / "Packaging/com.ambrel.recovery.desktop"
        self.assertIn(f"\nExec={command.name}\n", entry.read_text(encoding="utf-8"))
        self.assertIn(f"\nStartupWMClass={command.name}\n", entry.read_text(encoding="utf-8"))
        application = self.start()
        self.assertIn(application.window_identifier,
                      window_manager.windows_of_class(self.desktop.environment, command.name))

    def test_has_an_icon(self):
        application = self.start()
        sizes = window_manager.icon_sizes(self.desktop.display, application.window_identifier)
        self.assertEqual([(size, size) for size in (16, 24, 32, 48, 64, 128)], sorted(sizes))

    def test_assistive_technology_hears_that_it_has_become_active(self):
        heard = Activations(self.desktop.accessibility)
        application = self.start()
        self.assertEqual(Role.FRAME, application.window.role)
        application.take_keyboard_away()
        before = len(heard.names)
        application.focus_window()
        wait_for("the event", lambda: heard.names[before:] == [application.window.name])


if __name__ == "__main__":
    case_results.main()
