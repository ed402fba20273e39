"""The example of a cluster: a scheduler and two workers, one of which is killed."""

import argparse
import json
import multiprocessing
import os
import pathlib
import shutil
import signal
import subprocess
import sys

import dask
import pytest

import datachunk
from conftest import PROJECT, candump_lines, files_in

sys.path.insert(0, str(PROJECT / "examples" / "fleet"))

import convert  # noqa: E402
import fleet  # noqa: E402
import query  # noqa: E402
from distributed import Client  # noqa: E402

TRACES = 24
MESSAGES = 2000
DAY = 86_400

# Debian's Dask and tornado are not quite of the same age.
pytestmark = pytest.mark.filterwarnings("ignore:make_current:DeprecationWarning")


@pytest.fixture(scope="module")
def traces(tmp_path_factory):
    """Traces of two days each, and three files that are none."""
    folder = tmp_path_factory.mktemp("fleet")
    for i in range(TRACES):
        (folder / f"car{i % 3}").mkdir(exist_ok=True)
        # Midnight is in the middle.
        start = 19_700 * DAY + i * DAY - MESSAGES // 2000
        (folder / f"car{i % 3}" / f"{i:02}.log").write_text(candump_lines(MESSAGES, start))
    (folder / "empty.log").write_bytes(b"")
    (folder / "letter.txt").write_text("Dear reader,\nthis is no trace.\n")
    (folder / "torn.dck").write_bytes(b"\xff" * 100)
    return folder


@pytest.fixture
def cluster(tmp_path):
    """The address of a scheduler, and the processes of its two workers."""
    address = tmp_path / "scheduler.json"
    common = ["--scheduler-file", str(address), "--no-dashboard"]
    processes = [start("scheduler", *common, "--host", "127.0.0.1", "--port", "0")]
    try:
        with Client(scheduler_file=str(address), timeout=60) as client:
            for _ in range(2):
                processes.append(
                    start(
                        *("worker", *common, "--host", "127.0.0.1", "--no-nanny"),
                        *("--nthreads", "1", "--local-directory", str(tmp_path)),
                    )
                )
            client.wait_for_workers(2, timeout=60)
            yield client, processes[1:]
    finally:
        for process in processes:
            process.kill()
            process.wait()


def start(part, *options):
    return subprocess.Popen(
        [sys.executable, "-B", "-m", f"distributed.cli.dask_{part}", *options],
        stdout=subprocess.DEVNULL,
        stderr=subprocess.DEVNULL,
    )


def killing(victim, outcomes):
    """Passes on the outcomes, and kills the worker at the first: half of the work is its own."""
    all_of_them = []
    for outcome in outcomes:
        if not all_of_them:
            os.kill(victim.pid, signal.SIGKILL)
        all_of_them.append(outcome)
    return all_of_them


def contents(folder: pathlib.Path) -> dict[str, bytes]:
    return {
        str(path.relative_to(folder)): path.read_bytes()
        for path in folder.rglob("*")
        if path.is_file()
    }


def test_a_killed_worker_changes_nothing(cluster, traces, tmp_path):
    client, workers = cluster
    named = fleet.traces_in([str(traces)])
    dataset = tmp_path / "dataset"
    outcomes = killing(workers[0], convert.convert(client, named, str(dataset)))

    assert workers[0].wait(10) == -signal.SIGKILL
    assert {outcome.trace for outcome in outcomes} == set(named) and len(outcomes) == TRACES + 3
    failed = {outcome.trace: outcome.failure for outcome in outcomes if outcome.failure}
    assert set(failed) == {"empty.log", "letter.txt", "torn.dck"}
    assert all(reason.startswith("TraceError: ") for reason in failed.values())
    assert sum(outcome.result["messages"] for outcome in outcomes if outcome.result) == (
        TRACES * MESSAGES
    )

    alone = tmp_path / "alone"
    (alone / convert.WORK).mkdir(parents=True)
    for name in set(named) - set(failed):
        convert.convert_trace(name, named[name], str(alone))
    assert contents(dataset) == contents(alone)
    assert len(contents(dataset)) == 2 * TRACES
    assert convert.WORK not in files_in(dataset)


def test_one_table_comes_back(cluster, traces):
    client, workers = cluster
    named = fleet.traces_in([str(traces)])
    os.kill(workers[1].pid, signal.SIGKILL)
    table, outcomes = query.query(client, named, "id==105 and number<1000")
    assert len(outcomes) == TRACES + 3 and len(table) == TRACES * 63
    assert table["time"].is_monotonic_increasing
    assert (table.groupby("trace")["number"].nunique() == 63).all()


def test_without_workers_it_ends(cluster, traces, monkeypatch):
    client, workers = cluster
    monkeypatch.setattr(fleet, "PATIENCE", 1)
    monkeypatch.setattr(fleet, "LOOK", 0.1)
    named = fleet.traces_in([str(traces)])
    for worker in workers:
        worker.kill()
    outcomes = list(fleet.run(client, query.find_in_trace, named, "err"))
    assert {outcome.trace for outcome in outcomes} == set(named) and len(outcomes) == len(named)
    assert all(outcome.failure.startswith("In 1 seconds no worker") for outcome in outcomes)


# Whether Dask starts another one depends on the moment.
def test_a_worker_may_die_while_it_starts(traces, tmp_path, monkeypatch):
    monkeypatch.setattr(fleet, "PATIENCE", 5)
    monkeypatch.setattr(fleet, "LOOK", 1)
    named = fleet.traces_in([str(traces / "car0")])
    own_cluster = argparse.Namespace(scheduler=None, workers=1)
    folder = dask.config.set({"temporary-directory": str(tmp_path)})
    with folder, fleet.client_of(own_cluster) as client:
        while not multiprocessing.active_children():
            pass
        multiprocessing.active_children()[0].kill()
        outcomes = list(fleet.run(client, query.find_in_trace, named, "id==105"))
    assert {outcome.trace for outcome in outcomes} == set(named)
    for outcome in outcomes:
        assert outcome.failure.startswith("In 5 seconds no worker") or len(outcome.result) == 125


def duckdb(sql):
    """What DuckDB answers, a dictionary for each row."""
    readers = os.environ.get("DATACHUNK_READERS", str(PROJECT / "build" / "readers"))
    if not os.path.isdir(f"{readers}/node_modules/@duckdb") or not shutil.which("node"):
        pytest.skip("DuckDB is not there; test.sh installs it where there is a network.")
    script = PROJECT / "tests" / "parquet" / "read.mjs"
    answer = subprocess.run(
        ["node", script, "query", sql], env={**os.environ, "READERS": readers}, capture_output=True
    )
    assert answer.returncode == 0, answer.stderr.decode()
    return json.loads(answer.stdout)


def test_duckdb_reads_the_data_set(tmp_path):
    named = fleet.traces_in([str(PROJECT / "examples" / "traces")])
    (tmp_path / convert.WORK).mkdir()
    for name, path in named.items():
        convert.convert_trace(name, path, str(tmp_path))
    page = (PROJECT / "docs" / "fleet.md").read_text().replace("/lake/can", str(tmp_path))
    view, count, speed = page.split("```sql")[1].split("```")[0].strip().rstrip(";").split(";\n\n")
    assert duckdb(f"{view}; {count}") == [{"source": "engine_start.log", "count_star()": "150"}]
    trace = datachunk.read(named["engine_start.log"], where="id==c0")
    assert [row["speed"] for row in duckdb(f"{view}; {speed}")] == trace.payload()[:, 2].tolist()
    (row,) = duckdb(f"{view}; SELECT source FROM can WHERE source LIKE 'door%' LIMIT 1")
    assert row == {"source": "door_module.csv"}


def test_what_was_converted_again_takes_its_place(tmp_path):
    log, dataset = tmp_path / "a.log", tmp_path / "dataset"
    (dataset / convert.WORK).mkdir(parents=True)
    for start, days in ((0, ["1970-01-01"]), (DAY - 1, ["1970-01-01", "1970-01-02"]),
                        (DAY, ["1970-01-02"])):
        log.write_text(candump_lines(MESSAGES, start))
        assert convert.convert_trace("x/a.log", str(log), str(dataset))["days"] == len(days)
        (source,) = (dataset).glob("source=*")
        assert source.name == "source=x%2Fa.log"
        assert [path.parent.name[5:] for path in sorted(source.rglob("*.parquet"))] == days


def test_other_columns_are_refused(tmp_path):
    folder = tmp_path / "source=a" / "date=1970-01-01"
    folder.mkdir(parents=True)
    (folder / "part.parquet").write_bytes(b"PAR1 of something else PAR1")
    with pytest.raises(ValueError):
        convert.check_schema(str(tmp_path))


def test_names_are_unique(tmp_path):
    for folder in "ab":
        (tmp_path / folder).mkdir()
        (tmp_path / folder / "x.log").write_text("")
    assert list(fleet.traces_in([str(tmp_path)])) == ["a/x.log", "b/x.log"]
    with pytest.raises(ValueError):
        fleet.traces_in([str(tmp_path / "a"), str(tmp_path / "b")])
