"""Waiting for a state, always with an end."""

import time

# Much longer than anything takes on a busy machine.
DEFAULT_SECONDS = 60.0
_PAUSE = 0.02


def wait_for(what, condition, seconds=DEFAULT_SECONDS):
    """Asks `condition` until it gives something true, and returns that. Raises AssertionError naming `what`."""
    deadline = time.monotonic() + seconds
    while True:
        asked = time.monotonic()
        answer = condition()
        if answer:
            return answer
        now = time.monotonic()
        if now > deadline:
            raise AssertionError(f"waited {seconds:g} seconds in vain for {what}")
        # Who is waited for needs the processor, too: asking takes half of the time at most.
        time.sleep(max(_PAUSE, now - asked))
