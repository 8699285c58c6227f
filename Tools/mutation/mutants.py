"""The small changes that are made in a source, one at a time, to see whether a test notices."""

import hashlib
from typing import NamedTuple

from mutation.tokens import Source

_COMPARISONS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}
_CONNECTIVES = {"&&": "||", "||": "&&"}
_SUMS = {"+": "-", "-": "+", "+=": "-=", "-=": "+="}
_ASSIGNMENTS = {"=", "+=", "-=", "*=", "/=", "|=", "&=", "++", "--"}
_BEFORE_EXPRESSIONS = {"return", "=", "(", ",", "{", ";", ":", "[", "?"}
_EMPTY = {"true", "false", "nullptr", "{", "0"}
_NO_EXPRESSION = {
    "return", "if", "for", "while", "do", "switch", "case", "default", "using", "typedef", "static", "const", "constexpr",
    "auto", "struct", "class", "enum", "template", "throw", "try", "catch", "else", "break", "continue", "goto", "public",
    "private", "protected", "friend", "explicit", "virtual", "operator", "namespace", "extern", "inline", "alignas"}


class Mutant(NamedTuple):
    path: str
    line: int
    kind: str
    start: int
    end: int
    replacement: str
    identity: str
    diff: str

    def applied_to(self, text):
        return text[:self.start] + self.replacement + text[self.end:]


class Change(NamedTuple):
    kind: str
    start: int
    end: int
    replacement: str


def mutants_of(path, text):
    """Every mutant of a source, in the order of their places. Their identities stay when lines elsewhere change."""
    made, seen = [], {}
    for change in sorted(set(_changes(Source(text))), key=lambda change: (change.start, change.end, change.kind)):
        before, after = _lines_around(text, change)
        content = f"{path}\n{change.kind}\n{before}\n{after}"
        seen[content] = seen.get(content, 0) + 1
        identity = hashlib.sha256(f"{content}\n{seen[content]}".encode()).hexdigest()[:8]
        line = text.count("\n", 0, change.start) + 1
        diff = "\n".join(["-" + old for old in before.split("\n")] + ["+" + new for new in after.split("\n")])
        made.append(Mutant(path, line, *change, identity, diff))
    return made


def _lines_around(text, change):
    """The whole lines that a change touches, as they are and as they become."""
    first = text.rfind("\n", 0, change.start) + 1
    last = text.find("\n", change.end)
    last = len(text) if last < 0 else last
    return text[first:last], text[first:change.start] + change.replacement + text[change.end:last]


def _changes(source):
    for index, token in enumerate(source.tokens):
        if source.is_left_out(index):
            continue
        yield from _changed_token(source, index, token)
        yield from _negated_condition(source, index)
        yield from _removed_operands(source, index)
        yield from _return_value(source, index)
    for block in _blocks(source):
        yield from _changed_statements(source, block)


def _changed_token(source, index, token):
    for kind, exchanged in (("comparison", _COMPARISONS), ("connective", _CONNECTIVES), ("sum", _SUMS)):
        if token.text in exchanged and token.kind == "mark" and source.is_spaced(index):
            yield Change(kind, token.start, token.end, exchanged[token.text])
    if token.text == "!" and token.kind == "mark":
        yield Change("negation removed", token.start, token.end, "")
    if token.text in {"true", "false"}:
        yield Change("constant", token.start, token.end, "false" if token.text == "true" else "true")
    if token.kind == "number":
        yield Change("constant", token.start, token.end, f"({token.text} + 1)")
    if token.text == "stable_sort":
        yield Change("unstable sort", token.start, token.end, "sort")
    if token.text == "|" and source.is_spaced(index) and source.tokens[index + 1].kind == "word":
        yield Change("flag removed", source.tokens[index - 1].end, source.tokens[index + 1].end, "")


def _negated_condition(source, index):
    first, last = None, None
    if source.word(index) in {"if", "while"} and source.word(index + 1) == "(":
        first, last = index + 2, source.partner.get(index + 1, index) - 1
        for place in range(first, last):
            if source.word(place) == ";" and source.opener[place] == index + 1:
                first = place + 1
    elif source.word(index) == "?":
        first, last = _condition_before(source, index), index - 1
    if first is None or last < first or _has_a_negation_of_its_own(source, first, last):
        return
    start, end = source.tokens[first].start, source.tokens[last].end
    yield Change("condition", start, end, f"!({source.text[start:end]})")


def _condition_before(source, index):
    """The first token of the condition that ends before the question mark at `index`."""
    place = index
    while place > 0 and source.word(place - 1) not in _BEFORE_EXPRESSIONS:
        place = source.partner.get(place - 1, place - 1)
    return place


def _removed_operands(source, index):
    """What stands behind && or ||, and what stands before the first of a chain."""
    if source.word(index) not in _CONNECTIVES or not source.is_spaced(index):
        return
    ends = {")", "]", "}", ";", ",", "?", ":", "||", source.word(index)}
    last = index
    while source.word(last + 1) not in ends | {""}:
        last = max(source.partner.get(last + 1, 0), last + 1)
    yield Change("operand removed", source.tokens[index - 1].end, source.tokens[last].end, "")
    first = index
    while first > 0 and source.word(first - 1) not in _BEFORE_EXPRESSIONS | {*_CONNECTIVES}:
        first = source.partner.get(first - 1, first - 1)
    if source.word(first - 1) not in _CONNECTIVES:
        yield Change("operand removed", source.tokens[first].start, source.tokens[index + 1].start, "")


def _has_a_negation_of_its_own(source, first, last):
    """Whether the condition declares a name, or another change of it says the same as its negation."""
    outer = [place for place in range(first, last + 1) if source.opener[place] == source.opener[first]]
    words = [source.word(place) for place in outer]
    if "=" in words:
        return True
    operators = [source.word(place) for place in outer
                 if source.word(place) in {*_COMPARISONS, *_CONNECTIVES} and source.is_spaced(place)]
    return operators in (["=="], ["!="]) or (not operators and words[0] == "!")


def _return_value(source, index):
    if source.word(index) != "return" or source.word(index + 1) in _EMPTY | {";"}:
        return
    last = _end_of_statement(source, index)
    words = source.text[source.tokens[index + 1].start:source.tokens[last].start]
    if words != "std::nullopt":
        yield Change("return value", source.tokens[index + 1].start, source.tokens[last].start, "{}")


def _end_of_statement(source, index):
    while source.word(index) not in {";", ""}:
        index = source.partner[index] if source.partner.get(index, 0) > index else index
        index += 1
    return min(index, len(source.tokens) - 1)


def _blocks(source):
    return [index for index in range(len(source.tokens)) if source.is_code(index) and index in source.partner]


def _changed_statements(source, block):
    """Statements of one block: each that is an expression or a jump taken out, neighboring expressions exchanged."""
    place, previous = block + 1, None
    while place < source.partner[block]:
        if source.word(place) in {"case", "default"}:
            while source.word(place) != ":":
                place += 1
            place, previous = place + 1, None
            continue
        last = _end_of_simple_statement(source, place, source.partner[block])
        if last is None:
            # What has a block of its own: on after it.
            while source.word(place) != "{":
                place += 1
            place, previous = source.partner[place] + 1, None
            continue
        extent = (source.tokens[place].start, source.tokens[last].end)
        kind = None if source.is_left_out(place) else _removable(source, place, last)
        if kind:
            yield Change(f"{kind} removed", *extent, ";")
        exchangeable = extent if kind in {"call", "assignment"} else None
        if previous and exchangeable:
            between = source.text[previous[1]:extent[0]]
            yield Change("statements exchanged", previous[0], extent[1],
                         source.text[extent[0]:extent[1]] + between + source.text[previous[0]:previous[1]])
        place, previous = last + 1, exchangeable


def _end_of_simple_statement(source, place, limit):
    """The semicolon of the statement; none where it is a block or begins one."""
    while place < limit:
        if source.word(place) == ";":
            return place
        if source.is_code(place):
            return None
        place = source.partner[place] + 1 if source.partner.get(place, 0) > place else place + 1
    return None


def _removable(source, first, last):
    if source.word(first) in {"throw", "break", "continue"} or (source.word(first) == "return" and last == first + 1):
        return "jump"
    if source.word(first) in _NO_EXPRESSION or _declares(source, first, last):
        return None
    if "reserve" in {source.word(place) for place in range(first, last)}:
        # Only saves time.
        return None
    outer = {source.word(place) for place in range(first, last) if source.opener[place] == source.opener[first]}
    if outer & _ASSIGNMENTS:
        return "assignment"
    return "call" if source.word(last - 1) == ")" else None


def _declares(source, first, last):
    """Whether the statement makes a name known: a name follows a name, or what can be the end of a type."""
    for place in range(first + 1, last):
        if source.word(place) in {"(", "=", "[", "{"}:
            return False
        before = source.tokens[place - 1]
        if source.tokens[place].kind == "word" and (before.kind == "word" or before.text in {">", "&", "&&"} or
                                                    (before.text == "*" and place > first + 1)):
            return True
    return False
