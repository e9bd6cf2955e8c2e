"""A form of Visual Basic as objects of Python: its texts are attributes, its controls what it is walked through for."""

import re

LINE = re.compile(rb'^(\s*)(\w+)(\s*=\s*)(.*?)\s*$')


class Item:
    """A form or control. Attributes are the properties of its block; texts can be assigned."""

    def __init__(self, name):
        self._lines = {}
        self.name = name

    def __setattr__(self, name, value):
        if name in getattr(self, "_lines", ()):
            form, number = self._lines[name]
            form.lines[number] = changed(form.lines[number], value)
        object.__setattr__(self, name, value)


def changed(line, text):
    written = '"' + text.replace('"', '""') + '"'
    return LINE.sub(lambda found: found[1] + found[2] + found[3] + written.encode("cp1252"), line.rstrip(b"\r\n")) + b"\r\n"


class Form(Item):
    """The form of a file."""

    def __init__(self, path):
        super().__init__("")
        self.path = path
        with open(path, "rb") as file:
            self.lines = file.readlines()
        self.before = list(self.lines)
        self.items = []
        self._read()

    def __iter__(self):
        return iter(self.items[1:])

    def _read(self):
        open_blocks = []
        for number, line in enumerate(self.lines):
            words = line.split()
            if words[:1] == [b"Begin"]:
                item = Item(words[2].decode("cp1252")) if self.items else self
                item.name = words[2].decode("cp1252")
                self.items.append(item)
                open_blocks.append(item)
            elif words[:1] in ([b"BeginProperty"], [b"EndProperty"]):
                open_blocks.append(None) if words[0] == b"BeginProperty" else open_blocks.pop()
            elif words == [b"End"]:
                open_blocks.pop()
            elif open_blocks and open_blocks[-1] and (found := LINE.match(line)):
                self._take(open_blocks[-1], number, found)

    def _take(self, item, number, found):
        name, value = found[2].decode(), found[4].decode("cp1252")
        if value.startswith('"'):
            setattr(item, name, re.match(r'"((?:[^"]|"")*)"', value)[1].replace('""', '"'))
            item._lines[name] = (self, number)
        elif re.match(r"-?\d+", value):
            setattr(item, name, int(re.match(r"-?\d+", value)[0]))

    def save(self):
        if self.lines != self.before:
            with open(self.path, "wb") as file:
                file.writelines(self.lines)
