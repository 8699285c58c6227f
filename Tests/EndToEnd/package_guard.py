"""Watches over the packages of a test: none of them may be changed by what is tested."""

import contextlib
import os

from package_digest import differences, digest, without_status_times


class PackageGuard:
    def __init__(self):
        self._before = {}

    def watch(self, package):
        """Remembers a package as it is now, once. A path that leads to nothing is to lead to nothing afterwards."""
        path = os.path.abspath(package)
        if path not in self._before:
            self._before[path] = digest(path)

    def changes(self):
        """What has changed in the packages since they were first watched, one text each."""
        return [f"{path}: {difference}" for path, before in self._before.items()
                for difference in differences(before, digest(path))]

    @contextlib.contextmanager
    def undoing(self, package):
        """Within it the test itself changes the name or the permissions of a package, and undoes this at its end.

        Everything but the times of these changes must be as before then. Raises AssertionError where it is not.
        """
        path = os.path.abspath(package)
        self.watch(path)
        before = self._before[path]
        found = differences(before, digest(path))
        yield
        after = digest(path)
        found += differences(without_status_times(before), without_status_times(after))
        if found:
            raise AssertionError(f"{path} was changed: {found}")
        self._before[path] = after
