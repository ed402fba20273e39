"""Finds what a filter expression takes of many traces, as one table."""

from __future__ import annotations

import sys
from typing import Any

import pandas

import datachunk
import fleet


def find_in_trace(name: str, path: str, where: str) -> pandas.DataFrame:
    """The task: what is wanted of a trace."""
    frame = datachunk.read(path, where=where).to_pandas()
    frame.insert(0, "trace", name)
    return frame


def query(
    client: Any, traces: dict[str, str], where: str
) -> tuple[pandas.DataFrame, list[fleet.Outcome]]:
    """One table of all traces, by time, and what became of each of them."""
    outcomes = list(fleet.run(client, find_in_trace, traces, where))
    frames = [outcome.result for outcome in outcomes if outcome.result is not None]
    table = pandas.concat(frames, ignore_index=True) if frames else pandas.DataFrame()
    if len(table):
        table = table.sort_values(["time", "trace", "number"], ignore_index=True)
    return table, outcomes


def main() -> int:
    parser = fleet.arguments(__doc__)
    parser.add_argument("--where", required=True, help="filter expression")
    parser.add_argument("--csv", help="file for the table, which is printed otherwise")
    options = parser.parse_args()
    with fleet.client_of(options) as client:
        table, outcomes = query(client, fleet.traces_in(options.paths), options.where)
    if options.csv:
        table.to_csv(options.csv, index=False)
    else:
        print(table.to_string(max_rows=40))
    return 1 if fleet.tell_failures(outcomes) else 0


if __name__ == "__main__":
    sys.exit(main())
