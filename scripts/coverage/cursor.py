# SPDX-License-Identifier: MIT
"""What the rules share: a walk over tokens, and a record of what they find."""


class Finder:
    """Collects the names of rules, each with the place where it is met first."""

    def __init__(self):
        self.places = {}
        self.pos = 0  # where the walk is, as an index into the source from 0

    def __call__(self, name):
        self.at(self.pos, name)

    def at(self, pos, name):
        self.places.setdefault(name, pos)


class Cursor:
    """Tokens by index, with an empty one before the first and behind the last."""

    def __init__(self, tokens):
        self.tokens = tokens

    def text(self, index):
        return self.tokens[index].text if 0 <= index < len(self.tokens) else ""

    def kind(self, index):
        return self.tokens[index].kind if 0 <= index < len(self.tokens) else ""

    def skip_brackets(self, index):
        """The index behind a bracket that opens at the index and all that is in it."""
        depth = 0
        while index < len(self.tokens):
            text = self.tokens[index].text
            if text in ("(", "["):
                depth += 1
            elif text in (")", "]"):
                depth -= 1
                if depth <= 0:
                    return index + 1
            index += 1
        return index
