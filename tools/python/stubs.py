"""Writes the type stubs of the package into its folder, from what the compiled module tells of its classes.

    stubs.py FOLDER    the folder that holds the package `tovera`
"""

import os
import re
import sys

HEAD = '''\
"""Made from the class table; see `help(tovera)`."""

import datetime
from collections.abc import Callable, Iterable
from decimal import Decimal
from typing import Any, Literal, TypeAlias, overload

__version__: str

class Error(Exception):
    number: int
    description: str
    source: str
    def __init__(self, number: int, description: str = ..., source: str = ...) -> None: ...

class MemberError(Error, AttributeError): ...

Null: Any
Nothing: Any
Missing: Any

class ByRef:
    value: Any
    def __init__(
        self,
        value: Any = ...,
        type: Literal["VARIANT", "I2", "I4", "R4", "R8", "DATE", "BSTR", "OBJECT", "BOOL", "UI1", "ARRAY"] = ...,
    ) -> None: ...

class Array(list[str | None]):
    lower: int
    @property
    def upper(self) -> int: ...
    def __init__(self, texts: Iterable[str | None] = ..., lower: int = ...) -> None: ...

_Number: TypeAlias = float | Decimal | str | ByRef
_Text: TypeAlias = str | float | Decimal | ByRef | None
_Moment: TypeAlias = datetime.date | datetime.time | float | str | ByRef
_Texts: TypeAlias = list[str] | list[str | None] | tuple[str | None, ...] | ByRef

def set_message_box(function: Callable[[str, str, int], object] | None, /) -> Callable[[str, str, int], object] | None: ...
def set_pump(function: Callable[[], object] | None, /) -> Callable[[], object] | None: ...
def set_create_object(function: Callable[[str], object] | None, /) -> Callable[[str], object] | None: ...
'''

GIVEN = {
    "BSTR": "_Text",
    "VARIANT": "Any",
    "VARIANT_BOOL": "bool | _Number",
    "DATE": "_Moment",
    "I2": "_Number",
    "I4": "_Number",
    "UI1": "_Number",
    "R4": "_Number",
    "R8": "_Number",
    "SAFEARRAY(BSTR)": "_Texts",
    "IDispatch": "Any",
}

TAKEN = {
    "BSTR": "str",
    "VARIANT": "Any",
    "VARIANT_BOOL": "bool",
    "DATE": "datetime.datetime",
    "I2": "int",
    "I4": "int",
    "UI1": "int",
    "R4": "float",
    "R8": "float",
    "IDispatch": "Any",
    "": "None",
}

METHOD = re.compile(r"(\w+)\((.*)\)(?:: (\S+))?$")
READ = re.compile(r"(\w+): (\S+), read$")
WRITE = re.compile(r"(\w+) = (\w+): ([\w()]+)(?: by reference)?, (?:write|assign by reference)$")
PARAMETER = re.compile(r"(\w+): (\S+?)( by reference)?(, optional)?$")


def docstring(text, indent):
    written = text.strip().replace("\\", "\\\\").replace('"""', '\\"""')
    return f'{indent}"""' + written.replace("\n", "\n" + indent if written else "") + '"""\n'


def method(found, document):
    parameters = ["self"]
    for text in filter(None, found[2].split("; ")):
        name, kind, _, optional = PARAMETER.match(text).groups()
        parameters.append(f"{name}: {GIVEN[kind]}" + (" | None = ..." if optional else ""))
    lines = f"    def {found[1]}({', '.join(parameters)}) -> {TAKEN[found[3] or '']}:\n"
    return lines + docstring(document, " " * 8) + " " * 8 + "...\n"


def accessors(name, document):
    text = ""
    for line in document.splitlines():
        if found := READ.match(line):
            text += f"    @property\n    def {name}(self) -> {TAKEN[found[2]]}:\n"
            text += docstring(document, " " * 8) + " " * 8 + "...\n"
        elif found := WRITE.match(line):
            text += f"    @{name}.setter\n    def {name}(self, {found[2]}: {GIVEN[found[3]]}) -> None: ...\n"
    return text


def class_stub(made):
    text = f"class {made.__name__}:\n" + docstring(made.__doc__, " " * 4)
    for name, member in vars(made).items():
        if not name.startswith("_"):
            found = METHOD.match(member.__doc__.splitlines()[-1])
            text += method(found, member.__doc__) if found else accessors(name, member.__doc__)
    return text


def dispatch_stub(classes):
    text = ""
    for made in classes:
        text += f'@overload\ndef Dispatch(__name: Literal["KADRELDLL.{made.__name__}", "{made.__name__}"]) -> '
        text += f"{made.__name__}: ...\n"
    return text + "@overload\ndef Dispatch(__name: str) -> Any: ...\n"


def main(folder):
    sys.dont_write_bytecode = True
    sys.path.insert(0, folder)
    import tovera

    classes = [made for name, made in vars(tovera).items() if name.startswith("Cls_")]
    parts = [HEAD, *map(class_stub, classes), dispatch_stub(classes)]
    path = os.path.join(folder, "tovera", "__init__.pyi")
    with open(path + ".new", "w", encoding="utf-8") as file:
        file.write("\n".join(parts))
    os.replace(path + ".new", path)


main(sys.argv[1])
