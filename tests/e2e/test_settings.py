"""The settings window, in unmodified applications, by real mouse and keyboard."""

from __future__ import annotations

import plistlib
import shutil
from collections.abc import Callable, Iterator
from pathlib import Path
from typing import Any

import pytest
from block import COMMAND as COMMAND_MASK
from commands import SHORTCUTS as COMMANDS
from commands import Commands
from harness.account import Account
from harness.desktop import Desktop
from harness.devices import COMMAND, CONTROL, OPTION, SHIFT
from harness.form import Place
from harness.host import Host
from settingswindow import (
    ALL_APPLICATIONS, CLOSE, HOME_PAGE, KEYBOARD_ORDER, MANUAL, PLACES, SHORTCUTS,
    TITLE, SettingsWindow,
)
from test_block import settings_folder, write_settings

StartHost = Callable[..., Host]

AT_ONCE = ("-NSWindowResizeTime", "0")

# Nothing of these is what it was before.
CHANGES: dict[str, Any] = {
    "globalSettingsIndex": 3,
    "spotlightBOOL": True,
    "spotlightBOOLIndex": 0,
    "globalSettingsFakeFSABool": True,
    "vtrDisplaySetupBool": True,
    "globalSettingsRestartBOOL": True,
    "vtrRestartFinderBOOL": True,
    "kuiMode": 2,
    "windowMode": 1,
    "ownShortCuts": True,
    "restoreToggleIndex": 2,
    "restoreString": "r",
    "centerToggleIndex": 1,
    "centerString": "e",
    "fullscreenToggleIndex": 2,
    "fullscreenString": "]",
    "menuToggleIndex": 1,
    "menuString": "m",
}
FILE_DEFAULTS = {
    "globalSettingsIndex": 0, "spotlightBOOLIndex": 1, "spotlightBOOL": False,
    "globalSettingsRestartBOOL": False, "globalSettingsFakeFSABool": False,
    "vtrDisplaySetupBool": False, "vtrRestartFinderBOOL": False,
}


def opened(start_host: StartHost, name: str = "TextEdit", *arguments: str, **options: Any
           ) -> SettingsWindow:
    host = start_host(name, *AT_ONCE, *arguments, **options)
    return SettingsWindow(Commands(host))


def file_of(account: Account) -> Path:
    return settings_folder(account) / "Settings.plist"


def read_file(account: Account) -> dict[str, Any]:
    content = file_of(account).read_bytes()
    assert content.startswith(b"<?xml"), content
    return plistlib.loads(content, fmt=plistlib.FMT_XML)


def typed(values: dict[str, Any]) -> dict[str, tuple[type, Any]]:
    """So that 1 is not the same as true."""
    return {key: (type(value), value) for key, value in values.items()}


def saved_by_click(window: SettingsWindow, account: Account) -> dict[str, Any]:
    """What is in the file after it has been written anew."""
    file = file_of(account)
    before = file.stat().st_ino if file.exists() else None
    window.save()
    window.host.wait_until(
        lambda: file.exists() and file.stat().st_ino != before, "the file to be written"
    )
    return read_file(account)


# Opening


@pytest.mark.parametrize("name", ["TextEdit", "Ink"])
def test_its_shortcut_opens_the_window(start_host: StartHost, name: str) -> None:
    window = opened(start_host, name)
    assert name in window.controls.labels()
    assert window.window["styleMask"] & 8 == 0, "its size is its own"
    frame = window.frame()
    width, height = window.desktop.size
    assert abs(frame.x + frame.width / 2 - width / 2) <= 2, "centred"
    assert 0 <= frame.y and frame.y + frame.height <= height
    assert "exception" not in window.host.log


@pytest.mark.parametrize(
    "style", ["NSMacintoshInterfaceStyle", "NSWindows95InterfaceStyle"]
)
def test_it_works_in_every_menu_style(
    start_host: StartHost, account: Account, style: str
) -> None:
    window = opened(start_host, style=style)
    window.change("globalSettingsIndex", 1)
    window.change("ownShortCuts", True)
    window.change("centerString", "c")
    assert saved_by_click(window, account)["globalSettingsIndex"] == 1


@pytest.fixture
def small_screen(output: Path) -> Iterator[Desktop]:
    with Account() as account, Desktop(account, output / "small", size=(1024, 768)) as made:
        yield made


def test_it_is_wholly_visible_on_a_small_screen(
    small_screen: Desktop, start_host: StartHost, pictures: Path
) -> None:
    window = opened(start_host, desktop=small_screen)
    small_screen.screenshot(pictures / "window.png")
    frame = window.frame()
    assert frame.x >= 0 and frame.y >= 0
    assert frame.x + frame.width <= 1024 and frame.y + frame.height <= 768


def test_it_works_under_the_other_window_manager(
    other_manager: Desktop, start_host: StartHost, account: Account
) -> None:
    window = opened(start_host, desktop=other_manager)
    window.change("globalSettingsIndex", 3)
    assert saved_by_click(window, account)["globalSettingsIndex"] == 3
    other_manager.close_window(window.window["xid"])
    window.wait_until_closed()
    window.open()
    assert window.value("globalSettingsIndex") == 3


def test_without_a_file_it_shows_the_defaults_and_writes_nothing(
    start_host: StartHost, account: Account
) -> None:
    window = opened(start_host)
    for key in ALL_APPLICATIONS:
        assert window.value(key) == FILE_DEFAULTS[key], key
    for key in PLACES.keys() - ALL_APPLICATIONS.keys():
        assert not window.value(key), key
        assert window.stored(key) is None, key
    assert list(settings_folder(account).iterdir()) == []


def test_it_shows_what_is_stored(start_host: StartHost, account: Account) -> None:
    write_settings(account, **{key: CHANGES[key] for key in ALL_APPLICATIONS})
    account.write_defaults("Ink", {k: v for k, v in CHANGES.items() if k not in FILE_DEFAULTS})
    window = opened(start_host, "Ink")
    assert {key: window.value(key) for key in PLACES} == CHANGES


def test_odd_values_do_no_harm(start_host: StartHost, account: Account) -> None:
    odd = {
        "kuiMode": 77, "windowMode": [1, 2], "ownShortCuts": "YES",
        "restoreToggleIndex": "2", "restoreString": 5,
        "centerToggleIndex": -1, "centerString": {"a": b"b"},
        "fullscreenToggleIndex": b"data", "fullscreenString": "\n",
        "menuToggleIndex": "9" * 40, "menuString": "a long text",
    }
    account.write_defaults("TextEdit", odd)
    window = opened(start_host)
    shown = {key: window.value(key) for key in odd}
    assert shown == {
        "kuiMode": -1, "windowMode": 0, "ownShortCuts": 1,
        "restoreToggleIndex": 2, "restoreString": "",
        "centerToggleIndex": -1, "centerString": "",
        "fullscreenToggleIndex": 0, "fullscreenString": "\n",
        "menuToggleIndex": -1, "menuString": "a long text",
    }
    assert {key: window.stored(key) for key in odd} == odd, "only looked at"
    window.change("kuiMode", 1)
    assert "exception" not in window.host.log


# Changing


@pytest.mark.parametrize("name", ["TextEdit", "Ink"])
def test_every_control_changes_its_default_at_once(
    start_host: StartHost, account: Account, name: str
) -> None:
    window = opened(start_host, name)
    for key, value in CHANGES.items():
        window.change(key, value)
    assert {key: window.value(key) for key in PLACES} == CHANGES
    assert not file_of(account).exists(), "that is for Save"
    assert window.host.quit() == 0
    stored = account.read_defaults(name)
    assert typed({key: stored[key] for key in CHANGES}) == typed(CHANGES)


def test_every_choice_can_be_chosen(start_host: StartHost) -> None:
    window = opened(start_host)
    window.change("ownShortCuts", True)
    choices = {key: place for key, place in PLACES.items() if place.kind == "choice"}
    for key, place in choices.items():
        count = len(window.controls.at(place)["choices"])
        for index in [*range(1, count), 0]:
            window.change(key, index)


def test_the_shortcuts_wait_for_their_check_box(start_host: StartHost) -> None:
    window = opened(start_host)

    def enabled() -> set[bool]:
        return {window.controls.at(place)["enabled"] for place in SHORTCUTS.values()}

    assert enabled() == {False}
    window.change("ownShortCuts", True)
    assert enabled() == {True}
    window.controls.toggle(PLACES["ownShortCuts"])
    assert enabled() == {False}


def test_a_shortcut_that_is_being_typed_survives_its_check_box(start_host: StartHost) -> None:
    window = opened(start_host)
    window.change("ownShortCuts", True)
    window.change("centerString", "k")
    window.controls.toggle(PLACES["ownShortCuts"])
    window.controls.toggle(PLACES["ownShortCuts"])
    assert window.value("centerString") == window.stored("centerString") == "k"
    window.change("centerString", "l")


def test_a_shortcut_is_one_character(start_host: StartHost) -> None:
    window = opened(start_host)
    window.change("ownShortCuts", True)
    window.controls.type(PLACES["centerString"], "abc")
    assert window.value("centerString") == window.stored("centerString") == "c"
    window.desktop.keyboard.chord("BackSpace")
    window.host.wait_until(lambda: window.stored("centerString") is None, "it to be gone")
    assert window.value("centerString") == ""


def test_what_is_typed_is_kept_without_leaving_the_field(
    start_host: StartHost, account: Account
) -> None:
    window = opened(start_host)
    window.change("ownShortCuts", True)
    window.controls.type(PLACES["menuString"], "x")
    window.desktop.close_window(window.window["xid"])
    window.wait_until_closed()
    assert window.stored("menuString") == "x"
    window.host.quit()
    assert account.read_defaults("TextEdit")["menuString"] == "x"


# Saving


def test_saving_writes_the_settings_of_all_applications(
    start_host: StartHost, account: Account
) -> None:
    window = opened(start_host)
    for key in CHANGES:
        window.change(key, CHANGES[key])
    saved = saved_by_click(window, account)
    assert typed(saved) == typed({key: CHANGES[key] for key in FILE_DEFAULTS})
    assert window.is_key, "the window stays"
    assert window.host.probe.state()["modalWindow"] is None


def test_the_first_save_makes_a_file_of_seven_keys(
    start_host: StartHost, account: Account
) -> None:
    window = opened(start_host)
    assert typed(saved_by_click(window, account)) == typed(FILE_DEFAULTS)
    first = file_of(account).read_bytes()
    saved_by_click(window, account)
    assert file_of(account).read_bytes() == first
    assert [file.name for file in settings_folder(account).iterdir()] == ["Settings.plist"]
    assert window.host.probe.state()["modalWindow"] is None


def test_unknown_keys_survive_and_missing_ones_are_added(
    start_host: StartHost, account: Account
) -> None:
    others = {"other": {"list": [1, True, "½", b"data"]}, "half": 0.5}
    write_settings(account, globalSettingsIndex=1, **others)
    window = opened(start_host)
    assert window.value("spotlightBOOLIndex") == 0, "missing counts as 0"
    window.change("vtrDisplaySetupBool", True)
    expected = {
        **FILE_DEFAULTS, **others,
        "globalSettingsIndex": 1, "spotlightBOOLIndex": 0, "vtrDisplaySetupBool": True,
    }
    assert typed(saved_by_click(window, account)) == typed(expected)


@pytest.mark.parametrize(
    "content", [b"", b"no property list", b"<?xml version='1.0'?><plist><dict><key>a"]
)
def test_a_damaged_file_stays_as_it_is(
    start_host: StartHost, account: Account, content: bytes
) -> None:
    write_settings(account)
    file_of(account).write_bytes(content)
    window = opened(start_host)
    assert window.value("spotlightBOOLIndex") == 0
    window.change("globalSettingsIndex", 2)
    window.save()
    assert file_of(account).read_bytes() == content
    assert window.is_key and window.host.probe.state()["modalWindow"] is None


def test_of_two_applications_the_last_to_save_wins(
    start_host: StartHost, account: Account
) -> None:
    write_settings(account, other="kept")
    first = opened(start_host, "TextEdit")
    first.change("globalSettingsIndex", 3)
    first.change("kuiMode", 1)
    second = opened(start_host, "Ink")
    assert second.value("globalSettingsIndex") == 0, "not saved yet"
    second.change("vtrDisplaySetupBool", True)

    first.host.activate(TITLE)
    saved = saved_by_click(first, account)
    assert saved["globalSettingsIndex"] == 3 and not saved["vtrDisplaySetupBool"]
    second.host.activate(TITLE)
    assert second.value("globalSettingsIndex") == 0, "read once"
    saved = saved_by_click(second, account)
    assert saved["globalSettingsIndex"] == 0 and saved["vtrDisplaySetupBool"]
    assert saved["other"] == "kept"
    assert second.value("kuiMode") == 0, "each application has its own"
    assert "TextEdit" in first.controls.labels() and "Ink" in second.controls.labels()


def test_the_saved_settings_act_in_other_applications(
    start_host: StartHost, account: Account
) -> None:
    window = opened(start_host)
    window.change("globalSettingsIndex", 2)
    window.change("spotlightBOOL", True)
    window.change("spotlightBOOLIndex", 0)
    saved_by_click(window, account)
    assert window.commands.menus.main()["visible"], "not at once"

    other = Commands(start_host("Ink"))
    other.host.wait_until(lambda: not other.menus.main()["visible"], "the menu to go")
    item = next(
        item for item in other.host.windows_menu()["items"]
        if item["title"] == "Show Spotlight Window"
    )
    assert (item["keyEquivalent"], item["keyEquivalentModifierMask"]) == (" ", COMMAND_MASK)


def test_the_users_shortcuts_act_from_the_next_launch_on(
    start_host: StartHost, account: Account
) -> None:
    account.write_defaults("TextEdit", {"vtr_savedWindowRect": "{{200, 150}, {500, 400}}"})
    window = opened(start_host)
    window.change("ownShortCuts", True)
    for key in SHORTCUTS:
        window.change(key, CHANGES[key])
    window.host.quit()
    commands = Commands(start_host("TextEdit", *AT_ONCE))
    assert commands.chosen_by(OPTION, "r") == "Restore Default Window Frame"
    assert commands.chosen_by(CONTROL, "e") == "Center Window"
    assert commands.chosen_by(OPTION, "bracketright") == "Toggle Fullscreen"
    assert commands.chosen_by(CONTROL, "m") == "Toggle Menu And Dock"


# The keyboard


def test_tab_leads_through_all_controls_in_order(start_host: StartHost) -> None:
    window = opened(start_host)
    window.change("ownShortCuts", True)
    window.controls.choose(PLACES["globalSettingsIndex"], 0)
    keyboard, controls = window.desktop.keyboard, window.controls
    window.host.wait_until(lambda: controls.has_focus(KEYBOARD_ORDER[0]), "the first focus")
    for place in [*KEYBOARD_ORDER[1:], KEYBOARD_ORDER[0]]:
        keyboard.chord("Tab")
        window.host.wait_until(lambda: controls.has_focus(place), f"{place} to have the keys")
    for place in reversed(KEYBOARD_ORDER):
        keyboard.chord(SHIFT, "Tab")
        window.host.wait_until(lambda: controls.has_focus(place), f"{place} to have the keys")


def test_the_first_control_has_the_keyboard(start_host: StartHost) -> None:
    window = opened(start_host)
    assert window.controls.has_focus(KEYBOARD_ORDER[0])


def test_everything_can_be_done_from_the_keyboard(
    start_host: StartHost, account: Account
) -> None:
    window = opened(start_host)
    keyboard = window.desktop.keyboard
    keyboard.chord("Tab")
    keyboard.chord("space")
    window.host.wait_until(lambda: window.value("spotlightBOOL"), "the box to be checked")
    keyboard.chord("Return")
    window.host.wait_until(file_of(account).exists, "Return to save")
    assert read_file(account)["spotlightBOOL"] is True
    assert window.is_key
    keyboard.chord("Escape")
    window.wait_until_closed()


def test_return_saves_from_within_a_text_field(
    start_host: StartHost, account: Account
) -> None:
    window = opened(start_host)
    window.change("ownShortCuts", True)
    window.change("centerString", "k")
    window.desktop.keyboard.chord("Return")
    window.host.wait_until(file_of(account).exists, "Return to save")
    assert window.stored("centerString") == "k"


# Closing


def by_title_bar(window: SettingsWindow) -> None:
    window.desktop.close_window(window.window["xid"])


def by_button(window: SettingsWindow) -> None:
    window.controls.click(CLOSE.title)


def by_escape(window: SettingsWindow) -> None:
    window.desktop.keyboard.chord("Escape")


def by_escape_in_a_field(window: SettingsWindow) -> None:
    if not window.value("ownShortCuts"):
        window.change("ownShortCuts", True)
    window.controls.type(PLACES["centerString"], "k")
    window.desktop.keyboard.chord("Escape")


def by_the_hosts_menu(window: SettingsWindow) -> None:
    window.desktop.keyboard.chord(COMMAND, "w")


@pytest.mark.parametrize(
    "close", [by_title_bar, by_button, by_escape, by_escape_in_a_field, by_the_hosts_menu]
)
def test_a_closed_window_opens_again_as_it_was(
    start_host: StartHost, account: Account, close: Callable[[SettingsWindow], None]
) -> None:
    window = opened(start_host)
    for turn in range(2):
        moved = window.frame()._replace(x=100 + turn, y=60)
        client = window.desktop.geometry(window.window["xid"]).client
        offset = client.x - window.frame().x, client.y - window.frame().y
        window.desktop.move_resize(
            window.window["xid"],
            client._replace(x=moved.x + offset[0], y=moved.y + offset[1]),
        )
        window.host.wait_until(lambda: window.frame() == moved, "the window to be moved")
        close(window)
        window.wait_until_closed()
        assert len(window.host.windows()) == 1, "the document stays"
        write_settings(account, globalSettingsIndex=2)
        window.open()
        titles = [each["title"] for each in window.host.probe.windows()]
        assert titles.count(TITLE) == 1
        assert window.frame() == moved
        assert window.value("globalSettingsIndex") == 0, "the file is read once"


def test_closing_it_is_not_quitting(start_host: StartHost) -> None:
    """An application whose last window goes stays, as it does with its own."""
    window = opened(start_host)
    document = next(w for w in window.host.windows() if w["title"] != TITLE)
    window.desktop.close_window(document["xid"])
    window.host.wait_until(lambda: len(window.host.windows()) == 1, "the document to close")
    window.host.activate(TITLE)
    window.desktop.close_window(window.window["xid"])
    window.wait_until_closed()
    window.host.catch_up()
    window.host.assert_alive()


# Beside everything else


def test_the_commands_act_on_the_settings_window(start_host: StartHost) -> None:
    window = opened(start_host)
    for title, keys in COMMANDS.items():
        window.host.wait_until(lambda: window.is_key, "the window to be key")
        assert window.commands.chosen_by(*keys) == title
        if title.startswith("Toggle"):
            assert window.commands.chosen_by(*keys) == title, "and back"
    window.desktop.keyboard.chord(COMMAND, OPTION, CONTROL, "s")
    modal = "modalWindow"
    window.host.wait_until(lambda: window.host.probe.state()[modal] is not None, "the alert")
    window.desktop.keyboard.chord("Return")
    window.host.wait_until(lambda: window.host.probe.state()[modal] is None, "its end")
    window.host.wait_until(lambda: window.is_key, "the window to be key")
    restore = (COMMAND, OPTION, CONTROL, "Return")
    assert window.commands.chosen_by(*restore) == "Restore Default Window Frame"
    assert "exception" not in window.host.log
    window.change("globalSettingsIndex", 1)


@pytest.mark.parametrize(
    "place, page", [(MANUAL, "/manuals/Vistrel%20Manual.pdf"), (HOME_PAGE, "/")]
)
def test_its_pages_open_in_the_browser(
    start_host: StartHost, loader_bundle: Path, tmp_path: Path, place: Place, page: str
) -> None:
    record, program = tmp_path / "opened", tmp_path / "xdg-open"
    program.write_text(
        f'#!/bin/sh\necho "$*" >"{record}.part"\n/bin/mv "{record}.part" "{record}"\n'
    )
    program.chmod(0o755)
    window = opened(start_host, environment={"PATH": str(tmp_path)})
    window.controls.click(place.title)
    window.host.wait_until(record.exists, "the page to be opened")
    vistrel = loader_bundle.with_name("Vistrel.bundle")
    info = plistlib.loads((vistrel / "Resources" / "Info-gnustep.plist").read_bytes())
    assert record.read_text().strip() == info["VTRMainServer"] + page
    assert window.is_key


@pytest.fixture
def broken_bundle(loader_bundle: Path, tmp_path: Path) -> Callable[[Callable[[Path], None]], Path]:
    """A copy of the bundles whose interface file has been given to somebody."""

    def made(damage: Callable[[Path], None]) -> Path:
        for bundle in (loader_bundle, loader_bundle.with_name("Vistrel.bundle")):
            shutil.copytree(bundle, tmp_path / bundle.name)
        damage(tmp_path / "Vistrel.bundle" / "Resources" / "VTRPreferences.xib")
        return tmp_path / loader_bundle.name

    return made


def missing(file: Path) -> None:
    file.unlink()


def empty(file: Path) -> None:
    file.write_bytes(b"")


def truncated(file: Path) -> None:
    file.write_bytes(file.read_bytes()[:20000])


def something_else(file: Path) -> None:
    file.write_text("this is no interface\n")


@pytest.mark.parametrize("damage", [missing, empty, truncated, something_else])
def test_without_its_interface_file_nothing_happens(
    start_host: StartHost,
    broken_bundle: Callable[[Callable[[Path], None]], Path],
    damage: Callable[[Path], None],
) -> None:
    host = start_host("TextEdit", *AT_ONCE, bundles=[broken_bundle(damage)])
    commands = Commands(host)
    windows = len(host.windows())
    for _ in range(2):
        assert commands.chosen_by(COMMAND, OPTION, "comma") == "Settings…"
    assert len(host.windows()) == windows
    assert host.probe.state()["modalWindow"] is None
    commands.press("Toggle ½ Screen Left")
    host.assert_alive()
