"""Requests to end, at many moments, and what a run leaves that is killed."""

import os
import signal

from judgement import NotHeld, NotRun, check, require
from subject import PASSPHRASE


def _moments(subject, first):
    """Moments of a run, in seconds after its start: more of them towards the end, when an export writes."""
    count = subject.engine.limits.moments
    return [subject.seconds_of(first) * (1 - (1 - (moment + 0.5) / count) ** 2) for moment in range(count)]


def _moments_to_stop(subject, first):
    """The same, and some more at the beginning: there a request cannot be too late."""
    return [subject.seconds_of(first) * part for part in (0.05, 0.1, 0.15, 0.2)] + _moments(subject, first)


def _require_stopped(outcomes, usual_seconds):
    """Each run that was asked to end did, or was done; those that took too long are judged elsewhere.

    There may be a moment at the end when it is too late. Few requests in the first quarter may let a run go on for as long
    as half of one: even a busy machine and disk do not make that the rule.
    """
    asked = [outcome for outcome in outcomes if outcome.sent and not outcome.forced]
    for outcome in asked:
        require(outcome.is_stopped or outcome.status == 0, str(outcome))
    stopped = sum(outcome.is_stopped for outcome in asked)
    early = [outcome for outcome in asked if outcome.seconds - outcome.seconds_after_signal < usual_seconds / 4]
    ignored = sum(not outcome.is_stopped and outcome.seconds_after_signal > usual_seconds / 2 for outcome in early)
    require(len(early) < 2 or 2 * ignored <= len(early), f"{ignored} of {len(early)} early requests had no effect")
    if not stopped:
        raise NotRun("every run was done before it was asked to end, or did not end")
    return f"{stopped} of {len(asked)} requests ended a run"


@check("stop-while-waiting", "SIGTERM while the engine waits for its input ends it by this signal, or with status 15")
def stopped_while_waiting(subject):
    outcome = subject.inspect(pieces=[subject.secret(PASSPHRASE)[:1]], keeps_input_open=True, number=signal.SIGTERM,
                              delay=0.3)
    if outcome.forced:
        raise NotRun(str(outcome))
    require(outcome.is_stopped, str(outcome))
    return str(outcome)


@check("stop-inspect", "SIGTERM at any moment of an inspection ends it by this signal, or with status 15, unless it is done")
def stopped_inspections(subject):
    first = subject.first_inspection()
    if not first.has_succeeded:
        raise NotRun("the first inspection did not succeed")
    outcomes = [subject.inspect(number=signal.SIGTERM, delay=moment) for moment in _moments_to_stop(subject, first)]
    return _require_stopped(outcomes, subject.seconds_of(first))


def _stopped_exports(subject):
    """Exports that were asked to end at moments of their run, one of them as soon as the destination was there."""
    contents = subject.exported()
    exports = []
    for moment in [*_moments_to_stop(subject, subject.first_export()[0].outcome), None]:
        place = subject.new_place()
        options = {"delay": moment} if moment is not None else {
            "moment": lambda destination=place / "Recovered": os.path.lexists(destination)}
        export = subject.export(place=place, number=signal.SIGTERM, **options)
        is_whole = export.contents == contents
        exports.append((export, is_whole))
        export.remove()
    return exports


@check("stop-export", "SIGTERM at any moment of an export ends it in the same way, unless it is done; then all is exported")
def stopped_exports(subject):
    exports = subject.once("stopped exports", lambda: _stopped_exports(subject))
    seen = _require_stopped([export.outcome for export, _ in exports],
                            subject.seconds_of(subject.first_export()[0].outcome))
    for export, is_whole in exports:
        require(is_whole or not export.outcome.has_succeeded, "status 0 after a request to end, but not all is exported")
    return seen


@check("stop-leaves-nothing", "an export that was stopped has made no destination and leaves nothing beside it")
def stopped_exports_leave_nothing(subject):
    exports = [export for export, _ in subject.once("stopped exports", lambda: _stopped_exports(subject))
               if export.outcome.is_stopped]
    if not exports:
        raise NotRun("no export was stopped")
    for export in exports:
        require(not export.new, f"{', '.join(export.new)} is left {_after(export.outcome)}")
    return f"{len(exports)} stopped exports"


def _after(outcome):
    return f"of an export that was stopped after {outcome.seconds - outcome.seconds_after_signal:.3f} s"


@check("kill-export", "an export that is killed at any moment has made no destination, or a whole one")
def killed_exports(subject):
    contents = subject.exported()
    killed = []
    for moment in _moments(subject, subject.first_export()[0].outcome):
        export = subject.export(number=signal.SIGKILL, delay=moment)
        if export.outcome.status == -signal.SIGKILL:
            killed.append(export)
            found = export.contents
            require(found is None and not os.path.lexists(export.destination) or found == contents,
                    f"after {moment:.3f} s the destination is there, but not whole")
    if not killed:
        raise NotRun("every export was done before it was killed")
    subject.once("killed exports", lambda: killed)
    return f"{len(killed)} killed exports, of which {sum(bool(export.new) for export in killed)} left something"


@check("kill-next-export", "the next export to the destination of one that was killed succeeds")
def exports_after_killed_ones(subject):
    def none():
        raise NotRun("no export was killed")
    killed = [export for export in subject.once("killed exports", none) if not os.path.lexists(export.destination)]
    if not killed:
        raise NotRun("no export was killed before its destination was there")
    # One that left something, if there is one.
    before = max(killed, key=lambda export: len(export.new))
    export = subject.export(place=before.place)
    if not export.outcome.has_succeeded:
        raise NotHeld(str(export.outcome))
    require(export.contents == subject.exported(), "the files are others than usual")
    return "status 0" + (f", where {', '.join(before.new)} was left" if before.new else "")
