"""What bash 3.2, which is the Mac's to this day, does not know of what later versions do.

A line is looked at without its comment and what stands in single quotes. That is enough for scripts
as they are written here, and no parser of the language."""

import re

# What it is, what replaces it, and how it looks.
NEWER = (
    ("associative array", re.compile(r"\b(?:declare|local|typeset|readonly)\s+-\w*A")),
    ("reference to a name", re.compile(r"\b(?:declare|local|typeset)\s+-\w*n")),
    ("global declaration", re.compile(r"\bdeclare\s+-\w*g")),
    ("mapfile", re.compile(r"\b(?:mapfile|readarray)\b")),
    ("coproc", re.compile(r"\bcoproc\b")),
    ("change of letter case", re.compile(r"\$\{\w+(?:\[[^]]*\])?(?:\^|,)")),
    ("transformation", re.compile(r"\$\{[\w@*!]+(?:\[[^]]*\])?@\w\}")),
    ("index from the end", re.compile(r"\w\[-\d+\]")),
    ("&>> or |&", re.compile(r"&>>|\|&")),
    (";& or ;;&", re.compile(r";;?&")),
    ("-v in a test", re.compile(r"\[\[?\s+(?:!\s+)?-v\s|\btest\s+(?:!\s+)?-v\s")),
    ("time in printf", re.compile(r"%(?:\d+)?\([^)]*\)T")),
    ("wait -n", re.compile(r"\bwait\s+-\w*[nfp]")),
    ("variable for a descriptor", re.compile(r"(?:^|\s)\{\w+\}[<>]")),
    ("newer variable", re.compile(r"\b(?:BASHPID|EPOCHSECONDS|EPOCHREALTIME|SRANDOM)\b")),
    ("newer option", re.compile(r"\bshopt\b.*\b(?:globstar|lastpipe|inherit_errexit"
                                r"|assoc_expand_once|autocd|localvar_inherit)\b")),
    ("local -", re.compile(r"\blocal\s+-(?:\s|$)")),
    ("read with a part of a second, or -N", re.compile(r"\bread\s.*(?:-t\s*\d*\.\d|-N)")),
    (r"\u in a string", re.compile(r"\$'[^']*\\[uU]")),
)

# With "set -u" an array without elements counts as unset there.
EXPANDED = re.compile(r"\$\{(\w+)\[[@*]\]\}")
MADE_EMPTY = re.compile(r"(?:^|\s)(\w+)=\(\)", re.MULTILINE)
STOPS_AT_UNSET = re.compile(r"^\s*set\s+-\w*u", re.MULTILINE)
QUOTED = re.compile(r"(?<!\$)'[^']*'")
COMMENT = re.compile(r"(?:^|\s)#.*")


def findings(script):
    """A line for each thing in the text of the script that is newer."""
    found = []
    lines = [COMMENT.sub("", line if "$'" in line else QUOTED.sub("''", line))
             for line in script.splitlines()]
    for number, line in enumerate(lines, 1):
        found += [f"{number}: {what}" for what, form in NEWER if form.search(line)]
    text = "\n".join(lines)
    if STOPS_AT_UNSET.search(text):
        empty = set(MADE_EMPTY.findall(text))
        for number, line in enumerate(lines, 1):
            for name in EXPANDED.findall(line):
                if name in empty and not counted_before(name, lines[:number]):
                    found.append(f"{number}: {name} may be empty, which is unset with set -u")
    return found


def counted_before(name, lines):
    """Whether one of the lines in front asks for the number of elements."""
    return any(f"${{#{name}[" in line for line in lines[-6:])
