"""What is on standard input: a secret, one line feed, and the end of the input."""

from judgement import NotRun, check, require
from subject import FACTORS, PASSPHRASE, RECOVERY_KEY

_LONG_CREDENTIAL = b"x" * 200_000


def _with_another_letter(secret):
    """The secret with one letter changed in the middle, to a letter that may stand there."""
    letters = [index for index, byte in enumerate(secret) if chr(byte).isalnum() and byte < 128]
    if not letters:
        raise NotRun("the secret has no letter to change")
    index = letters[len(letters) // 2]
    old = chr(secret[index])
    new = next(letter for letter in ("27" if old.isdigit() else "bd" if old.islower() else "BD") if letter != old)
    return secret[:index] + new.encode() + secret[index + 1:]


def _another(secret):
    return secret[::-1] + secret[:2]


def _require_wrong(outcome):
    if outcome.forced:
        raise NotRun(str(outcome))
    require(outcome.status != 0, "status 0: it unlocked the package")
    require(outcome.kind == "wrong secret", str(outcome))
    return str(outcome)


def _require_unlocked(outcome):
    if outcome.forced:
        raise NotRun(str(outcome))
    require(outcome.has_succeeded, str(outcome))
    return "status 0"


@check("wrong-letter-passphrase", "a passphrase with one changed letter does not unlock, which is said")
def passphrase_with_another_letter(subject):
    return _require_wrong(subject.inspect(secret=_with_another_letter(subject.secret(PASSPHRASE))))


@check("wrong-letter-recovery-key", "a recovery key with one changed letter does not unlock or is invalid, which is said")
def recovery_key_with_another_letter(subject):
    return _require_wrong(subject.inspect(RECOVERY_KEY, secret=_with_another_letter(subject.secret(RECOVERY_KEY))))


@check("wrong-passphrase", "another passphrase does not unlock, which is said")
def another_passphrase(subject):
    return _require_wrong(subject.inspect(secret=_another(subject.secret(PASSPHRASE))))


@check("wrong-recovery-key", "another recovery key does not unlock or is invalid, which is said")
def another_recovery_key(subject):
    return _require_wrong(subject.inspect(RECOVERY_KEY, secret=_another(subject.secret(RECOVERY_KEY))))


@check("wrong-factor", "the secret of one factor does not unlock as that of the other, which is said")
def secret_of_the_other_factor(subject):
    for factor, other in (FACTORS, FACTORS[::-1]):
        seen = _require_wrong(subject.inspect(factor, secret=subject.secret(other)))
    return seen


@check("wrong-secret-export", "an export with a wrong secret fails with the same text")
def export_with_a_wrong_secret(subject):
    return _require_wrong(subject.export(secret=_another(subject.secret(PASSPHRASE))).outcome)


@check("credential-empty", "an empty credential, a line feed alone, does not unlock or is invalid, which is said")
def empty_credential(subject):
    return _require_wrong(subject.inspect(secret=b""))


@check("credential-line-feed", "the credential is all before the last line feed: it may hold line feeds itself")
def credential_with_a_line_feed(subject):
    return _require_wrong(subject.inspect(secret=subject.secret(PASSPHRASE) + b"\nmore"))


@check("credential-in-pieces", "the credential may arrive in pieces: the engine waits for the end of the input")
def credential_in_pieces(subject):
    secret = subject.secret(PASSPHRASE)
    half = len(secret) // 2
    return _require_unlocked(subject.inspect(pieces=[secret[:half], secret[half:], b"\n"]))


@check("credential-long", "a credential of 200,000 bytes is read to its end and refused like any wrong one")
def long_credential(subject):
    outcome = subject.inspect(secret=_LONG_CREDENTIAL)
    require(not outcome.has_refused_input, "the input was closed before all was written")
    return _require_wrong(outcome)


@check("credential-nothing", "an input that ends at once fails the run")
def input_that_ends_at_once(subject):
    outcome = subject.inspect(pieces=[])
    if outcome.forced:
        raise NotRun(str(outcome))
    require(outcome.status != 0, "status 0")
    return str(outcome)
