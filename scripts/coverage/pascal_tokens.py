# SPDX-License-Identifier: MIT
"""Splits Pascal source into words, numbers, strings, signs and directives, without blanks and comments.

It shares nothing with the lexer that is measured, so that a fault there cannot hide here.
"""

import re
from typing import NamedTuple

_TOKEN = re.compile(
    r"""(?P<blank>\s+)
      | (?P<directive>\{\$[^}]*\}?|\(\*\$.*?(?:\*\)|\Z))
      | (?P<brace>\{)
      | (?P<star>\(\*)
      | (?P<slashes>//[^\r\n]*)
      | (?P<string>'(?:[^'\r\n]|'')*'?)
      | (?P<word>[A-Za-z_][A-Za-z_0-9]*)
      | (?P<number>\$[0-9A-Fa-f]+|[0-9]+(?:\.[0-9]+)?(?:[eE][+-]?[0-9]+)?)
      | (?P<char>\#(?:\$[0-9A-Fa-f]+|[0-9]+))
      | (?P<sign>:=|\.\.|<=|>=|<>|><|<<|>>|\*\*|\+=|-=|\*=|/=|.)""",
    re.VERBOSE | re.DOTALL,
)
_BRACES = re.compile(r"[{}]")
_STARS = re.compile(r"\(\*|\*\)")
_COMMENTS = {"brace": (_BRACES, "{"), "star": (_STARS, "(*")}


class Token(NamedTuple):
    """A piece of the source; its text is in lower case, but for strings and directives."""

    kind: str  # word, number, string, char, sign or directive
    text: str
    pos: int  # index into the source, from 0


def _comment_end(text, start, sign, opener, nests):
    """The index behind a comment whose text starts at one; beyond the source if nothing closes it."""
    depth = 1
    for found in sign.finditer(text, start):
        if found.group() != opener:
            depth -= 1
            if depth == 0:
                return found.end()
        elif nests:
            depth += 1
    return len(text) + 1


def scan(text, nests=False, found_nested=None):
    """The tokens of a source.

    `nests` tells whether a comment may stand inside another of its own kind; `found_nested` is called for one that
    holds another, with its index (from 0) and whether it is closed.
    """
    tokens = []
    pos = 0
    while pos < len(text):
        found = _TOKEN.match(text, pos)
        kind = found.lastgroup
        pos = found.end()
        if kind in _COMMENTS:
            end = _comment_end(text, pos, *_COMMENTS[kind], nests)
            if nests and found_nested and end != _comment_end(text, pos, *_COMMENTS[kind], False):
                found_nested(found.start(), end <= len(text))
            pos = end
        elif kind == "word" or kind == "number":
            tokens.append(Token(kind, found.group().lower(), found.start()))
        elif kind != "blank" and kind != "slashes":
            tokens.append(Token(kind, found.group(), found.start()))
    return tokens


def without_assembler(tokens):
    """The tokens that do not stand between asm and its end."""
    kept = []
    inside = False
    last = None
    for token in tokens:
        is_named = last is not None and last.text in (".", "@", "&")
        if inside:
            if token.kind == "word" and token.text == "end" and not is_named:
                inside = False
                kept.append(token)
        else:
            kept.append(token)
            inside = token.kind == "word" and token.text == "asm" and not is_named
        last = token
    return kept
