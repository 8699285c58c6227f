"""Takes C++ apart as far as small changes need it: tokens with their places, and which brackets belong together.

What is no code for that purpose is left out: comments, preprocessor lines, attributes, template heads, and the statements
that only state, abort or log.
"""

import re
from typing import NamedTuple

_TOKEN = re.compile(
    r"""(?P<skip>\s+|//[^\n]*|/\*.*?\*/|(?<![^\n])[ \t]*\#(?:\\\n|[^\n])*)
    |(?P<text>(?:u8|[uUL])?R"(?P<mark>[^(]*)\(.*?\)(?P=mark)"|(?:u8|[uUL])?"(?:\\.|[^"\\])*"|(?:u8|[uUL])?'(?:\\.|[^'\\])*')
    |(?P<number>\.?\d(?:'?[\w.]|(?<=[eEpP])[+-])*)
    |(?P<word>[A-Za-z_]\w*)
    |(?P<mark_>::|->\*?|\+\+|--|<<=|>>=|<=>|&&|\|\||[-+*/%&|^!=<>]=|.)""",
    re.VERBOSE | re.DOTALL)
_CLOSING = {"(": ")", "[": "]", "{": "}"}
# Whoever changes these learns nothing about the tests.
_STATING = {"static_assert", "assert", "Q_ASSERT", "qDebug", "qInfo", "qWarning", "qCritical", "fprintf", "printf"}


class Token(NamedTuple):
    kind: str
    text: str
    start: int
    end: int


class Source:
    """The tokens of a text; `partner` leads from each bracket to its other half, `opener` from each token to the bracket
    that it stands in."""

    def __init__(self, text):
        self.text = text
        self.tokens = [Token(match.lastgroup.rstrip("_"), match.group(), match.start(), match.end())
                       for match in _TOKEN.finditer(text) if not match["skip"]]
        self.partner = {}
        self.opener = []
        self._match_brackets()
        self._left_out = [self._extent(index) for index in range(len(self.tokens))]
        self._left_out = [extent for extent in self._left_out if extent]

    def word(self, index):
        """The text of a token; none beyond the ends."""
        return self.tokens[index].text if 0 <= index < len(self.tokens) else ""

    def is_left_out(self, index):
        return any(first <= index <= last for first, last in self._left_out)

    def is_spaced(self, index):
        """Whether blanks stand on both sides, as they do around operators and not around < > of templates."""
        token = self.tokens[index]
        return (self.text[token.start - 1:token.start].isspace() and self.text[token.end:token.end + 1].isspace())

    def is_code(self, index):
        """Whether the brace at `index` holds statements, rather than members, enumerators or values."""
        if self.word(index) != "{":
            return False
        if self.word(index - 1) in {")", "else", "do", "try", "const", "noexcept", "override", "mutable", ";", "]"}:
            return True
        if self.word(index - 1) in {"{", "}"}:
            outer = self.opener[index]
            return outer is not None and self.is_code(outer)
        # A function or a lambda with its result behind it.
        while index > 0 and self.word(index) not in {";", "}", "=", ")", "(", ","}:
            index -= 1
            if self.word(index) == "->" and self.word(index - 1) in {")", "const", "noexcept"}:
                return True
        return False

    def _match_brackets(self):
        open_ones = []
        for index, token in enumerate(self.tokens):
            closes = open_ones and token.kind == "mark" and token.text == _CLOSING[self.word(open_ones[-1])]
            if closes:
                self.partner[index] = open_ones[-1]
                self.partner[open_ones.pop()] = index
            self.opener.append(open_ones[-1] if open_ones else None)
            if token.kind == "mark" and token.text in _CLOSING:
                open_ones.append(index)

    def _extent(self, index):
        """The first and the last token of what begins here and is left out."""
        word = self.word(index)
        if word == "[" and self.word(index + 1) == "[":
            return index, self.partner.get(index, index)
        if word in _STATING and self.word(index + 1) == "(":
            return index, self.partner.get(index + 1, index)
        if word == "template" and self.word(index + 1) == "<":
            last = index + 1
            while last < len(self.tokens) and self.word(last) != ">":
                last += 1
            return index, last
        return None
