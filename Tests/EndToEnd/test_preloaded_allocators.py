"""With an allocator that was preloaded in the place of the C library's, as some systems do for every program."""

import os
import subprocess

from installation import environment_of
from recovery_test_case import RecoveryTestCase
import case_results

_LIBRARIES = ("libjemalloc.so.2", "libmimalloc.so", "libtcmalloc_minimal.so.4", "libc_malloc_debug.so.0")


class PreloadedAllocators(RecoveryTestCase):
    def surroundings(self):
        """For each allocator what has it preloaded; the C library's for debugging checks every block."""
        for library in _LIBRARIES:
            with self.subTest(library=library):
                yield library, {"LD_PRELOAD": library, "MALLOC_CHECK_": "3"}

    def test_the_self_test_passes(self):
        for library, changes in self.surroundings():
            environment = environment_of(self.desktop, self.scratch, **changes)
            result = subprocess.run([self.installation.executable, "--self-test"], env=environment, check=False,
                                    stdin=subprocess.DEVNULL, capture_output=True, timeout=120)
            self.assertEqual((0, b""), (result.returncode, result.stderr), library)

    def test_a_whole_recovery_succeeds(self):
        self.scripted_engine()
        package = self.empty_package()
        for library, changes in self.surroundings():
            application = self.start(**changes)
            with open(f"/proc/{application.process.pid}/maps", encoding="utf-8") as maps:
                self.assertIn(os.path.splitext(library)[0], maps.read())
            application.choose_package(package)
            application.inspect("secret")
            application.wait_for_snapshots()
            application.choose_destination(self.scratch / library)
            application.wait_for_completion()
            application.close_window()
            self.assertEqual(0, application.wait_for_end())


if __name__ == "__main__":
    case_results.main()
