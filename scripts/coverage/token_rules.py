# SPDX-License-Identifier: MIT
"""Rules that a few neighbouring tokens tell."""

from .cursor import Cursor
from .declaration_rules import HINTS

_FOREIGN_CLASSES = ("objcclass", "objcprotocol", "objccategory", "cppclass")
_MEMORY_ARRAYS = ("mem", "memb", "memw", "meml")
_OPERATORS = {
    "+", "-", "*", "/", "**", "=", "<", ">", "<=", ">=", "<>", "><", ":=", "in", "div", "mod", "and", "or", "xor",
    "not", "shl", "shr", "inc", "dec", "explicit", "implicit",
}  # fmt: skip


def _generics(cursor, index, found):
    if cursor.kind(index + 1) == "word" and cursor.text(index - 1) != ":":
        found("generics")


def _generic_type(cursor, index, found):
    """A name, names in angle brackets, and behind them what can follow a type only."""
    if cursor.kind(index - 1) != "word":
        return
    at = index + 1
    while cursor.kind(at) == "word":
        at += 1
        if cursor.text(at) == ":":  # a constraint
            found("generics")
            return
        while cursor.text(at) == ".":
            at += 2
        if cursor.text(at) != ",":
            break
        at += 1
    if at > index + 1 and cursor.text(at) == ">" and cursor.text(at + 1) in (";", ")", ".", "=", ",", "("):
        found("generics")


def _operator(cursor, index, found):
    is_heading = cursor.text(index + 2) == "(" and cursor.kind(index + 3) == "word"
    if cursor.text(index + 1) in _OPERATORS and is_heading:
        found("operator")


def _helper(cursor, index, found):
    if cursor.text(index + 1) in ("for", "(") and cursor.text(index - 1) in ("class", "record", "type", "interface"):
        found("helper")


def _for(cursor, index, found):
    at = index + 1
    while cursor.kind(at) == "word" and cursor.text(at) != "in":
        at += 2 if cursor.text(at + 1) == "." else 1
    if at > index + 1 and cursor.text(at) == "in":
        found("for in")


def _strict(cursor, index, found):
    if cursor.text(index + 1) in ("private", "protected"):
        found("strict private, strict protected")


def _class(cursor, index, found):
    behind = cursor.text(index + 1)
    if behind in ("var", "threadvar", "const", "type"):
        found("class variables, constants and types")
    elif behind in ("constructor", "destructor"):
        found("class constructors")
    elif behind == "operator":
        found("operator")
    elif behind in ("sealed", "abstract", "external") and cursor.text(index - 1) in ("=", "packed"):
        found("sealed, abstract and external classes")


def _bitpacked(cursor, index, found):
    if cursor.text(index + 1) in ("record", "array", "object", "class"):
        found("bitpacked")


def _foreign_class(cursor, index, found):
    if cursor.text(index - 1) in ("=", "of"):
        found("classes of other languages")


def _reference(cursor, index, found):
    if cursor.text(index + 1) == "to" and cursor.text(index - 1) in ("=", ":"):
        found("reference to")


def _constref(cursor, index, found):
    if cursor.text(index - 1) in ("(", ";") and cursor.kind(index + 1) == "word":
        found("constref")


def _otherwise(cursor, index, found):
    if cursor.text(index - 1) in (";", "end"):
        found("otherwise")


def _uses(cursor, index, found):
    at = index + 1
    while at < len(cursor.tokens) and cursor.text(at) not in (";", "implementation", "interface", "begin"):
        if cursor.text(at) == "." and cursor.kind(at - 1) == "word" and cursor.kind(at + 1) == "word":
            found("dotted unit names")
            return
        at += 1


def _unit(cursor, index, found):
    if index == 0 and cursor.text(index + 2) == ".":
        found("dotted unit names")
    elif index == 0 and cursor.text(index + 2) in HINTS:
        found("hint directives")


def _deprecated(cursor, index, found):
    if cursor.text(index + 1) == ";" or cursor.kind(index + 1) == "string":
        found("hint directives")


def _is(cursor, index, found):
    if cursor.text(index + 1) == "nested" and cursor.text(index - 1) != "(":
        found("routine types that are nested")


def _not(cursor, index, found):
    if cursor.text(index + 1) == "in":
        found("not in")


def _raise(cursor, index, found):
    """A second address behind the one at which an exception is raised."""
    is_at = False
    at = index + 1
    while cursor.kind(at) and cursor.text(at) not in (";", "end", "else", "until", "except", "finally"):
        is_at = is_at or cursor.text(at) == "at"
        if is_at and cursor.text(at) == ",":
            found("raise at an address and a frame")
            return
        at = cursor.skip_brackets(at) if cursor.text(at) in ("(", "[") else at + 1


def _memory(cursor, index, found):
    brackets = range(index + 1, cursor.skip_brackets(index + 1))
    if cursor.text(index + 1) == "[" and any(cursor.text(at) == ":" for at in brackets):
        found("addresses as segment and offset")


def _absolute(cursor, index, found):
    if cursor.text(index + 2) == ":" and cursor.kind(index + 1) == "number":
        found("addresses as segment and offset")


def _far(cursor, index, found):
    if cursor.text(index - 1) == ";" and cursor.text(index - 3) == "^" and cursor.text(index - 4) in ("=", ":"):
        found("far pointers")


def _end(cursor, index, found):
    if cursor.text(index - 1) == "asm" and cursor.text(index + 1) == "[" and cursor.kind(index + 2) == "string":
        found("register lists behind assembler")


def _ampersand(cursor, index, found):
    if cursor.kind(index + 1) == "word":
        found("names after &")
    elif cursor.kind(index + 1) == "number":
        found("octal and binary numbers")


def _says(name):
    return lambda cursor, index, found: found(name)


_OF_WORDS = {
    "absolute": _absolute,
    "bitpacked": _bitpacked,
    "class": _class,
    "constref": _constref,
    "deprecated": _deprecated,
    "end": _end,
    "far": _far,
    "for": _for,
    "generic": _generics,
    "helper": _helper,
    "huge": _far,
    "is": _is,
    "not": _not,
    "operator": _operator,
    "otherwise": _otherwise,
    "raise": _raise,
    "reference": _reference,
    "specialize": _generics,
    "strict": _strict,
    "unit": _unit,
    "uses": _uses,
    **{word: _foreign_class for word in _FOREIGN_CLASSES},
    **{word: _memory for word in _MEMORY_ARRAYS},
}
_OF_SIGNS = {
    "%": _says("octal and binary numbers"),
    "&": _ampersand,
    "<": _generic_type,
    **{sign: _says("the signs ** and ><") for sign in ("**", "><")},
    **{sign: _says("shifts by << and >>") for sign in ("<<", ">>")},
    **{sign: _says("assignments like +=") for sign in ("+=", "-=", "*=", "/=")},
}


def _finalization_alone(tokens, found):
    words = {token.text: token.pos for token in reversed(tokens) if token.kind == "word"}
    if "finalization" in words and "initialization" not in words:
        found.at(words["finalization"], "finalization without initialization")


def _is_parted(cursor, index):
    token, behind = cursor.tokens[index], cursor.text(index + 1)
    return behind.startswith("_") and cursor.tokens[index + 1].pos == token.pos + len(token.text)


def check_tokens(tokens, found):
    """Applies all rules of this file to the tokens outside of assembler, without directives."""
    _finalization_alone(tokens, found)
    cursor = Cursor(tokens)
    for index, token in enumerate(tokens):
        found.pos = token.pos
        if token.kind == "sign":
            if token.text in _OF_SIGNS:
                _OF_SIGNS[token.text](cursor, index, found)
        elif token.kind == "word":
            if token.text in _OF_WORDS and cursor.text(index - 1) not in (".", "&"):
                _OF_WORDS[token.text](cursor, index, found)
        elif token.kind == "number" and _is_parted(cursor, index):
            found("figures parted by _")
