"""What is written is whole or not there, and reads back the same."""

import hashlib
import os

import numpy as np
import pytest

import datachunk
from conftest import files_in

FIELDS = ("time", "line", "identifier", *datachunk._message.FLAGS, "length")


def assert_same(one, other, fields=FIELDS):
    for name in fields:
        assert np.array_equal(getattr(one, name), getattr(other, name)), name
    assert [message.data for message in one] == [message.data for message in other]


@pytest.mark.parametrize("name", ["a.log", "a.asc", "a.trc", "a.csv", "a.jsonl", "a.pcapng", "a.parquet"])
def test_every_format_is_written(traces, tmp_path, name):
    trace = datachunk.read(traces / "engine_start.log")
    told = trace.export(tmp_path / name)
    assert told["written"] == len(trace) and told["leftOut"] == 0
    straight = datachunk.convert(traces / "engine_start.log", tmp_path / f"b{name}")
    assert straight["written"] == len(trace) and straight["report"]["frames"] == len(trace)
    # The end of a Parquet file tells more of its source when that was converted straight.
    same = slice(0, 1000 if name == "a.parquet" else None)
    written, converted = (tmp_path / name).read_bytes(), (tmp_path / f"b{name}").read_bytes()
    assert written[same] == converted[same]


def test_parquet_tells_its_source(traces, tmp_path):
    source = traces / "engine_start.log"
    datachunk.convert(source, tmp_path / "a.parquet")
    end = (tmp_path / "a.parquet").read_bytes()
    digest = hashlib.sha256(source.read_bytes()).hexdigest()
    assert end.startswith(b"PAR1") and end.endswith(b"PAR1")
    assert digest.encode() in end and b'"frames": 294' in end and str(source).encode() in end
    datachunk.read(source).to_parquet(tmp_path / "b.parquet", source="drive 7", sha256=digest)
    end = (tmp_path / "b.parquet").read_bytes()
    assert digest.encode() in end and b'"frames": 294' in end and b"drive 7" in end


def test_a_log_reads_back_the_same(traces, tmp_path):
    trace = datachunk.read(traces / "engine_start.log")
    trace.export(tmp_path / "a.log")
    assert_same(trace, datachunk.read(tmp_path / "a.log"))


def test_chunks_keep_notes_bookmarks_and_every_flag(traces, tmp_path):
    trace = datachunk.read(traces / "engine_start.log")
    trace.notes.update({0: "first", 293: "Schluß"})
    trace.bookmarks[7] = "here"
    trace.to_chunk(tmp_path / "a.dck")
    for again in (datachunk.read(tmp_path / "a.dck"), datachunk.open(tmp_path)[:]):
        assert_same(trace, again)
        assert again.notes == trace.notes and again.bookmarks == trace.bookmarks
        assert np.array_equal(again.number, trace.number)


def test_picked_rows_keep_their_notes(recording, tmp_path):
    trace = datachunk.read(recording)[[9000, 4321, 4321]]
    trace.to_chunk(tmp_path / "a.dck")
    again = datachunk.read(tmp_path / "a.dck")
    assert again.number.tolist() == [9000, 9001, 9002]
    assert again.notes == {1: "Tür öffnet", 2: "Tür öffnet"}


def test_nothing_is_overwritten_unless_told(log, tmp_path):
    trace = datachunk.read(log)[:10]
    path = tmp_path / "a.csv"
    path.write_text("mine")
    with pytest.raises(FileExistsError):
        trace.export(path)
    assert path.read_text() == "mine"
    trace.export(path, overwrite=True)
    assert path.read_text().startswith("time,")
    assert files_in(tmp_path) == ["a.csv"]


def test_what_fails_leaves_nothing(log, tmp_path):
    trace = datachunk.read(log)
    with pytest.raises(ValueError):
        trace.export(tmp_path / "a.unknown")
    with pytest.raises(ValueError):
        trace[:0].to_chunk(tmp_path / "a.dck")
    with pytest.raises(FileNotFoundError):
        trace.export(tmp_path / "nowhere" / "a.csv")
    (tmp_path / "bad.log").write_bytes(b"no trace")
    with pytest.raises(datachunk.TraceError):
        datachunk.convert(tmp_path / "bad.log", tmp_path / "a.csv")
    assert files_in(tmp_path) == ["bad.log"]


def test_a_full_disk_is_an_error(log):
    trace = datachunk.read(log)
    rows = trace._rows()
    file = os.open("/dev/full", os.O_WRONLY)
    try:
        with pytest.raises(OSError):
            datachunk._core.write(rows, file, "csv", {})
    finally:
        os.close(file)


def test_columns_that_do_not_fit_are_refused(log):
    trace = datachunk.read(log)
    for name, wrong in (
        ("length", trace.length[1:]),
        ("offsets", trace.offsets + len(trace.data)),
        ("offsets", trace.offsets - 2**62),
        ("time", trace.time.reshape(2, -1)),
    ):
        arrays = {**trace._arrays, name: wrong}
        with pytest.raises(ValueError):
            datachunk._core.Rows(arrays, trace.data, {}, {})
