"""The search window: the tool that the user's desktop has, started from a real host."""

from __future__ import annotations

import os
from collections.abc import Callable
from pathlib import Path

import pytest
from commands import Commands
from harness.account import Account
from harness.devices import COMMAND
from harness.host import Host
from test_block import write_settings

StartHost = Callable[..., Host]


@pytest.fixture
def start(start_host: StartHost, account: Account, tmp_path: Path) -> Callable[..., Commands]:
    """A host with the Spotlight item, and with a PATH of one folder of the test's."""
    write_settings(account, spotlightBOOL=True, spotlightBOOLIndex=0)

    def made(*arguments: str) -> Commands:
        environment = {"PATH": str(tmp_path), "XDG_CURRENT_DESKTOP": ""}
        return Commands(start_host("TextEdit", *arguments, environment=environment))

    return made


def tool(folder: Path, name: str) -> Path:
    """A program that writes down its arguments and its parent, and stays."""
    record = folder / f"{name}.started"
    program = folder / name
    program.write_text(
        "#!/bin/sh\n"
        f'echo "$PPID" "$#" "$@" >"{record}.part"\n'
        f'/bin/mv "{record}.part" "{record}"\n'
        "exec /bin/sleep 60\n"
    )
    program.chmod(0o755)
    return record


def open_search(commands: Commands) -> None:
    assert commands.chosen_by(COMMAND, "space") == "Show Spotlight Window"


def test_the_desktops_tool_is_started_as_a_stranger(start, tmp_path: Path) -> None:
    record = tool(tmp_path, "rofi")
    commands = start()
    open_search(commands)
    commands.host.wait_until(record.exists, "the tool to start")
    parent, *arguments = record.read_text().split()
    assert int(parent) != commands.host.process.pid
    assert arguments[1:3] == ["-show", "drun"]
    children = Path(f"/proc/{commands.host.process.pid}/task/{commands.host.process.pid}/children")
    assert children.read_text().split() == [], "no zombie either"


def test_the_users_own_tool_comes_first(start, tmp_path: Path) -> None:
    tool(tmp_path, "krunner")
    own = tool(tmp_path, "my search; tool")
    commands = start("-VTRSearchTool", str(tmp_path / "my search; tool"))
    open_search(commands)
    commands.host.wait_until(own.exists, "the tool to start")
    assert own.read_text().split()[1:] == ["0"], "there is no text to pass on"
    assert not (tmp_path / "krunner.started").exists()


def test_no_tool_costs_one_log_line(start, tmp_path: Path) -> None:
    commands = start()
    before = commands.host.log.splitlines()
    open_search(commands)
    commands.host.wait_until(
        lambda: len(commands.host.log.splitlines()) > len(before), "the log line"
    )
    commands.host.catch_up()
    lines = commands.host.log.splitlines()[len(before):]
    assert len(lines) == 1 and "search" in lines[0], lines
    assert os.listdir(tmp_path) == []
