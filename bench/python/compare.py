"""What a message costs in the module, and in python-can where that reads the same file.

compare.py FOLDER   with drive.log, drive.asc and the folder "chunks", of as many messages each
"""

import operator
import os
import sys
import time

import can
import numpy
import pandas

import datachunk

folder = sys.argv[1]
log, asc, chunks = (os.path.join(folder, name) for name in ("drive.log", "drive.asc", "chunks"))


def cost(work, runs=3):
    """Nanoseconds of the processor, the least of some runs."""
    best = float("inf")
    for _ in range(runs):
        start = time.process_time_ns()
        work()
        best = min(best, time.process_time_ns() - start)
    return best


def row(name, nanoseconds, messages, ratio=None):
    times = f", {ratio:.0f} times read()" if ratio else ""
    print(f"{name:34}{nanoseconds / messages:10.1f} ns a message{times}", flush=True)


FIELDS = (
    "timestamp arbitration_id channel is_extended_id is_remote_frame is_fd bitrate_switch "
    "error_state_indicator is_error_frame is_rx dlc data"
).split()


def with_python_can(path):
    """The same columns, as one gets them with python-can."""
    fields = operator.attrgetter(*FIELDS)
    with can.LogReader(path) as reader:
        columns = list(zip(*map(fields, reader)))
    return [numpy.array(column) for column in columns[:2] + columns[3:-1]], columns[-1]


def iterate_python_can(path):
    with can.LogReader(path) as reader:
        for _ in reader:
            pass


print(f"numpy {numpy.__version__}, pandas {pandas.__version__}, python-can {can.__version__}")
trace = datachunk.read(log)
count = len(trace)
for name, path in (("candump", log), ("asc", asc)):
    own = cost(lambda: datachunk.read(path))
    row(f"{name}, read()", own, count)
    for what, work in (("columns", with_python_can), ("nothing", iterate_python_can)):
        peer = cost(lambda: work(path), 1)
        row(f"{name}, python-can, into {what}", peer, count, peer / own)
chunk = os.path.join(folder, "drive.dck")
trace.to_chunk(chunk, overwrite=True)
row("one chunk file, read()", cost(lambda: datachunk.read(chunk)), count)
timeline = datachunk.open(chunks)
row("folder of chunks, timeline[:]", cost(lambda: timeline[:]), len(timeline))
row("to_pandas()", cost(trace.to_pandas), count)
row('to_pandas(data="columns")', cost(lambda: trace.to_pandas("columns")), count)
row("to_chunk()", cost(lambda: trace.to_chunk(chunk, overwrite=True)), count)
parquet = os.path.join(folder, "drive.parquet")
row("to_parquet()", cost(lambda: trace.to_parquet(parquet, overwrite=True)), count)

rows = timeline.identifiers()
usual = rows[numpy.argsort(rows["count"])[len(rows) // 2]]
found = timeline.filter(f"id=={usual['identifier']:x}")
for name, work in (
    ("open()", lambda: datachunk.open(chunks)),
    (f"count of {found.count()} messages", found.count),
    ("their positions", found.positions),
    ("read()", found.read),
):
    start = time.perf_counter_ns()
    work()
    print(f"{name:34}{(time.perf_counter_ns() - start) / 1e6:10.2f} ms")
