# SPDX-License-Identifier: MIT
"""Chooses branches of conditional directives in Pascal source, and leaves out the others."""

import re

from .pascal_tokens import scan

_DIRECTIVE = re.compile(r"[{(]\*?\$(\w+)\s*(.*?)\s*(?:\}|\*\)|\Z)", re.DOTALL)
_OPENERS = {"ifdef", "ifndef", "ifopt", "if"}
_ELSES = {"else", "elseif"}
_ENDS = {"endif", "ifend"}
_WORD = re.compile(r"[A-Za-z_]\w*|\d+|<=|>=|<>|\S")


def words_of(directive):
    """The name of a directive and what stands behind it, both in lower case."""
    found = _DIRECTIVE.match(directive)
    return (found.group(1).lower(), found.group(2).lower()) if found else ("", "")


class _Expression:
    """Evaluates the condition of an $IF: defined and undefined, not, and, or, brackets. All else is false."""

    def __init__(self, text, symbols):
        self.words = _WORD.findall(text)
        self.symbols = symbols

    def take(self):
        return self.words.pop(0) if self.words else ""

    def peek(self):
        return self.words[0] if self.words else ""

    def value(self):
        result = self.conjunction()
        while self.peek() == "or":
            self.take()
            result = self.conjunction() or result
        return result

    def conjunction(self):
        result = self.factor()
        while self.peek() == "and":
            self.take()
            result = self.factor() and result
        return result

    def factor(self):
        word = self.take()
        if word == "not":
            return not self.factor()
        if word == "(":
            result = self.value()
            self.take()
            return result
        if word in ("defined", "undefined"):
            is_bracketed = self.peek() == "("
            if is_bracketed:
                self.take()
            result = (self.take() in self.symbols) == (word == "defined")
            if is_bracketed:
                self.take()
            return result
        while self.words and self.peek() not in ("and", "or", ")"):
            self.take()
        return False


def _first_word(argument):
    found = _WORD.match(argument)
    return found.group() if found else ""


class Symbols:
    """Takes the branches that a compiler with these symbols defined would take."""

    def __init__(self, symbols):
        self.initial = frozenset(symbols)

    def start(self):
        self.symbols = set(self.initial)

    def define(self, name, argument):
        if name in ("define", "undef"):
            (self.symbols.add if name == "define" else self.symbols.discard)(_first_word(argument))

    def holds(self, name, argument, _has_else):
        symbol = _first_word(argument)
        if name == "ifdef":
            return symbol in self.symbols
        if name == "ifndef":
            return symbol not in self.symbols
        if name == "ifopt":
            return argument.endswith("+")
        return _Expression(argument, self.symbols).value()


class FirstBranches:
    """Takes the first branch of every conditional."""

    def start(self):
        pass

    def define(self, name, argument):
        pass

    def holds(self, _name, _argument, _has_else):
        return True


class LastBranches(FirstBranches):
    """Takes the else branch of every conditional that has one; of one that has none, what `without_else` says."""

    def __init__(self, without_else):
        self.without_else = without_else

    def holds(self, _name, _argument, has_else):
        return self.without_else if not has_else else False


def _with_else(directives):
    """The positions of those conditionals that have an else."""
    found = set()
    nest = []
    for name, _, token in directives:
        if name in _OPENERS:
            nest.append(token.pos)
        elif nest and name in _ELSES:
            found.add(nest[-1])
        elif nest and name in _ENDS:
            nest.pop()
    return found


class _Branch:
    """The branch of a conditional that the walk is in."""

    def __init__(self, surroundings, holds):
        self.surroundings = surroundings  # whether what the conditional stands in is kept
        self.is_kept = surroundings and holds
        self.was_kept = self.is_kept  # this one, or one before it

    def turn(self, holds):
        self.is_kept = self.surroundings and not self.was_kept and holds()
        self.was_kept = self.was_kept or self.is_kept


class _Walk:
    """Walks over the directives of one source and finds which pieces of it are kept."""

    def __init__(self, tokens, chooser):
        self.directives = [(*words_of(token.text), token) for token in tokens if token.kind == "directive"]
        self.has_else = _with_else(self.directives)
        self.chooser = chooser
        self.nest = []

    def is_kept(self):
        return not self.nest or self.nest[-1].is_kept

    def pieces(self, length):
        """Start, end and directive of each piece that is kept: of the source between the directives the directive is
        None, else name and argument; those of conditionals are left out."""
        start = 0
        for name, argument, token in self.directives:
            end = token.pos + len(token.text)
            if self.is_kept():
                yield start, token.pos, None
            start = end
            if not self.turn(name, argument, token.pos) and self.is_kept():
                self.chooser.define(name, argument)
                yield token.pos, end, (name, argument)
        if self.is_kept():
            yield start, length, None

    def turn(self, name, argument, pos):
        """Whether the directive is one of conditionals."""
        if name in _OPENERS:
            surroundings = self.is_kept()
            holds = surroundings and self.chooser.holds(name, argument, pos in self.has_else)
            self.nest.append(_Branch(surroundings, holds))
        elif name in _ELSES and self.nest:
            self.nest[-1].turn(lambda: name == "else" or self.chooser.holds("if", argument, True))
        elif name in _ENDS and self.nest:
            self.nest.pop()
        return name in _OPENERS or name in _ELSES or name in _ENDS


def choose_tokens(tokens, chooser):
    """Those of the tokens that stand in chosen branches, without directives."""
    chooser.start()
    kept = []
    at = 0
    for start, end, directive in _Walk(tokens, chooser).pieces(tokens[-1].pos + 1 if tokens else 0):
        while at < len(tokens) and tokens[at].pos < start:
            at += 1
        while at < len(tokens) and tokens[at].pos < end:
            if directive is None:
                kept.append(tokens[at])
            at += 1
    return kept


def choose_text(text, chooser, nests, included=None):
    """The source with chosen branches only.

    `included` gives the text for the argument of an include directive, or None to leave the directive as it is.
    """
    chooser.start()
    return _chosen(text, chooser, nests, included, 0)


def _chosen(text, chooser, nests, included, depth):
    chosen = []
    for start, end, directive in _Walk(scan(text, nests), chooser).pieces(len(text)):
        inner = None
        if included and depth < 8 and directive and directive[0] in ("i", "include"):
            inner = included(directive[1])
        chosen.append(text[start:end] if inner is None else _chosen(inner, chooser, nests, included, depth + 1))
    return " ".join(chosen)
