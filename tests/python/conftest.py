"""What the tests of the module share."""

import os
import pathlib
import shutil
from typing import Iterator

import pytest

PROJECT = pathlib.Path(__file__).resolve().parents[2]


@pytest.fixture(scope="session", autouse=True)
def nothing_left_behind(tmp_path_factory: pytest.TempPathFactory) -> Iterator[None]:
    """Of itself pytest keeps the folders of the last runs."""
    yield
    shutil.rmtree(tmp_path_factory.getbasetemp())


@pytest.fixture(scope="session")
def traces() -> pathlib.Path:
    """The folder of traces that the examples of the documentation read."""
    return PROJECT / "examples" / "traces"


def candump_lines(count: int, start: int = 1_700_000_000) -> str:
    """A log of count messages, one each millisecond, with identifiers 100 to 10f in turn."""
    return "".join(
        f"({start + i // 1000}.{i % 1000:03}000) can{i % 2} {0x100 + i % 16:03X}#{i:08X}\n"
        for i in range(count)
    )


@pytest.fixture(scope="session")
def log(tmp_path_factory: pytest.TempPathFactory) -> pathlib.Path:
    """A log of ten thousand messages."""
    path = tmp_path_factory.mktemp("log") / "drive.log"
    path.write_text(candump_lines(10_000))
    return path


@pytest.fixture(scope="session")
def recording(log: pathlib.Path, tmp_path_factory: pytest.TempPathFactory) -> pathlib.Path:
    """The same as a folder of four chunks, with a note on message 4321."""
    import datachunk

    folder = tmp_path_factory.mktemp("recording")
    trace = datachunk.read(log)
    trace.notes[4321] = "Tür öffnet"
    for part in range(4):
        trace[part * 2500 : (part + 1) * 2500].to_chunk(folder / f"drive_{part}.dck")
    return folder


def files_in(folder: "os.PathLike[str]") -> list[str]:
    """What lies in a folder, hidden files as well."""
    return sorted(os.listdir(folder))
