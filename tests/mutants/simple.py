"""Simple changes, made by patterns: one in each line that can have one."""

import collections
import pathlib
import re
import sys

import programs
import sources

CHANGES = [
    (r"==", "!="), (r"!=", "=="), (r" < ", " <= "), (r" <= ", " < "), (r" > ", " >= "),
    (r" >= ", " > "), (r" && ", " || "), (r" \|\| ", " && "), (r"\btrue\b", "false"),
    (r"\bfalse\b", "true"), (r" - ", " + "),
    (r"\.trimmed\(\)", ""), (r"\btr\((\"[^\"]*\")\)", r"QString(\1)"),
    (r"(?<![\w.\"])\d+(?![\w.\"])", lambda match: str(int(match[0]) + 1)),
    (r"\"([A-Za-z][^\"\\]*)\"", r'"\1x"'), (r"\bUntrimmed\b", "Trimmed"),
    (r"QMessageBox::No\b", "QMessageBox::Yes"), (r"QMessageBox::Yes\b", "QMessageBox::No"),
]
OF_CONDITIONS = [(r"^!", ""), (r"^(?=[a-z]\w*[.(>-])", "!")]
CONDITION = re.compile(r"^(\s*(?:\} else )?(?:if|while) \()(.+)(\)(?: \{)?)$")
VALUE = re.compile(r"^(\s*(?:return|(?:const )?[\w:<>*&]+(?: const)? \w+ =) )([^{]+)(;)$")
STATEMENT = re.compile(r"^(\s+)((?!return|delete|using|struct|class|case|break|continue|emit$|for\b)"
                       r"[\w>.:-]+(?:\(.*\)|(?:\[.*\])? (?:\+?=|<<) .*|\+\+));$")

Mutant = collections.namedtuple("Mutant", "number path line before after text")


def balanced(code):
    return all(code.count(left) == code.count(right) for left, right in ("()", "[]", "{}"))


def changed(code, changes):
    """All ways of changing an expression or a statement."""
    for pattern, replacement in changes:
        for match in re.finditer(pattern, code):
            new = replacement(match) if callable(replacement) else match.expand(replacement)
            yield code[:match.start()] + new + code[match.end():]


def guarded(line, number, choice):
    """A line with one change behind its number, and the change alone; None where there is none."""
    for form in (CONDITION, VALUE, STATEMENT):
        match = form.match(line)
        if not match or not balanced(line.replace("{", "").replace("}", "")):
            continue
        code = match[2]
        changes = CHANGES + (OF_CONDITIONS if form is CONDITION else [])
        ways = [way for way in changed(code, changes) if way != code]
        if form is STATEMENT:
            way = choice.choice(ways + [""] * (len(ways) + 1))
            return f"{match[1]}if (mutant({number})) {{ {way}; }} else {{ {code}; }}", way or "(left out)"
        if not ways:
            return None
        way = choice.choice(ways)
        return f"{match[1]}mutant({number}) ? ({way}) : ({code}){match[3]}", way
    return None


def place(copy, folders, choice):
    """Puts a change into each line that can have one."""
    mutants = []
    for path in sorted(path for folder in folders for path in (copy / folder).glob("*.cpp")):
        lines = path.read_text().splitlines()
        for index, line in enumerate(lines):
            complete = index == 0 or re.search(r"[;{})]$|^\s*//.*$|^$", lines[index - 1])
            result = complete and guarded(line, len(mutants) + 1, choice)
            if result:
                mutants.append(Mutant(len(mutants) + 1, path, index, line, result[1], result[0]))
    return mutants


def write(mutants, left_out, originals):
    for path, text in originals.items():
        lines = text.splitlines()
        for mutant in mutants:
            if mutant.path == path and mutant.number not in left_out:
                lines[mutant.line] = mutant.text
        sources.write(path, sources.FIRST_LINES + "\n".join(lines) + "\n")


def build(copy, mutants, targets):
    """Builds with all changes but those that do not compile, and returns the others."""
    originals = {mutant.path: mutant.path.read_text() for mutant in mutants}
    offset = sources.FIRST_LINES.count("\n") + 1
    left_out = set()
    while True:
        write(mutants, left_out, originals)
        said = programs.build(copy, targets)
        if said is None:
            return [mutant for mutant in mutants if mutant.number not in left_out]
        wrong = {(pathlib.Path(name).name, int(line))
                 for name, line in re.findall(r"^(\S+?):(\d+):\d+: error", said, re.M)}
        new = {mutant.number for mutant in mutants
               if (mutant.path.name, mutant.line + offset) in wrong} - left_out
        if not new:
            sys.exit(said[-3000:])
        left_out |= new
