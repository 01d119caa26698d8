"""The command block and the start-up in unmodified applications."""

from __future__ import annotations

import plistlib
from collections.abc import Callable
from pathlib import Path

import pytest
from block import (
    BLOCK, COMMAND, CONTROL, HIDING, LION, OPTION, SPOTLIGHT, commands, marked, seen,
)
from harness.account import Account
from harness.desktop import Desktop
from harness.host import Host
from harness.menus import Menus, rect

StartHost = Callable[..., Host]

LOG_LINE = "VTRLog - Screens: "


def settings_folder(account: Account) -> Path:
    return account.home / "Library" / "Application Support" / "Vistrel"


def write_settings(account: Account, **settings: object) -> None:
    folder = settings_folder(account)
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "Settings.plist").write_bytes(plistlib.dumps(settings))


def start_with_block(start_host: StartHost, name: str = "TextEdit", *arguments: str) -> Host:
    """The loading ends with the log line or shortly after it; then the block is there."""
    host = start_host(name, *arguments)
    host.wait_until(lambda: LOG_LINE in host.log, "the log line")
    host.catch_up()
    return host


def log_lines(host: Host) -> list[str]:
    """Without what the platform puts in front: date, time, process."""
    return [
        line.split("] ", 1)[-1] for line in host.log.splitlines() if "VTRLog" in line
    ]


def window_items(host: Host) -> list[dict]:
    return host.windows_menu()["items"]


def test_textedit_has_the_block_below_zoom(start_host: StartHost) -> None:
    host = start_with_block(start_host)
    items = window_items(host)
    assert [item["title"] for item in items[:2]] == ["Minimize", "Zoom"]
    assert seen(items[2:11]) == BLOCK
    # TextEdit's own menu goes on with a separator: it needs no second one.
    assert items[11]["title"] == "Bring All to Front"


def test_ink_has_the_block_at_the_top_of_its_menu(start_host: StartHost) -> None:
    host = start_with_block(start_host, "Ink")
    items = window_items(host)
    assert seen(items[:9]) == BLOCK
    assert items[9]["title"] == "Arrange In Front"


def test_an_application_without_a_window_menu_stays_as_it_is(
    start_host: StartHost, account: Account
) -> None:
    plain = start_host("Calculator", bundles=[])
    before = seen(plain.probe.menu()["mainMenu"]["items"])
    plain.quit()
    host = start_with_block(start_host, "Calculator")
    assert seen(host.probe.menu()["mainMenu"]["items"]) == before
    assert log_lines(host) == [LOG_LINE]
    assert settings_folder(account).is_dir()
    assert host.default("spotlightBOOLIndex").value == 1


def test_every_command_targets_the_controller(start_host: StartHost) -> None:
    host = start_with_block(start_host)
    block = window_items(host)[2:11]
    found = commands(block)
    assert len(found) == 18
    for item in found:
        assert item["targetClass"] == item["representedClass"] == "Corvane", item["title"]
        assert item["state"] == 0, item["title"]
    for parent in block[1:4]:
        assert parent["targetClass"] in (None, "NSMenu"), parent["title"]
        assert parent["representedClass"] is None


def test_the_first_start_makes_the_folder_and_no_file(
    start_host: StartHost, account: Account
) -> None:
    host = start_with_block(start_host)
    assert log_lines(host) == [LOG_LINE]
    assert list(settings_folder(account).iterdir()) == []


def test_the_settings_are_mirrored_with_their_types(
    start_host: StartHost, account: Account
) -> None:
    write_settings(
        account, globalSettingsIndex=3, spotlightBOOL=True, vtrDisplaySetupBool=True
    )
    host = start_with_block(start_host)
    stored = {
        key: host.default(key).value
        for key in (
            "globalSettingsIndex", "spotlightBOOLIndex", "spotlightBOOL",
            "globalSettingsRestartBOOL", "globalSettingsFakeFSABool",
            "vtrDisplaySetupBool", "vtrRestartFinderBOOL",
        )
    }
    assert stored == {
        "globalSettingsIndex": 3, "spotlightBOOLIndex": 0, "spotlightBOOL": 1,
        "globalSettingsRestartBOOL": False, "globalSettingsFakeFSABool": False,
        "vtrDisplaySetupBool": True, "vtrRestartFinderBOOL": False,
    }
    assert type(stored["spotlightBOOL"]) is int
    assert type(stored["vtrDisplaySetupBool"]) is bool
    assert log_lines(host) == [LOG_LINE + "1"]


@pytest.mark.parametrize("index, mask", [(0, COMMAND), (1, COMMAND | OPTION)])
def test_the_spotlight_item_stands_ahead_of_the_lion_item(
    start_host: StartHost, account: Account, index: int, mask: int
) -> None:
    write_settings(account, spotlightBOOL=True, spotlightBOOLIndex=index)
    items = window_items(start_with_block(start_host))
    expected = (*BLOCK[:7], SPOTLIGHT._replace(mask=mask), *BLOCK[7:])
    assert seen(items[2:12]) == expected
    assert items[12]["title"] == "Bring All to Front"


def test_the_users_own_shortcuts_are_used(start_host: StartHost, account: Account) -> None:
    account.write_defaults(
        "TextEdit",
        {
            "ownShortCuts": True,
            "menuString": "m", "menuToggleIndex": 2,
            "fullscreenString": "u", "fullscreenToggleIndex": 1,
            "centerToggleIndex": 7,
            "restoreString": 5,
        },
    )
    items = window_items(start_with_block(start_host))
    shortcuts = {
        item["action"]: (item["keyEquivalent"], item["keyEquivalentModifierMask"])
        for item in commands(items[2:11])
    }
    assert shortcuts["setKUIMode:"] == ("m", OPTION)
    assert shortcuts["doFullscreen:"] == ("u", CONTROL)
    assert shortcuts["center:"] == ("", COMMAND)
    assert shortcuts["restoreWind:"] == ("", COMMAND)
    assert shortcuts["centerAverage:"] == ("\n", CONTROL | OPTION)


START_UP_MODES = [
    # globalSettingsIndex, kuiMode, hidden
    (0, 0, False), (0, 1, True), (0, 2, False), (0, 5, False),
    (1, 1, False), (2, 0, True), (3, 1, False), (4, 1, False),
]


@pytest.mark.parametrize("policy, mode, hidden", START_UP_MODES)
def test_the_start_up_mode_shows_in_menu_and_mark(
    start_host: StartHost, account: Account, policy: int, mode: int, hidden: bool
) -> None:
    write_settings(account, globalSettingsIndex=policy)
    account.write_defaults("TextEdit", {"kuiMode": mode})
    host = start_with_block(start_host)
    items = window_items(host)
    assert marked(items) == ([7] if hidden else [])
    assert items[7]["title"] == HIDING.title
    host.wait_until(
        lambda: host.probe.menu()["mainMenu"]["visible"] is not hidden,
        f"the main menu to be {'hidden' if hidden else 'shown'}",
    )


def test_a_saved_frame_is_restored_at_the_start(
    start_host: StartHost, account: Account, desktop: Desktop
) -> None:
    account.write_defaults(
        "Ink", {"windowMode": 1, "vtr_savedWindowRect": "{{212, 140}, {960, 720}}"}
    )
    host = start_with_block(start_host, "Ink")
    window = host.wait_for_focus()
    frame = desktop.geometry(window["xid"]).frame
    assert tuple(frame) == (212, 900 - 140 - 720, 960, 720)


def test_damaged_settings_leave_the_host_as_it_is(
    start_host: StartHost, account: Account
) -> None:
    settings_folder(account).mkdir(parents=True)
    file = settings_folder(account) / "Settings.plist"
    file.write_text("<?xml version='1.0'?><plist><dict><key>globalSettingsIndex</key>")
    host = start_with_block(start_host)
    assert seen(window_items(host)[2:11]) == BLOCK
    assert host.default("spotlightBOOLIndex").value == 0
    host.assert_alive()


def test_two_hosts_have_a_block_each(start_host: StartHost) -> None:
    first = start_with_block(start_host, "TextEdit")
    second = start_with_block(start_host, "Ink")
    assert seen(window_items(first)[2:11]) == seen(window_items(second)[:9]) == BLOCK


@pytest.mark.parametrize("name, menu", [("TextEdit", "Window"), ("Ink", "Windows")])
def test_the_mouse_opens_the_block(
    start_host: StartHost, desktop: Desktop, pictures: Path, name: str, menu: str
) -> None:
    host = start_with_block(start_host, name)
    host.wait_for_focus()
    menus = Menus(host)
    area = rect(menus.open(menu))
    host.wait_until(lambda: desktop.colours(area) > 2, "the menu to be drawn")
    desktop.screenshot(pictures / "block.png")
    for parent, rows in ((row.title, row.submenu) for row in BLOCK if row.submenu):
        area = rect(menus.open(menu, parent))
        host.wait_until(lambda: desktop.colours(area) > 2, "the submenu to be drawn")
        shown = menus.menu(menu, parent)
        assert all(item["rect"] for item in shown["items"])
        assert len(shown["items"]) == len(rows)
        desktop.screenshot(pictures / f"{parent.split()[-1].lower()}.png")
    menus.close()
    assert LION.title in [item["title"] for item in window_items(host)]
