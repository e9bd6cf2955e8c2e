"""What the tests share."""

import contextlib
import os
import tempfile


@contextlib.contextmanager
def own_folder():
    """A folder that is the current one, and that goes with all that is in it."""
    before = os.getcwd()
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        try:
            yield folder
        finally:
            os.chdir(before)
