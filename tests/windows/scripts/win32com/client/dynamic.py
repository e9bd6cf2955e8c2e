"""Stands for pywin32 where there is none: late-bound objects by the program tovera, whose command is in TOVERA."""
import os
import re
import subprocess


def run(*arguments: str) -> list[str]:
    command = [*os.environ["TOVERA"].split(), *arguments]
    output = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True).stdout.decode()
    return output.removesuffix("\n").split("\n") if output else []


def written(value) -> str:
    """A value as a step has it."""
    if isinstance(value, str):
        return '"' + value.replace('"', '""') + '"'
    if isinstance(value, list):
        return f"[0..{len(value) - 1}] " + ", ".join(map(written, value))
    return str(value)


def read(line: str):
    return int(line) if re.fullmatch(r"-?\d+", line) else line


class Dispatch:
    """A call makes a new object, and repeats on it what this one has done so far."""

    def __init__(self, progId: str):
        members = re.findall(r"^(\w+)(\(?)", "\n".join(run("list", progId)), re.M)
        self.__dict__.update(progId=progId, methods={name: bool(bracket) for name, bracket in members}, steps=[])

    def done(self, step: str):
        self.steps.append(step)
        lines = run(self.progId, *self.steps)
        return read(lines[-1]) if lines else None

    def __getattr__(self, name: str):
        if name not in self.methods:
            raise AttributeError(f"{self.progId} has no {name}")
        if not self.methods[name]:
            return self.done(name)
        return lambda *arguments: self.done(f"{name}({', '.join(map(written, arguments))})")

    def __setattr__(self, name: str, value):
        self.done(f"{name}={written(value)}")
