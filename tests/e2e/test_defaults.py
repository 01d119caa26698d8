"""A host whose settings somebody has filled with anything, all of them at once."""

from __future__ import annotations

import datetime
import plistlib
from collections.abc import Callable

import pytest
from alerts import SAVE, SAVED, told
from block import commands as all_commands
from commands import Commands
from harness.account import Account
from harness.host import Host
from settingswindow import ALL_APPLICATIONS, SHORTCUTS, THIS_APPLICATION, SettingsWindow
from test_block import settings_folder, write_settings

StartHost = Callable[..., Host]

AT_ONCE = ("-NSWindowResizeTime", "0")
SEARCH = "Show Spotlight Window"
FRAME = "vtr_savedWindowRect"
GLOBAL = list(ALL_APPLICATIONS)
OWN = [*THIS_APPLICATION, *SHORTCUTS, FRAME, "VTRSearchTool"]

VALUES = {
    "huge": 2**63 - 1,
    "negative": -(2**31) - 1,
    "real": -1e308,
    "flag": True,
    "format": "%@%n%s {{1e9, -1e9}, {nan, 1e308}} \\\"'½",
    "long": "[" * 100000,
    "data": b"\x00\xff" * 100,
    "date": datetime.datetime(9999, 12, 31),
    "array": [1, "1", [True, {"deep": b""}]],
    "dictionary": {"": {}, "1": [1.5]},
}


@pytest.mark.parametrize("value", VALUES.values(), ids=VALUES.keys())
def test_a_host_lives_with_any_value_in_every_setting(
    start_host: StartHost, account: Account, value: object
) -> None:
    write_settings(account, **dict.fromkeys(GLOBAL, value))
    account.write_defaults("TextEdit", dict.fromkeys([*GLOBAL, *OWN], value))
    commands = Commands(start_host("TextEdit", *AT_ONCE))
    block = commands.host.windows_menu()["items"]
    titles = [item["title"] for item in all_commands(block[2:13])]
    assert "Toggle Fullscreen" in titles and "Make OS X Lion Fullscreen Window" in titles

    window = SettingsWindow(commands)
    assert len(window.controls.all()) > len(ALL_APPLICATIONS)
    window.save()
    window.desktop.keyboard.chord("Escape")
    window.wait_until_closed()
    saved = plistlib.loads((settings_folder(account) / "Settings.plist").read_bytes())
    assert [type(saved[key]) for key in GLOBAL] == [
        int if key.endswith("Index") else bool for key in GLOBAL
    ]

    commands.host.wait_for_focus()
    assert told(commands, SAVE)[0] == SAVED[0]
    if SEARCH in titles:
        commands.pick(SEARCH)
    commands.press("Toggle ½ Screen Left")
    assert commands.frame().x == 0
    assert "exception" not in commands.host.log.lower()
    assert commands.host.quit() == 0, commands.host.describe()
