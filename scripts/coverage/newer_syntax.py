# SPDX-License-Identifier: MIT
"""Tells what in a source is newer than Delphi 5, or belongs to another Pascal.

Every rule has a name, and finds its feature in the tokens of the source: never in a comment, a string or a name that
only looks like it. Rules that need to know where in a declaration they are look at the source twice: with the first
branches of all conditionals, and with the last, since both at once make no sense.
"""

import re

from .conditionals import FirstBranches, LastBranches, choose_tokens, words_of
from .cursor import Finder
from .declaration_rules import Declarations
from .pascal_tokens import scan, without_assembler
from .token_rules import check_tokens

_MODE = re.compile(r"\{\$mode\s+(\w+)", re.IGNORECASE)
_DELPHI_MODES = {"delphi", "delphiunicode", "tp"}


def _check_directives(tokens, found):
    for token in tokens:
        if token.kind != "directive":
            continue
        name, argument = words_of(token.text)
        found.pos = token.pos
        if name == "mode" and argument.startswith("macpas") or name in ("ifc", "setc", "elsec", "endc", "errorc"):
            found("Mac-style directives")
        elif name == "macro" and argument.startswith("on") or name == "define" and ":=" in argument:
            found("macros")
        elif name in ("elseif", "elifdef", "elifndef", "ifend"):
            found("$ELSEIF or $IFEND")
        elif name == "modeswitch" and "prefixedattributes" in argument:
            found("attributes")


def _read(text):
    """The tokens of a source, and the index of each comment that holds another.

    Only one compiler lets comments nest, in modes that are not those of Delphi. Where one would then never end, they
    were not meant to.
    """
    found = _MODE.search(text)
    if found and found.group(1).lower() in _DELPHI_MODES:
        return scan(text), []
    nested = []
    tokens = scan(text, True, lambda pos, is_closed: nested.append((pos, is_closed)))
    if all(is_closed for _, is_closed in nested):
        return tokens, [pos for pos, _ in nested]
    return scan(text), []


def nests_comments(text):
    """Whether there are comments inside of comments."""
    return bool(_read(text)[1])


def newer_syntax(text):
    """The names of the rules that a source breaks, each with the index (from 0) at which. Empty for plain Delphi 5."""
    found = Finder()
    tokens, nested = _read(text)
    for pos in nested:
        found.at(pos, "comments inside of comments")
    _check_directives(tokens, found)
    check_tokens(without_assembler([token for token in tokens if token.kind != "directive"]), found)
    for chooser in (FirstBranches(), LastBranches(True)):
        Declarations(without_assembler(choose_tokens(tokens, chooser)), found).walk()
    return found.places
