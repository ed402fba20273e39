"""How a notebook shows a trace: its first and last messages as a table."""

from __future__ import annotations

import html
from typing import TYPE_CHECKING, Sequence, Union

import numpy as np

from ._message import FLAGS, Message

if TYPE_CHECKING:
    from ._timeline import Timeline
    from ._trace import Trace

TITLES = ("", "time", "line", "identifier", "kind", "length", "data", "note")
AT_EACH_END = 5


def row_of(position: int, message: Message) -> Sequence[str]:
    """What the table says of a message."""
    time = str(np.datetime64(message.time, "us")).replace("T", " ")
    identifier = f"{message.identifier:0{8 if message.extended else 3}x}"
    kind = " ".join(name for name in FLAGS if getattr(message, name))
    length = str(len(message.data))
    note = message.note or ""
    return str(position), time, str(message.line), identifier, kind, length, message.data.hex(" "), note


def table_of(trace: Union[Trace, Timeline]) -> str:
    """As many messages of both ends as are taken in at a glance."""
    count = len(trace)
    first = range(min(count, AT_EACH_END))
    last = range(max(len(first), count - AT_EACH_END), count)
    rows = [
        row_of(position, message)
        for end in (first, last)
        for position, message in zip(end, trace[end.start : end.stop])
    ]
    if len(first) + len(last) < count:
        rows.insert(len(first), ["…"] * len(TITLES))
    cells = "".join(f"<th>{title}</th>" for title in TITLES)
    lines = [f"<tr>{cells}</tr>"]
    for row in rows:
        cells = "".join(f"<td>{html.escape(text)}</td>" for text in row)
        lines.append(f"<tr>{cells}</tr>")
    return f"<table>{''.join(lines)}</table><p>{count} messages</p>"
