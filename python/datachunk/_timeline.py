"""A recording of any length: chunk files, folders of them and archives as one trace."""

from __future__ import annotations

import datetime
import os
import warnings
from typing import Any, Iterator, NamedTuple, Optional, Sequence, Union, overload

import numpy as np
import numpy.typing as npt

from . import _core
from ._errors import TraceError
from ._files import Path, name_of
from ._html import table_of
from ._message import Message
from ._trace import Trace

Time = Union[int, np.integer, np.datetime64, datetime.datetime]
ALL = 2**63 - 1


class Rate(NamedTuple):
    """How often messages came, in intervals of equal length."""

    starts: npt.NDArray[np.int64]  #: where the intervals begin, in microseconds
    lines: npt.NDArray[np.uint8]  #: the bus lines that occur
    messages: npt.NDArray[np.uint64]  #: a row for each interval, a column for each line
    errors: npt.NDArray[np.uint64]  #: error frames in each interval


def microseconds(time: Time) -> int:
    """A time as records have it; a datetime without a zone is in UTC."""
    if isinstance(time, np.datetime64):
        if np.isnat(time):
            raise ValueError("Not a time.")
        return int(time.astype("datetime64[us]").astype(np.int64))
    if isinstance(time, datetime.datetime):
        if time.tzinfo is None:
            time = time.replace(tzinfo=datetime.timezone.utc)
        epoch = datetime.datetime(1970, 1, 1, tzinfo=datetime.timezone.utc)
        return (time - epoch) // datetime.timedelta(microseconds=1)
    if isinstance(time, (int, np.integer)):
        return int(time)
    raise TypeError("A time is a number of microseconds, a datetime64 or a datetime.")


class Timeline:
    """All messages of a recording by their positions, from 0; read where they lie when asked for."""

    def __init__(self, paths: Union[Path, Sequence[Path]]) -> None:
        if isinstance(paths, (str, os.PathLike)):
            paths = [paths]
        names = [name_of(path) for path in paths]
        for name in names:
            os.stat(name)
        self._core = _core.Timeline(names)
        if len(self) == 0 and self.problems:
            raise TraceError(" ".join(self.problems))

    def __len__(self) -> int:
        return len(self._core)

    def __repr__(self) -> str:
        return f"<datachunk.Timeline of {len(self)} messages>"

    def _repr_html_(self) -> str:
        return table_of(self)

    @overload
    def __getitem__(self, rows: int) -> Message: ...

    @overload
    def __getitem__(self, rows: slice) -> Trace: ...

    def __getitem__(self, rows: Union[int, slice]) -> Union[Message, Trace]:
        if isinstance(rows, slice):
            return self._slice(range(len(self))[rows])
        position = range(len(self))[rows]
        trace = self.read(position, 1)
        if len(trace) == 0:
            raise LookupError(f"The message at {position} is no longer there.")
        return trace[0]

    def __iter__(self) -> Iterator[Message]:
        block = 65536
        for start in range(0, len(self), block):
            yield from self.read(start, block)

    def _slice(self, taken: range) -> Trace:
        if taken.step == 1:
            return self.read(taken.start, len(taken))
        rising = taken if taken.step > 0 else taken[::-1]
        trace = self.read_positions(np.arange(rising.start, rising.stop, rising.step, np.uint64))
        return trace if taken.step > 0 else trace[::-1]

    def read(self, start: int, count: int) -> Trace:
        """The messages from a position on; those that are no longer there are left out and told."""
        return self._trace(*self._core.read(_from_0(start), _from_0(count)))

    def read_positions(self, positions: npt.ArrayLike) -> Trace:
        """The messages at positions, which have to rise."""
        wanted = np.asarray(positions)
        if wanted.size and not 0 <= wanted.min() <= wanted.max() < len(self):
            raise IndexError("A position is outside of the timeline.")
        return self._trace(*self._core.read_positions(wanted.astype(np.uint64)))

    def _trace(self, columns: _core.Columns, gone: int) -> Trace:
        problems = self.problems
        if gone:
            problems.append(f"{gone} messages are no longer there.")
        return Trace._of(columns, {}, problems)

    def between(self, start: Time, end: Time) -> Trace:
        """The messages from a time on and before another, wherever they stand."""
        low, high = microseconds(start), microseconds(end)
        return self.filter(f"time>={_seconds(low)} and time<{_seconds(high)}").read()

    def filter(self, where: str) -> Filter:
        """What a filter expression takes, found when it is asked for."""
        return Filter(self, where)

    def find(self, where: str, start: int = 0) -> Optional[int]:
        """The first position from ``start`` on that the expression takes."""
        return self._core.find(where, _from_0(start), False)

    def rfind(self, where: str, end: Optional[int] = None) -> Optional[int]:
        """The last such position in front of ``end``."""
        return self._core.find(where, len(self) if end is None else _from_0(end), True)

    def position_of_time(self, time: Time) -> int:
        """The first position at which the highest time so far is that time or later."""
        return self._core.position_of_time(microseconds(time))

    def position_of_number(self, number: int) -> Optional[int]:
        """The first position of a message number."""
        return self._core.position_of_number(number)

    def identifiers(self) -> npt.NDArray[Any]:
        """Every identifier with each line and kind: a structured array, for a DataFrame as well.

        Its fields are identifier, line, extended, remote, fd, count, first and last (positions).
        """
        rows, is_exact = self._core.identifiers()
        if not is_exact:
            warnings.warn("There are too many identifiers; some are missing.", stacklevel=2)
        return rows

    def rate(
        self, start: Optional[Time] = None, end: Optional[Time] = None, intervals: int = 100
    ) -> Rate:
        """Counts messages in intervals; in proportion within some thousand messages."""
        low = self.first_time if start is None else microseconds(start)
        high = self.last_time + 1 if end is None else microseconds(end)
        counts = self._core.rate(low, high, intervals)
        edges = [low + (high - low) * i // intervals for i in range(intervals)]
        return Rate(np.array(edges, np.int64), *counts)

    def refresh(self) -> bool:
        """Takes in what was recorded since; true when anything was."""
        return self._core.refresh()

    @property
    def problems(self) -> list[str]:
        """What cannot be read, a sentence each."""
        return self._core.problems

    @property
    def first_time(self) -> int:
        """The lowest time in microseconds, 0 while there are no messages."""
        return self._core.first_time

    @property
    def last_time(self) -> int:
        """The highest time, likewise."""
        return self._core.last_time


class Filter:
    """What an expression takes of a timeline."""

    def __init__(self, timeline: Timeline, where: str) -> None:
        _core.check_expression(where)
        self._timeline = timeline
        self.where = where

    def __repr__(self) -> str:
        return f"<datachunk.Filter {self.where!r}>"

    def count(self) -> int:
        """How many messages it takes; of identifiers, lines and kinds, the index knows."""
        return self._timeline._core.count(self.where)

    def positions(self, start: int = 0, count: int = ALL) -> npt.NDArray[np.uint64]:
        """The positions, rising, of what it takes of ``count`` messages from ``start`` on."""
        return self._timeline._core.positions(self.where, _from_0(start), _from_0(count))

    def read(self) -> Trace:
        """The messages themselves."""
        return self._timeline.read_positions(self.positions())


def _from_0(position: int) -> int:
    if position < 0:
        raise IndexError("Positions count from 0.")
    return min(position, ALL)


def _seconds(time: int) -> str:
    # Seconds of records have 32 bits.
    most = 2**32 * 10**6
    time = max(-most, min(time, most))
    sign = "-" if time < 0 else ""
    return f"{sign}{abs(time) // 10**6}.{abs(time) % 10**6:06}"


def open(paths: Union[Path, Sequence[Path]]) -> Timeline:
    """Opens chunk files, folders and archives as one trace, and waits until all of it is known.

    Folders that may be written get a directory of what is in their chunks, so that they open at
    once the next time.
    """
    return Timeline(paths)
