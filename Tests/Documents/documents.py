"""The documents of the project, and what they consist of."""

import pathlib
import re
import shlex

PROJECT = pathlib.Path(__file__).resolve().parents[2]
# A block without a language is one of commands.
_COMMANDS = {"", "sh", "bash", "console"}


def documents(project=PROJECT):
    """Every document of the source tree, but nothing of a build or a hidden folder."""
    return sorted(path for path in project.rglob("*.md")
                  if not any(part == "build" or part.startswith(".") for part in path.relative_to(project).parts))


def code_blocks(text):
    """(language, lines) of each fenced block."""
    blocks, block = [], None
    for line in text.splitlines():
        fence = re.match(r" *```(\S*)", line)
        if fence and block is None:
            block = (fence[1], [])
        elif fence:
            blocks.append(block)
            block = None
        elif block:
            block[1].append(line)
    return blocks


def indented_code(text):
    """The first lines of code that is indented instead of fenced: whether it is commands, nobody could tell."""
    lines = _without_code_blocks(text).splitlines()
    return [line for before, line in zip([""] + lines, lines)
            if line.startswith("    ") and line.strip() and not before.strip()]


def commands(text):
    """The commands of the fenced blocks: each in one line, its words separated by one space, without comments."""
    found = []
    for language, lines in code_blocks(text):
        if language in _COMMANDS:
            joined = re.sub(r"\\\n\s*", "", "\n".join(line.strip() for line in lines))
            stripped = (re.sub(r"(^|\s)#.*", "", line) for line in joined.splitlines())
            found += [re.sub(r"\s+", " ", line).strip() for line in stripped if line.strip()]
    return found


def code_spans(text):
    """The pieces of code within the text."""
    return [re.sub(r"\s+", " ", span) for span in re.findall(r"`([^`]+)`", _without_code_blocks(text))]


def mentioned_tools(text):
    """(path, options) of each script of the project that a piece of code within the text starts with."""
    found = []
    for span in code_spans(text):
        if re.match(r"(\./|Tools/)\w", span):
            words = shlex.split(span)
            found.append((words[0], [word.split("=")[0] for word in words[1:] if word.startswith("--")]))
    return found


def links(text):
    """The targets of all links and pictures."""
    prose = re.sub(r"`[^`\n]+`", "`code`", _without_code_blocks(text))
    return re.findall(r"\]\(\s*<?([^)>\s]+)>?\s*\)", prose)


def anchors(text):
    """The names by which the headings of a document can be linked to."""
    names, counts = set(), {}
    for heading in re.findall(r"^#+ +(.*?) *$", _without_code_blocks(text), re.MULTILINE):
        plain = re.sub(r"\[([^]]*)\]\([^)]*\)", r"\1", heading)
        name = re.sub(r"[^\w\- ]", "", plain.lower()).replace(" ", "-")
        count = counts.get(name, 0)
        counts[name] = count + 1
        names.add(f"{name}-{count}" if count else name)
    return names


def _without_code_blocks(text):
    return re.sub(r"^ *```.*?^ *```[ \t]*$", "", text, flags=re.MULTILINE | re.DOTALL)
