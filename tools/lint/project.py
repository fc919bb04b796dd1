"""What the lints share: which files the project has, how a finding is reported, and where the
string literals of a source file are."""

import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

APPLICATION_FOLDERS = ("text", "agent", "addressbook", "windows", "plugin", "app")
SOURCES = (".h", ".mm", ".cpp", ".hpp", ".c", ".m")


class Findings(list):
    """The findings of a lint, one line each: where it is and what is wrong."""

    def add(self, path, line, text):
        self.append(f"{path}:{line}: {text}" if line else f"{path}: {text}")


def tracked(root, suffixes=(), folders=()):
    """The files under version control, relative to root, restricted to suffixes and folders where
    these are given."""
    # Git must not refuse a clone that belongs to another user, often to root.
    command = ["git", "-c", "safe.directory=*", "-C", str(root), "ls-files", "-z"]
    names = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    paths = (Path(name) for name in names.split("\0") if name)
    return [path for path in paths
            if (root / path).is_file()
            and (not suffixes or path.suffix in suffixes)
            and (not folders or path.parts[0] in folders)]


def read(root, path):
    return (root / path).read_text(encoding="utf-8")


TOKEN = re.compile(
    r"""//[^\n]*|/\*.*?\*/"""        # comments
    r"""|R"(?P<tag>[^()\\\s]*)\(.*?\)(?P=tag)\""""
    r"""|@?"(?:\\.|[^"\\\n])*\""""   # strings
    r"""|(?<!\w)'(?:\\.|[^'\\\n])*'""",  # characters; 1'000 is a number
    re.DOTALL | re.VERBOSE)


def without_comments(text):
    """The text with every comment blanked, line numbers and columns kept."""
    def blank(match):
        found = match.group()
        return re.sub(r"[^\n]", " ", found) if found.startswith(("//", "/*")) else found
    return TOKEN.sub(blank, text)


def literals(text):
    """The Objective-C string literals of a source text as (line, literal): what stands between the
    quotation marks, as it is written, adjacent literals joined as the compiler joins them."""
    code = without_comments(text)
    found = []
    end_of_last = None
    for match in TOKEN.finditer(code):
        string = match.group()
        if not string.startswith(('@"', '"')):
            continue
        joined = end_of_last is not None and not code[end_of_last:match.start()].strip()
        if joined:
            line, before = found[-1]
            found[-1] = (line, before + string[string.index('"') + 1:-1])
        elif string.startswith("@"):
            found.append((code.count("\n", 0, match.start()) + 1, string[2:-1]))
        else:
            end_of_last = None  # a C string starts no Objective-C literal
            continue
        end_of_last = match.end()
    return found


def finish(findings):
    """Ends a lint that runs as a program."""
    for finding in findings:
        print(finding)
    sys.exit(1 if findings else 0)


def run(lint):
    """Runs a lint, a function from the project's root to Findings, as a program. Another root may
    be given as the only argument."""
    finish(lint(Path(sys.argv[1]).resolve() if len(sys.argv) > 1 else ROOT))


def run_with_build(lint):
    """The same for a lint that wants the build folder, too, which may be given after the root."""
    root = Path(sys.argv[1]).resolve() if len(sys.argv) > 1 else ROOT
    finish(lint(root, Path(sys.argv[2]).resolve() if len(sys.argv) > 2 else root / "build"))
