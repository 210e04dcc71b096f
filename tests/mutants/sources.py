"""A copy of the project's sources for changes, and which functions a source has."""

import collections
import pathlib
import subprocess

# Told apart by the environment, so that one build has all changes.
FIRST_LINES = """\
#ifndef MUTANT_CHOSEN
#define MUTANT_CHOSEN
#include <cstdlib>
static inline bool mutant(int number)
{
    static const char* const chosen = std::getenv("MUTANT");
    return chosen && std::atoi(chosen) == number;
}
#endif
"""

# The lines of a function's body, counted from 0; "end" is behind the last one. A function on one line has
# that line, and a head that is what comes before its body; the others' head is empty.
Body = collections.namedtuple("Body", "begin end head")


def write(path, text):
    """Writes a file if it has another content: what is the same need not be built again."""
    data = text if isinstance(text, bytes) else text.encode()
    if path.exists() and path.read_bytes() == data:
        return
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(data)


def mirror(root, copy):
    """Makes the copy equal to the working tree, but for what git ignores."""
    def files(*options):
        output = subprocess.run(["git", "-C", root, "ls-files", "-z", *options], check=True,
                                capture_output=True, text=True).stdout
        return {name for name in output.split("\0") if name and (root / name).is_file()}

    names = files("--cached", "--others", "--exclude-standard")
    for name in names:
        write(copy / name, (root / name).read_bytes())
        (copy / name).chmod((root / name).stat().st_mode)
    for path in copy.rglob("*"):
        name = path.relative_to(copy)
        if path.is_file() and name.parts[0] != "build" and str(name) not in names:
            path.unlink()


def bodies(path):
    """The bodies of the functions of a file."""
    output = subprocess.run(["ctags", "-f", "-", "--language-force=C++", "--kinds-C++=f",
                             "--fields=+ne", path], check=True, capture_output=True, text=True).stdout
    lines = path.read_text().splitlines()
    found = []
    for tag in output.splitlines():
        fields = dict(field.split(":", 1) for field in tag.split("\t")[4:] if ":" in field)
        first, last = int(fields["line"]) - 1, int(fields["end"]) - 1
        opening = next((line for line in range(first, last) if lines[line].strip() == "{"), None)
        if opening is not None:
            found.append(Body(opening + 1, last, ""))
        elif first == last and lines[first].endswith("}"):
            found.append(Body(first, last + 1, lines[first][:lines[first].index("{")].strip()))
    # A lambda is in the body of its function.
    return [body for body in found
            if not any(other is not body and other.begin <= body.begin and body.end <= other.end
                       for other in found)]


def inner(body, lines):
    """What is between the braces of a function on one line; None if it has got another head."""
    text = "\n".join(lines).strip()
    if " ".join(text[:text.find("{")].split()) != body.head or not text.endswith("}"):
        return None
    return text[text.index("{") + 1:-1].splitlines()
