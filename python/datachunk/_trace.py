"""A trace in memory: one array for each field of its messages."""

from __future__ import annotations

import json
import operator
import os
from typing import TYPE_CHECKING, Any, Iterator, Optional, Union, overload

import numpy as np
import numpy.typing as npt

from . import _core
from ._files import Path, whole_file
from ._html import table_of
from ._message import FLAGS, Message

if TYPE_CHECKING:
    import pandas  # type: ignore[import]

Rows = Union[slice, "npt.NDArray[Any]", "list[int]", "list[bool]"]


class Trace:
    """Messages by their fields, as arrays that cannot be written.

    Slices are views of the same memory; what is picked by an array is a copy, but for the payload.
    Notes and bookmarks may be changed, and are written with the messages.
    """

    def __init__(
        self,
        arrays: dict[str, npt.NDArray[Any]],
        data: npt.NDArray[np.uint8],
        notes: dict[int, str],
        bookmarks: dict[int, str],
        report: dict[str, Any],
        problems: list[str],
    ) -> None:
        self._arrays = arrays
        #: payload bytes of all messages; that of row i is data[offsets[i]:offsets[i] + length[i]]
        self.data = data
        #: notes by row
        self.notes = notes
        #: bookmarks by row
        self.bookmarks = bookmarks
        #: what became of the lines of a text, as "datachunk import --report json" tells it
        self.report = report
        #: what could not be read, a sentence each
        self.problems = problems
        self._padded: dict[int, npt.NDArray[np.uint8]] = {}

    @classmethod
    def _of(cls, columns: _core.Columns, report: dict[str, Any], problems: list[str]) -> Trace:
        return cls(
            columns.arrays, columns.data, columns.notes, columns.bookmarks, report, problems
        )

    @property
    def time(self) -> npt.NDArray[np.int64]:
        """Microseconds."""
        return self._arrays["time"]

    @property
    def times(self) -> npt.NDArray[np.datetime64]:
        """The same memory as datetime64[us]; a date only where the trace has one."""
        return self._arrays["time"].view("datetime64[us]")

    @property
    def number(self) -> npt.NDArray[np.uint32]:
        """Running numbers."""
        return self._arrays["number"]

    @property
    def line(self) -> npt.NDArray[np.uint16]:
        """Bus lines."""
        return self._arrays["line"]

    @property
    def identifier(self) -> npt.NDArray[np.uint32]:
        """Identifiers; 0xFFFF00EF for error frames."""
        return self._arrays["identifier"]

    @property
    def extended(self) -> npt.NDArray[np.bool_]:
        """Identifiers of 29 bits."""
        return self._arrays["extended"]

    @property
    def remote(self) -> npt.NDArray[np.bool_]:
        """Remote transmission requests."""
        return self._arrays["remote"]

    @property
    def fd(self) -> npt.NDArray[np.bool_]:
        """CAN FD frames."""
        return self._arrays["fd"]

    @property
    def brs(self) -> npt.NDArray[np.bool_]:
        """Bit rate switch."""
        return self._arrays["brs"]

    @property
    def esi(self) -> npt.NDArray[np.bool_]:
        """Error state indicator."""
        return self._arrays["esi"]

    @property
    def error(self) -> npt.NDArray[np.bool_]:
        """Error frames."""
        return self._arrays["error"]

    @property
    def transmitted(self) -> npt.NDArray[np.bool_]:
        """Sent by the node that recorded; chunk files do not keep it."""
        return self._arrays["transmitted"]

    @property
    def length(self) -> npt.NDArray[np.uint8]:
        """Payload bytes, 0 to 64."""
        return self._arrays["length"]

    @property
    def offsets(self) -> npt.NDArray[np.int64]:
        """Where the payload of each message begins in ``data``."""
        return self._arrays["offsets"]

    def payload(self, width: Optional[int] = None) -> npt.NDArray[np.uint8]:
        """The payload as a table of ``width`` columns, 8 or 64 as it needs, filled up with zeros.

        Made once and kept; longer payloads are cut.
        """
        if width is None:
            width = 64 if len(self) and int(self.length.max()) > 8 else 8
        width = operator.index(width)
        if width not in self._padded:
            table = _core.padded(self.data, self.offsets, self.length, width)
            table.flags.writeable = False
            self._padded[width] = table
        return self._padded[width]

    def __len__(self) -> int:
        return len(self._arrays["time"])

    def __repr__(self) -> str:
        return f"<datachunk.Trace of {len(self)} messages>"

    def _repr_html_(self) -> str:
        return table_of(self)

    def __iter__(self) -> Iterator[Message]:
        block = 4096
        for start in range(0, len(self), block):
            part = self[start : start + block]
            fields = [part._arrays[name].tolist() for name in Message._fields[:4] + FLAGS]
            data = _core.payloads(part.data, part.offsets, part.length).tolist()
            notes = [part.notes.get(row) for row in range(len(part))]
            yield from map(Message._make, zip(*fields, data, notes))

    @overload
    def __getitem__(self, rows: int) -> Message: ...

    @overload
    def __getitem__(self, rows: Rows) -> Trace: ...

    def __getitem__(self, rows: Union[int, Rows]) -> Union[Message, Trace]:
        if isinstance(rows, (int, np.integer)):
            row = range(len(self))[rows]
            return next(iter(self[row : row + 1]))
        arrays = {name: array[rows] for name, array in self._arrays.items()}
        if arrays["time"].ndim != 1:
            raise IndexError("A trace has one dimension.")
        notes, bookmarks = self._marks(rows, self.notes), self._marks(rows, self.bookmarks)
        return Trace(arrays, self.data, notes, bookmarks, self.report, self.problems)

    def _marks(self, rows: Rows, marks: dict[int, str]) -> dict[int, str]:
        if not marks:
            return {}
        if isinstance(rows, slice):
            taken = range(len(self))[rows]
            # A slice of few rows is not worth a walk over the marks of a long trace.
            if len(taken) < len(marks):
                return {new: marks[old] for new, old in enumerate(taken) if old in marks}
            found = {taken.index(old): text for old, text in marks.items() if old in taken}
            return dict(sorted(found.items()))
        old_rows = np.arange(len(self))[rows].tolist()
        return {new: marks[old] for new, old in enumerate(old_rows) if old in marks}

    def to_pandas(self, data: Optional[str] = "bytes") -> pandas.DataFrame:
        """A data frame with a row for each message.

        ``data`` tells how the payload comes: "bytes" is one column of bytes objects, "columns" a
        column of uint8 for each byte (b0 ...), filled up with zeros, None leaves it out.
        """
        import pandas

        if data not in ("bytes", "columns", None):
            raise ValueError('data is "bytes", "columns" or None')
        columns: dict[str, Any] = {"time": self.times.astype("datetime64[ns]")}
        for name in ("number", "line", "identifier", *FLAGS, "length"):
            columns[name] = self._arrays[name]
        if data == "bytes":
            columns["data"] = _core.payloads(self.data, self.offsets, self.length)
        elif data == "columns":
            table = self.payload()
            columns.update((f"b{i}", table[:, i]) for i in range(table.shape[1]))
        frame = pandas.DataFrame(columns)
        if self.notes:
            frame["note"] = pandas.Series(self.notes, dtype=object).reindex(frame.index)
            frame["note"] = frame["note"].where(frame["note"].notna(), None)
        return frame

    def __getstate__(self) -> dict[str, Any]:
        # The payload of these rows only, however much of a longer trace is in memory.
        lengths = self.length.astype(np.int64)
        offsets = np.cumsum(lengths) - lengths
        taken = np.arange(int(lengths.sum())) + np.repeat(self.offsets - offsets, lengths)
        arrays = {**self._arrays, "offsets": offsets}
        return {**self.__dict__, "_arrays": arrays, "data": self.data[taken], "_padded": {}}

    def __setstate__(self, state: dict[str, Any]) -> None:
        self.__dict__.update(state)
        for array in (self.data, *self._arrays.values()):
            array.flags.writeable = False

    def _rows(self) -> _core.Rows:
        return _core.Rows(self._arrays, self.data, self.notes, self.bookmarks)

    def to_chunk(self, path: Path, *, overwrite: bool = False) -> None:
        """Writes a chunk file, whose name has to end in .dck, with notes and bookmarks."""
        if not os.fspath(path).endswith(".dck"):
            raise ValueError("The names of chunk files end in .dck.")
        with whole_file(path, ".dck", overwrite) as (_, name):
            _core.write_chunk(self._rows(), name)

    def export(
        self, path: Path, format: Optional[str] = None, *, overwrite: bool = False
    ) -> dict[str, Any]:
        """Writes the trace in the format of another tool, by default that of the name's end.

        Returns how many messages were written and left out, and the losses by their names.
        """
        return self._write(path, format or format_of(path), overwrite, {})

    def to_parquet(
        self,
        path: Path,
        *,
        source: Optional[str] = None,
        sha256: str = "",
        overwrite: bool = False,
    ) -> dict[str, Any]:
        """Writes a Parquet file (docs/parquet.md); returns what export() does.

        The file tells where the messages come from: ``source``, by default the file that was read,
        ``sha256``, its digest in hexadecimal digits, and the report.
        """
        told = {
            "name": self.report.get("file", "") if source is None else source,
            "sha256": sha256,
            "report": json.dumps(self.report) if self.report else "",
        }
        return self._write(path, "parquet", overwrite, told)

    def _write(
        self, path: Path, format: str, overwrite: bool, source: dict[str, str]
    ) -> dict[str, Any]:
        with whole_file(path, ".part", overwrite) as (file, _):
            return _core.write(self._rows(), file, format, source)


def format_of(path: Path) -> str:
    """The format that the end of a file's name stands for."""
    name = _core.format_of_file(os.fspath(path))
    if name is None:
        formats = ", ".join(_core.format_names())
        raise ValueError(f"No format is known for that name; the formats are {formats}.")
    return name
