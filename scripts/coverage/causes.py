# SPDX-License-Identifier: MIT
"""Finds why the parser reports something in a file that uses no newer syntax.

A cause is not guessed from the message but shown: the source is changed in the one respect that the cause names, and
then the parser, asked again, has nothing to report. What no such change explains must stand in by_hand, with what a
reader found at the place; what is not there either is unexplained, and counts as a fault of the grammar.
"""

import json
import os
import re
import subprocess
from collections import defaultdict
from typing import NamedTuple

from .bodies import BODIES, INCLUDES, files_of, read_source, short_name
from .by_hand import BY_HAND
from .conditionals import FirstBranches, LastBranches, Symbols, choose_text, words_of
from .newer_syntax import newer_syntax, nests_comments
from .pascal_tokens import scan

UNEXPLAINED = "unexplained"
BRANCH = "another branch of a conditional is needed"
NESTED = "a conditional nested in a skipped else branch"
INCLUDED = "text that stands in an included file"
INCLUDED_NEWER = "text that stands in an included file, which uses newer syntax"
EMPTY = "no text but directives and comments"

# What is said of each cause in the document.
INTENDED = {
    BRANCH: "The first branch of every conditional is taken, whatever is defined. With the branches of another choice "
    "the file is without a report.",
    NESTED: "The end of a skip is not matched to its beginning: inside a skipped else branch, the first else or end of "
    "an inner conditional ends it. With inner conditionals matched, the file is without a report.",
    INCLUDED: "Include directives are passed over. With the included text in place, the file is without a report.",
    INCLUDED_NEWER: "Include directives are passed over. The first report is right behind one; with the included text "
    "in place the file would be out of the measure.",
    EMPTY: "A file for inclusion that holds nothing outside of conditionals that another file decides, or nothing at "
    "all. An empty text ends in an error.",
}


class Report(NamedTuple):
    """A report of the parser; column and line from 0."""

    msg: str
    x: int
    y: int


class Parser:
    """The parser that is measured, as the command line offers it."""

    def __init__(self, quorvane):
        self.quorvane = quorvane

    def reports_on_file(self, path):
        """What is reported on a file as an editor serves it."""
        return self._run([path, "--decode"], b"")

    def reports_on(self, text):
        return self._run(["-"], text.encode("latin-1"))

    def _run(self, arguments, given):
        done = subprocess.run([self.quorvane, "messages", *arguments], input=given, capture_output=True, check=True)
        lines = (json.loads(line) for line in done.stdout.decode("utf-8", "replace").splitlines())
        return [Report(line["msg"], line["x"], line["y"]) for line in lines]


_CHOICES = {
    NESTED: (FirstBranches(),),
    BRANCH: (
        Symbols("fpc unix linux cpux86_64 cpuamd64 cpu64 endian_little hasunix ver3 ver3_2 lcl lclgtk2".split()),
        Symbols("fpc windows win32 mswindows cpui386 cpu86 cpu32 endian_little ver3 ver3_2 lcl lclwin32".split()),
        Symbols("ver130 win32 cpu386".split()),
        Symbols("fpc go32v2 msdos cpui386 cpu86 ver3 ver3_2".split()),
        Symbols("fpc darwin unix bsd cpux86_64 cpu64 ver3 ver3_2 lcl lclcarbon".split()),
        Symbols("fpc os2 cpui386 ver3 ver3_2".split()),
        Symbols("fpc embedded cpuarm cpu32 ver3 ver3_2".split()),
        Symbols(()),
        LastBranches(False),
        LastBranches(True),
    ),
}

_DIRECTIVE = r"(?:cdecl|dynamic|export|far|near|overload|pascal|register|safecall|stdcall)"

# Limits of the grammar that are kept on purpose: what is said of each, and a change that avoids it.
_LIMITS = {
    "forward behind another directive": (
        "`far; forward;`: the word forward is taken only right behind the heading of a routine with a body.",
        lambda text: re.sub(_DIRECTIVE + r"\s*;\s*(?=forward\s*;)", "", text, flags=re.I),
    ),
    "a directive behind assembler": (
        "`assembler; register;`: the body follows the word assembler at once.",
        lambda text: re.sub(r"\bassembler(\s*;\s*)(" + _DIRECTIVE + r")\b", r"\2\1assembler", text, flags=re.I),
    ),
    "the word deprecated as a name": (
        "The outline parser swallows the word and demands a semicolon behind it, whatever it stands for.",
        lambda text: re.sub(r"\bdeprecated\b", "deprecate_", text, flags=re.I),
    ),
    "a directive of several lines": (
        "A directive that is not closed on its line ends with the line, as everywhere in the lexer.",
        lambda text: re.sub(r"\{\$[^}\r\n]*[\r\n][^}]*\}", "", text),
    ),
    "a NUL in the text": (
        "The text ends at the first NUL.",
        lambda text: text.replace("\0", " "),
    ),
}
INTENDED.update((name, said) for name, (said, _) in _LIMITS.items())


class Included:
    """Finds included files by name, near the file that includes them first."""

    MOST = 4_000_000  # characters in all

    def __init__(self):
        self.paths = defaultdict(list)
        for body in BODIES:
            for path in files_of(body, INCLUDES):
                self.paths[os.path.basename(path).lower()].append(path)

    def for_file(self, path):
        """A function from the argument of an include directive to the text, or None if it is not found."""
        left = self.MOST

        def text_of(argument):
            nonlocal left
            if argument.startswith("%"):
                return " '' "
            name = argument.strip("'\" ").replace("\\", "/").rsplit("/", maxsplit=1)[-1]
            for candidate in (name, name + ".inc", name + ".pp", name + ".pas"):
                found = [near for near in self.paths.get(candidate, ()) if near != path]
                if found:
                    text = read_source(max(found, key=lambda near: len(os.path.commonprefix([near, path]))))
                    left -= len(text)
                    return text if left > 0 else None
            return None

        return text_of


def causes_of(path, parser, included):
    """The names of the causes that together explain all reports on a file."""
    text = read_source(path)
    by_limits = _limits_in(text, parser)
    if by_limits is not None:
        return by_limits
    nests = nests_comments(text)
    for texts in (None, included.for_file(path)):
        for cause, choosers in _CHOICES.items():
            for chooser in choosers:
                chosen = choose_text(text, chooser, nests, texts)
                by_limits = _limits_in(chosen, parser)
                if by_limits is not None:
                    return [INCLUDED if texts else cause, *by_limits]
    if short_name(path) in BY_HAND:
        return [BY_HAND[short_name(path)].cause]
    return [_cause_without_text(text, path, nests, parser, included)]


def _limits_in(text, parser):
    """The limits that explain all reports on a text; none if there are no reports, None if they do not explain all."""
    if not parser.reports_on(text):
        return []
    changed = text
    met = []
    for name, (_, avoid) in _LIMITS.items():
        avoided = avoid(changed)
        if avoided != changed:
            met.append(name)
            changed = avoided
    if not met or parser.reports_on(changed):
        return None
    for name in list(met):  # only those without which there are reports
        others = text
        for other in met:
            if other != name:
                others = _LIMITS[other][1](others)
        if len(met) > 1 and not parser.reports_on(others):
            met.remove(name)
    return met


def _cause_without_text(text, path, nests, parser, included):
    """The cause where text is missing that is not to be had, or that is out of the measure."""
    texts = included.for_file(path)
    first = choose_text(text, FirstBranches(), nests, texts)
    if all(token.kind == "directive" for token in scan(first, nests)):
        return EMPTY
    reports = parser.reports_on(text)
    if reports and _stands_behind_include(text, reports[0], nests):
        for chooser in (FirstBranches(), *_CHOICES[BRANCH]):
            if newer_syntax(choose_text(text, chooser, nests, included.for_file(path))):
                return INCLUDED_NEWER
    return UNEXPLAINED


def _stands_behind_include(text, report, nests):
    """Whether nothing but directives stands between an include directive and the token of a report."""
    pos = sum(len(line) + 1 for line in text.split("\n")[: report.y]) + report.x
    for token in reversed(scan(text, nests)):
        if token.pos < pos:
            if token.kind != "directive":
                return False
            if words_of(token.text)[0] in ("i", "include"):
                return True
    return False
