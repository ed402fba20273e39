"""Work on many traces with a Dask cluster: one task for each, whatever becomes of the others."""

from __future__ import annotations

import argparse
import asyncio
import contextlib
import os
import sys
import time
from typing import Any, Callable, Iterable, Iterator, NamedTuple

import cloudpickle
from distributed import Client, Future, KilledWorker, LocalCluster, as_completed


class Outcome(NamedTuple):
    """What became of a trace."""

    trace: str  #: its name
    result: Any  #: what the task has returned, None when it has failed
    failure: str  #: why there is no result; empty when there is one


def traces_in(paths: Iterable[str]) -> dict[str, str]:
    """The files by names of their own: all in a folder by their path in it, others by their name.

    Two of the same name are an error, for one would take the place of the other.
    """
    traces: dict[str, str] = {}
    for name, path in _named(paths):
        if name in traces:
            raise ValueError(f"Two traces are called {name}: {traces[name]} and {path}")
        traces[name] = path
    return traces


def _named(paths: Iterable[str]) -> Iterator[tuple[str, str]]:
    for path in paths:
        if not os.path.isdir(path):
            yield os.path.basename(path), path
            continue
        for folder, folders, files in os.walk(path):
            folders[:] = sorted(name for name in folders if not name.startswith("."))
            for name in sorted(files):
                if not name.startswith("."):
                    full = os.path.join(folder, name)
                    yield os.path.relpath(full, path), full


def run(
    client: Client, task: Callable[..., Any], traces: dict[str, str], *options: Any
) -> Iterator[Outcome]:
    """Calls task(name, path, *options) on the workers, and tells of each trace as it is done.

    A worker that dies has its tasks run again by others, so a task may run twice and has to leave
    the same behind. A task that takes several workers with it fails.
    """
    call = _Call(task)
    waiting = {
        _submit(client, call, name, path, options): _Try(name, path) for name, path in traces.items()
    }
    done = as_completed(list(waiting), with_results=True, raise_errors=False)
    for future, result in _while_workers_stay(client, done):
        # Lets the workers forget the result.
        name, path, number = waiting.pop(future)
        if future.status == "cancelled":
            yield Outcome(name, None, "The scheduler has gone, or has forgotten the task")
        elif future.status != "error":
            yield Outcome(name, *result)
        elif issubclass(result[0], KilledWorker) and number < TRIES:
            again = _submit(client, call, name, path, options)
            waiting[again] = _Try(name, path, number + 1)
            done.add(again)
        else:
            yield Outcome(name, None, f"{result[0].__name__}: {result[1]}")
    if waiting:
        client.cancel(list(waiting))
    for left in waiting.values():
        yield Outcome(left.name, None, f"In {PATIENCE} seconds no worker was at work for {LOOK}")


#: Seconds without a result or a worker that stays at work, after which the rest is given up. Dask
#: would wait for ever: workers that die before they have a task count for no task.
PATIENCE = 60
#: Seconds between two looks at the workers: who has tasks at both stays at work.
LOOK = 5


def _while_workers_stay(client: Client, done: as_completed) -> Iterator[tuple[Future, Any]]:
    before: set[str] = set()
    last_hope = last_look = time.monotonic()
    while not done.is_empty():
        results = done.next_batch(block=False)
        has_hope = bool(results)
        while results:
            yield results.pop(0)
        now = time.monotonic()
        if now - last_look >= LOOK:
            workers = _at_work(client)
            has_hope = has_hope or bool(workers & before)
            before, last_look = workers, now
        if has_hope:
            last_hope = now
        elif now - last_hope >= PATIENCE:
            return
        else:
            time.sleep(0.05)


def _at_work(client: Client) -> set[str]:
    try:
        return {worker for worker, tasks in client.processing().items() if tasks}
    except OSError:
        return set()


#: Dask gives a task up when four workers have died that had it, though it only waited there.
TRIES = 4


class _Try(NamedTuple):
    name: str
    path: str
    number: int = 1


def _submit(
    client: Client, call: _Call, name: str, path: str, options: tuple[Any, ...]
) -> Future:
    return client.submit(_guarded, call.code, name, path, *options, pure=False)


class _Call:
    """The code of a task, which goes along with it: workers come and go."""

    def __init__(self, task: Callable[..., Any]) -> None:
        for module in {__name__, task.__module__} - {"__main__"}:
            cloudpickle.register_pickle_by_value(sys.modules[module])
        self.code = cloudpickle.dumps(task)


def _guarded(code: bytes, name: str, path: str, *options: Any) -> tuple[Any, str]:
    try:
        return cloudpickle.loads(code)(name, path, *options), ""
    except (OSError, ValueError, MemoryError) as error:
        return None, f"{type(error).__name__}: {error}"


def arguments(description: str) -> argparse.ArgumentParser:
    """What the commands have in common."""
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("paths", nargs="+", help="traces, and folders of them")
    parser.add_argument("--scheduler", help="address of the cluster; by default one of this machine")
    parser.add_argument("--workers", type=int, help="processes of a cluster of this machine")
    return parser


@contextlib.contextmanager
def client_of(options: argparse.Namespace) -> Iterator[Client]:
    """A client of the cluster that the options name, or of one that ends with it."""
    with contextlib.ExitStack() as stack:
        address = options.scheduler
        if not address:
            cluster = LocalCluster(n_workers=0, threads_per_worker=1, dashboard_address="127.0.0.1:0")
            stack.callback(_close, cluster)
            # The module works without the interpreter's lock, but pandas does not.
            cluster.scale(options.workers or os.cpu_count())
            # A cluster is waited for, and for ever where a worker has died while it started.
            address = cluster.scheduler_address
        yield stack.enter_context(Client(address))


def _close(cluster: LocalCluster) -> None:
    seconds = 5
    try:
        cluster.close(timeout=seconds)
    except asyncio.TimeoutError:
        # The end of the program would try it again; workers end with the program anyway.
        cluster.shutdown_on_close = False


def tell_failures(outcomes: Iterable[Outcome]) -> int:
    """Prints what has failed and why; how many that are."""
    failed = [outcome for outcome in outcomes if outcome.failure]
    for outcome in failed:
        print(f"{outcome.trace}: {outcome.failure}", file=sys.stderr)
    return len(failed)
