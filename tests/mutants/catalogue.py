"""The catalogue of changes: reads the tables, and puts their changes into a copy of the sources."""

import collections
import dataclasses

import sources

# Lines that are exchanged from line "begin" of a file on, counted from 0.
Place = collections.namedtuple("Place", "path begin old new")


@dataclasses.dataclass
class Change:
    number: int
    table: str
    promise: str
    reason: str = ""
    hunks: list = dataclasses.field(default_factory=list)
    places: list = dataclasses.field(default_factory=list)

    @property
    def text(self):
        return "\n".join(f"{path}\n" + "\n".join(lines) for path, lines in self.hunks)


class CatalogueError(Exception):
    """A table cannot be used; the text names the change."""


def read(tables):
    """The changes of some tables, numbered from 1. A hunk is a path and lines that begin as in a diff."""
    changes = []
    for table in tables:
        heading = False
        for line in table.read_text().splitlines():
            if line.startswith("# ") and heading:
                changes[-1].promise += " " + line[2:]
            elif line.startswith("# "):
                changes.append(Change(len(changes) + 1, table.stem, line[2:]))
            elif line.startswith("= ") and changes:
                changes[-1].reason = (changes[-1].reason + " " + line[2:]).strip()
            elif line[:1] in ("-", "+", " ", "") and changes and changes[-1].hunks:
                changes[-1].hunks[-1][1].append(line or " ")
            elif line and changes:
                changes[-1].hunks.append((line, []))
            elif line:
                raise CatalogueError(f"{table}: \"{line}\" is before the first promise")
            heading = line.startswith("# ")
    for change in changes:
        for _, lines in change.hunks:
            while lines and lines[-1] == " ":
                lines.pop()
    return changes


def locate(changes, root):
    """Finds the places of all changes."""
    wrong = []
    for change in changes:
        try:
            change.places = [place(root, path, lines) for path, lines in change.hunks]
            if not change.places:
                raise CatalogueError("it exchanges nothing")
        except (CatalogueError, OSError) as error:
            wrong.append(f"{change.table}, \"{change.promise}\": {error}")
    if wrong:
        raise CatalogueError("\n".join(wrong))


def place(root, path, hunk):
    """Where the old lines of a hunk are, without the lines that stay."""
    text = (root / path).read_text().splitlines()
    old = [line[1:] for line in hunk if line[0] in "- "]
    new = [line[1:] for line in hunk if line[0] in "+ "]
    if not old or old == new:
        raise CatalogueError(f"a hunk for {path} exchanges nothing")

    found = [line for line in range(len(text) - len(old) + 1) if text[line:line + len(old)] == old]
    if len(found) != 1:
        raise CatalogueError(f"the old lines are {len(found)} times in {path}, not once:\n"
                             + "\n".join(old))

    begin = found[0]
    while old and new and old[0] == new[0]:
        old, new, begin = old[1:], new[1:], begin + 1
    while old and new and old[-1] == new[-1]:
        old, new = old[:-1], new[:-1]
    return Place(path, begin, old, new)


def exchanged(lines, places, offset=0):
    """Lines of a file, of which the first is line "offset", with the changes at some places."""
    lines = list(lines)
    for spot in sorted(places, key=lambda spot: spot.begin, reverse=True):
        begin = spot.begin - offset
        lines[begin:begin + len(spot.old)] = spot.new
    return lines


class Guarded:
    """The sources with all changes in them that are within the bodies of functions."""

    def __init__(self, changes, root):
        self.original = {}
        self.texts = {}
        # For each file, the numbers of changes by the lines that they have in the changed file.
        self.lines = {}
        # Changes that are built on their own.
        self.alone = []
        within = collections.defaultdict(lambda: collections.defaultdict(list))
        bodies = {}
        for change in changes:
            for path in {spot.path for spot in change.places}:
                if path not in bodies:
                    self.original[path] = (root / path).read_text()
                    bodies[path] = sources.bodies(root / path)
            homes = [self._home(spot, bodies[spot.path]) for spot in change.places]
            if None in homes:
                self.alone.append(change)
                continue
            for spot, body in zip(change.places, homes):
                within[spot.path][body].append((change.number, spot))
        for path, original in self.original.items():
            self._guard(path, original.splitlines(), within[path])

    @staticmethod
    def _home(spot, bodies):
        """The body that a place is in; None if it is in none, or in more than that."""
        body = next((body for body in bodies
                     if body.begin <= spot.begin and spot.begin + len(spot.old) <= body.end), None)
        if body and body.head and sources.inner(body, spot.new) is None:
            return None
        return body

    def _guard(self, path, original, changed_bodies):
        """Makes of each body a choice of bodies: those of the changes, and the original."""
        result = sources.FIRST_LINES.splitlines() if changed_bodies else []
        self.lines[path] = {}
        done = 0
        for body in sorted(changed_bodies):
            lines = original[body.begin:body.end]
            result += original[done:body.begin]
            result += [body.head + " {"] if body.head else []
            for number in sorted({number for number, _ in changed_bodies[body]}):
                places = [spot for other, spot in changed_bodies[body] if other == number]
                result.append(f"if (mutant({number})) {{")
                for line in self._inside(body, exchanged(lines, places, body.begin)):
                    result.append(line)
                    self.lines[path][len(result)] = number
                result.append("} else")
            result += ["{", *self._inside(body, lines), "}"]
            result += ["}"] if body.head else []
            done = body.end
        self.texts[path] = "\n".join(result + original[done:]) + "\n"

    @staticmethod
    def _inside(body, lines):
        return sources.inner(body, lines) if body.head else lines

    def with_alone(self, change):
        """The texts of the files of a change that is built on its own."""
        return {path: "\n".join(exchanged(self.original[path].splitlines(),
                                          [spot for spot in change.places if spot.path == path])) + "\n"
                for path in {spot.path for spot in change.places}}
