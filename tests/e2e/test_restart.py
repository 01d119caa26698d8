"""Restarting the Finder: the alert, what the shell is told, and the end of the host."""

from __future__ import annotations

import os
import shutil
from collections.abc import Callable
from pathlib import Path

import pytest
from alerts import answer, shown, wait_for_alert
from commands import Commands
from harness import applications
from harness.account import Account
from harness.host import Host
from harness.waiting import wait_until

StartHost = Callable[..., Host]


@pytest.fixture
def record(tmp_path: Path) -> Path:
    """What the stand-in for the shell writes down: its arguments, each ended by a zero."""
    return tmp_path / "shell.started"


@pytest.fixture
def start(start_host: StartHost, record: Path) -> Callable[[str], Commands]:
    """A host whose shell is a stand-in that only writes down how it was started."""
    shell = record.with_name("shell")
    shell.write_text(
        "#!/bin/sh\n"
        f'printf "%s\\0" "$@" >"{record}.part"\n'
        f'mv "{record}.part" "{record}"\n'
    )
    shell.chmod(0o755)

    def made(name: str) -> Commands:
        return Commands(start_host(
            name,
            preload=[Path(os.environ["VISTREL_SHELL_STAND_IN"])],
            environment={"VTR_TEST_SHELL": str(shell)},
        ))

    return made


def finder(folder: Path) -> Path:
    """TextEdit as an application of that name."""
    application = folder / "Finder.app"
    shutil.copytree(applications.find("TextEdit").parent, application)
    (application / "TextEdit").rename(application / "Finder")
    return application


def restart(commands: Commands) -> None:
    """No menu item does it."""
    commands.host.probe.ask("perform Corvane restartFinder")


@pytest.mark.parametrize("folder", ["Applications", "it's $HOME; `id`"])
@pytest.mark.parametrize("way", ["Return", "Escape", "manager"])
def test_the_finder_tells_that_it_restarts_and_quits(
    start, account: Account, record: Path, pictures: Path, folder: str, way: str
) -> None:
    """Whatever the user does; and the path is passed on as it stands."""
    application = finder(account.root / folder)
    commands = start(str(application))
    processes = account.processes()
    restart(commands)
    alert = wait_for_alert(commands.host, pictures / "alert.png")
    assert alert.words == ("VTR!", "RestartIndex == 0 - Should restart")
    assert list(alert.buttons) == ["OK"]
    assert account.processes() == processes, "no other program was asked for the name"
    assert not record.exists()
    answer(commands.host, way)
    assert commands.host.wait_for_end() == 0
    wait_until(record.exists, "the shell to start")
    assert record.read_bytes().split(b"\0")[:-1] == [
        b"-c", f"sleep 1 ; /usr/bin/open '{application}'".encode()
    ]


def test_a_host_of_another_name_goes_on(start, record: Path) -> None:
    commands = start("TextEdit")
    restart(commands)
    commands.host.catch_up()
    assert shown(commands.host) is None
    assert commands.host.probe.state()["modalWindow"] is None
    commands.press("Toggle ½ Screen Left")
    assert commands.frame().x == 0
    commands.host.assert_alive()
    assert not record.exists()
