"""Traces of CAN buses as NumPy arrays: see docs/python.md."""

from ._errors import ExpressionError, TraceError
from ._reading import Recognition, convert, read, recognise
from ._timeline import Filter, Rate, Timeline, open
from ._trace import Message, Trace

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
    "read",
    "recognise",
]
