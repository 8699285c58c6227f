"""The search for a secret finds the smallest fragment wherever it lies, and nothing else. No display is needed."""

import unittest

from process_memory import FRAGMENT_LENGTH, SECRET_LENGTH, fragments, random_secret
import case_results


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


if __name__ == "__main__":
    case_results.main()
