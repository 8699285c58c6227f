"""The search for a secret finds the smallest fragment wherever it lies, and nothing else. No display is needed."""

import subprocess
import sys
import unittest

from process_memory import FRAGMENT_LENGTH, SECRET_LENGTH, fragments, random_secret, traces
import case_results

# Keeps what it reads behind a guard page, and prints where.
_PROGRAM = """
import ctypes, mmap, sys
memory = mmap.mmap(-1, 3 * mmap.PAGESIZE)
try:
    memory.madvise(102, 0, mmap.PAGESIZE)  # MADV_GUARD_INSTALL
except OSError:
    sys.exit("this kernel has no guard pages")
sys.stdin.buffer.readinto(memoryview(memory)[mmap.PAGESIZE:][:48])
print(ctypes.addressof(ctypes.c_char.from_buffer(memory)) + mmap.PAGESIZE, flush=True)
sys.stdin.read()
"""


class ProcessMemory(unittest.TestCase):
    def test_every_fragment_is_found_in_every_encoding(self):
        secret = random_secret()
        for encoding in ("utf-8", "utf-16-le", "utf-32-le"):
            for first in range(SECRET_LENGTH - FRAGMENT_LENGTH + 1):
                part = secret[first:first + FRAGMENT_LENGTH]
                contents = b"\1" * 5 + part.encode(encoding) + b"\1"
                self.assertEqual([(encoding, 5, part)], fragments(contents, secret))

    def test_less_than_a_fragment_is_not_found(self):
        secret = random_secret()
        for first in range(SECRET_LENGTH - FRAGMENT_LENGTH + 1):
            self.assertEqual([], fragments(secret[first:first + FRAGMENT_LENGTH - 1].encode() + b"\1", secret))

    def test_what_lies_behind_a_guard_page_is_found(self):
        secret = random_secret()
        with subprocess.Popen([sys.executable, "-c", _PROGRAM], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE) as program:
            program.stdin.write(secret.encode())
            program.stdin.flush()
            address = program.stdout.readline()
            if not address:
                self.skipTest(program.stderr.read().decode().strip())
            found = traces(program.pid, secret)
            program.stdin.close()
        self.assertIn((int(address), secret), [(trace.address, trace.text) for trace in found])


if __name__ == "__main__":
    case_results.main()
