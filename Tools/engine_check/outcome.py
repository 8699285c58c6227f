"""What one run of the engine did."""

import dataclasses
import signal

import failure_kinds

_MOST_SHOWN = 1000


@dataclasses.dataclass
class Outcome:
    """One run that is over, however it ended."""

    arguments: list
    # What subprocess reports: the exit status, or the negative number of the signal.
    status: int = 0
    output: bytes = b""
    error: bytes = b""
    seconds: float = 0.0
    # The signal that was sent to it, if any, and how long it ran on after that.
    sent: int = 0
    seconds_after_signal: float = 0.0
    # Why it was ended by force: "time" or "output", else empty.
    forced: str = ""
    # Whether it closed its input, or ended, before all was written.
    has_refused_input: bool = False
    # What is left of it: processes, and files in the folders that are to stay empty.
    processes_left: list = dataclasses.field(default_factory=list)
    files_left: list = dataclasses.field(default_factory=list)
    has_printed_secret: bool = False
    # Processes on whose command line or in whose environment a secret was seen.
    showing_secret: list = dataclasses.field(default_factory=list)
    processes_seen: int = 0
    unreadable_environments: int = 0

    @property
    def command(self):
        return self.arguments[0]

    @property
    def work(self):
        """What it had to do, which is the same wherever an export goes."""
        return self.arguments[:5] + self.arguments[6:]

    @property
    def has_succeeded(self):
        return self.status == 0 and not self.forced

    @property
    def is_stopped(self):
        """Whether the application takes it for a run that was cancelled."""
        return self.status in (signal.SIGTERM, -signal.SIGTERM)

    @property
    def kind(self):
        return failure_kinds.kind_of(self.error)

    def __str__(self):
        if self.forced:
            return f"{self.command} did not end" if self.forced == "time" else f"{self.command} printed without end"
        if self.status < 0:
            ending = f"ended by {signal.Signals(-self.status).name}" if -self.status in list(signal.Signals) \
                else f"ended by signal {-self.status}"
        else:
            ending = f"status {self.status}"
        first_line = self.error[:_MOST_SHOWN].decode("utf-8", "replace").strip().partition("\n")[0]
        return f"{ending}, “{first_line}”" if first_line else ending
