#!/usr/bin/python3
"""The program `tovera` once more, in Python on the package: scripts/check-transcripts runs the transcripts with it.

It reads the same steps, calls the members through the package, and prints what the program prints. It stands beside
the package's folder.
"""

import datetime
import decimal
import re
import struct
import sys

import forms
import tovera


class CommandLineError(Exception):
    """A step that can't be understood."""



WORDS = {"true": True, "false": False, "empty": None, "null": tovera.Null, "nothing": tovera.Nothing}

NAME = re.compile(r"[^\W\d]\w*")
NUMBER = re.compile(r"[-+]?(\d+\.?\d*|\.\d+)([eE][-+]?\d+)?(?!\w)")
TEXT = re.compile(r'"((?:[^"]|"")*)"')
DATE = re.compile(r"#([^#]*)#")
BOUNDS = re.compile(r"\[(?:(-?\d+)\.\.(-?\d+))?\]")


class Reader:
    """Reads a step from left to right."""

    def __init__(self, text):
        self.text = text
        self.at = 0

    def fail(self, what):
        raise CommandLineError(f"character {self.at + 1}: {what}")

    def blanks(self):
        while self.text.startswith(" ", self.at):
            self.at += 1

    def at_end(self):
        return self.at == len(self.text)

    def take(self, character):
        taken = self.text.startswith(character, self.at)
        self.at += taken
        return taken

    def match(self, pattern):
        found = pattern.match(self.text, self.at)
        if found:
            self.at = found.end()
        return found

    def name(self):
        found = self.match(NAME)
        return found[0] if found else ""

    def literal(self):
        """A value in a tuple of its own; nothing where none comes next."""
        if found := self.match(TEXT):
            return (found[1].replace('""', '"'),)
        if found := self.match(DATE):
            return (datetime.datetime.fromisoformat(found[1]),)
        if found := self.match(BOUNDS):
            return (self.array(found),)
        if found := self.match(NUMBER):
            is_whole = not set(".eE") & set(found[0])
            return (int(found[0]) if is_whole else float(found[0]),)
        start = self.at
        word = self.name().lower()
        if word in WORDS:
            return (WORDS[word],)
        self.at = start
        return ()

    def array(self, bounds):
        if not bounds[1]:
            return tovera.Array()
        texts = []
        for index in range(int(bounds[1]), int(bounds[2]) + 1):
            self.blanks()
            if texts and not self.take(","):
                self.fail("an array has as many texts as its bounds say")
            self.blanks()
            text = self.literal()
            texts.append(None if text == (tovera.Null,) else text[0])
        return tovera.Array(texts, lower=int(bounds[1]))


class Runner:
    """Runs steps on one object, and keeps their variables."""

    def __init__(self, target):
        self.target = target
        self.variables = {}
        self.forms = {}

    def run(self, text):
        reader = Reader(text)
        reader.blanks()
        name = reader.name()
        if not name:
            reader.fail("a step begins with the name of a member or variable")
        if reader.take("="):
            setattr(self.target, name, self.written(name, text[reader.at :]))
            return
        reader.blanks()
        is_call = reader.take("(")
        arguments = self.arguments(reader) if is_call else []
        if not reader.at_end():
            reader.fail("nothing may follow here: " + text[reader.at :])
        if not is_call and name in self.variables:
            print(printed(self.variables[name].value), flush=True)
            return
        result = getattr(self.target, name)
        if callable(result):
            result = result(*arguments)
        if has_result(self.target, name):
            print(printed(result, self.result_type(name)), flush=True)

    def arguments(self, reader):
        arguments = []
        reader.blanks()
        if reader.take(")"):
            return arguments
        while True:
            reader.blanks()
            arguments.append(self.argument(reader))
            reader.blanks()
            if reader.take(")"):
                return arguments
            if not reader.take(","):
                reader.fail("a comma or the closing parenthesis is expected")

    def argument(self, reader):
        if literal := reader.literal():
            return literal[0]
        name = reader.name()
        if not name:
            return tovera.Missing
        if name == "form" and reader.take("("):
            path = reader.literal()[0]
            reader.take(")")
            return self.forms.setdefault(path, forms.Form(path))
        if reader.take("="):
            return self.variables.setdefault(name, tovera.ByRef(reader.literal()[0]))
        return self.named(name)

    def named(self, name):
        return self.variables[name] if name in self.variables else getattr(self.target, name)

    def written(self, name, text):
        """A literal, a variable, a property, or the text as it stands. Text properties take numbers as texts."""
        reader = Reader(text)
        literal = reader.literal()
        if literal and reader.at_end():
            is_number = isinstance(literal[0], (int, float)) and not isinstance(literal[0], bool)
            return text if is_number else literal[0]
        if text in self.variables or is_property(self.target, text):
            return self.named(text)
        return text

    def result_type(self, name):
        return signature(self.target, name).rpartition(": ")[2]

    def save(self):
        for form in self.forms.values():
            form.save()


def signature(target, name):
    document = getattr(type(target), name).__doc__
    return [line for line in document.splitlines() if line.startswith(name)][0]


def is_property(target, name):
    return isinstance(getattr(type(target), name, None), type(tovera.Cls_Conversion.IntituleMonnaie))


def has_result(target, name):
    return is_property(target, name) or re.search(r"\): [^:]+$", signature(target, name))


def number_text(number):
    """As many digits as count: 15, or 7 for what may be an `R4`, which Python holds in full."""
    text = f"{number:.15g}"
    is_single = abs(number) < 3e38 and struct.unpack("f", struct.pack("f", number))[0] == number
    if is_single and len(text) > len("-1234567.5"):
        text = f"{number:.7g}"
    return text.replace("e", "E") if number else "0"


def printed(value, declared=""):
    if value is None:
        return {"IDispatch, read": "Nothing", "BSTR": ""}.get(declared, "Empty")
    if value is tovera.Null:
        return "Null"
    if isinstance(value, float):
        return number_text(value)
    if isinstance(value, decimal.Decimal):
        return f"{value:f}"
    if isinstance(value, datetime.datetime):
        return str(value) if value.time() != datetime.time() else str(value.date())
    if isinstance(value, tovera.Array):
        if not value:
            return "[]"
        texts = ("Null" if text is None else '"' + text.replace('"', '""') + '"' for text in value)
        return f"[{value.lower}..{value.upper}] " + ", ".join(texts)
    return str(value)


def show_box(text, title, flags):
    sys.stdout.flush()
    print(f"[{title}] {text}", file=sys.stderr, flush=True)


def list_members(names):
    if not names:
        for name in dir(tovera):
            if name.startswith("Cls_"):
                print("KADRELDLL." + name)
        return
    made = getattr(tovera, names[0].rpartition(".")[2])
    for name in dir(made):
        if not name.startswith("_"):
            print(getattr(made, name).__doc__.splitlines()[-1])


def steps_of(arguments):
    if arguments != ["-"]:
        yield from (("step", number, text) for number, text in enumerate(arguments, 1))
        return
    for number, line in enumerate(sys.stdin, 1):
        if line.strip():
            yield "line", number, line.rstrip("\r\n")


def main(arguments):
    if arguments[0] == "list":
        return list_members(arguments[1:])
    tovera.set_message_box(show_box)
    runner = Runner(tovera.Dispatch(arguments[0]))
    for kind, number, text in steps_of(arguments[1:]):
        try:
            runner.run(text)
        except tovera.Error as error:
            print(f"error {error}\ntovera: in {kind} {number}: {text}", file=sys.stderr)
            return 1
    runner.save()


sys.stdout.reconfigure(encoding="utf-8")
sys.exit(main(sys.argv[1:]))
