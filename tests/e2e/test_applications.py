"""Vistrel in the applications of the distribution, none of which was made for it.

Each is started without Vistrel and then with it, in the same session, and is
given every command by mouse. What differs has to be ours. With VISTREL_ALL
all of them have their turn, and what came out is written into
docs/applications.md.
"""

from __future__ import annotations

import os
import plistlib
import re
import shutil
import signal
import socket
from collections.abc import Callable, Iterator
from pathlib import Path
from typing import Any, NamedTuple

import pytest
from applicationstable import Entry, package_of, write_table
from block import BLOCK, Row, seen
from commands import LOG_LINE
from everything import Everything
from harness import applications
from harness.account import Account
from harness.browser import Browser
from harness.host import Host

StartHost = Callable[..., Host]


class App(NamedTuple):
    """What a user of it has to know.

    ``opens``: it has a window with the keyboard when it has started.
    ``button``: what to click in the panel that it begins with.
    ``fills``: its window can be as large as the screen.
    """

    name: str
    opens: bool = True
    button: str | None = None
    fills: bool = True


# Lynkeos is left out: some of its starts end in a crash, also without Vistrel.
FEW = [App("TextEdit"), App("EdenMath"), App("Calculator")]
MORE = [
    App("AddressManager"), App("Affiche", opens=False), App("Cenon"), App("Charmap"),
    App("Chess"), App("CurrencyConverter"), App("FTP"), App("FontManager"),
    App("GNUMail", button="Continue"), App("GSTest", opens=False),
    App("GTAMSAnalyzer"), App("Gorm"), App("Gridlock"), App("Grr"), App("HelpViewer"),
    App("Ink"), App("LuserNET", opens=False), App("PRICE", opens=False), App("Paje", opens=False),
    App("PikoPixel", button="OK"), App("Poe"), App("Preview"),
    App("ProjectCenter"), App("SimpleAgenda"), App("SystemPreferences"), App("TalkSoup"),
    App("Terminal", opens=False), App("ViewPDF", opens=False), App("WrapperFactory"),
    App("Zipper", opens=False),
]
ALL = "VISTREL_ALL" in os.environ
APPS = sorted(FEW + MORE if ALL else FEW)

TABLE = Path(__file__).resolve().parents[2] / "docs" / "applications.md"


@pytest.fixture
def loader(copy_of_bundles: Callable[[str], Path]) -> Iterator[Path]:
    """That of a copy whose servers are at a port where nobody listens."""
    with socket.socket() as nobody:
        nobody.bind(("127.0.0.1", 0))
        server = f"http://127.0.0.1:{nobody.getsockname()[1]}"
        made = copy_of_bundles("copy")
        file = made.with_name("Vistrel.bundle") / "Resources" / "Info-gnustep.plist"
        servers = dict.fromkeys(("VTRMainServer", "VTRSecondServer", "VTRReleaseNotesPage"), server)
        file.write_bytes(plistlib.dumps({**plistlib.loads(file.read_bytes()), **servers}))
        yield made


@pytest.fixture(scope="module")
def entries() -> dict[str, Entry]:
    return {}


# Starting


def click_button(host: Host, title: str) -> None:
    """In the panel that the application begins with."""
    def button() -> dict[str, Any] | None:
        window = host.probe.ask("modal-window")
        found = [b for b in window.get("buttons", ()) if b["title"] == title]
        return found[0] if found and host.desktop.is_mapped(window["xid"]) else None

    host.wait_until(button, f"a panel with {title!r}")
    host.wait_for_focus()
    x, y, width, height = button()["rect"]
    host.desktop.mouse.click(round(x + width / 2), round(y + height / 2))
    host.wait_until(lambda: host.probe.state()["modalWindow"] is None, "the panel to close")
    host.catch_up()


def make_ready(host: Host, app: App) -> None:
    if app.button:
        click_button(host, app.button)
    if app.opens:
        host.wait_for_focus()
    host.catch_up()


def forget(account: Account) -> None:
    """What the first run has left behind: the second is a first one, too."""
    shutil.rmtree(account.home)
    account.home.mkdir(mode=0o700)


# Looking


def top_level(host: Host) -> list[dict[str, Any]]:
    """The items of the main menu that Vistrel looks at: up to the first one without a submenu."""
    items = host.probe.menu()["mainMenu"]["items"]
    ends = [index for index, item in enumerate(items) if not item["submenu"]]
    return items[: ends[0]] if ends else items


def block_is_due(host: Host) -> bool:
    return any(item["submenu"]["isWindowsMenu"] for item in top_level(host))


def zoom_index(host: Host) -> int:
    """-1 where the menu has no such item, as the platform says."""
    for index, item in enumerate(host.windows_menu()["items"]):
        if item["action"] == "performZoom:" and item["targetClass"] is None:
            return index
    return -1


def complaints(host: Host) -> set[str]:
    """The lines of its log that tell of exceptions, without what is different each time."""
    lines = (re.sub(r"^[\d: .-]+\w+\[[\d:]+\] |0x[0-9a-f]+", "", line) for line in host.log.splitlines())
    return {line for line in lines if re.search("exception|assert|uncaught", line, re.IGNORECASE)}


def rows(host: Host) -> list[Row]:
    """All menus but that of the services, which fills when the platform has found them."""
    menu = seen(host.probe.menu()["mainMenu"]["items"])
    return [row for row in menu if row.title != "Services"]


def remarks(app: App, is_hidden: bool, status: int) -> list[str]:
    """What is worth knowing of the application itself, as it is without Vistrel."""
    found = []
    if app.button:
        found.append("begins with a panel")
    if not app.opens:
        found.append("no key window at its start")
    if not app.fills:
        found.append("its window cannot fill the screen")
    if is_hidden:
        found.append("its Window menu cannot be found")
    if status == -signal.SIGKILL:
        found.append("does not quit at once, also without Vistrel")
    elif status:
        found.append(f"ends with {status}, also without Vistrel")
    return found


# The test


@pytest.mark.parametrize("app", APPS, ids=[app.name for app in APPS])
def test_an_application_lives_with_vistrel_as_without(
    app: App, start_host: StartHost, loader: Path, account: Account, entries: dict[str, Entry]
) -> None:
    plain = start_host(app.name, bundles=[])
    make_ready(plain, app)
    rows_before = rows(plain)
    menu = plain.windows_menu()
    due = block_is_due(plain)
    zoom = zoom_index(plain) if due else -1
    status = plain.quit()

    forget(account)
    browser = Browser(account)
    host = start_host(app.name, bundles=[loader])
    host.wait_until(lambda: LOG_LINE in host.log, "Vistrel to be loaded")
    make_ready(host, app)
    if due:
        assert zoom_index(host) == zoom
        assert seen(host.windows_menu()["items"][zoom + 1:])[:8] == BLOCK[:8]
        Everything(host, browser, app.fills).do()
    else:
        assert rows(host) == rows_before
    host.assert_alive()
    assert host.quit() == status, host.describe()
    assert complaints(host) <= complaints(plain)
    entries[app.name] = Entry(
        app.name, *package_of(applications.find(app.name)),
        menu["title"] if menu else "none",
        "yes" if zoom >= 0 else "no",
        "all commands" if due else "no block",
        "; ".join(remarks(app, menu is not None and not due, status)),
    )


@pytest.mark.skipif(not ALL, reason="the table is that of all applications")
def test_the_table_is_written_when_all_have_had_their_turn(entries: dict[str, Entry]) -> None:
    assert sorted(entries) == [app.name for app in APPS]
    write_table(TABLE, entries.values())
