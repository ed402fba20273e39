"""Files that are read: good ones, bad ones, and what goes on meanwhile."""

import os
import random
import signal
import sys
import threading
import time
import zipfile

import numpy as np
import pytest

import datachunk
from conftest import candump_lines


def test_only_what_is_wanted_is_kept(log):
    trace = datachunk.read(log, where="id==105 and line==1 and changed")
    assert len(trace) == 625 and set(trace.identifier.tolist()) == {0x105}


def test_the_report_tells_of_every_line(tmp_path):
    path = tmp_path / "torn.log"
    path.write_text("(1.5) can0 123#11\nnonsense\n(2.5) can0 123#22\n")
    trace = datachunk.read(path)
    assert trace.report["lines"] == 3 and trace.report["frames"] == len(trace) == 2
    (left_out,) = trace.report["leftOut"]
    assert left_out["count"] == 1 and left_out["lines"] == [2] and left_out["first"] == "nonsense"
    assert trace.report["type"] == "SocketCanDump" and trace.problems == []


def test_types_and_modes_are_taken_and_checked(traces):
    path = traces / "window_lift.asc"
    assert len(datachunk.read(path, type="VectorAsc", mode="strict")) > 0
    for wrong in ({"type": "Nothing"}, {"mode": "lax"}):
        with pytest.raises(ValueError):
            datachunk.read(path, **wrong)
    with pytest.raises(datachunk.TraceError):
        datachunk.read(path, type="CoCTTLog")


def test_recognition_tells_why(traces):
    found = datachunk.recognise(traces / "window_lift.asc")
    assert found.type == "VectorAsc" and found.percent == 100 and "BitCount" in found.line_text


def test_archives_and_compressed_texts_are_traces(recording, log, tmp_path):
    archive = tmp_path / "drive.zip"
    with zipfile.ZipFile(archive, "w") as packed:
        for chunk in sorted(recording.glob("*.dck")):
            packed.write(chunk, chunk.name)
    assert len(datachunk.read(archive)) == len(datachunk.open(archive)) == 10_000
    text = tmp_path / "text.zip"
    with zipfile.ZipFile(text, "w") as packed:
        packed.write(log, log.name)
    assert len(datachunk.read(text)) == 10_000


@pytest.mark.parametrize("function", [datachunk.read, datachunk.open, datachunk.recognise])
def test_missing_files_are_missing(function, tmp_path):
    with pytest.raises(FileNotFoundError):
        function(tmp_path / "nothing.log")


@pytest.mark.parametrize(
    "content",
    [b"", b"hello\n", b"\xff" * 5000, b"PK\3\4" + b"\x80" * 99],
    ids=["empty", "words", "ones", "no archive"],
)
@pytest.mark.parametrize("name", ["bad.log", "bad.dck", "bad.zip"])
def test_bad_files_are_refused(tmp_path, name, content):
    path = tmp_path / name
    path.write_bytes(content)
    with pytest.raises(datachunk.TraceError) as error:
        datachunk.read(path)
    assert str(error.value)
    assert datachunk.recognise(path).explanation or name != "bad.log"


@pytest.mark.parametrize("name", ["noise.log", "noise.dck", "noise.zip"])
def test_noise_is_refused_or_told_of(tmp_path, name):
    path = tmp_path / name
    for seed in range(100):
        path.write_bytes(random.Random(seed).randbytes(seed * 40))
        try:
            assert datachunk.read(path).problems
        except datachunk.TraceError as error:
            assert str(error)


def test_a_torn_chunk_gives_what_is_whole(recording, tmp_path):
    whole = (recording / "drive_0.dck").read_bytes()
    torn = tmp_path / "torn.dck"
    record = 25 + 4
    for lost in range(1, 2500, 249):
        torn.write_bytes(whole[: -lost * record + 13])
        trace = datachunk.read(torn)
        # A message that is cut is shown as far as it goes.
        assert trace.number[:-1].tolist() == list(range(2500 - lost)) and trace.problems
    torn.write_bytes(whole[:20])
    with pytest.raises(datachunk.TraceError):
        datachunk.read(torn)


def test_pipes_are_not_waited_for(tmp_path):
    os.mkfifo(tmp_path / "pipe.log")
    with pytest.raises(OSError):
        datachunk.read(tmp_path / "pipe.log")


def test_names_are_those_of_python(tmp_path):
    path = tmp_path / "Prüfung ☂.log"
    path.write_text(candump_lines(3))
    assert len(datachunk.read(path)) == len(datachunk.read(str(path))) == 3
    with pytest.raises(TypeError):
        datachunk.read(os.fsencode(path))


def test_threads_read_side_by_side(log):
    expected = datachunk.read(log).number
    results = []
    readers = [
        threading.Thread(target=lambda: results.append(datachunk.read(log))) for _ in range(8)
    ]
    for reader in readers:
        reader.start()
    for reader in readers:
        reader.join()
    assert len(results) == 8
    assert all(np.array_equal(trace.number, expected) for trace in results)


@pytest.fixture
def own_turns():
    """Has threads go on only where another one gives the interpreter up by itself."""
    before = sys.getswitchinterval()
    sys.setswitchinterval(1000)
    yield
    sys.setswitchinterval(before)


def test_another_thread_ends_a_long_read_by_ctrl_c(tmp_path, own_turns):
    # Records of zeros that take no room on the disk, and hours to be read to the end.
    endless = tmp_path / "endless.dck"
    endless.touch()
    os.truncate(endless, 1 << 40)
    begin = threading.Event()

    def press():
        begin.wait()
        # Longer than opening the file lets others go on.
        for _ in range(10_000):
            time.sleep(0)
        os.kill(os.getpid(), signal.SIGINT)

    presser = threading.Thread(target=press)
    presser.start()
    before = signal.signal(signal.SIGINT, signal.default_int_handler)
    try:
        with pytest.raises(KeyboardInterrupt):
            begin.set()
            datachunk.read(endless, where="id==1")
    finally:
        signal.signal(signal.SIGINT, before)
        presser.join()
