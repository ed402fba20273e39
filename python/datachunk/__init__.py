"""Traces of CAN buses as NumPy arrays: see docs/python.md."""

from ._core import __version__
from ._errors import ExpressionError, TraceError
from ._files import sha256_of
from ._message import Message
from ._reading import Recognition, convert, parquet_difference, read, recognise
from ._timeline import Filter, Rate, Timeline, open
from ._trace import Trace

__all__ = [
    "ExpressionError",
    "Filter",
    "Message",
    "Rate",
    "Recognition",
    "Timeline",
    "Trace",
    "TraceError",
    "convert",
    "open",
    "parquet_difference",
    "read",
    "recognise",
    "sha256_of",
]

# Names in tracebacks and pickles are those that users write.
for _public in __all__:
    globals()[_public].__module__ = __name__
