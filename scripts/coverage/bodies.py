# SPDX-License-Identifier: MIT
"""The bodies of Pascal code that are measured, and what of them is left alone."""

import os
from typing import NamedTuple


class Body(NamedTuple):
    """A folder of Pascal code."""

    title: str
    package: str  # of Debian
    root: str
    left_out: tuple  # folders whose sources read Pascal themselves, or might; nobody needs to open them


BODIES = (
    Body(
        "fpc-source 3.2.2",
        "fpc-source",
        "/usr/share/fpcsrc/3.2.2",
        ("compiler", "packages/fcl-passrc", "packages/fpindexer", "packages/ide", "packages/pastojs"),
    ),
    Body(
        "lazarus-src 2.2.6",
        "lazarus-src",
        "/usr/lib/lazarus/2.2.6",
        (
            "components/PascalScript",
            "components/codetools",
            "components/compilers",
            "components/debuggerintf",
            "components/fpdebug",
            "components/h2pas",
            "components/instantfpc",
            "components/jcf2",
            "components/jitclasses",
            "components/lazdebuggergdbmi",
            "components/lazdebuggers",
            "components/lazreport",
            "components/macroscript",
            "components/pas2js",
            "components/simpleideintf",
            "components/synedit",
            "components/synunihighlighter",
            "components/todolist",
            "converter",
            "debugger",
            "designer",
            "doceditor",
            "examples/SynEdit",
            "examples/codetools",
            "examples/idequickfix",
            "ide",
            "packager",
            "test/synedit",
        ),
    ),
)
SOURCES = (".pas", ".pp")
INCLUDES = (".inc", ".lrs", *SOURCES)


def files_of(body, endings):
    """The paths of all files of a body whose names end so, in order, without the folders that are left out.

    Each is given once, although links lead to some folders in several ways.
    """
    seen = set()
    paths = []
    for folder, folders, names in os.walk(body.root, followlinks=True):
        below = os.path.relpath(folder, body.root)
        folders[:] = [name for name in folders if os.path.normpath(os.path.join(below, name)) not in body.left_out]
        for name in names:
            path = os.path.join(folder, name)
            if name.lower().endswith(endings) and os.path.isfile(path) and os.path.realpath(path) not in seen:
                seen.add(os.path.realpath(path))
                paths.append(path)
    return sorted(paths)


def short_name(path):
    """The path without the root of its body, behind the name of its package."""
    for body in BODIES:
        if path.startswith(body.root + "/"):
            return body.package + ": " + path[len(body.root) + 1 :]
    return path


def read_source(path):
    """The text of a file, one character a byte, without the mark of UTF-8."""
    with open(path, "rb") as file:
        return file.read().removeprefix(b"\xef\xbb\xbf").decode("latin-1")
