"""Work on many traces with a Dask cluster: one task for each, whatever becomes of the others."""

from __future__ import annotations

import argparse
import contextlib
import os
import sys
from typing import Any, Callable, Iterable, Iterator, NamedTuple

from distributed import Client, Future, KilledWorker, LocalCluster, as_completed
from distributed.diagnostics.plugin import UploadFile


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
    # This file first: that of the task imports it.
    for module in dict.fromkeys([__name__, task.__module__]):
        if module != "__main__":
            _send(client, str(sys.modules[module].__file__))
    waiting = {
        _submit(client, task, name, path, options): _Try(name, path) for name, path in traces.items()
    }
    done = as_completed(list(waiting), with_results=True, raise_errors=False)
    for future, result in done:
        # Lets the workers forget the result.
        name, path, number = waiting.pop(future)
        if future.status != "error":
            yield Outcome(name, *result)
        elif issubclass(result[0], KilledWorker) and number < TRIES:
            again = _submit(client, task, name, path, options)
            waiting[again] = _Try(name, path, number + 1)
            done.add(again)
        else:
            yield Outcome(name, None, f"{result[0].__name__}: {result[1]}")


#: Dask gives a task up when four workers have died that had it, though it only waited there.
TRIES = 4


class _Try(NamedTuple):
    name: str
    path: str
    number: int = 1


def _submit(
    client: Client, task: Callable[..., Any], name: str, path: str, options: tuple[Any, ...]
) -> Future:
    return client.submit(_guarded, task, name, path, *options, pure=False)


# Workers that join later get it as well. One that has just died is forgotten at the next try.
def _send(client: Client, file: str) -> None:
    tries = 10
    for left in reversed(range(tries)):
        try:
            client.register_worker_plugin(UploadFile(file), name=f"file {file}")
            return
        except OSError:
            if left == 0:
                raise


def _guarded(
    task: Callable[..., Any], name: str, path: str, *options: Any
) -> tuple[Any, str]:
    try:
        return task(name, path, *options), ""
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
        cluster = options.scheduler or stack.enter_context(
            # The module works without the interpreter's lock, but pandas does not.
            LocalCluster(
                n_workers=options.workers or os.cpu_count(),
                threads_per_worker=1,
                dashboard_address=None,
            )
        )
        yield stack.enter_context(Client(cluster))


def tell_failures(outcomes: Iterable[Outcome]) -> int:
    """Prints what has failed and why; how many that are."""
    failed = [outcome for outcome in outcomes if outcome.failure]
    for outcome in failed:
        print(f"{outcome.trace}: {outcome.failure}", file=sys.stderr)
    return len(failed)
