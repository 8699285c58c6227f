"""Runs an engine the way the application does, and notes what it does besides."""

import dataclasses
import os
import select
import signal
import subprocess
import time

import processes
from judgement import NotRun
from outcome import Outcome

_PAUSE_BETWEEN_PIECES = 0.05
_SECONDS_FOR_ORPHANS = 0.3


class Engine:
    """One program. Each run has folders of its own for temporary files, as HOME and to work in, which are to stay empty.

    `secrets` are looked for on command lines and in environments.
    """

    def __init__(self, program, scratch, limits, secrets):
        self.program = program
        self.limits = limits
        self.outcomes = []
        self._secrets = secrets
        self._scratch = scratch
        self._folders = [scratch / name for name in ("temporary", "home", "working")]
        self._taken = 0
        for folder in self._folders:
            _make_for_everyone(folder)
        self._environment = {name: value for name, value in os.environ.items() if not name.startswith("XDG_")} | {
            "TMPDIR": str(self._folders[0]), "HOME": str(self._folders[1])}

    def run(self, arguments, pieces=None, **options):
        """Runs the engine to its end. `pieces` are written to its input one after the other; None is the null device.

        Options: see _Run. Raises NotRun if the engine has hung too often, or cannot be started as another user.
        """
        if sum(outcome.forced == "time" for outcome in self.outcomes) >= self.limits.most_hangs:
            raise NotRun("too many runs before this one did not end")
        run = _Run(self.limits, Outcome([str(argument) for argument in arguments]),
                   processes.Observation(self._secrets), **options)
        with open(self._scratch / "stdout", "w+b") as output, open(self._scratch / "stderr", "w+b") as error:
            try:
                run.start(self.program, pieces, output, error, cwd=self._folders[2], env=self._environment)
            except PermissionError as failure:
                raise NotRun("the engine cannot be run as an ordinary user from where it lies") from failure
            outcome = run.finish()
            for stream, name in ((output, "output"), (error, "error")):
                stream.seek(0)
                setattr(outcome, name, stream.read(self.limits.output_bytes))
        outcome.has_printed_secret = any(
            secret in stream for secret in self._secrets for stream in (outcome.output, outcome.error))
        outcome.files_left = self._take_leftovers()
        # The documents of all runs together could be more than fits into memory.
        self.outcomes.append(dataclasses.replace(outcome, output=b""))
        return outcome

    def _take_leftovers(self):
        """The names of what a run has left in the folders that are to stay empty. The next run gets new ones instead."""
        found = []
        for folder in self._folders:
            names = os.listdir(folder) if os.access(folder, os.R_OK | os.W_OK | os.X_OK) else ["nothing that can be used"]
            if names:
                found += [f"{folder.name}/{name}" for name in names]
                self._taken += 1
                if folder.exists():
                    folder.rename(self._scratch / f"left {self._taken}")
                _make_for_everyone(folder)
        return sorted(found)


def _make_for_everyone(folder):
    """Some runs are another user's."""
    folder.mkdir()
    folder.chmod(0o777)


class _Run:
    """One run, from its start to its end.

    `number` is sent `delay` seconds after the start, or as soon as `moment()` is true. `user` is the one to run as.
    `keeps_input_open`: the input does not end by itself. `meanwhile` is called again and again while it runs.
    """

    def __init__(self, limits, outcome, observation, *, number=0, delay=None, moment=None, user=None,
                 keeps_input_open=False, meanwhile=None):
        self._limits = limits
        self._outcome = outcome
        self._observation = observation
        self._number = number
        self._delay = delay
        self._moment = moment
        self._user = user
        self._keeps_input_open = keeps_input_open
        self._meanwhile = meanwhile
        self._pieces = []
        self._next_piece_at = 0.0
        self._looked_at = 0.0

    def start(self, program, pieces, output, error, **surroundings):
        if self._user is not None:
            surroundings |= {"user": self._user, "group": self._user, "extra_groups": []}
        self._outputs = (output, error)
        self._input = None
        source = subprocess.DEVNULL
        if pieces is not None:
            source, self._input = os.pipe()
            os.set_blocking(self._input, False)
            self._pieces = list(pieces)
        try:
            self._began = time.monotonic()
            self._process = subprocess.Popen([program, *self._outcome.arguments], stdin=source, stdout=output,
                                             stderr=error, start_new_session=True, **surroundings)
        except OSError:
            self._close_input()
            raise
        finally:
            if pieces is not None:
                os.close(source)

    def finish(self):
        """Waits for the end, and takes whatever is left of the run."""
        try:
            self._wait()
        finally:
            self._outcome.has_refused_input = self._outcome.has_refused_input or bool(self._pieces)
            self._close_input()
            if self._process.poll() is None:
                os.killpg(self._process.pid, signal.SIGKILL)
            self._outcome.status = self._process.wait()
            self._outcome.seconds = time.monotonic() - self._began
            if self._outcome.sent:
                self._outcome.seconds_after_signal = time.monotonic() - self._sent_at
            left = processes.end_orphans(0 if self._outcome.forced else _SECONDS_FOR_ORPHANS)
            self._outcome.processes_left = [] if self._outcome.forced or self._number == signal.SIGKILL else left
        self._outcome.processes_seen = len(self._observation.seen)
        self._outcome.unreadable_environments = len(self._observation.unreadable)
        self._outcome.showing_secret = sorted(self._observation.showing)
        return self._outcome

    def _wait(self):
        descriptor = os.pidfd_open(self._process.pid)
        try:
            poller = select.poll()
            poller.register(descriptor, select.POLLIN)
            while True:
                now = time.monotonic()
                self._write()
                if not poller.poll(0):
                    self._send_signal(now)
                self._look(now)
                if self._meanwhile:
                    self._meanwhile()
                has_ended = poller.poll(self._milliseconds_to_wait(now))
                if self._is_too_much(now, has_ended) or has_ended:
                    return
        finally:
            os.close(descriptor)

    def _milliseconds_to_wait(self, now):
        if not self._outcome.sent and (self._moment or self._meanwhile):
            return 0
        if not self._outcome.sent and self._delay is not None:
            remaining = self._began + self._delay - now
            return 0 if remaining < 0.002 else min(10, int(remaining * 1000) - 1)
        return 1 if self._pieces else 10

    def _write(self):
        while self._pieces and time.monotonic() >= self._next_piece_at:
            try:
                written = os.write(self._input, self._pieces[0])
            except BlockingIOError:
                return
            except BrokenPipeError:
                self._outcome.has_refused_input = True
                self._pieces.clear()
                break
            self._pieces[0] = self._pieces[0][written:]
            if not self._pieces[0]:
                del self._pieces[0]
                self._next_piece_at = time.monotonic() + _PAUSE_BETWEEN_PIECES
        if not self._pieces and not self._keeps_input_open:
            self._close_input()

    def _close_input(self):
        if self._input is not None:
            os.close(self._input)
            self._input = None

    def _send_signal(self, now):
        if self._outcome.sent or not self._number:
            return
        if (now >= self._began + self._delay) if self._moment is None else self._moment():
            self._sent_at = time.monotonic()
            self._outcome.sent = self._number
            # The application asks the engine alone. A lack of memory or of power spares no process.
            if self._number == signal.SIGKILL:
                os.killpg(self._process.pid, self._number)
            else:
                os.kill(self._process.pid, self._number)

    def _look(self, now):
        if now - self._looked_at >= 0.004:
            self._looked_at = now
            self._observation.look(self._process.pid)

    def _is_too_much(self, now, has_ended):
        overdue = now - self._began > self._limits.run_seconds or (
            self._outcome.sent and now - self._sent_at > self._limits.stop_seconds)
        if any(os.fstat(stream.fileno()).st_size > self._limits.output_bytes for stream in self._outputs):
            self._outcome.forced = "output"
        elif overdue and not has_ended:
            self._outcome.forced = "time"
        return bool(self._outcome.forced)
