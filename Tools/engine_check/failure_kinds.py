"""What the application takes a failed run for, by its error text."""

# The first text that is found decides, in any letter case. Each names what the user is told about.
TEXTS = (
    ("did not unlock", "wrong secret"),
    ("credential is invalid", "wrong secret"),
    ("invalid or unsupported", "invalid package"),
    ("package is unavailable", "package unavailable"),
    ("integrity verification failed", "integrity failure"),
    ("destination already exists", "destination exists"),
    ("destination is unavailable", "destination unavailable"),
    ("output could not be written", "destination unavailable"),
)


def kind_of(error):
    """The kind of failure that a text on standard error stands for, if any. Whether it is UTF-8 is judged by another check."""
    text = error.decode("utf-8", "replace").lower()
    return next((kind for needle, kind in TEXTS if needle in text), None)


def texts_of(kind):
    """The texts that stand for a kind, as a sentence names them."""
    return " or ".join(f"“{text}”" for text, named in TEXTS if named == kind)
