"""Alerts in real applications: their words, every way out of them, and what is left behind."""

from __future__ import annotations

import shutil
from collections.abc import Callable
from pathlib import Path

import pytest
from alerts import (
    NOTHING_SAVED, RESTORE, SAVE, SAVED, SHORTCUTS, WAYS_OUT, ask_for, dismiss, shown,
    told, wait_for_alert,
)
from commands import Commands
from harness import applications
from harness.account import Account
from harness.desktop import Desktop
from harness.devices import COMMAND, CONTROL
from harness.geometry import Rect
from harness.host import Host

StartHost = Callable[..., Host]

AT_ONCE = ("-NSWindowResizeTime", "0")


@pytest.fixture(params=["desktop", "other_manager"])
def screen(request: pytest.FixtureRequest) -> Desktop:
    """Under openbox, and under Window Maker."""
    return request.getfixturevalue(request.param)


def start(start_host: StartHost, screen: Desktop, name: str = "TextEdit", **options) -> Commands:
    return Commands(start_host(name, *AT_ONCE, desktop=screen, **options))


def window_title(screen: Desktop, xid: int) -> str:
    atom = screen.connection.intern_atom("_NET_WM_NAME")
    return screen.window(xid).get_full_property(atom, 0).value.decode()


@pytest.mark.parametrize("title, words", [(SAVE, SAVED), (RESTORE, NOTHING_SAVED)])
def test_an_alert_shows_exactly_its_words_and_one_button(
    start_host: StartHost, screen: Desktop, pictures: Path, title: str, words: tuple[str, str]
) -> None:
    commands = start(start_host, screen)
    alert = ask_for(commands, title, pictures / "alert.png")
    assert alert.words == words
    assert list(alert.buttons) == ["OK"]
    assert alert.whole
    assert window_title(screen, alert.xid) == words[0]


@pytest.mark.parametrize("way", WAYS_OUT)
def test_every_way_out_leaves_the_host_as_it_was(
    start_host: StartHost, screen: Desktop, way: str
) -> None:
    commands = start(start_host, screen)
    commands.chosen_by(COMMAND, "n")
    commands.host.wait_until(lambda: len(commands.host.windows()) == 2, "a second window")
    key = commands.host.activate("Untitled-1")
    windows = len(commands.host.windows())
    for title in (RESTORE, SAVE):
        ask_for(commands, title)
        dismiss(commands.host, way)
        assert commands.host.key_window()["number"] == key["number"]
        assert len(commands.host.windows()) == windows
    # The next command is the key window's.
    commands.press("Toggle ½ Screen Left")
    assert screen.geometry(key["xid"]).frame.x == 0
    commands.host.assert_alive()


def test_the_keyboard_goes_back_to_the_panel_that_had_it(
    start_host: StartHost, screen: Desktop
) -> None:
    commands = start(start_host, screen)
    document = commands.host.key_window()
    screen.keyboard.chord(COMMAND, "f")
    commands.host.wait_until(
        lambda: commands.host.key_window()["number"] != document["number"], "the panel"
    )
    panel = commands.host.wait_for_focus()
    ask_for(commands, RESTORE)
    dismiss(commands.host)
    assert commands.host.key_window()["number"] == panel["number"]
    assert commands.host.probe.state()["mainWindow"] == document["number"]


def test_commands_wait_until_the_alert_is_gone(start_host: StartHost, screen: Desktop) -> None:
    """They would be the alert's, which is the key window: a held key would save its frame."""
    commands = start(start_host, screen)
    before = commands.frame()
    alert = ask_for(commands, SAVE)
    stored = commands.host.default("vtr_savedWindowRect")
    place = screen.geometry(alert.xid)
    for keys in (SHORTCUTS[SAVE], (CONTROL, "bracketleft"), (COMMAND, "Return")):
        screen.keyboard.chord(*keys)
        commands.host.catch_up()
    assert shown(commands.host) == alert
    assert screen.geometry(alert.xid) == place
    dismiss(commands.host)
    assert commands.host.default("vtr_savedWindowRect") == stored
    assert commands.frame() == before
    commands.press("Toggle ½ Screen Left")
    assert commands.frame().x == 0


@pytest.mark.parametrize(
    "mode", ["Toggle Fullscreen", "Toggle Menu And Dock", "Toggle Floating Window"]
)
def test_an_alert_is_above_the_window_in_every_mode(
    start_host: StartHost, screen: Desktop, pictures: Path, mode: str
) -> None:
    commands = start(start_host, screen)
    commands.press(mode)
    if mode == "Toggle Fullscreen":
        area = Rect(0, 0, *screen.size)
        commands.host.wait_until(lambda: commands.client() == area, "the full screen")
        commands.host.catch_up()
    window = commands.host.key_window()
    alert = ask_for(commands, SAVE)
    commands.host.wait_until(
        lambda: screen.is_above(alert.xid, window["xid"]), "the alert to be on top"
    )
    screen.screenshot(pictures / "alert.png")
    dismiss(commands.host, "button")
    assert commands.host.key_window()["number"] == window["number"]
    commands.press(mode)


def test_an_alert_waits_while_another_application_is_in_front(
    start_host: StartHost, screen: Desktop
) -> None:
    commands = start(start_host, screen)
    key = commands.host.key_window()
    ask_for(commands, SAVE)
    other = start(start_host, screen, "Ink")
    assert told(other, SAVE) == SAVED
    commands.host.activate(SAVED[0])
    assert wait_for_alert(commands.host).words == SAVED
    dismiss(commands.host)
    assert commands.host.key_window()["number"] == key["number"]


def test_an_alert_over_a_modal_panel_gives_it_back(
    start_host: StartHost, screen: Desktop, pictures: Path
) -> None:
    commands = start(start_host, screen)
    document = commands.host.key_window()
    screen.keyboard.chord(COMMAND, "o")
    panel = commands.host.wait_until(
        lambda: commands.host.probe.state()["modalWindow"], "the panel to open"
    )
    commands.host.wait_for_focus()
    assert ask_for(commands, RESTORE, pictures / "alert.png").words == NOTHING_SAVED
    dismiss(commands.host)
    assert commands.host.probe.state()["modalWindow"] == panel
    assert commands.host.key_window()["number"] == panel
    screen.keyboard.chord("Escape")
    commands.host.wait_until(
        lambda: commands.host.probe.state()["modalWindow"] is None, "the panel to close"
    )
    commands.host.wait_for_focus()
    assert commands.host.key_window()["number"] == document["number"]


def test_a_host_without_a_window_shows_alerts_too(
    start_host: StartHost, screen: Desktop
) -> None:
    commands = start(start_host, screen)
    commands.chosen_by(COMMAND, "w")
    commands.host.wait_until(lambda: not commands.host.windows(), "the window to close")
    commands.menus.pick("Window", "Settings", SAVE)
    alert = commands.host.wait_until(lambda: shown(commands.host), "an alert")
    assert alert.words == SAVED
    screen.mouse.click(*alert.buttons["OK"].centre)
    commands.host.wait_until(lambda: shown(commands.host) is None, "the alert to go")
    commands.menus.close()
    assert commands.host.default("vtr_savedWindowRect").value == "{{0, 0}, {0, 0}}"


def test_a_host_may_quit_while_an_alert_is_up(start_host: StartHost, screen: Desktop) -> None:
    commands = start(start_host, screen)
    ask_for(commands, SAVE)
    screen.keyboard.chord(COMMAND, "q")
    assert commands.host.wait_for_end() == 0
    assert "exception" not in commands.host.log


# A host with a string table of its own

PERCENT = "100 %@ %s %d %n ½"
LONG = " ".join(["Es wurde noch kein Fensterrahmen gesichert."] * 12) + " " + "x" * 120
ENDLESS = " ".join(["Es wurde noch kein Fensterrahmen gesichert."] * 400)


@pytest.fixture
def translated(account: Account) -> Callable[[dict[str, str]], str]:
    """The path of a copy of Ink whose string table is this."""

    def made(strings: dict[str, str]) -> str:
        application = account.root / "Ink.app"
        shutil.copytree(applications.find("Ink").parent, application)
        table = application / "Resources" / "Localizable.strings"
        table.write_text("".join(f'"{key}" = "{value}";\n' for key, value in strings.items()))
        return str(application)

    return made


def test_a_translated_alert_shows_the_hosts_words(
    start_host: StartHost, screen: Desktop, translated, pictures: Path
) -> None:
    strings = {"Success!": PERCENT, "Error!": PERCENT, NOTHING_SAVED[1]: PERCENT, "OK": "no"}
    commands = start(start_host, screen, translated({**strings, SAVED[1]: "no"}))
    alert = ask_for(commands, RESTORE, pictures / "alert.png")
    assert alert.words == (PERCENT, PERCENT)
    assert list(alert.buttons) == ["OK"]
    dismiss(commands.host)
    assert told(commands, SAVE) == (PERCENT, SAVED[1])


def test_a_long_message_is_shown_whole(
    start_host: StartHost, screen: Desktop, translated, pictures: Path
) -> None:
    commands = start(start_host, screen, translated({NOTHING_SAVED[1]: LONG}))
    alert = ask_for(commands, RESTORE, pictures / "alert.png")
    assert alert.message == LONG and alert.whole
    assert_on_screen(screen, alert.xid)


def test_an_endless_message_is_scrolled_and_its_button_stays_on_screen(
    start_host: StartHost, screen: Desktop, translated, pictures: Path
) -> None:
    strings = {"Error!": ENDLESS, NOTHING_SAVED[1]: ENDLESS}
    commands = start(start_host, screen, translated(strings))
    alert = ask_for(commands, RESTORE, pictures / "alert.png")
    assert alert.words == (ENDLESS, ENDLESS)
    assert alert.begins and not alert.whole
    assert_on_screen(screen, alert.xid)
    dismiss(commands.host, "button")


def assert_on_screen(screen: Desktop, xid: int) -> None:
    frame = screen.geometry(xid).frame
    width, height = screen.size
    assert 0 <= frame.x and frame.x + frame.width <= width
    assert 0 <= frame.y and frame.y + frame.height <= height
