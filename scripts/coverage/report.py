# SPDX-License-Identifier: MIT
"""Writes the document on how much real code the parser takes."""

from collections import Counter

from .bodies import BODIES, read_source, short_name
from .by_hand import BY_HAND, SAID_OF
from .causes import INTENDED, UNEXPLAINED

HEAD = """# How much real code the parser takes

What `scripts/parser-coverage` printed; do not edit, run it again:

    cmake --preset release && cmake --build --preset release --target quorvane
    scripts/parser-coverage > docs/parser-coverage.md

It needs Python 3.9 or newer and nothing beside its standard library, and the Debian packages {packages}.
It ends with exit code 1 if a report is unexplained. `scripts/parser-coverage --why FILE` tells of one file which rules
leave it out, or what is reported and why.

Measured is every `.pas` and `.pp` file of these packages that uses no syntax newer than Delphi 5, by asking
`quorvane messages --decode` for what the outline parser reports on it. Some folders are left out as a whole, because
what is in them reads Pascal itself or might; nobody needs to have seen the like to work on this parser. The tests of
what is newer read the files with a scanner of their own (`scripts/coverage/pascal_tokens.py`), which shares nothing
with the lexer that is measured."""


class Figures:
    """What was found in all files."""

    def __init__(self, results):
        self.all = results
        self.newer = [result for result in results if result.newer]
        self.plain = [result for result in results if not result.newer]
        self.reported = [result for result in self.plain if result.reports]

    def unexplained(self):
        return [result for result in self.reported if UNEXPLAINED in result.causes]


def _cell(text):
    return "".join(c if " " <= c <= "~" else "?" for c in text).replace("|", "\\|")


def _table(heads, rows):
    yield "| " + " | ".join(heads) + " |"
    yield "|" + "|".join("---:" if head[0].islower() else "---" for head in heads) + "|"
    for row in rows:
        yield "| " + " | ".join(str(cell) for cell in row) + " |"


def _share(part, whole):
    return f"{100 * part / whole:.2f} %" if whole else "-"


def _place(result, line):
    return f"`{_cell(short_name(result.path))}:{line}`"


def _counts(figures):
    yield "\n## Counts\n"
    rows = []
    for title, root in [*((body.title, body.root + "/") for body in BODIES), ("**both**", "/")]:
        mine = [result for result in figures.all if result.path.startswith(root)]
        plain = [result for result in mine if not result.newer]
        clean = [result for result in plain if not result.reports]
        rows.append(
            (
                title,
                len(mine),
                len(mine) - len(plain),
                len(plain),
                len(clean),
                _share(len(clean), len(plain)),
                len(plain) - len(clean),
                sum(len(result.reports) for result in plain),
            )
        )
    heads = ("Body", "files", "newer syntax", "measured", "without a report", "share", "with reports", "reports")
    yield from _table(heads, rows)
    yield f"\nReports that are the grammar's own fault, or of unknown cause: **{len(figures.unexplained())}** files."


def _left_out():
    yield "\n## Folders that are left out\n"
    for body in BODIES:
        yield f"- {body.title}: " + ", ".join(f"`{folder}`" for folder in body.left_out) + "."


def _rules(figures):
    yield "\n## What is newer than Delphi 5\n"
    yield (
        "A file is out of the measure if one of these is found in it, in any branch of its conditionals. Some of it\n"
        "is not newer but belongs to other compilers. The rules start in `scripts/coverage/newer_syntax.py`.\n"
    )
    found = Counter(name for result in figures.newer for name in result.newer)
    alone = Counter(next(iter(result.newer)) for result in figures.newer if len(result.newer) == 1)
    example = {}
    for result in figures.newer:
        for name, line in result.newer.items():
            example.setdefault(name, _place(result, line))
    ordered = sorted(found.items(), key=lambda entry: (-entry[1], entry[0]))
    rows = [(name, count, alone[name], example[name]) for name, count in ordered]
    yield from _table(("Rule", "files", "by this rule alone", "Example"), rows)


def _said(cause):
    return INTENDED.get(cause) or SAID_OF.get(cause, "The grammar's own fault, or of unknown cause.")


def _causes(figures):
    yield "\n## Reports by cause\n"
    yield (
        "A cause is shown, not guessed: the script changes the source in the one respect that the cause names, and\n"
        "the parser then has nothing to report. What no such change explains was looked at, and stands with what is\n"
        "wrong in `scripts/coverage/by_hand.py`. A report is often followed by others that it drags along, since the\n"
        "walk goes on at the next semicolon; they count to its cause. A file with two causes counts for both.\n"
    )
    files = Counter(cause for result in figures.reported for cause in result.causes)
    reports = Counter()
    example = {}
    for result in figures.reported:
        for cause in result.causes:
            reports[cause] += len(result.reports)
            first = result.reports[0]
            example.setdefault(cause, f"{_place(result, first.y + 1)} {_cell(first.msg)}")
    rows = [
        (cause, count, reports[cause], _said(cause), example[cause])
        for cause, count in sorted(files.items(), key=lambda found: (-found[1], found[0]))
    ]
    yield from _table(("Cause", "files", "reports in them", "What it is", "Example"), rows)


def _every_file(figures):
    yield "\n## Every file with reports\n"
    rows = []
    for result in figures.reported:
        first = result.reports[0]
        causes = "; ".join(result.causes)
        if short_name(result.path) in BY_HAND and BY_HAND[short_name(result.path)].cause in result.causes:
            causes += ": " + BY_HAND[short_name(result.path)].said
        rows.append((_place(result, first.y + 1), _cell(first.msg), len(result.reports) - 1, causes))
    yield from _table(("First report", "Message", "further reports", "Cause"), rows)


def document(results):
    """The lines of the document."""
    figures = Figures(results)
    yield HEAD.format(packages=" and ".join(f"`{body.package}`" for body in BODIES))
    yield from _counts(figures)
    yield from _left_out()
    yield from _rules(figures)
    yield from _causes(figures)
    yield from _every_file(figures)


def line_of(path, pos):
    """The line (from 1) of an index into a source."""
    return read_source(path).count("\n", 0, pos) + 1
