"""What the documentation shows is what happens."""

import doctest
import re
import shutil

import pytest

from conftest import PROJECT


@pytest.mark.parametrize("page", ["python.md"])
def test_sessions_are_true(page, traces, tmp_path, monkeypatch):
    for trace in traces.iterdir():
        shutil.copy(trace, tmp_path)
    monkeypatch.chdir(tmp_path)
    # The end of a block is no output.
    text = re.sub("^```.*$", "", (PROJECT / "docs" / page).read_text(), flags=re.MULTILINE)
    session = doctest.DocTestParser().get_doctest(text, {}, page, page, 0)
    assert len(session.examples) > 20
    told = []
    doctest.DocTestRunner(optionflags=doctest.ELLIPSIS | doctest.NORMALIZE_WHITESPACE).run(
        session, out=told.append
    )
    assert told == [], "".join(told)
