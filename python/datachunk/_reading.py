"""Traces of any format, from front to back."""

from __future__ import annotations

import os
from typing import Any, NamedTuple, Optional

from . import _core
from ._files import Path, check_readable, name_of, sha256_of, whole_file
from ._timeline import Timeline
from ._trace import Trace, format_of


class Recognition(NamedTuple):
    """What a file looks like, and why."""

    type: str  #: a name such as "SocketCanDump"; "Unknown" when nobody reads it
    percent: int  #: how many of 100 of the lines looked at fit the type
    line: int  #: the first line that is a frame, counted from 1; 0 where none decided
    line_text: str  #: that line, its first 200 characters
    explanation: str  #: one sentence


def read(
    path: Path,
    *,
    mode: str = "tolerant",
    type: Optional[str] = None,
    description: str = "",
    where: Optional[str] = None,
) -> Trace:
    """Reads a trace into memory: a text of any known tool, a chunk file, an archive or a folder.

    ``type`` is a name that recognise() gives, ``description`` the layout for "GenericFormat", and
    ``where`` a filter expression: only what it takes is kept.
    """
    name = name_of(path)
    if os.path.isdir(name):
        timeline = Timeline([name])
        return timeline[:] if where is None else timeline.filter(where).read()
    check_readable(name)
    columns, report = _core.read(name, mode, type, description, where)
    return Trace._of(columns, report, report.pop("problems"))


def recognise(path: Path) -> Recognition:
    """Looks at the beginning of a file and at samples of the rest, and tells what it is."""
    name = name_of(path)
    check_readable(name)
    return Recognition(**_core.recognise(name))


def convert(
    source: Path,
    target: Path,
    *,
    format: Optional[str] = None,
    mode: str = "tolerant",
    type: Optional[str] = None,
    description: str = "",
    where: Optional[str] = None,
    overwrite: bool = False,
) -> dict[str, Any]:
    """Converts a trace of any length in the memory of a block, message by message.

    The format is that of the name's end. Returns what Trace.export() does, and in "report" what
    became of the source.
    """
    name = name_of(source)
    check_readable(name)
    target_format = format or format_of(target)
    reading = _core.Reading(name, mode, type, description, where)
    told = {"name": name, "sha256": sha256_of(name) if target_format == "parquet" else ""}
    with whole_file(target, ".part", overwrite) as (file, _):
        return _core.convert(reading, file, target_format, told)


def parquet_difference(path: Path) -> str:
    """Why a Parquet file cannot stand in one table with those that this module writes.

    Empty when it can: it has the same columns. Reads the end of the file only.
    """
    name = name_of(path)
    check_readable(name)
    return _core.parquet_difference(name)
