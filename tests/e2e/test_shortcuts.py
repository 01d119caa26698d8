"""Every shortcut of the block, from a real keyboard in a real application."""

from __future__ import annotations

from collections.abc import Callable

import pytest
from alerts import NOTHING_SAVED, RESTORE, SAVE, SAVED, told
from commands import SHORTCUTS, Commands
from harness.account import Account
from harness.devices import COMMAND, CONTROL, OPTION, SHIFT
from harness.host import Host
from test_block import write_settings

StartHost = Callable[..., Host]

AT_ONCE = ("-NSWindowResizeTime", "0")


def start(start_host: StartHost, name: str = "TextEdit", *arguments: str) -> Commands:
    return Commands(start_host(name, *AT_ONCE, *arguments))


def untouched_text(commands: Commands) -> bool:
    """No key has reached the document."""
    return not commands.host.key_window()["edited"]


@pytest.mark.parametrize("name", ["TextEdit", "Ink"])
def test_every_built_in_shortcut_chooses_its_command(
    start_host: StartHost, name: str
) -> None:
    commands = start(start_host, name)
    for title, keys in SHORTCUTS.items():
        assert commands.chosen_by(*keys) == title
        if title.startswith("Toggle"):
            assert commands.chosen_by(*keys) == title, "and back"
    assert untouched_text(commands)


@pytest.mark.parametrize("title, words", [(SAVE, SAVED), (RESTORE, NOTHING_SAVED)])
def test_the_shortcuts_of_the_saved_frame_choose_their_commands(
    start_host: StartHost, title: str, words: tuple[str, str]
) -> None:
    commands = start(start_host)
    before = commands.actions()
    assert told(commands, title) == words
    assert commands.actions() == before + 1
    assert commands.host.probe.state()["lastAction"] == title
    assert untouched_text(commands)


def test_the_shortcut_of_the_settings_chooses_its_item(start_host: StartHost) -> None:
    commands = start(start_host)
    assert commands.chosen_by(COMMAND, OPTION, "comma") == "Settings…"
    assert not commands.host.windows("Untitled-1")[0]["edited"]


@pytest.mark.parametrize("key", ["Return", "KP_Enter"])
def test_return_and_enter_are_the_line_feed(start_host: StartHost, key: str) -> None:
    commands = start(start_host)
    assert commands.chosen_by(OPTION, key) == "Center Window"
    assert commands.chosen_by(CONTROL, SHIFT, key) == "Toggle Floating Window"


@pytest.mark.parametrize("index, keys", [(0, (COMMAND,)), (1, (COMMAND, OPTION))])
def test_space_opens_the_search_window(
    start_host: StartHost, account: Account, index: int, keys: tuple[str, ...]
) -> None:
    write_settings(account, spotlightBOOL=True, spotlightBOOLIndex=index)
    commands = start(start_host, "TextEdit", "-VTRSearchTool", "/bin/true")
    assert commands.chosen_by(*keys, "space") == "Show Spotlight Window"


def test_the_users_own_shortcuts_choose_their_commands(
    start_host: StartHost, account: Account
) -> None:
    account.write_defaults(
        "TextEdit",
        {
            "ownShortCuts": True,
            "centerString": "e", "centerToggleIndex": 1,
            "fullscreenString": "\n", "fullscreenToggleIndex": 2,
            "menuString": "]", "menuToggleIndex": 0,
        },
    )
    commands = start(start_host)
    assert commands.chosen_by(CONTROL, "e") == "Center Window"
    assert commands.chosen_by(OPTION, "Return") == "Toggle Fullscreen"
    assert commands.chosen_by(COMMAND, "bracketright") == "Toggle Menu And Dock"


def test_a_shortcut_of_the_host_stays_the_hosts(
    start_host: StartHost, account: Account
) -> None:
    """File stands ahead of Window, and the platform takes the first item that matches."""
    account.write_defaults(
        "TextEdit", {"ownShortCuts": True, "centerString": "n", "centerToggleIndex": 0}
    )
    commands = start(start_host)
    assert commands.chosen_by(COMMAND, "n") == "New"


@pytest.mark.parametrize(
    "style", ["NSMacintoshInterfaceStyle", "NSWindows95InterfaceStyle"]
)
def test_shortcuts_work_in_every_menu_style(start_host: StartHost, style: str) -> None:
    commands = Commands(start_host("TextEdit", *AT_ONCE, style=style))
    for title in ("Toggle ½ Screen Left", "Center Average Window", "Toggle Floating Window"):
        assert commands.chosen_by(*SHORTCUTS[title]) == title
