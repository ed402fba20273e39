"""Reads traces with several programs and tells what each makes of them; see peers.sh."""

import csv
import json
import logging
import os
import re
import struct
import subprocess
import sys
import tempfile
from collections import Counter, namedtuple
from pathlib import Path

# What is compared of a frame; the time in microseconds or None, the kind of letters x, r and f.
Frame = namedtuple("Frame", "time id kind length data")
# What a reader makes of a trace. It has told of a loss when it printed of one or failed.
Reading = namedtuple("Reading", "frames has_told")


def letters_of(is_extended, is_remote, is_fd):
    return ("x" if is_extended else "") + ("r" if is_remote else "") + ("f" if is_fd else "")


def frame(microseconds, id, letters, length, data):
    # CAN FD has no remote frames, and what else an error frame holds is no one's agreement.
    if id == "error":
        return Frame(microseconds, id, "", 0, "")
    kind = "".join(letter for letter in "xrf" if letter in letters)
    if "r" in kind:
        return Frame(microseconds, id, kind.replace("f", ""), length, "")
    return Frame(microseconds, id, kind, length, data)


def faithful_frames(trace):
    frames = []
    for row in Path(f"{trace}.faithful").read_text().splitlines():
        _, stamp, id, letters, length, data, _, _ = row.split()
        microseconds = None if stamp == "-" else int(stamp)
        id = id if id == "error" else int(id, 16)
        frames.append(frame(microseconds, id, letters, int(length), data.replace("-", "")))
    return frames


def socketcan_frame(microseconds, flagged_id, is_fd, length, data):
    letters = letters_of(flagged_id & 0x80000000, flagged_id & 0x40000000, is_fd)
    id = "error" if flagged_id & 0x20000000 else flagged_id & 0x1FFFFFFF
    return frame(microseconds, id, letters, length, data)


def candump_frame(seconds, part, id, remote, is_fd, length, data):
    flags = (0x80000000 if len(id) > 3 else 0) | (0x40000000 if remote else 0)
    microseconds = int(seconds) * 1000000 + int(part)
    return socketcan_frame(microseconds, int(id, 16) | flags, is_fd, length,
                           data.decode().lower())


def run(*command, **options):
    # Messages are looked through for English words.
    environment = {**os.environ, "LC_ALL": "C.UTF-8", "TZ": "UTC"}
    return subprocess.run(command, capture_output=True, env=environment, **options)


def frames_of_json(lines):
    frames = []
    for line in lines.splitlines():
        m = json.loads(line)
        letters = letters_of(m["extended"], m["remote"], m["fd"])
        id = "error" if m["error"] else m["id"]
        microseconds = m["seconds"] * 1000000 + m["microseconds"]
        frames.append(frame(microseconds, id, letters, m["length"], m["data"]))
    return frames


def json_lines(trace):
    return Reading(frames_of_json(trace.read_bytes()), False)


def datachunk(*options):
    def read(trace):
        done = run(os.environ["DATACHUNK"], "dump", "--json", *options, str(trace))
        frames = frames_of_json(done.stdout)
        return Reading(frames, done.returncode != 0 or b"not all of it" in done.stderr)

    return read


def python_can(trace):
    import can

    told = []
    handler = logging.Handler(logging.WARNING)
    handler.emit = told.append
    logging.getLogger("can").propagate = False
    logging.getLogger("can").handlers = [handler]
    frames = []
    # The end of the name chooses the reader.
    suffix = ".log" if is_compact_candump(trace) else trace.suffix.lower()
    with tempfile.TemporaryDirectory() as folder:
        link = Path(folder, "trace" + suffix)
        link.symlink_to(trace.resolve())
        try:
            for m in can.LogReader(str(link)):
                letters = letters_of(m.is_extended_id, m.is_remote_frame, m.is_fd)
                id = "error" if m.is_error_frame else m.arbitration_id
                data = bytes(m.data or b"").hex()
                frames.append(frame(round(m.timestamp * 1e6), id, letters, m.dlc, data))
        except Exception as error:  # of any kind: whoever calls it sees it
            told.append(error)
    return Reading(frames, bool(told))


def frames_of_capture(data):
    position = 24
    while position + 16 <= len(data):
        seconds, part, size, _ = struct.unpack_from("<IIII", data, position)
        packet = data[position + 16:position + 16 + size]
        position += 16 + size
        # Tags before the frame name its protocol; the last one is 0.
        tag = -1
        is_fd = b"canfd" in packet[:12]
        while tag != 0:
            tag, tag_size = struct.unpack_from(">HH", packet)
            packet = packet[4 + tag_size:]
        id, length = struct.unpack_from("<IB", packet)
        payload = b"" if id & 0x40000000 else packet[8:8 + length]
        yield socketcan_frame(seconds * 1000000 + part, id, is_fd, length, payload.hex())


def tshark(trace):
    with tempfile.TemporaryDirectory() as folder:
        capture = Path(folder, "trace.pcap")
        done = run("tshark", "-r", str(trace), "-F", "pcap", "-w", str(capture))
        data = capture.read_bytes() if capture.exists() else b""
    return Reading(list(frames_of_capture(data)),
                   done.returncode != 0 or b"tshark:" in done.stderr)


compact_line = re.compile(rb"\((\d+)\.(\d+)\) +\S+ +([0-9A-F]+)#(#[0-9A-F])?(R?)(\S*)")


def compact_frame(seconds, part, id, fd, remote, rest):
    length = int(rest[:1] or b"0", 16) if remote else len(rest) // 2
    return candump_frame(seconds, part, id, remote, fd, length, rest)


def asc2log(trace):
    done = run("asc2log", "-I", str(trace))
    # That it has no German names of months says nothing of frames.
    told = re.sub(rb"Setting locale to 'de_DE' failed!\nNot able .*\n", b"", done.stderr)
    lines = [(line, compact_line.match(line)) for line in done.stdout.splitlines()]
    told += b"".join(line for line, match in lines if not match)
    frames = [compact_frame(*match.groups()) for _, match in lines if match]
    return Reading(frames, done.returncode != 0 or told != b"")


long_line = re.compile(rb"\((\d+)\.(\d+)\) +\S+ +([0-9A-F]+) +\[(\d+)\]  (remote)?(.*)")


def long_frame(seconds, part, id, length, remote, rest):
    data = b"".join(rest.split()[:int(length)])
    return candump_frame(seconds, part, id, remote, len(length) > 1, int(length), data)


def log2long(trace):
    done = run("log2long", input=trace.read_bytes())
    frames = [long_frame(*long_line.match(line).groups()) for line in done.stdout.splitlines()]
    return Reading(frames, done.returncode != 0 or done.stderr != b"")


def is_compact_candump(trace):
    with open(trace, "rb") as file:
        return any(re.match(rb"\s*\(\d+\.\d+\)\s+\S+\s+[0-9A-Fa-f]+#", line) for line in file)


def has_suffix(*suffixes):
    return lambda trace: trace.suffix.lower() in suffixes


readers = [
    ("datachunk", lambda trace: True, datachunk()),
    ("datachunk --strict", lambda trace: True, datachunk("--strict")),
    ("python-can: .asc", has_suffix(".asc"), python_can),
    ("python-can: .trc", has_suffix(".trc"), python_can),
    ("python-can: candump", is_compact_candump, python_can),
    ("tshark: candump", is_compact_candump, tshark),
    ("asc2log: .asc", has_suffix(".asc"), asc2log),
    ("log2long: candump", is_compact_candump, log2long),
]


def is_same(wanted, got, shift):
    is_in_time = wanted.time is None or abs(got.time - wanted.time - shift) <= 1
    return is_in_time and got[1:] == wanted[1:]


def differences(wanted, got):
    """Counts the frames that are wrong, lost and invented."""
    timed = [(w.time, g.time) for w, g in zip(wanted, got) if w.time is not None]
    # A reader may count relative times from a start of its own, the same for all frames.
    shifts = {0, timed[0][1] - timed[0][0]} if timed else {0}
    all_counts = []
    for shift in shifts:
        if len(wanted) == len(got):
            missed = further = sum(not is_same(w, g, shift) for w, g in zip(wanted, got))
        else:
            left = Counter(wanted)
            found = Counter(g._replace(time=g.time - shift if timed else None) for g in got)
            missed = sum((left - found).values())
            further = sum((found - left).values())
        wrong = min(missed, further)
        all_counts.append((wrong, missed - wrong, further - wrong))
    return min(all_counts, key=sum)


def outcome(reading, counts):
    if not any(counts):
        return "whole"
    if reading.has_told:
        return "told" if reading.frames else "refused"
    return "silent"


def compare(traces, is_verbose):
    outcomes, kinds = ("whole", "told", "silent", "refused"), ("wrong", "lost", "invented")
    row = "{:22}" + "{:>9}" * 8
    print(row.format("reader", "files", *outcomes, *kinds))
    for name, claims, read in readers:
        files, frames = Counter(), Counter()
        for trace in filter(claims, traces):
            reading = read(trace)
            counts = differences(faithful_frames(trace), reading.frames)
            what = outcome(reading, counts)
            files[what] += 1
            if what == "silent":
                frames.update(dict(zip(kinds, counts)))
            if is_verbose and what != "whole":
                print(f"  {what}: {trace} wrong, lost, invented: {counts}")
        print(row.format(name, sum(files.values()), *(files[what] for what in outcomes),
                         *(frames[kind] for kind in kinds)))


def csv_rows(trace):
    frames = []
    with open(trace, newline="", encoding="utf-8") as file:
        for row in csv.DictReader(file):
            letters = letters_of(row["extended"] == "1", row["remote"] == "1", row["fd"] == "1")
            id = "error" if row["error"] == "1" else int(row["id"], 16)
            microseconds = round(float(row["time"]) * 1e6)
            frames.append(frame(microseconds, id, letters, int(row["length"]),
                                row["data"].lower()))
    return Reading(frames, False)


capture_fields = ("frame.time_epoch", "_ws.col.Protocol", "can.id", "can.flags.xtd",
                  "can.flags.rtr", "can.flags.err", "can.len", "data.data")


def tshark_fields(trace):
    """What is shown of a capture, not what is in its packets."""
    # A protocol above CAN, found by its shape, would take the payload.
    done = run("tshark", "-r", str(trace), "--disable-protocol", "autosar-nm", "-T", "fields",
               *(part for field in capture_fields for part in ("-e", field)))
    frames = []
    for line in done.stdout.decode().splitlines():
        time, protocol, id, extended, remote, error, length, data = line.split("\t")
        seconds, part = time.split(".")
        letters = letters_of(extended == "1", remote == "1", protocol == "CANFD")
        frames.append(frame(int(seconds) * 1000000 + int(part[:6]),
                            "error" if error == "1" else int(id), letters, int(length), data))
    return Reading(frames, done.returncode != 0)


# What a reader is known not to take of a format, for which the file is not to blame: the frames,
# or all of a trace with such a frame.
Limit = namedtuple("Limit", "name concerns ends_trace")
no_fd = Limit("CAN FD", lambda f: "f" in f.kind, False)
no_remote = Limit("remote", lambda f: "r" in f.kind, False)
no_trace_with_remote = Limit("traces with remote", no_remote.concerns, True)
no_errors = Limit("errors", lambda f: f.id == "error", False)
no_empty_fd = Limit("empty CAN FD", lambda f: "f" in f.kind and f.length == 0, False)

# A format, the end of its names, the unit of its times in microseconds, what is left out of it, and
# its readers.
Conversion = namedtuple("Conversion", "format suffix unit left_out readers")
conversions = [
    Conversion("candump", ".log", 1, [], [("datachunk", datachunk(), []),
                                          ("python-can", python_can, []),
                                          ("log2long", log2long, []), ("tshark", tshark, [])]),
    Conversion("candump-screen", ".txt", 1, [], [("datachunk", datachunk(), [])]),
    Conversion("asc", ".asc", 1, [], [("datachunk", datachunk(), []),
                                      ("python-can", python_can, [no_empty_fd]),
                                      ("asc2log", asc2log, [])]),
    Conversion("trc11", ".trc", 100, [no_fd],
               [("datachunk", datachunk(), []),
                ("python-can", python_can, [no_trace_with_remote, no_errors])]),
    Conversion("trc21", ".trc", 1, [], [("datachunk", datachunk(), []),
                                        ("python-can", python_can,
                                         [no_fd, no_remote, no_errors])]),
    Conversion("csv", ".csv", 1, [], [("Python's csv", csv_rows, [])]),
    Conversion("jsonl", ".jsonl", 1, [], [("Python's json", json_lines, [])]),
    Conversion("pcapng", ".pcapng", 1, [], [("tshark", tshark_fields, [])]),
]


def as_frame_on_bus(f):
    """What becomes of lengths that no frame has, and whether the frame has one."""
    lengths = [*range(9), 12, 16, 20, 24, 32, 48, 64]
    if f.length <= 8 or (f.length in lengths and "f" in f.kind):
        return f, False
    length = next(length for length in lengths if length >= f.length)
    kind = f.kind if "f" in f.kind else f.kind + "f"
    return f._replace(kind=kind, length=length, data=f.data.ljust(2 * length, "0")), True


def without(frames, limits):
    """What is left of the frames, and how many each limit has taken."""
    taken = Counter()
    for limit in limits:
        concerned = [f for f in frames if limit.concerns(f)]
        left = [] if limit.ends_trace and concerned else [f for f in frames
                                                          if not limit.concerns(f)]
        taken[limit.name] += len(frames) - len(left)
        frames = left
    return frames, +taken


def wrong_frames(wanted, got, unit):
    """Times may count from a start, and have fewer digits."""
    shift = got[0].time - wanted[0].time if wanted and got else 0
    wrong = sum(abs(g.time - w.time - shift) > unit or w[1:] != g[1:]
                for w, g in zip(wanted, got))
    return wrong + abs(len(wanted) - len(got))


class Table:
    def __init__(self):
        self.rows = {}
        print(self.text("format", "reader", "files", "frames", "wrong", "not for this reader"))

    @staticmethod
    def text(*cells):
        return "{:16}{:15}{:>6}{:>9}{:>7}  {}".format(*cells)

    def add(self, format, reader, frames, wrong, taken):
        counts, limits = self.rows.setdefault((format, reader), (Counter(), Counter()))
        counts.update(files=1, frames=frames, wrong=wrong)
        limits.update(taken)

    def print(self):
        for names, (counts, limits) in self.rows.items():
            print(self.text(*names, counts["files"], counts["frames"], counts["wrong"],
                            ", ".join(f"{name} {count}" for name, count in limits.items())))


def told_counts(stderr, beginning):
    return sum(int(count) for count in
               re.findall(rb"^%s.*\((\d+)\)" % beginning, stderr, re.MULTILINE))


def convert_one(conversion, trace, original, output, table):
    """Returns what is wrong that no reader tells."""
    done = run(os.environ["DATACHUNK"], "convert", "--as", conversion.format, str(trace),
               str(output))
    wanted, filled = original, 0
    if conversion.format not in ("csv", "jsonl"):
        wanted = [as_frame_on_bus(f) for f in original]
        filled = sum(is_filled for _, is_filled in wanted)
        wanted = [f for f, _ in wanted]
    # An FD frame that is left out has no length.
    wanted, left_out = without(wanted, conversion.left_out)
    told = told_counts(done.stderr, b".*Left out:"), \
        told_counts(done.stderr, b".*Written with another length:")
    wrong = done.returncode != 0 or told[0] != sum(left_out.values()) \
        or (told[1] != filled and not left_out)
    if wrong:
        print(f"{trace}: {conversion.format}: {done.stderr.decode()}")
    for reader, read, limits in conversion.readers:
        expected, taken = without(wanted, limits)
        got = [] if wanted and not expected else without(read(output).frames, limits)[0]
        frames_wrong = wrong_frames(expected, got, conversion.unit)
        table.add(conversion.format, reader, len(expected), frames_wrong, taken + left_out)
        if frames_wrong:
            print(f"{trace}: {conversion.format} read by {reader}: {frames_wrong} wrong")
        wrong += frames_wrong
    return wrong


def convert(traces):
    table = Table()
    wrong = 0
    with tempfile.TemporaryDirectory() as folder:
        for number, trace in enumerate(traces):
            original = datachunk()(trace).frames
            for conversion in conversions:
                output = Path(folder, f"{number}-{conversion.format}{conversion.suffix}")
                wrong += convert_one(conversion, trace, original, output, table)
    table.print()
    sys.exit(1 if wrong else 0)


what, folder = sys.argv[1:]
traces = sorted(Path(str(f)[:-len(".faithful")]) for f in Path(folder).rglob("*.faithful"))
if not traces:
    sys.exit(f"{folder}: no traces with a .faithful beside them")
if what == "convert":
    convert(traces)
else:
    compare(traces, what == "verbose")
