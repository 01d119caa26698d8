"""Halves, thirds, centring: the frames that real applications really get."""

from __future__ import annotations

from collections.abc import Callable, Iterator
from pathlib import Path

import pytest
from commands import SHORTCUTS, Commands
from harness.account import Account
from harness.desktop import Desktop, MultiMonitorDesktop
from harness.geometry import Rect
from harness.host import Host
from harness.windowmanager import WindowMaker
from layouts import ALL, LEFT, RIGHT, THREE_L, THREE_M, THREE_R, Layout, standard_size

StartHost = Callable[..., Host]

AT_ONCE = ("-NSWindowResizeTime", "0")

# One with a minimum size larger than a third, one whose window cannot be resized.
HOSTS = ["TextEdit", "Ink", "SimpleAgenda", "EdenMath"]
MINIMUM_SIZE = {"SimpleAgenda": 500}


@pytest.fixture(scope="session", params=["openbox-1440x900", "wmaker-1366x768"])
def screen(request: pytest.FixtureRequest, output: Path) -> Iterator[Desktop]:
    if request.param == "openbox-1440x900":
        yield request.getfixturevalue("desktop")
        return
    with Account() as account:
        logs = output / "other-size"
        with Desktop(account, logs, (1366, 768), manager=WindowMaker) as made:
            yield made


def start(start_host: StartHost, name: str, desktop: Desktop, *arguments: str) -> Commands:
    return Commands(start_host(name, *arguments, desktop=desktop))


def expected(commands: Commands, layout: Layout) -> Rect:
    frame = layout.on(*commands.desktop.size)
    width = max(frame.width, MINIMUM_SIZE.get(commands.host.name, 0))
    return frame._replace(width=width)


@pytest.mark.parametrize("name", HOSTS)
def test_halves_and_thirds_are_exact_there_and_back(
    start_host: StartHost, screen: Desktop, name: str
) -> None:
    commands = start(start_host, name, screen, *AT_ONCE)
    before = commands.frame()
    for layout in ALL:
        commands.pick(layout.title)
        assert commands.frame() == expected(commands, layout), layout.title
        commands.assert_agreement()
        commands.pick(layout.title)
        assert commands.frame() == before, f"{layout.title} and back"
        commands.assert_agreement()


@pytest.mark.parametrize("name", HOSTS)
def test_the_animated_move_ends_at_the_same_frame(
    start_host: StartHost, screen: Desktop, name: str
) -> None:
    commands = start(start_host, name, screen)
    before = commands.frame()
    for layout in (LEFT, RIGHT):
        commands.press(layout.title)
        assert commands.frame() == expected(commands, layout)
        commands.assert_agreement()
        commands.press(layout.title)
        assert commands.frame() == before


def test_right_after_left_gives_the_left_half_back(
    start_host: StartHost, screen: Desktop
) -> None:
    commands = start(start_host, "Ink", screen, *AT_ONCE)
    commands.press(LEFT.title)
    commands.press(RIGHT.title)
    assert commands.frame() == expected(commands, RIGHT)
    commands.press(RIGHT.title)
    assert commands.frame() == expected(commands, LEFT)


def test_left_after_a_third_gives_the_first_frame_back(
    start_host: StartHost, screen: Desktop
) -> None:
    commands = start(start_host, "Ink", screen, *AT_ONCE)
    before = commands.frame()
    commands.press(LEFT.title)
    commands.pick(THREE_L.title)
    assert commands.frame() == expected(commands, THREE_L)
    commands.press(LEFT.title)
    assert commands.frame() == before


def test_a_half_is_exact_also_when_a_person_has_resized_it(
    start_host: StartHost, screen: Desktop
) -> None:
    commands = start(start_host, "TextEdit", screen, *AT_ONCE)
    half = expected(commands, LEFT)
    before = commands.frame()
    commands.press(LEFT.title)
    screen.resize_client(commands.host.key_window()["xid"], 500, 400)
    commands.host.wait_until(lambda: commands.client().width == 500, "the person's resizing")
    commands.host.catch_up()
    commands.press(LEFT.title)  # back, whatever has happened
    assert commands.frame() == before
    commands.press(LEFT.title)
    assert commands.frame() == half
    commands.assert_agreement()


def test_keys_typed_during_a_move_wait_for_its_end(
    start_host: StartHost, desktop: Desktop
) -> None:
    """Both commands are in the host's queue before the first has moved anything."""
    commands = start(start_host, "Ink", desktop)
    desktop.keyboard.chord(*SHORTCUTS[LEFT.title])
    desktop.keyboard.chord(*SHORTCUTS[RIGHT.title])
    commands.wait_for_frame(expected(commands, RIGHT))
    commands.host.catch_up()
    commands.press(RIGHT.title)
    assert commands.frame() == expected(commands, LEFT)


def centred(commands: Commands, size: tuple[int, int], area: Rect) -> Rect:
    """Where the platform centres: in the middle of what its menu leaves free."""
    width, height = size
    x = area.x + (area.width - width) // 2
    y = area.y + (area.height - height) // 2
    return Rect(x, y, width, height)


def near(one: Rect, other: Rect) -> bool:
    """The platform centres on half pixels, and what becomes of them is its affair."""
    return all(abs(a - b) <= 1 for a, b in zip(one, other))


@pytest.mark.parametrize("name", ["TextEdit", "Ink"])
def test_center_puts_the_window_in_the_middle(
    start_host: StartHost, screen: Desktop, name: str
) -> None:
    commands = start(start_host, name, screen, *AT_ONCE)
    size = commands.frame()[2:]
    commands.press("Center Window")
    assert near(commands.frame(), centred(commands, size, Rect(0, 0, *screen.size)))
    commands.assert_agreement()


@pytest.mark.parametrize("animated", [False, True])
def test_center_average_gives_the_standard_size_and_then_centres(
    start_host: StartHost, screen: Desktop, animated: bool
) -> None:
    arguments = () if animated else AT_ONCE
    commands = start(start_host, "TextEdit", screen, *arguments)
    commands.press("Center Average Window")
    size = standard_size(*screen.size)
    assert commands.frame()[2:] == pytest.approx(size, abs=1)
    assert near(commands.frame(), centred(commands, commands.frame()[2:], Rect(0, 0, *screen.size)))
    commands.assert_agreement()


def test_centring_drops_20_points_while_menu_and_dock_are_hidden(
    start_host: StartHost, screen: Desktop
) -> None:
    commands = start(start_host, "TextEdit", screen, *AT_ONCE)
    commands.press("Center Window")
    shown = commands.frame()
    commands.press("Toggle Menu And Dock")
    commands.press("Center Window")
    assert commands.frame() == shown._replace(y=shown.y + 20)


def test_centring_makes_the_next_half_a_first_one(
    start_host: StartHost, screen: Desktop
) -> None:
    commands = start(start_host, "Ink", screen, *AT_ONCE)
    commands.press(LEFT.title)
    commands.press("Center Window")
    middle = commands.frame()
    commands.press(LEFT.title)
    assert commands.frame() == expected(commands, LEFT)
    commands.press(LEFT.title)
    assert commands.frame() == middle


def test_a_window_on_the_second_screen_goes_to_the_first(
    start_host: StartHost, two_monitors: MultiMonitorDesktop
) -> None:
    """With the size of its own screen, counted from the origin of all screens."""
    commands = start(start_host, "Ink", two_monitors, *AT_ONCE)
    two_monitors.move_resize(commands.host.key_window()["xid"], Rect(1600, 200, 500, 400))
    commands.host.wait_until(lambda: commands.client().x == 1600, "the second screen")
    commands.host.catch_up()
    before = commands.frame()
    # The lower edge of the first screen is at 900, and the halves stand on it.
    for layout in (LEFT, THREE_M, THREE_R):
        commands.pick(layout.title)
        assert commands.frame() == layout.on(1280, 800, top=100), layout.title
        commands.pick(layout.title)
        assert commands.frame() == before
