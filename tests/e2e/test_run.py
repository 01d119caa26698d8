"""script/run, as somebody who has just cloned the repository uses it."""

from __future__ import annotations

from pathlib import Path

import pytest
from harness.account import Account
from harness.desktop import Desktop
from harness.waiting import wait_until

ROOT = Path(__file__).resolve().parents[2]
RUN = ROOT / "script" / "run"
BUILD_SECONDS = 500.0


def run(account: Account, log: Path, *arguments: str, display: str = "") -> int:
    return account.start([RUN, *arguments], log, {"DISPLAY": display}).wait(BUILD_SECONDS)


@pytest.mark.parametrize(
    "application, message",
    [
        ("NoSuchApp", "there is no application NoSuchApp"),
        ("/no/such/Folder.app", "there is no application /no/such/Folder.app"),
        ("/usr/share", "/usr/share is no Cocoa application"),
    ],
)
def test_what_cannot_be_started_gets_a_message(
    account: Account, pictures: Path, application: str, message: str
) -> None:
    log = pictures / "run.log"
    assert run(account, log, application) == 1
    assert f"vistrel: {message}" in log.read_text()


def test_without_a_display_it_gives_the_tour(account: Account, pictures: Path) -> None:
    log = pictures / "run.log"
    assert run(account, log) == 0, log.read_text()
    text = log.read_text()
    assert "(0, 0) 718x900" in text and "(721, 0) 718x900" in text
    taken = {picture.name for picture in (ROOT / "build" / "tour").glob("*.png")}
    named = {line.split()[-1] for line in text.splitlines() if line.endswith(".png")}
    assert taken == named and len(taken) > 20


def test_on_a_display_the_application_runs_until_it_quits(
    account: Account, desktop: Desktop, pictures: Path
) -> None:
    log = pictures / "run.log"
    process = account.start([RUN, "Ink"], log, {"DISPLAY": desktop.name})
    wait_until(
        lambda: "VTRLog" in log.read_text() or process.poll() is not None,
        "Vistrel in the application", BUILD_SECONDS, log.read_text,
    )
    assert process.poll() is None, log.read_text()
    stored = [file.read_text() for file in account.home.rglob("*.plist")]
    assert not any("GSAppKitUserBundles" in text for text in stored)
    process.kill()
