"""Converts traces into a data set of Parquet files, source=NAME/date=DAY/part.parquet.

Each trace is its own source, so that one that is converted again takes the place of what was there
of it, and a task that runs twice doubles nothing.
"""

from __future__ import annotations

import glob
import os
import shutil
import sys
import tempfile
import urllib.parse
from typing import Any, Iterator

import numpy as np

import datachunk
import fleet

#: Readers of data sets pass over names that begin so.
WORK = "_work"


def convert_trace(name: str, path: str, dataset: str) -> dict[str, Any]:
    """The task: all days of a trace, or none of them."""
    trace = datachunk.read(path)
    sha256 = datachunk.sha256_of(path)
    source = os.path.join(dataset, "source=" + urllib.parse.quote(name, safe=" "))
    with tempfile.TemporaryDirectory(dir=os.path.join(dataset, WORK)) as work:
        days = []
        for day, part in by_day(trace):
            part.to_parquet(os.path.join(work, day), source=name, sha256=sha256)
            days.append(day)
        for day in days:
            folder = os.path.join(source, f"date={day}")
            os.makedirs(folder, exist_ok=True)
            os.replace(os.path.join(work, day), os.path.join(folder, "part.parquet"))
    _remove_others(source, days)
    return {"messages": len(trace), "days": len(days), "problems": trace.problems}


def by_day(trace: datachunk.Trace) -> Iterator[tuple[str, datachunk.Trace]]:
    """The days of a trace in UTC with their messages, in order; mostly views of it."""
    days = trace.times.astype("datetime64[D]")
    for day in np.unique(days):
        rows = np.flatnonzero(days == day)
        is_one_piece = rows[-1] - rows[0] + 1 == len(rows)
        yield str(day), trace[rows[0] : rows[-1] + 1] if is_one_piece else trace[rows]


# Days that the trace has had when it was converted before.
def _remove_others(source: str, days: list[str]) -> None:
    wanted = {os.path.join(source, f"date={day}", "part.parquet") for day in days}
    for file in glob.glob(os.path.join(glob.escape(source), "date=*", "part.parquet")):
        if file not in wanted:
            os.unlink(file)


def check_schema(dataset: str) -> None:
    """Raises where a data set is there that has other columns."""
    for file in glob.iglob(os.path.join(glob.escape(dataset), "*", "*", "*.parquet")):
        difference = datachunk.parquet_difference(file)
        if difference:
            raise ValueError(f"{file}: {difference}")
        return


def convert(client: Any, traces: dict[str, str], dataset: str) -> Iterator[fleet.Outcome]:
    """Converts traces, and tells of each as it is done."""
    check_schema(dataset)
    work = os.path.join(dataset, WORK)
    os.makedirs(work, exist_ok=True)
    yield from fleet.run(client, convert_trace, traces, dataset)
    # What killed workers have left.
    shutil.rmtree(work)


def main() -> int:
    parser = fleet.arguments(__doc__.splitlines()[0])
    parser.add_argument("--into", required=True, help="folder of the data set")
    options = parser.parse_args()
    outcomes = []
    with fleet.client_of(options) as client:
        for outcome in convert(client, fleet.traces_in(options.paths), options.into):
            outcomes.append(outcome)
            for problem in (outcome.result or {}).get("problems", ()):
                print(f"{outcome.trace}: {problem}", file=sys.stderr)
    failures = fleet.tell_failures(outcomes)
    messages = sum(outcome.result["messages"] for outcome in outcomes if outcome.result)
    print(f"{len(outcomes) - failures} traces with {messages} messages; {failures} failed.")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
