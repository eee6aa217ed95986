# SPDX-License-Identifier: MIT
"""The unit that a driven session works on, and what its text has to be after each step."""

import json
import re
import shutil
import subprocess

REAL = "/usr/share/fpcsrc/3.2.2/packages/fv/src/views.pas"
ROUTINES = 350


def generated():
    """A unit of the same make, for machines without real code."""
    lines = ["unit views;", "", "interface", "", "uses", "  Objects, Drivers;", "", "type"]
    for number in range(20):
        lines += [f"  TThing{number:02} = class", "    procedure Draw;", "  end;", ""]
    lines += ["implementation", "", "uses", "  Video;", ""]
    for number in range(ROUTINES):
        lines += [f"procedure Routine{number:03}(State: Integer);", "var", "  Line: Integer;", "begin"]
        lines += [f"  Line := State + {number};", "  if (State > 0) and (Line < 100) then", "    Line := 0;", "end;", ""]
        lines += ["{ " + "-" * 60 + " }"] * 4 + [""]
    return "\n".join([*lines, "end.", ""])


class Source:
    """A unit in a folder of its own, with one of the units that it uses beside it."""

    def __init__(self, folder, quorvane):
        folder.mkdir()
        self.path = folder / "views.pas"
        try:
            shutil.copyfile(REAL, self.path)
        except FileNotFoundError:
            self.path.write_text(generated())
        self.saved = self.path.read_bytes()
        self.lines = self.saved.decode("latin-1").split("\n")
        outline = subprocess.run([quorvane, "outline", "--json", self.path], capture_output=True, text=True, check=True)
        self.outline = json.loads(outline.stdout)
        self.unit_index = 1
        self.unit_name = self.outline["interfaceUses"][self.unit_index]
        (folder / f"{self.unit_name}.pas").write_text(f"unit {self.unit_name};\ninterface\nimplementation\nend.\n")
        self.statement = self.find_statement()
        self.routine = len(self.outline["methods"]) // 2

    @property
    def text(self):
        return "\n".join(self.lines)

    def bytes(self):
        return self.text.encode("latin-1")

    def find_statement(self):
        """The line, from 1, of a conditional statement that stands where any other could stand."""
        for number in range(len(self.lines) // 2, len(self.lines)):
            line, above = self.lines[number], self.lines[number - 1]
            if re.fullmatch(r" +if [^{}]+ then", line) and re.search(r"(;|begin)$", above):
                return number + 1
        raise ValueError("the unit has no such statement")

    def typed_class(self):
        """A class and its line, from 0, whose name goes nowhere else on the way to its last letter."""
        names = [name.lower() for name, _ in self.outline["classes"]]

        def is_first(name):
            return not any(other != name and name.startswith(other) for other in names)

        return next(row for row in self.outline["classes"][10:] if is_first(row[0].lower()))

    def insert(self, line, lines):
        """Puts `lines` in front of a line, from 1; the statement keeps its number when that is behind it."""
        self.lines[line - 1 : line - 1] = lines
        if line <= self.statement:
            self.statement += len(lines)

    def difference(self):
        """The first line in which the file is not as it should be."""
        found = self.path.read_bytes().decode("latin-1").split("\n")
        for number, (line, expected) in enumerate(zip(found, self.lines), 1):
            if line != expected:
                return f"line {number} of the file is {line!r}, not {expected!r}"
        return f"the file has {len(found)} lines, not {len(self.lines)}"
