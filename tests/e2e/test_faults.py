"""The desktop fails: windows, hosts, managers, monitors and servers go when they like."""

from __future__ import annotations

import select
import signal
import threading
from collections.abc import Callable, Iterator
from pathlib import Path

import layouts
import pytest
from alerts import SAVE, told
from commands import SHORTCUTS, Commands
from harness.account import Account
from harness.desktop import Desktop, MultiMonitorDesktop
from harness.devices import COMMAND, OPTION
from harness.geometry import Rect
from harness.host import Host
from settingswindow import SettingsWindow
from Xlib import X
from Xlib.display import Display
from test_fullscreen import (
    AT_ONCE, FLOATING, FULLSCREEN, HIDING, fill, is_covered, panel, screen, start, wait_for_menu,
)

StartHost = Callable[..., Host]

MODES = [HIDING, FULLSCREEN, FLOATING]
LEFT = layouts.LEFT.title


@pytest.fixture
def own_desktop(pictures: Path) -> Iterator[Desktop]:
    """One that a test may break."""
    with Account() as account, Desktop(account, pictures / "desktop") as made:
        yield made


@pytest.fixture
def unmanaged(pictures: Path) -> Iterator[Desktop]:
    """Without any window manager."""
    with Account() as account, Desktop(account, pictures / "desktop", manager=None) as made:
        yield made


def assert_usable(commands: Commands) -> None:
    """A new document of it goes where it is told to."""
    commands.host.assert_alive()
    assert "exception" not in commands.host.log.lower()
    before = len(commands.host.windows())
    assert commands.chosen_by(COMMAND, "n") == "New"
    commands.host.wait_until(lambda: len(commands.host.windows()) > before, "a new document")
    commands.host.wait_for_focus()
    commands.press("Center Average Window")
    width, _ = layouts.standard_size(*commands.desktop.size)
    assert commands.frame().width == pytest.approx(width, abs=1)
    commands.assert_agreement()


# A window goes


def close_key_window(commands: Commands) -> None:
    window = commands.host.key_window()
    commands.desktop.close_window(window["xid"])
    commands.host.wait_until(
        lambda: window["number"] not in [w["number"] for w in commands.host.windows()],
        "the window to close",
    )


def open_second_window(commands: Commands) -> None:
    assert commands.chosen_by(COMMAND, "n") == "New"
    commands.host.wait_until(lambda: len(commands.host.windows()) == 2, "a second window")
    commands.host.wait_for_focus()


def test_a_window_that_closes_while_it_moves_takes_nothing_with_it(
    start_host: StartHost, screen: Desktop
) -> None:
    commands = Commands(start_host("TextEdit", desktop=screen))
    open_second_window(commands)
    before = commands.frame()
    screen.keyboard.chord(*SHORTCUTS[LEFT])
    commands.host.wait_until(lambda: commands.frame() != before, "the window to move")
    close_key_window(commands)
    commands.host.wait_for_focus()
    assert_usable(commands)


def test_a_window_that_closes_before_it_fills_the_screen_leaves_the_next_one_to_do_it(
    start_host: StartHost, screen: Desktop
) -> None:
    commands = start(start_host, "TextEdit", screen)
    open_second_window(commands)
    commands.press(FULLSCREEN)
    close_key_window(commands)
    commands.host.wait_for_focus()
    area = Rect(0, 0, *screen.size)
    commands.host.wait_until(lambda: commands.client() == area, "the other one to fill it")
    commands.press(FULLSCREEN)
    wait_for_menu(commands, True)
    assert_usable(commands)


def test_the_last_window_that_closes_in_full_screen_leaves_its_host_a_menu(
    start_host: StartHost, other_manager: Desktop
) -> None:
    """Under a window manager that lets a host without windows be active."""
    commands = start(start_host, "TextEdit", other_manager)
    fill(commands, Rect(0, 0, *other_manager.size))
    close_key_window(commands)
    wait_for_menu(commands, True)
    assert commands.chosen_by(COMMAND, "n") == "New"
    commands.host.wait_for_focus()
    commands.press(FULLSCREEN)
    wait_for_menu(commands, True)
    assert_usable(commands)


def begin(commands: Commands, mode: str) -> None:
    """Returns when the mode is on, full screen after its delay."""
    if mode == FULLSCREEN:
        fill(commands, Rect(0, 0, *commands.desktop.size))
    else:
        commands.press(mode)


# A host goes; what SIGKILL leaves of hiding and of full screen is held with these modes


@pytest.mark.parametrize("mode", [FLOATING, FULLSCREEN])
def test_nothing_stays_above_when_the_host_is_killed(
    start_host: StartHost, screen: Desktop, panel: int, mode: str
) -> None:
    """Full screen: before its delay is over, with a floating window."""
    states = screen.states(panel)
    commands = start(start_host, "TextEdit", screen)
    commands.press(FLOATING)
    if mode == FULLSCREEN:
        commands.press(mode)
    assert commands.host.kill() == -signal.SIGKILL
    assert screen.is_mapped(panel)
    assert screen.states(panel) == states
    other = start(start_host, "Ink", screen)
    wait_for_menu(other, True)
    assert not is_covered(screen, panel, other)
    other.press(LEFT)
    assert other.frame().x == 0


# A window manager goes


@pytest.mark.parametrize("mode", MODES)
def test_a_new_window_manager_finds_a_usable_host(
    own_desktop: Desktop, start_host: StartHost, mode: str
) -> None:
    commands = start(start_host, "TextEdit", own_desktop)
    before = commands.frame()
    begin(commands, mode)
    own_desktop.manager.restart()
    own_desktop.catch_up()
    commands.host.activate()
    commands.press(mode)
    commands.host.wait_until(lambda: not commands.marked(), "the mode to end")
    wait_for_menu(commands, True)
    assert commands.frame()[2:] == before[2:]
    other = start(start_host, "Ink", own_desktop)
    upper, lower = other.host.key_window()["xid"], commands.host.windows()[0]["xid"]
    other.host.wait_until(lambda: own_desktop.is_above(upper, lower), "the newer to be in front")
    commands.host.activate()
    assert_usable(commands)


@pytest.mark.parametrize("mode", MODES)
def test_without_a_window_manager_the_modes_come_and_go(
    unmanaged: Desktop, start_host: StartHost, mode: str
) -> None:
    commands = start(start_host, "TextEdit", unmanaged)
    before = commands.frame()
    begin(commands, mode)
    commands.press(mode)
    wait_for_menu(commands, True)
    assert commands.frame() == before
    commands.press(LEFT)
    assert commands.frame() == layouts.LEFT.on(*unmanaged.size)


# A monitor goes


@pytest.fixture
def monitors(two_monitors: MultiMonitorDesktop) -> Iterator[MultiMonitorDesktop]:
    yield two_monitors
    two_monitors.arrange(two_monitors.MONITORS)


def start_on_second(start_host: StartHost, monitors: MultiMonitorDesktop) -> Commands:
    commands = start(start_host, "TextEdit", monitors)
    monitors.move_resize(commands.host.key_window()["xid"], Rect(1700, 200, 500, 400))
    commands.host.wait_until(lambda: commands.client().x == 1700, "the second monitor")
    commands.host.catch_up()
    return commands


def unplug(commands: Commands) -> None:
    commands.desktop.arrange(commands.desktop.MONITORS[:1])
    commands.host.wait_until(lambda: len(commands.host.probe.screens()) == 1, "one monitor")
    commands.host.catch_up()


def assert_within_reach(commands: Commands) -> None:
    """Enough of the title bar is on the monitor that is left."""
    x, y, width, _ = commands.frame()
    assert -width + 50 <= x <= 1440 - 50 and 0 <= y <= 900 - 20, commands.frame()


def restore_saved(commands: Commands) -> None:
    assert commands.chosen_by(COMMAND, OPTION, "Control_L", "Return").startswith("Restore")


def test_a_frame_saved_on_a_monitor_that_is_gone_comes_back_within_reach(
    start_host: StartHost, monitors: MultiMonitorDesktop
) -> None:
    commands = start_on_second(start_host, monitors)
    told(commands, SAVE)
    unplug(commands)
    commands.press("Center Window")
    restore_saved(commands)
    assert_within_reach(commands)
    assert_usable(commands)


@pytest.mark.parametrize("mode", [LEFT, FULLSCREEN])
def test_what_came_from_a_monitor_that_is_gone_goes_back_within_reach(
    start_host: StartHost, monitors: MultiMonitorDesktop, mode: str
) -> None:
    commands = start_on_second(start_host, monitors)
    if mode == FULLSCREEN:
        fill(commands, Rect(1440, 0, 1280, 800))
    else:
        commands.press(mode)
    unplug(commands)
    commands.press(mode)
    assert_within_reach(commands)
    wait_for_menu(commands, True)
    assert_usable(commands)


# The X server goes


@pytest.mark.parametrize("modes", [[], MODES], ids=["no-mode", "all-modes"])
def test_a_host_ends_with_the_server_as_it_would_without_vistrel(
    loader_bundle: Path, probe_bundle: Path, pictures: Path, modes: list[str]
) -> None:
    def end(bundles: list[Path], modes: list[str]) -> int:
        with Account() as account, Desktop(account, pictures) as desktop:
            host = Host("TextEdit", account, desktop, [*bundles, probe_bundle], pictures, AT_ONCE)
            host.wait_for_focus()
            for mode in modes:
                Commands(host).press(mode)
            desktop.server.crash()
            return host.process.wait(10)

    assert end([loader_bundle], modes) == end([], [])


# Its user goes


def test_a_host_may_quit_while_its_settings_window_is_open(
    start_host: StartHost, desktop: Desktop
) -> None:
    window = SettingsWindow(start(start_host, "TextEdit", desktop))
    window.change("ownShortCuts", True)
    assert window.host.quit() == 0, window.host.describe()
    assert "exception" not in window.host.log.lower()


# A program insists on being on top


class Insistent:
    """An invisible window at the upper edge, put back on top whenever another goes there."""

    def __init__(self, desktop: Desktop) -> None:
        self._connection = Display(desktop.name)
        root = self._connection.screen().root
        root.change_attributes(event_mask=X.SubstructureNotifyMask)
        self._window = root.create_window(
            0, 0, root.get_geometry().width, 1, 0, 0, X.InputOnly, override_redirect=True
        )
        self._window.map()
        self._connection.sync()
        self.is_content = False
        self._ends = False
        self._thread = threading.Thread(target=self._insist, daemon=True)
        self._thread.start()

    def _insist(self) -> None:
        while not self._ends:
            if not self._connection.pending_events():
                self.is_content = not select.select([self._connection], [], [], 0.2)[0]
            for _ in range(self._connection.pending_events()):
                event = self._connection.next_event()
                if event.type in (X.ConfigureNotify, X.MapNotify) and event.window != self._window:
                    self._window.configure(stack_mode=X.Above)
            self._connection.flush()

    def close(self) -> None:
        self._ends = True
        self._thread.join()
        self._connection.close()


def test_a_window_that_insists_on_being_on_top_is_left_there(
    start_host: StartHost, screen: Desktop
) -> None:
    commands = start(start_host, "TextEdit", screen)
    commands.press(HIDING)
    wait_for_menu(commands, False)
    insistent = Insistent(screen)
    try:
        commands.host.wait_until(lambda: insistent.is_content, "the end of the quarrel")
        commands.press(LEFT)
        commands.assert_agreement()
    finally:
        insistent.close()
    commands.press(HIDING)
    wait_for_menu(commands, True)
    assert_usable(commands)
