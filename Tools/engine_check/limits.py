"""How much an engine may take."""

import dataclasses


@dataclasses.dataclass(frozen=True)
class Limits:
    """The defaults are the application's own, but for the time to stop: a user waits for that."""

    run_seconds: float = 1800
    stop_seconds: float = 10
    output_bytes: int = 512 << 20
    moments: int = 20
    # Of runs that do not end, so that an engine that always hangs is not waited for all day.
    most_hangs: int = 3
    # Copies are made for the checks of damage and of a read-only disk.
    most_copied_bytes: int = 1 << 30
