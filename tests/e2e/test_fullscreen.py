"""Full screen, hiding and floating, as the X server has them."""

from __future__ import annotations

from collections.abc import Callable, Iterator
from pathlib import Path

import pytest
from commands import Commands
from harness.account import Account
from harness.desktop import Desktop, MultiMonitorDesktop
from harness.devices import COMMAND
from harness.geometry import Rect
from harness.host import Host
from harness.waiting import wait_until

StartHost = Callable[..., Host]

AT_ONCE = ("-NSWindowResizeTime", "0")
STYLES = ["NSNextStepInterfaceStyle", "NSMacintoshInterfaceStyle", "NSWindows95InterfaceStyle"]

FULLSCREEN, HIDING, FLOATING = (
    "Toggle Fullscreen", "Toggle Menu And Dock", "Toggle Floating Window",
)


@pytest.fixture(params=["desktop", "other_manager"])
def screen(request: pytest.FixtureRequest) -> Desktop:
    """Under openbox, and under Window Maker."""
    return request.getfixturevalue(request.param)


def start(start_host: StartHost, name: str, screen: Desktop, **options) -> Commands:
    return Commands(start_host(name, *AT_ONCE, desktop=screen, **options))


def fill(commands: Commands, area: Rect) -> None:
    """Full screen, when it has been reached: the content is exactly the screen."""
    commands.press(FULLSCREEN)
    commands.host.wait_until(lambda: commands.client() == area, f"the content to fill {area}")
    commands.host.catch_up()


def menu_is_visible(commands: Commands) -> bool:
    return commands.menus.main()["visible"]


def wait_for_menu(commands: Commands, visible: bool) -> None:
    commands.host.wait_until(
        lambda: menu_is_visible(commands) is visible,
        f"the menu to be {'on' if visible else 'out of'} sight",
    )


# Full screen


@pytest.mark.parametrize("name", ["TextEdit", "Ink", "EdenMath"])
def test_the_content_fills_the_screen_and_the_window_comes_back(
    start_host: StartHost, screen: Desktop, name: str
) -> None:
    commands = start(start_host, name, screen)
    before = commands.frame()
    fill(commands, Rect(0, 0, *screen.size))
    assert not menu_is_visible(commands)
    commands.press(FULLSCREEN)
    assert commands.frame() == before
    wait_for_menu(commands, True)
    commands.assert_agreement()


def test_full_screen_leaves_a_hidden_menu_hidden(start_host: StartHost, screen: Desktop) -> None:
    commands = start(start_host, "TextEdit", screen)
    before = commands.frame()
    commands.press(HIDING)
    fill(commands, Rect(0, 0, *screen.size))
    commands.press(FULLSCREEN)
    assert commands.frame() == before
    assert not menu_is_visible(commands)
    commands.press(HIDING)
    wait_for_menu(commands, True)


def test_the_marks_follow_the_modes(start_host: StartHost, desktop: Desktop) -> None:
    """Each is one item further down than its command."""
    commands = start(start_host, "TextEdit", desktop)
    fill(commands, Rect(0, 0, *desktop.size))
    assert commands.marked() == [HIDING]
    commands.press(FULLSCREEN)
    assert commands.marked() == []
    commands.press(HIDING)
    assert commands.marked() == [FLOATING]
    commands.press(HIDING)
    commands.press(FLOATING)
    assert commands.marked() == ["Make OS X Lion Fullscreen Window"]
    commands.press(FLOATING)
    assert commands.marked() == []


def test_centring_ends_the_full_screen_but_not_the_hiding(
    start_host: StartHost, desktop: Desktop
) -> None:
    commands = start(start_host, "TextEdit", desktop)
    fill(commands, Rect(0, 0, *desktop.size))
    commands.press("Center Average Window")
    assert commands.marked() == []
    assert commands.frame().width < desktop.size[0]
    assert not menu_is_visible(commands)


def test_a_half_within_the_delay_does_not_cancel_it(
    start_host: StartHost, desktop: Desktop
) -> None:
    commands = start(start_host, "TextEdit", desktop)
    commands.press(FULLSCREEN)
    commands.press("Toggle ½ Screen Left")
    area = Rect(0, 0, *desktop.size)
    commands.host.wait_until(lambda: commands.client() == area, "the delayed step")
    assert commands.marked() == []


def test_full_screen_is_that_of_the_windows_own_screen(
    start_host: StartHost, two_monitors: MultiMonitorDesktop
) -> None:
    commands = start(start_host, "Ink", two_monitors)
    two_monitors.move_resize(commands.host.key_window()["xid"], Rect(1600, 200, 500, 400))
    commands.host.wait_until(lambda: commands.client().x == 1600, "the second screen")
    commands.host.catch_up()
    before = commands.frame()
    fill(commands, Rect(1440, 0, 1280, 800))
    commands.press(FULLSCREEN)
    assert commands.frame() == before


# Hiding


@pytest.mark.parametrize("style", STYLES)
def test_hiding_puts_the_menu_out_of_sight_and_back(
    start_host: StartHost, screen: Desktop, style: str
) -> None:
    commands = start(start_host, "TextEdit", screen, style=style)
    wait_for_menu(commands, True)
    commands.press(HIDING)
    wait_for_menu(commands, False)
    assert commands.chosen_by(COMMAND, "n") == "New"
    commands.host.wait_for_focus()
    commands.press(HIDING)
    wait_for_menu(commands, True)


@pytest.mark.parametrize("style", STYLES[:2])
def test_a_hidden_menu_comes_back_at_its_edge(
    start_host: StartHost, screen: Desktop, style: str
) -> None:
    commands = start(start_host, "TextEdit", screen, style=style)
    screen.mouse.move(700, 600)
    commands.press(HIDING)
    wait_for_menu(commands, False)
    screen.mouse.move(40, 0)
    wait_for_menu(commands, True)
    screen.mouse.move(700, 600)
    wait_for_menu(commands, False)


def test_a_menu_that_is_back_is_above_the_window_each_time(
    start_host: StartHost, desktop: Desktop
) -> None:
    """The menu is on screen when the mode begins, and gone an instant later."""
    commands = start(start_host, "Ink", desktop)
    fill(commands, Rect(0, 0, *desktop.size))
    for _ in range(5):
        desktop.mouse.move(40, 0)
        wait_for_menu(commands, True)
        commands.pick(FULLSCREEN)
        commands.pick(FULLSCREEN)
        area = Rect(0, 0, *desktop.size)
        commands.host.wait_until(lambda: commands.client() == area, "the content to fill")


def test_the_mode_holds_only_while_the_host_is_active(
    start_host: StartHost, screen: Desktop
) -> None:
    commands = start(start_host, "TextEdit", screen)
    commands.press(HIDING)
    wait_for_menu(commands, False)
    other = start(start_host, "Ink", screen)
    wait_for_menu(other, True)
    commands.host.activate()
    wait_for_menu(commands, False)
    commands.press(HIDING)
    wait_for_menu(commands, True)


@pytest.fixture
def panel(screen: Desktop, pictures: Path) -> Iterator[int]:
    """tint2, at the lower edge of the screen; its X window."""
    with Account() as account:
        before = set(docks(screen))
        account.start(["tint2"], pictures / "tint2.log", {"DISPLAY": screen.name})
        yield wait_until(lambda: list(set(docks(screen)) - before), "the panel", 20)[0]


def docks(screen: Desktop) -> list[int]:
    """The mapped windows that say that they are docks and are no application's."""
    atom, dock = (
        screen.connection.intern_atom(name)
        for name in ("_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK")
    )

    def walk(window):
        yield window
        for child in window.query_tree().children:
            yield from walk(child)

    found = []
    for window in walk(screen.server.root):
        kind = window.get_full_property(atom, 0)
        if kind and dock in kind.value and (window.get_wm_class() or ("",))[0] == "tint2":
            if screen.is_mapped(window.id):
                found.append(window.id)
    return found


def is_covered(screen: Desktop, panel: int, commands: Commands) -> bool:
    return screen.is_above(commands.host.key_window()["xid"], panel)


def test_panels_cover_no_part_of_the_window_while_they_are_hidden(
    start_host: StartHost, screen: Desktop, panel: int
) -> None:
    commands = start(start_host, "TextEdit", screen)
    states = screen.states(panel)
    commands.press(HIDING)
    commands.host.wait_until(lambda: is_covered(screen, panel, commands), "the panel below")
    assert screen.states(panel) == states, "nothing is changed on the panel's own window"
    commands.press(HIDING)
    commands.host.wait_until(lambda: not is_covered(screen, panel, commands), "the panel above")
    assert screen.states(panel) == states


def test_window_makers_own_dock_is_covered_and_comes_back(
    start_host: StartHost, other_manager: Desktop, pictures: Path
) -> None:
    width, _ = other_manager.size
    dock = Rect(width - 64, 36, 64, 28)  # most of its uppermost tile

    def picture() -> bytes:
        return other_manager.screenshot().crop(dock.box).tobytes()

    commands = start(start_host, "TextEdit", other_manager)
    assert other_manager.colours(dock) > 2, "the dock is there"
    before = picture()
    fill(commands, Rect(0, 0, *other_manager.size))
    commands.host.wait_until(lambda: other_manager.colours(dock) == 1, "a blank page there")
    other_manager.screenshot(pictures / "covered.png")
    commands.press(FULLSCREEN)
    commands.host.wait_until(lambda: picture() == before, "the dock to be back")


@pytest.mark.parametrize("mode", [HIDING, FULLSCREEN])
def test_nothing_stays_hidden_when_the_host_is_killed(
    start_host: StartHost, screen: Desktop, panel: int, mode: str
) -> None:
    states = screen.states(panel)
    commands = start(start_host, "TextEdit", screen)
    commands.press(mode)
    commands.host.wait_until(lambda: is_covered(screen, panel, commands), "the panel below")
    commands.host.kill()
    assert screen.is_mapped(panel)
    assert screen.states(panel) == states
    other = start(start_host, "Ink", screen)
    wait_for_menu(other, True)
    assert not is_covered(screen, panel, other)


# Floating


def raise_other(commands: Commands, other: Commands) -> None:
    other.host.activate()
    other.host.catch_up()


def test_a_floating_window_stays_above_other_applications(
    start_host: StartHost, screen: Desktop
) -> None:
    commands = start(start_host, "TextEdit", screen)
    floating = commands.host.key_window()["xid"]
    commands.press(FLOATING)
    other = start(start_host, "Ink", screen)
    below = other.host.key_window()["xid"]
    other.host.wait_until(lambda: screen.is_above(floating, below), "the window to float")
    raise_other(commands, other)
    assert screen.is_above(floating, below)

    commands.host.activate()
    commands.press(FLOATING)
    raise_other(commands, other)
    other.host.wait_until(lambda: screen.is_above(below, floating), "the floating to end")


def test_a_floating_window_floats_also_after_it_was_miniaturized(
    start_host: StartHost, screen: Desktop
) -> None:
    commands = start(start_host, "TextEdit", screen)
    commands.press(FLOATING)
    title = commands.host.windows_menu()["title"]
    commands.menus.pick(title, "Minimize")
    commands.menus.close()
    commands.host.wait_until(lambda: not commands.host.windows("Untitled-1"), "the miniature")
    commands.menus.pick(title, "Untitled-1")
    commands.menus.close()
    floating = commands.host.activate("Untitled-1")["xid"]
    other = start(start_host, "Ink", screen)
    raise_other(commands, other)
    below = other.host.key_window()["xid"]
    other.host.wait_until(lambda: screen.is_above(floating, below), "the window to float")
