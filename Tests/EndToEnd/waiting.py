"""Waiting for a state, always with an end."""

import time

DEFAULT_SECONDS = 30.0
_PAUSE = 0.02


def wait_for(what, condition, seconds=DEFAULT_SECONDS):
    """Asks `condition` until it gives something true, and returns that. Raises AssertionError naming `what`."""
    deadline = time.monotonic() + seconds
    while True:
        answer = condition()
        if answer:
            return answer
        if time.monotonic() > deadline:
            raise AssertionError(f"waited {seconds:g} seconds in vain for {what}")
        time.sleep(_PAUSE)
