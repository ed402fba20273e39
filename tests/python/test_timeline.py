"""Recordings as one trace: positions, times, filters."""

import datetime

import numpy as np
import pytest

import datachunk
from conftest import candump_lines

START = 1_700_000_000_000_000


@pytest.fixture(scope="module")
def timeline(recording):
    return datachunk.open(recording)


@pytest.mark.parametrize(
    "rows", [slice(None), slice(2400, 2600), slice(9990, None), slice(None, None, 999),
             slice(None, None, -999), slice(5, 5), slice(-3, None)], ids=str
)
def test_slices_are_traces(timeline, rows):
    trace = timeline[rows]
    assert trace.number.tolist() == list(range(10_000))[rows]
    assert (trace.time == START + trace.number.astype(np.int64) * 1000).all()


def test_positions_are_messages(timeline):
    assert len(timeline) == 10_000
    assert timeline[4321].note == "Tür öffnet" and timeline[4320].note is None
    assert timeline[-1].number == 9999
    assert [message.number for message in timeline] == list(range(10_000))


@pytest.mark.parametrize(
    "ask, error",
    [
        (lambda t: t[10_000], IndexError),
        (lambda t: t["x"], TypeError),
        (lambda t: t.read(-1, 5), IndexError),
        (lambda t: t.read_positions([-1]), IndexError),
        (lambda t: t.read_positions([10_000]), IndexError),
        (lambda t: t.read_positions([5, 1]), ValueError),
        (lambda t: t.find("id==1", -1), IndexError),
        (lambda t: t.filter(None), TypeError),
        (lambda t: t.rate(intervals=0), ValueError),
        (lambda t: t.rate(5, 5), ValueError),
        (lambda t: t.rate(-(2**63), 2**63 - 1), ValueError),
        (lambda t: t.position_of_time(1.5), TypeError),
        (lambda t: t.position_of_time(np.datetime64("NaT")), ValueError),
    ],
)
def test_what_cannot_be_asked_is_an_error(timeline, ask, error):
    with pytest.raises(error):
        ask(timeline)


def test_ends_may_be_far_away(timeline):
    assert len(timeline[: 10**30]) == len(timeline.between(-(2**80), 2**80)) == 10_000
    assert len(timeline.read(10**9, 5)) == len(timeline.read_positions([])) == 0
    assert timeline.find("id==105", 10**30) is None


def test_times_are_half_open(timeline):
    assert (timeline.first_time, timeline.last_time) == (START, START + 9_999_000)
    second = datetime.datetime(2023, 11, 14, 22, 13, 21)
    for start in (START + 1_000_000, np.datetime64(second), second,
                  second.replace(tzinfo=datetime.timezone.utc)):
        trace = timeline.between(start, START + 1_003_000)
        assert trace.number.tolist() == [1000, 1001, 1002]
    assert len(timeline.between(START + 5, START + 5)) == 0
    assert timeline.position_of_time(START + 1) == 1
    assert timeline.position_of_number(7777) == 7777


def test_times_that_fall_are_found(tmp_path):
    trace = datachunk.read(write(tmp_path / "a.log", candump_lines(3, 100) + candump_lines(3, 50)))
    trace.to_chunk(tmp_path / "a.dck")
    timeline = datachunk.open(tmp_path / "a.dck")
    assert timeline.between(50_000_000, 50_002_000).time.tolist() == [50_000_000, 50_001_000]


def write(path, text):
    path.write_text(text)
    return path


@pytest.mark.parametrize(
    "where, expected",
    [
        ("id==105", range(5, 10_000, 16)),
        ("id==105 or number>9997", [*range(5, 9998, 16), 9998, 9999]),
        ("b3==ff", range(255, 10_000, 256)),
        ('note~"tür"', [4321]),
        ("id==7ff", []),
        ("", range(10_000)),
    ],
)
def test_filters_take_what_they_say(timeline, where, expected):
    found = timeline.filter(where)
    assert found.count() == len(expected)
    assert found.positions().tolist() == list(expected)
    trace = found.read()
    assert trace.number.tolist() == list(expected)
    assert list(trace.notes.values()) == (["Tür öffnet"] if 4321 in expected else [])


def test_find_goes_both_ways(timeline):
    assert timeline.find("id==105") == 5
    assert timeline.find("id==105", 6) == 21
    assert timeline.rfind("id==105", 21) == 5
    assert timeline.rfind("id==105") == 9989
    assert timeline.find("id==7ff") is None
    assert timeline.filter("id==105").positions(100, 20).tolist() == [101, 117]


def test_wrong_expressions_tell_the_column(timeline, log):
    for ask in (timeline.filter, timeline.find, lambda where: datachunk.read(log, where=where)):
        with pytest.raises(datachunk.ExpressionError) as error:
            ask("id==105 and b3==100")
        assert error.value.column == 17 and "ff" in error.value.text
    with pytest.raises(ValueError):
        timeline.filter("\ud800")


def test_identifiers_and_rate_count_all(timeline):
    rows = timeline.identifiers()
    assert rows["identifier"].tolist() == list(range(0x100, 0x110))
    assert (rows["count"] == 625).all() and rows["first"].tolist() == list(range(16))
    rate = timeline.rate(intervals=10)
    assert rate.messages.shape == (10, 2) and rate.messages.sum() == 10_000
    assert rate.starts[1] == START + 999_900 and rate.lines.tolist() == [0, 1]


def test_what_comes_later_is_taken_in(log, tmp_path):
    trace = datachunk.read(log)
    trace[:100].to_chunk(tmp_path / "part_0.dck")
    timeline = datachunk.open([tmp_path])
    assert len(timeline) == 100 and not timeline.refresh()
    trace[100:150].to_chunk(tmp_path / "part_1.dck")
    assert timeline.refresh() and len(timeline) == 150


def test_what_is_gone_is_told(log, tmp_path):
    trace = datachunk.read(log)
    for part in range(2):
        trace[part * 5000 : part * 5000 + 5000].to_chunk(tmp_path / f"part_{part}.dck")
    timeline = datachunk.open(tmp_path)
    (tmp_path / "part_0.dck").unlink()
    rest = timeline[:]
    assert rest.number.tolist() == list(range(5000, 10_000))
    assert any("5000 messages" in problem for problem in rest.problems)
    with pytest.raises(LookupError):
        timeline[10]


def test_nothing_readable_is_an_error(tmp_path):
    (tmp_path / "bad.dck").write_bytes(b"nothing")
    with pytest.raises(datachunk.TraceError):
        datachunk.open(tmp_path / "bad.dck")
