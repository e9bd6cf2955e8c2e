"""Builds a wheel of the package for pip: the module, its Python files, and the library beside it."""

import base64
import hashlib
import os
import pathlib
import re
import subprocess
import sys
import sysconfig
import tempfile
import tomllib
import zipfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
TAG = "cp311-abi3-" + re.sub(r"[-.]", "_", sysconfig.get_platform())


def project():
    """Name and value of what the package says of itself."""
    with open(ROOT / "pyproject.toml", "rb") as file:
        facts = tomllib.load(file)["project"]
    version = re.search(r"project\(tovera VERSION ([\d.]+)", (ROOT / "CMakeLists.txt").read_text())[1]
    return facts, version


def run(*command):
    done = subprocess.run([str(word) for word in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    if done.returncode:
        sys.stderr.write(done.stdout.decode(errors="replace"))
        sys.exit(f"tovera: this command failed: {' '.join(map(str, command))}")


def built(folder):
    """The folder with the package as it is to be installed."""
    build = ROOT / "build" / "wheel"
    run("cmake", "-S", ROOT, "-B", build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release", "-DTOVERA_TESTS=OFF",
        "-DTOVERA_WHEEL=ON", "-DTOVERA_PYTHON_FOLDER=package", f"-DPython3_EXECUTABLE={sys.executable}")
    if "tovera_python" not in subprocess.run(["cmake", "--build", build, "--target", "help"],
                                             capture_output=True, text=True).stdout:
        sys.exit("tovera: the headers of Python are missing (package python3-dev)")
    run("cmake", "--build", build, "--target", "tovera_python")
    run("cmake", "--install", build, "--prefix", folder, "--component", "python", "--strip")
    package = pathlib.Path(folder) / "package" / "tovera"
    library = next(build.glob("libtovera.so.?"))
    (package / library.name).write_bytes(library.read_bytes())
    return package


def record(path, data):
    digest = base64.urlsafe_b64encode(hashlib.sha256(data).digest()).rstrip(b"=").decode()
    return f"{path},sha256={digest},{len(data)}\n"


def build_wheel(wheel_directory, config_settings=None, metadata_directory=None):
    facts, version = project()
    info = f"tovera-{version}.dist-info"
    files = {
        f"{info}/METADATA": f"Metadata-Version: 2.1\nName: {facts['name']}\nVersion: {version}\n"
        f"Summary: {facts['description']}\nRequires-Python: {facts['requires-python']}\n",
        f"{info}/WHEEL": f"Wheel-Version: 1.0\nGenerator: tovera\nRoot-Is-Purelib: false\nTag: {TAG}\n",
    }
    files = {name: text.encode() for name, text in files.items()}
    with tempfile.TemporaryDirectory() as folder:
        for path in sorted(built(folder).iterdir()):
            files[f"tovera/{path.name}"] = path.read_bytes()
    lines = "".join(record(name, data) for name, data in files.items())
    files[f"{info}/RECORD"] = (lines + f"{info}/RECORD,,\n").encode()
    wheel = f"tovera-{version}-{TAG}.whl"
    with zipfile.ZipFile(os.path.join(wheel_directory, wheel), "w", zipfile.ZIP_DEFLATED) as archive:
        for name, data in files.items():
            archive.writestr(name, data)
    return wheel
