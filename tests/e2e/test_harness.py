"""The harness itself: what the other tests take for granted.

Only the probe is loaded here, so that a failure is the harness's own.
"""

from __future__ import annotations

import os
import pwd
from collections.abc import Callable
from functools import partial
from pathlib import Path

import pytest
from harness import applications
from harness.account import Account
from harness.desktop import Desktop, MultiMonitorDesktop
from harness.devices import COMMAND
from harness.geometry import Rect
from harness.host import Host
from harness.menus import Menus, rect

STYLES = [
    "NSNextStepInterfaceStyle",
    "NSMacintoshInterfaceStyle",
    "NSWindows95InterfaceStyle",
]

# Application, its windows menu, the item that makes a window, a nested menu.
HOSTS = [
    ("TextEdit", "Window", ("File", "New"), ("Format", "Font")),
    ("Ink", "Windows", ("Document", "New"), ("Format", "Font")),
]


@pytest.fixture
def start(start_host: Callable[..., Host]) -> Callable[..., Host]:
    return partial(start_host, bundles=[])


def contents_of_real_home() -> dict[str, float]:
    """Everything that the platform could have written for the real user."""
    user = pwd.getpwuid(os.getuid())
    places = [Path(user.pw_dir) / "GNUstep", Path(f"/tmp/GNUstepSecure{user.pw_uid}")]
    files = [f for place in places for f in [place, *place.rglob("*")] if f.exists()]
    return {str(file): file.stat().st_mtime for file in files}


@pytest.mark.parametrize("name, windows_menu, new, nested", HOSTS)
def test_a_host_starts_and_shows_its_menu(
    start, name, windows_menu, new, nested
) -> None:
    host = start(name)
    window = host.wait_for_focus()
    state = host.probe.state()
    assert state["processName"] == name
    assert state["bundlePath"] == str(applications.find(name).parent)
    assert state["keyWindow"] == state["mainWindow"] == window["number"]
    assert host.windows_menu()["title"] == windows_menu
    assert host.item_at(*new)["keyEquivalent"] == "n"
    assert host.item_at(*nested)["submenu"]["items"]


def test_calculator_has_no_windows_menu(start) -> None:
    host = start("Calculator")
    assert host.probe.menu()["hasWindowsMenu"] is False
    assert host.windows_menu() is None
    assert host.windows()


@pytest.mark.parametrize("style", STYLES)
@pytest.mark.parametrize("name, windows_menu, new, nested", HOSTS)
def test_menus_work_with_the_mouse(
    start, desktop, pictures, style, name, windows_menu, new, nested
) -> None:
    host = start(name, style=style)
    host.wait_for_focus()
    menus = Menus(host)
    area = rect(menus.open(windows_menu))
    host.wait_until(lambda: desktop.colours(area) > 2, "the menu to be drawn")
    desktop.screenshot(pictures / "windows-menu.png")
    menus.close()
    menus.pick(*new)
    host.wait_until(lambda: len(host.windows()) == 2, "a second window")
    host.wait_for_focus()
    assert menus.open(*nested)["visible"]
    desktop.screenshot(pictures / "nested-menu.png")
    menus.close()


def test_the_keyboard_reaches_the_host(start, desktop) -> None:
    host = start("TextEdit")
    host.wait_for_focus()
    desktop.keyboard.chord(COMMAND, "n")
    host.wait_until(lambda: host.windows("Untitled-2"), "a window by Command-n")
    host.wait_for_focus()
    desktop.keyboard.type("Text, (typed)!\n")
    host.wait_until(lambda: host.key_window()["edited"], "the text to arrive")


def test_a_host_that_asks_back_is_killed(start, desktop) -> None:
    host = start("TextEdit")
    host.wait_for_focus()
    desktop.keyboard.type("x")
    host.wait_until(lambda: host.key_window()["edited"], "the text to arrive")
    assert host.quit(seconds=0.5) != 0
    assert not host.alive


def test_a_window_is_where_its_host_says(start, desktop) -> None:
    host = start("Ink")
    window = host.wait_for_focus()
    desktop.move_resize(window["xid"], Rect(400, 300, 500, 350))
    host.wait_until(
        lambda: desktop.geometry(window["xid"]).client == Rect(400, 300, 500, 350),
        "the window to move",
    )
    host.wait_until(
        lambda: host.frame(host.key_window()) == desktop.geometry(window["xid"]).frame,
        "the host to agree with the X server",
    )


def test_two_hosts_take_turns(start, desktop) -> None:
    first, second = start("TextEdit"), start("Ink")
    second.wait_for_focus()  # which it takes when it is ready, whoever has it then
    for host, other in [(first, second), (second, first), (first, second)]:
        window = host.activate()
        other.wait_until(
            lambda: not other.probe.state()["active"], "the focus to leave"
        )
        assert desktop.is_above(window["xid"], other.windows()[0]["xid"])


def test_the_account_is_private(start, account) -> None:
    before = contents_of_real_home()
    values = {"VTRTestSwitch": True, "VTRTestNumber": 1, "VTRTestText": "1 \"½\" ¶\n"}
    account.write_defaults("TextEdit", values)
    host = start("TextEdit")
    assert host.probe.state()["home"] == str(account.home)
    for key, value in values.items():
        found = host.default(key).value
        assert (type(found), found) == (type(value), value)
    assert host.default("VTRTestNothing") is None
    assert host.quit() == 0
    assert account.read_defaults("TextEdit")["VTRTestSwitch"] is True
    assert contents_of_real_home() == before


def test_an_account_ends_its_own_processes_only(start, account, pictures) -> None:
    host = start("TextEdit")
    host.wait_until(lambda: len(account.processes()) > 1, "a daemon of the platform")
    with Account() as other:
        bystander = other.start(["sleep", "600"], pictures / "sleep.log")
        account.close()
        assert account.processes() == [] and not account.root.exists()
        assert bystander.poll() is None and other.processes() == [bystander.pid]
    assert bystander.poll() is not None


def test_a_dead_host_fails_with_its_log(start) -> None:
    host = start("TextEdit")
    host.kill()
    with pytest.raises(AssertionError, match="TextEdit ended with -9(?s:.*)Loaded"):
        host.wait_until(lambda: False, "something that never comes", timeout=60)


def test_the_other_window_manager(start, other_manager: Desktop) -> None:
    host = start("TextEdit", desktop=other_manager)
    window = host.wait_for_focus()
    around = other_manager.geometry(window["xid"])
    assert around.frame.contains(*around.client.centre)
    assert host.frame(window) == around.frame


def test_two_monitors_are_two_screens(start, two_monitors: MultiMonitorDesktop) -> None:
    host = start("TextEdit", desktop=two_monitors)
    host.wait_for_focus()
    frames = [screen["frame"] for screen in host.probe.screens()]
    assert frames == [[0, 0, 1440, 900], [1440, 100, 1280, 800]]
    Menus(host).open("Window")
    two_monitors.arrange([(0, 0, 1440, 900)])
    host.wait_until(lambda: len(host.probe.screens()) == 1, "the second one to go")
    two_monitors.arrange(two_monitors.MONITORS)
    host.wait_until(lambda: len(host.probe.screens()) == 2, "the second one to return")
