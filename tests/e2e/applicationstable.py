"""The table of docs/applications.md."""

from __future__ import annotations

import subprocess
from collections.abc import Iterable
from pathlib import Path
from typing import NamedTuple

HEAD = """\
<!-- Written by `script/test --all`. Do not edit. -->

# Applications

Each of these was started as Debian ships it, without Vistrel and with it. With Vistrel, every command
was chosen from its menu by mouse. "all commands" means that each of them did what it should, that the
application wrote nothing about exceptions into its log that it does not write without Vistrel,
and that it ended in the same way. "no block" is what is due where there is no Window menu, or none that
can be found: the search ends at the first entry of the main menu that has no submenu.

Left out is Lynkeos: it crashes whenever it quits and at some of its starts, with and without Vistrel.

"""


class Entry(NamedTuple):
    application: str
    package: str
    version: str
    window_menu: str
    zoom: str
    result: str
    remarks: str


def package_of(program: Path) -> tuple[str, str]:
    """The Debian package that a program comes from, and its version."""
    owner = _output("dpkg-query", "-S", str(program)).split(":")[0]
    return owner, _output("dpkg-query", "-W", "-f", "${Version}", owner)


def _output(*command: str) -> str:
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout.strip()


def write_table(file: Path, entries: Iterable[Entry]) -> None:
    titles = ("Application", "Package", "Version", "Window menu", "Zoom", "Result", "Remarks")
    rows = [titles, tuple("---" for _ in titles), *sorted(entries)]
    lines = "".join(f"| {' | '.join(row)} |\n" for row in rows)
    file.write_text(HEAD + lines)
