"""Files as the operating system has them: what is asked before reading, and whole files or none."""

from __future__ import annotations

import errno
import hashlib
import os
import stat
import tempfile
from contextlib import contextmanager
from typing import Iterator, Union

Path = Union[str, "os.PathLike[str]"]


def name_of(path: Path) -> str:
    """The name of a file as a text."""
    name = os.fspath(path)
    if not isinstance(name, str):
        raise TypeError("The name of a file is a text or a path.")
    return name


def check_readable(name: str) -> None:
    """Raises the OSError that opening the file would; waits for no pipe."""
    if not stat.S_ISREG(os.stat(name).st_mode):
        raise OSError(errno.EINVAL, "Not a regular file", name)
    os.close(os.open(name, os.O_RDONLY))


def sha256_of(path: Path) -> str:
    """The SHA-256 of a file's bytes in hexadecimal digits."""
    digest = hashlib.sha256()
    with open(path, "rb") as file:
        while block := file.read(1 << 20):
            digest.update(block)
    return digest.hexdigest()


@contextmanager
def whole_file(target: Path, suffix: str, overwrite: bool) -> Iterator[tuple[int, str]]:
    """A file to write, open and by its name, which gets the name of the target when it is whole.

    What fails leaves nothing behind.
    """
    name = name_of(target)
    if not overwrite and os.path.lexists(name):
        raise FileExistsError(errno.EEXIST, os.strerror(errno.EEXIST), name)
    folder = os.path.dirname(os.path.abspath(name))
    file, work = tempfile.mkstemp(prefix=".datachunk-", suffix=suffix, dir=folder)
    try:
        try:
            yield file, work
            os.fchmod(file, 0o666 & ~_umask())
        finally:
            os.close(file)
        if overwrite:
            os.replace(work, name)
        else:
            # Unlike a rename it fails where somebody else has made the file meanwhile.
            os.link(work, name)
    finally:
        if os.path.lexists(work):
            os.unlink(work)


def _umask() -> int:
    # Linux tells it without changing it, which other threads would see.
    with open("/proc/self/status", encoding="ascii", errors="replace") as status:
        for line in status:
            if line.startswith("Umask:"):
                return int(line.split()[1], 8)
    return 0o077
