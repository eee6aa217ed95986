# SPDX-License-Identifier: MIT
"""Rules that need to know where in a declaration they are: what nests in what, and what a heading ends in."""

from .cursor import Cursor

# What may follow a heading in Delphi 5.
_OWN_DIRECTIVES = {
    "abstract", "assembler", "cdecl", "dispid", "dynamic", "export", "external", "far", "forward", "index", "message",
    "name", "near", "overload", "override", "pascal", "register", "reintroduce", "resident", "safecall", "stdcall",
    "virtual",
}  # fmt: skip
_NEWER_DIRECTIVES = {
    "alias", "basereg", "compilerproc", "cppdecl", "cvar", "enumerator", "far16", "final", "hardfloat", "inline",
    "internconst", "internproc", "interrupt", "iocheck", "is", "local", "ms_abi_cdecl", "ms_abi_default", "mwpascal",
    "noreturn", "nostackframe", "oldfpccall", "popstack", "public", "saveregisters", "section", "softfloat", "static",
    "stackalloc", "syscall", "sysv_abi_cdecl", "sysv_abi_default", "varargs", "vectorcall", "weakexternal", "winapi",
    "zerobased", "delayed", "async",
}  # fmt: skip
HINTS = {"deprecated", "experimental", "library", "platform", "unimplemented"}
_ROUTINES = {"procedure", "function", "constructor", "destructor"}
_VISIBILITY = {"private", "protected", "public", "published", "automated"}
_SECTIONS = {"const", "type", "var", "threadvar", "resourcestring", "label"}


class Declarations:
    """Walks over declarations and keeps what they nest in: records, classes, blocks."""

    def __init__(self, tokens, found):
        self.cursor = Cursor(tokens)
        self.found = found
        self.frames = []
        self.section = ""

    def walk(self):
        index = 0
        while index < len(self.cursor.tokens):
            index = self.step(index)

    def step(self, index):
        token = self.cursor.tokens[index]
        if token.kind == "sign":
            if token.text == "(":
                self.enumeration(index)
                if not self.in_block() and self.cursor.text(index - 1) not in ("=", "of", ":"):
                    return self.cursor.skip_brackets(index)
            elif token.text == "[" and not self.in_block():  # the parameters of a property, bounds of an array
                return self.cursor.skip_brackets(index)
            return index + 1
        if token.kind != "word" or self.cursor.text(index - 1) in (".", "&"):
            return index + 1
        self.found.pos = token.pos
        text = token.text
        if text in ("begin", "try") or text == "case" and self.in_block():
            self.frames.append("block")
        elif text == "asm":
            self.frames.append("block")
        elif text == "end":
            if self.frames:
                self.frames.pop()
        elif text == "record":
            self.frames.append("record")
        elif text in ("class", "object", "interface", "dispinterface"):
            return self.structure(index)
        elif text in ("implementation", "initialization", "finalization"):
            self.frames.clear()
            self.section = ""
        elif self.in_block():
            pass
        elif text in _SECTIONS:
            self.section_start(index)
        elif text in _ROUTINES:
            return self.routine(index)
        elif text == "property":
            if not self.frames:
                self.found("properties of units")
            elif self.frames[-1] == "record":
                self.found("records with methods")
        elif text in _VISIBILITY and self.frames:
            if self.frames[-1] == "record" and self.cursor.text(index + 1) not in (":", ","):
                self.found("records with methods")
        elif text in HINTS and self.in_structure():
            if self.cursor.text(index - 1) == ";" and self.cursor.text(index + 1) == ";":
                self.found("hint directives")
        elif text in ("cvar", "external", "public", "export", "section"):
            if self.section in ("var", "threadvar", "const") and not self.frames and self.cursor.text(index - 1) == ";":
                if self.cursor.text(index + 1) in (";", "name") or self.cursor.kind(index + 1) != "sign":
                    self.found("variables of other modules")
        return index + 1

    def in_block(self):
        return bool(self.frames) and self.frames[-1] == "block"

    def in_structure(self):
        return bool(self.frames) and self.frames[-1] == "structure"

    def structure(self, index):
        """A class, object or interface, at its word. Forward declarations and references open nothing."""
        before = self.cursor.text(index - 1)
        text = self.cursor.text(index)
        if before in ("packed", "bitpacked"):
            before = self.cursor.text(index - 2)
        if before != "=" and not (text == "object" and before == ":"):
            if text == "interface" and before != "=":
                self.frames.clear()
            return index + 1
        behind = index + 1
        while self.cursor.text(behind) in ("sealed", "abstract", "external"):
            behind += 1
        if self.cursor.text(behind) in (";", "of"):
            return behind
        if self.cursor.text(behind) == "(":
            behind = self.cursor.skip_brackets(behind)
            if self.cursor.text(behind) == ";":
                return behind
        if self.in_structure():
            self.found("types inside of classes")
        self.frames.append("structure")
        if self.cursor.text(behind) == "[":
            return self.cursor.skip_brackets(behind)
        return behind

    def section_start(self, index):
        text = self.cursor.text(index)
        if self.cursor.text(index - 1) in ("of", "("):  # array of const
            return
        if self.frames and text in ("const", "type", "var", "threadvar"):
            if self.cursor.text(index - 1) not in ("=", ":"):
                self.found("types inside of classes" if self.in_structure() else "records with methods")
        self.section = text

    def enumeration(self, index):
        """Values given to the elements of an enumeration, at the bracket that may open one."""
        before = self.cursor.text(index - 1)
        if not (before == ":" or before == "of" or before == "=" and self.section == "type") or self.in_block():
            return
        at = index + 1
        while self.cursor.kind(at) == "word":
            if self.cursor.text(at + 1) in ("=", ":="):
                self.found("enumerations with values")
                return
            if self.cursor.text(at + 1) != ",":
                return
            at += 2

    def routine(self, index):
        """The heading of a routine, at its word, or the type of one."""
        is_type = self.cursor.text(index - 1) in ("=", ":", "of", "to")
        if not is_type and self.frames and self.frames[-1] == "record":
            self.found("records with methods")
        at = index + 1
        if not is_type:
            self.section = "" if not self.frames else self.section
            if self.cursor.kind(at) != "word":
                return at
            at += 1
            while self.cursor.text(at) == ".":
                at += 2
            if self.cursor.text(at) == "=":  # the body of an interface's method is another method
                return at
        if self.cursor.text(at) == "(":
            end = self.cursor.skip_brackets(at)
            self.parameters(at, end)
            at = end
        if self.cursor.kind(at) == "word" and self.cursor.text(at + 1) == ":":  # the result's name
            at += 1
        if self.cursor.text(at) == ":":
            at += 2
            while self.cursor.text(at) == ".":
                at += 2
        if self.cursor.text(at) == "of" and self.cursor.text(at + 1) == "object":
            at += 2
        return self.directives(at, is_type)

    def parameters(self, start, end):
        for at in range(start + 1, end):
            if self.cursor.text(at) == "of" and self.cursor.text(at - 1) == "]":
                self.found("parameters of array types with bounds")

    def is_name(self, index):
        """Whether what follows a word tells that it is declared there, or called, and no directive."""
        text, behind = self.cursor.text(index), self.cursor.text(index + 1)
        if behind == ":":
            return text != "alias" or self.cursor.kind(index + 2) != "string"
        return behind in (",", "=", ".") or behind == "(" and text != "message"

    def directives(self, at, is_type):
        while at < len(self.cursor.tokens):
            behind = at + 1 if self.cursor.text(at) == ";" else at
            text = self.cursor.text(behind)
            if text == "[" and self.cursor.text(behind - 1) == ";":
                self.found("directives in brackets")
                at = self.cursor.skip_brackets(behind)
                continue
            if self.is_name(behind):
                return at
            if text in HINTS and not (text == "library" and is_type):
                self.found("hint directives")
            elif text in _NEWER_DIRECTIVES:
                if text in _VISIBILITY and (self.frames or self.cursor.text(behind + 1) not in (";", "name")):
                    return at
                if text == "cvar" or text == "inline" and self.cursor.text(behind + 1) == "(":
                    return at
                self.found("directives of routines: " + text)
            elif text == "external" and is_type:
                self.found("variables of other modules")
            elif text not in _OWN_DIRECTIVES:
                return at
            at = behind + 1
            while at < len(self.cursor.tokens) and self.cursor.text(at) != ";":
                if self.cursor.text(at) in _OWN_DIRECTIVES or self.cursor.text(at) in _NEWER_DIRECTIVES:
                    break
                if self.cursor.text(at) in ("begin", "end", "implementation") or self.cursor.text(at) in _SECTIONS:
                    return at
                at += 1
        return at
