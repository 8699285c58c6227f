"""What a check can find, and the list of all checks."""

import collections.abc
import dataclasses


class NotHeld(Exception):
    """The engine does not do what is required; the text says what was seen."""


class NotRun(Exception):
    """Nothing can be said about the engine; the text says why."""


@dataclasses.dataclass(frozen=True)
class Check:
    """One requirement. The function returns what was seen, or raises NotHeld or NotRun."""

    name: str
    requirement: str
    function: collections.abc.Callable


@dataclasses.dataclass(frozen=True)
class Finding:
    """The result of a check: "held", "not held" or "not run"."""

    check: Check
    result: str
    seen: str


# In the order in which they are run: those that judge every run come last.
CHECKS: dict[str, Check] = {}


def check(name, requirement):
    """Adds the decorated function, which takes the subject, to the list of checks."""
    def add(function):
        if name in CHECKS:
            raise ValueError(f"two checks have the name {name}")
        CHECKS[name] = Check(name, requirement, function)
        return function
    return add


def require(is_held, seen):
    if not is_held:
        raise NotHeld(seen)


def judge(one, subject):
    """Runs a check. A fault of the engine never ends the whole; one of the check itself does."""
    try:
        return Finding(one, "held", one.function(subject))
    except NotHeld as finding:
        return Finding(one, "not held", str(finding))
    except NotRun as reason:
        return Finding(one, "not run", str(reason))
