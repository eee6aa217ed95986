# SPDX-License-Identifier: MIT
"""Files whose reports no change in one respect takes away, with what stands at the first report.

Each was looked at. All of them are faults in the source, so that no compiler of Pascal would take it.
"""

from typing import NamedTuple


class Finding(NamedTuple):
    cause: str
    said: str


_WRONG = "a fault in the source"


def _wrong(said):
    return Finding(_WRONG, said)


BY_HAND = {
    "fpc-source: packages/fppkg/tests/packages/base/brokenpackage/fpmake.pp": _wrong(
        "made so: an English sentence in the program"
    ),
    "fpc-source: packages/fv/src/colorsel.pas": _wrong("a brace closes a comment that is closed already"),
    "fpc-source: packages/fv/src/resource.pas": _wrong("letters without sense in front of the word unit"),
    "fpc-source: packages/opengles/examples/glutdemoes.pp": _wrong("a program that ends without its begin"),
    "fpc-source: packages/os2units/src/wpstk.pp": _wrong("declarations in C"),
    "fpc-source: packages/pasjpeg/examples/wrjpgcom.pas": _wrong(
        "if followed by do, and a quote in a string that is not doubled"
    ),
    "fpc-source: packages/pasjpeg/src/jidct2d.pas": _wrong("a begin without its end, whatever branches are taken"),
    "fpc-source: packages/pasjpeg/src/jmemsys.pas": _wrong("the word EXTERN of C in front of headings"),
    "fpc-source: packages/xforms/examples/canvas.pp": _wrong("the return statement of C"),
    "fpc-source: packages/xforms/examples/pup.pp": _wrong("the word procedure misspelt"),
    "lazarus-src: components/printers/unix/udlgprintersjobs.pp": _wrong("a uses clause that ends in a comma"),
    "lazarus-src: lcl/templates/template.pp": _wrong("a template with question marks for its name"),
    "lazarus-src: tools/install/freebsd_ports/files/patch-components-printers-unix_udlgselectprinter.pp": _wrong(
        "a patch"
    ),
    "lazarus-src: tools/install/win/innoscript/secondary.pas": _wrong("a semicolon is missing"),
}
SAID_OF = {_WRONG: "Text of another language, words that never were Pascal, or slips that no compiler takes."}
