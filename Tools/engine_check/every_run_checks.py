"""What every run that was made for the other checks has in common. These checks are the last ones."""

import signal

import folders
from judgement import NotRun, check, require


def _ended(subject):
    """The runs that were neither killed nor ended by force: they had the chance to put things in order."""
    return [outcome for outcome in subject.engine.outcomes
            if not outcome.forced and outcome.status != -signal.SIGKILL]


def _failed(subject):
    """The runs that failed by themselves."""
    return [outcome for outcome in _ended(subject) if outcome.status != 0 and not outcome.sent]


def _require_of_each(outcomes, is_right, fault):
    wrong = [outcome for outcome in outcomes if not is_right(outcome)]
    require(not wrong, f"{len(wrong)} of {len(outcomes)} runs: {fault(wrong[0]) if wrong else ''}")
    return f"{len(outcomes)} runs"


@check("runs-end", "every run ends within its time limit")
def every_run_ends(subject):
    return _require_of_each([outcome for outcome in subject.engine.outcomes if not outcome.sent],
                            lambda outcome: outcome.forced != "time", str)


@check("output-limit", "no output is longer than 512 MiB")
def every_output_is_limited(subject):
    return _require_of_each(subject.engine.outcomes, lambda outcome: outcome.forced != "output", str)


@check("failure-status", "a failed run ends with a status other than 0 and 15, and by no signal")
def every_failure_has_a_status(subject):
    return _require_of_each(_failed(subject), lambda outcome: outcome.status > 0 and not outcome.is_stopped, str)


@check("failure-text", "a failed run prints a text to standard error, in UTF-8")
def every_failure_has_a_text(subject):
    def is_text(outcome):
        try:
            return bool(outcome.error.decode("utf-8").strip())
        except UnicodeDecodeError:
            return False
    return _require_of_each(_failed(subject), is_text, str)


@check("failure-leaves-nothing", "an export that failed has made no destination and leaves nothing beside it")
def failed_exports_leave_nothing(subject):
    exports = [export for export in subject.exports if export.outcome.status != 0 and not export.outcome.sent
               and not export.outcome.forced]
    left = [export for export in exports if export.new]
    require(not left, f"{len(left)} of {len(exports)} failed exports: {', '.join(left[0].new) if left else ''} is left")
    return f"{len(exports)} failed exports"


@check("stop-promptly", "a run that is asked to end does so within the limit")
def every_stopped_run_ends_promptly(subject):
    outcomes = [outcome for outcome in subject.engine.outcomes if outcome.sent == signal.SIGTERM]
    _require_of_each(outcomes, lambda outcome: not outcome.forced, str)
    slowest = max((outcome.seconds_after_signal for outcome in outcomes), default=0)
    return f"{len(outcomes)} runs, after {slowest:.3f} s at most"


@check("processes-end", "when the engine has ended, no process that it started runs on")
def no_process_runs_on(subject):
    return _require_of_each(subject.engine.outcomes, lambda outcome: not outcome.processes_left,
                            lambda outcome: f"{', '.join(outcome.processes_left)} runs on")


@check("temporary-files",
       "a run that was not killed leaves nothing in the temporary folder, in HOME and in the working directory")
def no_file_is_left(subject):
    return _require_of_each(_ended(subject), lambda outcome: not outcome.files_left,
                            lambda outcome: f"{', '.join(outcome.files_left)} is left")


def _require_long_secrets(subject):
    if min(map(len, subject.secrets)) < 6:
        raise NotRun("a secret is too short to be told from other text")


@check("secret-not-shown", "no secret is on a command line or in an environment, also of processes that the engine starts")
def no_secret_is_shown(subject):
    _require_long_secrets(subject)
    outcomes = subject.engine.outcomes
    _require_of_each(outcomes, lambda outcome: not outcome.showing_secret,
                     lambda outcome: ", ".join(outcome.showing_secret))
    seen = sum(outcome.processes_seen for outcome in outcomes)
    unreadable = sum(outcome.unreadable_environments for outcome in outcomes)
    return f"{seen} processes" + (f", the environments of {unreadable} could not be read" if unreadable else "")


@check("secret-not-printed", "no secret is in an output")
def no_secret_is_printed(subject):
    _require_long_secrets(subject)
    return _require_of_each(subject.engine.outcomes, lambda outcome: not outcome.has_printed_secret,
                            lambda outcome: f"{outcome.command} printed one")


def _package_changes(subject):
    """By part, the entries of the package that are not as they were before the first run."""
    before, after = subject.state_before, folders.state(subject.package)
    names = sorted(before.keys() | after.keys())
    return [[name for name in names if before.get(name, _NOTHING)[part] != after.get(name, _NOTHING)[part]]
            for part in range(3)]


_NOTHING = (None, None, None)


def _require_unchanged(subject, names):
    require(not names, f"{', '.join(names[:3])} changed")
    return f"{len(subject.state_before)} entries"


@check("package-content", "all runs together leave the entries of the package and their content as they were")
def content_is_untouched(subject):
    return _require_unchanged(subject, _package_changes(subject)[0])


@check("package-attributes", "the same for permissions, owners, links, extended attributes and inodes")
def attributes_are_untouched(subject):
    content, attributes, _ = _package_changes(subject)
    if content:
        raise NotRun("the content is another")
    return _require_unchanged(subject, attributes)


@check("package-times", "the same for the times of modification and of change of status")
def times_are_untouched(subject):
    content, attributes, times = _package_changes(subject)
    if content or attributes:
        raise NotRun("the content or the attributes are others")
    return _require_unchanged(subject, times)
