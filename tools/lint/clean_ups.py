"""Which clean-ups a platform exception skips on 32-bit Intel Macs, seen in the compiler's
intermediate code. There an exception is a longjmp to the nearest @try. Destructors of local objects
run where the exceptions of C++ lead to (landing pads), which a longjmp never does."""

import re
from collections import namedtuple

# A function, and a call in it that an exception of C++ runs and one of the platform does not; the
# call's first argument that has a name. All are named as in the code.
Skipped = namedtuple("Skipped", "caller callee argument")

# A name of the program, perhaps in quotation marks, and one of a block or a value.
GLOBAL = r'@("[^"\n]*"|[\w.$]+)'
LOCAL = r'%("[^"\n]*"|[\w.$-]+)'

FUNCTION = re.compile(rf"^define [^\n]*?{GLOBAL}\([^\n]*\{{\n(.*?)^\}}", re.MULTILINE | re.DOTALL)
BEGIN_OF_FUNCTION = re.compile(r"^define ", re.MULTILINE)
LABEL = re.compile(r'^("[^"]*"|[\w.$-]+):')
# What is called, and the first name among the arguments. What is called may be a pointer.
CALL = re.compile(rf"\b(?:call|invoke) (?!void asm )[^@\n]*?"
                  rf"(?:{GLOBAL}[^@(\n]*|(%[\w.]+))\((?:[^@\n]*{GLOBAL})?")
A_POINTER = "a function by its address"
TARGET = re.compile(rf"label {LOCAL}")
UNWIND = re.compile(rf"unwind label {LOCAL}")
SETJMP_RESULT = re.compile(r"(%[\w.]+) = call i32 @_?setjmp\(")
BRANCH = re.compile(rf"br i1 (%[\w.]+), label {LOCAL}, label {LOCAL}")

EXIT_OF_TRY = "objc_exception_try_exit"


def name_of(text):
    return text.strip('"').replace("\\01", "")


class Block:
    """One basic block: its calls, and where it goes."""

    def __init__(self, lines):
        text = "\n".join(lines)
        self.calls = [(name_of(function) or A_POINTER, name_of(argument) or None)
                      for function, _, argument in CALL.findall(text)]
        self.unwinds_to = (UNWIND.findall(text) or [None])[0]
        self.successors = [each for each in TARGET.findall(text) if each != self.unwinds_to]
        # The blocks after setjmp: the one when it returns for the second time, and the other.
        self.handler = self.tried = None
        tries = SETJMP_RESULT.search(text)
        if tries:
            result = re.escape(tries.group(1))
            compared = re.search(rf"(%[\w.]+) = icmp ne i32 {result}, 0", text).group(1)
            self.handler, self.tried = next(branch[1:] for branch in BRANCH.findall(text)
                                            if branch[0] == compared)


def blocks_of(body):
    """The blocks of a function's body by label; the first one's is ""."""
    found, label, lines = {}, "", []
    for line in body.splitlines():
        match = LABEL.match(line)
        if match:
            found[label] = Block(lines)
            label, lines = match.group(1), []
        else:
            lines.append(line)
    found[label] = Block(lines)
    return found


def reachable(blocks, start):
    """The labels of the blocks that can follow, except after another exception of C++."""
    seen, waiting = set(), [start]
    while waiting:
        label = waiting.pop()
        if label not in seen:
            seen.add(label)
            waiting.extend(blocks[label].successors)
    return seen


def calls_from(blocks, start):
    return {call for label in reachable(blocks, start) for call in blocks[label].calls}


def with_handlers(blocks):
    """Every block with the handler of the innermost @try around its end, None where there is none;
    a block may have several."""
    seen, waiting = set(), [("", ())]
    while waiting:
        state = waiting.pop()
        if state in seen:
            continue
        seen.add(state)
        label, handlers = state
        block = blocks[label]
        for function, _ in block.calls:
            if function == EXIT_OF_TRY:
                handlers = handlers[:-1]
        if block.handler:
            waiting += [(block.handler, handlers), (block.tried, (*handlers, block.handler))]
        else:
            waiting += [(each, handlers) for each in block.successors]
    return {(label, handlers[-1] if handlers else None) for label, handlers in seen}


def skipped_in(name, body):
    """The clean-ups of one function that an exception skips."""
    blocks = blocks_of(body)
    found = set()
    for label, handler in with_handlers(blocks):
        pad = blocks[label].unwinds_to
        if pad is None:
            continue
        # Where the exception is caught in this function, what follows runs the clean-ups, too.
        run = calls_from(blocks, handler) if handler else set()
        run = {function for function, _ in run}
        found.update(Skipped(name, function, argument)
                     for function, argument in calls_from(blocks, pad) if function not in run)
    return found


def skipped_clean_ups(code):
    """All those in a file of intermediate code."""
    found = set()
    functions = FUNCTION.findall(code)
    if len(functions) != len(BEGIN_OF_FUNCTION.findall(code)):
        raise ValueError("intermediate code of another form")
    for name, body in functions:
        if "landingpad" in body:
            found |= skipped_in(name_of(name), body)
    return found
