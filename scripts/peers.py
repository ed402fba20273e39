"""Reads traces with several programs and tells what each makes of them; see peers.sh."""

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
    environment = {**os.environ, "LC_ALL": "C.UTF-8", "LANGUAGE": "", "TZ": "UTC"}
    return subprocess.run(command, capture_output=True, env=environment, **options)


def datachunk(*options):
    def read(trace):
        done = run(os.environ["DATACHUNK"], "dump", "--json", *options, str(trace))
        frames = []
        for line in done.stdout.splitlines():
            m = json.loads(line)
            letters = letters_of(m["extended"], m["remote"], m["fd"])
            id = "error" if m["error"] else m["id"]
            microseconds = m["seconds"] * 1000000 + m["microseconds"]
            frames.append(frame(microseconds, id, letters, m["length"], m["data"]))
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


what, folder = sys.argv[1:]
traces = sorted(Path(str(f)[:-len(".faithful")]) for f in Path(folder).rglob("*.faithful"))
if not traces:
    sys.exit(f"{folder}: no traces with a .faithful beside them")
compare(traces, what == "verbose")
