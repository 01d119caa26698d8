"""Saving and restoring the window frame: the X server's word, and the defaults file's."""

from __future__ import annotations

from collections.abc import Callable, Iterator

import pytest
from alerts import NOTHING_SAVED, RESTORE, SAVE, SAVED, SHORTCUTS, saved_text, told
from commands import Commands
from harness.account import Account
from harness.desktop import Desktop, MultiMonitorDesktop
from harness.geometry import Rect
from harness.host import Host
from test_block import write_settings

StartHost = Callable[..., Host]

AT_ONCE = ("-NSWindowResizeTime", "0")
KEY = "vtr_savedWindowRect"
PLACE, OTHER_PLACE = Rect(300, 200, 620, 430), Rect(100, 120, 500, 350)


@pytest.fixture(params=["desktop", "other_manager"])
def screen(request: pytest.FixtureRequest) -> Desktop:
    """Under openbox, and under Window Maker."""
    return request.getfixturevalue(request.param)


def start(start_host: StartHost, screen: Desktop, name: str = "TextEdit", **options) -> Commands:
    return Commands(start_host(name, *AT_ONCE, desktop=screen, **options))


def put(commands: Commands, place: Rect) -> Rect:
    """Moves the key window as its user might; answers its frame."""
    commands.desktop.place_client(commands.host.key_window()["xid"], place)
    commands.host.wait_until(lambda: commands.client()[2:] == place[2:], f"the window at {place}")
    commands.host.catch_up()
    return commands.frame()


def restore(commands: Commands) -> None:
    assert commands.chosen_by(*SHORTCUTS[RESTORE]) == RESTORE


def stored(account: Account, name: str = "TextEdit") -> dict[str, str]:
    """The saved frames in the host's file."""
    defaults = account.read_defaults(name)
    return {key: value for key, value in defaults.items() if key.startswith(KEY)}


@pytest.mark.parametrize("name", ["TextEdit", "Ink"])
def test_a_saved_frame_comes_back_at_the_next_start(
    start_host: StartHost, account: Account, screen: Desktop, name: str
) -> None:
    account.write_defaults(name, {"windowMode": 1})
    commands = start(start_host, screen, name)
    frame = put(commands, PLACE)
    assert told(commands, SAVE) == SAVED
    assert commands.host.quit() == 0
    assert stored(account, name) == {KEY: saved_text(frame)}

    again = start(start_host, screen, name)
    assert again.frame() == frame
    again.assert_agreement()


def test_restoring_puts_the_window_back_without_a_word(
    start_host: StartHost, screen: Desktop
) -> None:
    commands = start(start_host, screen)
    frame = put(commands, PLACE)
    assert told(commands, SAVE) == SAVED
    put(commands, OTHER_PLACE)
    restore(commands)
    assert commands.frame() == frame
    assert commands.host.probe.state()["modalWindow"] is None
    commands.assert_agreement()


def test_saving_again_replaces_the_frame(
    start_host: StartHost, account: Account, screen: Desktop
) -> None:
    commands = start(start_host, screen)
    for place in (PLACE, OTHER_PLACE):
        frame = put(commands, place)
        assert told(commands, SAVE) == SAVED
    commands.host.quit()
    assert stored(account) == {KEY: saved_text(frame)}


@pytest.mark.parametrize("mode", [0, 2])
def test_nothing_is_restored_at_the_start_in_another_mode(
    start_host: StartHost, account: Account, desktop: Desktop, mode: int
) -> None:
    before = start(start_host, desktop).frame()
    account.write_defaults("TextEdit", {"windowMode": mode, KEY: "{{300, 200}, {620, 430}}"})
    assert start(start_host, desktop).frame() == before


def test_every_host_has_its_own_frame(
    start_host: StartHost, account: Account, desktop: Desktop
) -> None:
    first = start(start_host, desktop)
    assert told(first, SAVE) == SAVED
    assert told(start(start_host, desktop, "Ink"), RESTORE) == NOTHING_SAVED


# What else restoring does


def fill(commands: Commands) -> None:
    area = Rect(0, 0, *commands.desktop.size)
    commands.press("Toggle Fullscreen")
    commands.host.wait_until(lambda: commands.client() == area, "the full screen")
    commands.host.catch_up()


def test_restoring_ends_the_full_screen_but_not_the_hiding(
    start_host: StartHost, screen: Desktop
) -> None:
    commands = start(start_host, screen)
    frame = put(commands, PLACE)
    told(commands, SAVE)
    fill(commands)
    assert commands.marked() == ["Toggle Menu And Dock"]
    restore(commands)
    assert commands.frame() == frame
    assert commands.marked() == []
    assert not commands.menus.main()["visible"], "the menu is hidden as before"
    fill(commands)


def test_restoring_nothing_ends_the_full_screen_and_the_halves_too(
    start_host: StartHost, screen: Desktop
) -> None:
    commands = start(start_host, screen)
    fill(commands)
    assert told(commands, RESTORE) == NOTHING_SAVED
    assert commands.marked() == []
    assert not commands.menus.main()["visible"]
    assert commands.client() == Rect(0, 0, *screen.size), "the window stays where it is"


def test_a_half_after_restoring_is_a_first_one(start_host: StartHost, screen: Desktop) -> None:
    commands = start(start_host, screen)
    frame = put(commands, PLACE)
    told(commands, SAVE)
    commands.press("Toggle ½ Screen Left")
    half = commands.frame()
    restore(commands)
    commands.press("Toggle ½ Screen Left")
    assert commands.frame() == half
    commands.press("Toggle ½ Screen Left")
    assert commands.frame() == frame


# Displays


def saved_for(displays: int) -> tuple[str, str]:
    message = f"Current window frame successfully saved for setup with {displays} display(s)."
    return SAVED[0], message


@pytest.fixture
def displays(account: Account, two_monitors: MultiMonitorDesktop) -> Iterator[MultiMonitorDesktop]:
    """Two of them, with one frame kept for each number."""
    write_settings(account, vtrDisplaySetupBool=True)
    yield two_monitors
    two_monitors.arrange(two_monitors.MONITORS)


def unplug(commands: Commands) -> None:
    commands.desktop.arrange(commands.desktop.MONITORS[:1])
    commands.host.wait_until(lambda: len(commands.host.probe.screens()) == 1, "one display")
    commands.host.catch_up()


def plug_in(commands: Commands) -> None:
    commands.desktop.arrange(commands.desktop.MONITORS)
    commands.host.wait_until(lambda: len(commands.host.probe.screens()) == 2, "two displays")
    commands.host.catch_up()


def test_each_number_of_displays_has_its_own_frame(
    start_host: StartHost, account: Account, displays: MultiMonitorDesktop
) -> None:
    commands = start(start_host, displays)
    two = put(commands, PLACE)
    assert told(commands, SAVE) == saved_for(2)
    unplug(commands)
    one = put(commands, OTHER_PLACE)
    assert told(commands, SAVE) == saved_for(1)
    restore(commands)
    assert commands.frame() == one
    plug_in(commands)
    restore(commands)
    assert commands.frame() == two
    commands.host.quit()
    assert stored(account) == {KEY + "1": saved_text(one), KEY + "2": saved_text(two)}


def test_a_frame_on_the_second_display_comes_back_there(
    start_host: StartHost, account: Account, displays: MultiMonitorDesktop
) -> None:
    account.write_defaults("TextEdit", {"windowMode": 1})
    commands = start(start_host, displays)
    frame = put(commands, Rect(1600, 200, 620, 430))
    assert told(commands, SAVE) == saved_for(2)
    commands.host.quit()
    assert stored(account) == {KEY + "2": saved_text(frame)}
    assert start(start_host, displays).frame() == frame


def test_what_was_saved_with_two_displays_is_not_found_with_one(
    start_host: StartHost, account: Account, displays: MultiMonitorDesktop
) -> None:
    commands = start(start_host, displays)
    assert told(commands, SAVE) == saved_for(2)
    commands.press("Toggle Fullscreen")
    commands.host.wait_until(lambda: commands.marked(), "the mark of the full screen")
    unplug(commands)
    assert told(commands, RESTORE) == NOTHING_SAVED
    assert commands.marked() == []


def test_what_was_saved_without_the_option_is_not_found_with_it(
    start_host: StartHost, account: Account, desktop: Desktop
) -> None:
    account.write_defaults("TextEdit", {KEY: "{{300, 200}, {620, 430}}", "windowMode": 1})
    write_settings(account, vtrDisplaySetupBool=True)
    commands = start(start_host, desktop)
    assert told(commands, RESTORE) == NOTHING_SAVED


# Values that we have not written


@pytest.mark.parametrize("value", [5, 2.5, True, ["{{1, 2}, {3, 4}}"], {"x": 1}, b"{{1, 2}"])
def test_a_value_that_is_no_text_is_none(
    start_host: StartHost, account: Account, desktop: Desktop, value: object
) -> None:
    account.write_defaults("TextEdit", {KEY: value, "windowMode": 1})
    commands = start(start_host, desktop)
    before = commands.frame()
    assert told(commands, RESTORE) == NOTHING_SAVED
    assert commands.frame() == before


@pytest.mark.parametrize(
    "text",
    [
        "{{0, 0}, {0, 0}}", "", "no numbers", "{{300, 200}", "{{-1, -1}, {-5, -5}}",
        "{{1e9, -1e9}, {1e9, 1e9}}", "{{nan, inf}, {inf, nan}}", "100 %@ %s %n",
    ],
)
@pytest.mark.parametrize("name", ["TextEdit", "Ink"])
def test_whatever_the_text_holds_the_host_lives_on(
    start_host: StartHost, account: Account, screen: Desktop, name: str, text: str
) -> None:
    account.write_defaults(name, {KEY: text, "windowMode": 1})
    commands = start(start_host, screen, name)
    restore(commands)
    assert commands.host.probe.state()["modalWindow"] is None
    commands.press("Toggle ½ Screen Left")
    assert commands.frame().x == 0
    assert commands.frame().height == screen.size[1]
    commands.host.assert_alive()
