"""What this module raises beside OSError."""

from __future__ import annotations


class TraceError(ValueError):
    """A file that is there holds no messages that can be read; the text tells why."""


class ExpressionError(ValueError):
    """A text that is no filter expression.

    ``column`` is that of the character where it shows, counted from 1.
    """

    def __init__(self, text: str, column: int, expression: str) -> None:
        super().__init__(text, column, expression)
        self.text = text
        self.column = column
        self.expression = expression

    def __str__(self) -> str:
        return f"column {self.column}: {self.text}"
