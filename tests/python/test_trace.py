"""Traces in memory: columns, views, and what other libraries get of them."""

import gc
import pickle

import numpy as np
import pytest

import datachunk


def columns_of(trace):
    names = ("time", "number", "line", "identifier", *datachunk._message.FLAGS, "length", "offsets")
    return {name: getattr(trace, name) for name in names}


def test_columns_say_what_the_lines_do(tmp_path):
    path = tmp_path / "kinds.log"
    path.write_text(
        "(1700000000.000001) can0 123#DEADBEEF\n"
        "(1700000000.000002) can1 1ABCDEF0#\n"
        "(1700000000.000003) can0 7FF#R4\n"
        "(1700000000.000004) can2 123##3" + "11" * 12 + "\n"
        "(1700000000.000005) can0 20000080#0000000000000000\n"
    )
    trace = datachunk.read(path)
    assert trace.time.tolist() == [1_700_000_000_000_000 + i for i in range(1, 6)]
    assert trace.times[0] == np.datetime64("2023-11-14T22:13:20.000001")
    assert trace.identifier.tolist() == [0x123, 0x1ABCDEF0, 0x7FF, 0x123, 0xFFFF00EF]
    assert trace.line.tolist() == [0, 1, 0, 2, 0]
    assert trace.extended.tolist()[:4] == [False, True, False, False]
    assert trace.remote.tolist() == [False, False, True, False, False]
    assert trace.fd.tolist() == [False, False, False, True, False]
    assert trace.brs.tolist() == trace.esi.tolist() == trace.fd.tolist()
    assert trace.error.tolist() == [False] * 4 + [True]
    assert trace.length.tolist()[:4] == [4, 0, 4, 12]
    assert [message.data for message in trace][:2] == [bytes.fromhex("DEADBEEF"), b""]
    assert trace[3].data == b"\x11" * 12
    assert trace.payload().shape == (5, 64)
    assert trace.payload()[3].tolist() == [0x11] * 12 + [0] * 52
    assert trace.payload(2)[0].tolist() == [0xDE, 0xAD]


def test_columns_are_shown_where_they_lie(log):
    trace = datachunk.read(log)
    kept = columns_of(trace[100:200:3])
    expected = {name: array.copy() for name, array in kept.items()}
    for name, array in kept.items():
        assert np.shares_memory(array, getattr(trace, name)), name
        assert not array.flags.writeable
    assert np.shares_memory(trace.times, trace.time)
    del trace
    gc.collect()
    for name, array in kept.items():
        assert (array == expected[name]).all()


@pytest.mark.parametrize(
    "rows",
    [slice(10, 20), slice(None, None, -7), slice(-5, None), slice(20, 10), [3, 3, 1], "mask"],
    ids=str,
)
def test_slices_keep_rows_together(recording, rows):
    whole = datachunk.read(recording)
    rows = whole.identifier == 0x105 if isinstance(rows, str) else rows
    part = whole[rows]
    numbers = part.number.tolist()
    assert numbers == whole.number[rows].tolist() and len(part) == len(numbers)
    assert [int.from_bytes(message.data, "big") for message in part] == numbers
    assert part.notes == {numbers.index(4321): "Tür öffnet"} if 4321 in numbers else not part.notes


def test_notebooks_show_both_ends(log, recording):
    trace = datachunk.read(log)
    trace.notes[9_999] = "<b>late</b>"
    shown = trace._repr_html_()
    assert shown.count("<tr>") == 1 + 5 + 1 + 5 and "10000 messages" in shown
    assert "<td>2023-11-14 22:13:20.004000</td><td>0</td><td>104</td>" in shown
    assert shown.count("…") == 8 and "&lt;b&gt;late&lt;/b&gt;" in shown
    assert trace[:6]._repr_html_().count("<tr>") == 7 and "0 messages" in trace[:0]._repr_html_()
    assert datachunk.open(recording)._repr_html_() == datachunk.read(recording)._repr_html_()


@pytest.mark.parametrize("row", [10_000, -10_001])
def test_rows_outside_are_an_error(log, row):
    with pytest.raises(IndexError):
        datachunk.read(log)[row]


def test_pandas_gets_useful_types(recording):
    trace = datachunk.read(recording)
    frame = trace.to_pandas()
    assert str(frame.dtypes["time"]) == "datetime64[ns]" and str(frame.dtypes["fd"]) == "bool"
    assert (frame["time"].astype("int64") // 1000 == trace.time).all()
    assert frame["data"][4321] == (4321).to_bytes(4, "big")
    assert frame["note"].dropna().to_dict() == {4321: "Tür öffnet"} and frame["note"][0] is None
    assert (frame.groupby("identifier").size() == 625).all()
    wide = trace.to_pandas("columns")
    assert (wide["b2"] == trace.number // 256 % 256).all() and "data" not in wide
    with pytest.raises(ValueError):
        trace.to_pandas("words")


def test_an_empty_trace_is_one(log):
    empty = datachunk.read(log, where="id==7ff")
    assert len(empty) == 0 and list(empty) == [] and empty.payload().shape == (0, 8)
    assert len(empty.to_pandas()) == 0 and len(empty[:5]) == 0


@pytest.mark.parametrize("rows", [slice(4300, 4400), slice(None, None, -50), [7, 7]], ids=str)
def test_traces_and_errors_can_be_sent(recording, rows):
    part = datachunk.read(recording)[rows]
    sent = pickle.loads(pickle.dumps(part))
    assert list(sent) == list(part) and len(sent.data) == 4 * len(part)
    assert not sent.time.flags.writeable
    error = pickle.loads(pickle.dumps(datachunk.ExpressionError("No.", 3, "no")))
    assert str(error) == "column 3: No." and error.column == 3
