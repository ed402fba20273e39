"""A message by itself."""

from __future__ import annotations

from typing import NamedTuple, Optional

FLAGS = ("extended", "remote", "fd", "brs", "esi", "error", "transmitted")


class Message(NamedTuple):
    """One message of a trace."""

    time: int  #: microseconds, as records have it: mostly since 1970
    number: int  #: running number in the trace
    line: int  #: bus line
    identifier: int  #: 11 or 29 bits; 0xFFFF00EF for error frames
    extended: bool
    remote: bool
    fd: bool
    brs: bool
    esi: bool
    error: bool
    transmitted: bool
    data: bytes
    note: Optional[str]

    @property
    def timestamp(self) -> float:
        """The time in seconds, as python-can has it."""
        return self.time / 1e6
