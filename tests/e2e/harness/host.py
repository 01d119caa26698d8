"""A running, unmodified application with bundles loaded into it."""

from __future__ import annotations

import itertools
import subprocess
from collections.abc import Callable, Mapping, Sequence
from pathlib import Path
from typing import Any, TypeVar

from . import applications
from .account import Account
from .desktop import Desktop
from .geometry import Rect
from .probe import Default, Probe, ProbeError
from .waiting import insist, wait_until

Result = TypeVar("Result")

START_SECONDS = 40.0
QUIT_SECONDS = 5.0

# Without this, a question about the active application starts another one.
ALWAYS = ["-GSWorkspaceApplication", "NoSuchApp"]

_numbers = itertools.count(1)


def property_list_array(paths: Sequence[Path]) -> str:
    """Paths as the array that the platform reads from an argument."""
    quoted = (str(path).replace("\\", "\\\\").replace('"', '\\"') for path in paths)
    return "(" + ", ".join(f'"{path}"' for path in quoted) + ")"


class Host:
    """Use as a context manager, or call ``quit`` or ``kill`` in the end.

    ``bundles`` None: those that the account's defaults list, the probe among them.
    """

    def __init__(
        self,
        name: str,
        account: Account,
        desktop: Desktop,
        bundles: Sequence[Path] | None,
        logs: Path,
        arguments: Sequence[str] = (),
        environment: Mapping[str, str] | None = None,
        preload: Sequence[Path] = (),
    ) -> None:
        executable = applications.find(name)
        if executable is None:
            raise FileNotFoundError(f"{name}.app is not installed")
        number = next(_numbers)
        self.name, self.account, self.desktop = executable.name, account, desktop
        self.log_file = logs / f"{self.name}-{number}.log"
        self._socket = account.temp / f"probe-{number}"
        loading: list[str] = []
        if bundles is not None:
            loading = ["-GSAppKitUserBundles", property_list_array(bundles)]
        self.process = account.start(
            [executable, *ALWAYS, *loading, *arguments],
            self.log_file,
            extra={
                "DISPLAY": desktop.name,
                "VTR_PROBE_SOCKET": str(self._socket),
                **(environment or {}),
            },
            preload=preload,
        )
        self.probe = self._connect()
        self.wait_until(
            lambda: self.probe.state()["launched"],
            "the launch to finish",
            START_SECONDS,
        )

    def __enter__(self) -> Host:
        return self

    def __exit__(self, *unused: object) -> None:
        self.quit()

    # Living and dying

    @property
    def alive(self) -> bool:
        return self.process.poll() is None

    @property
    def log(self) -> str:
        return self.log_file.read_text(errors="replace")

    def describe(self) -> str:
        end = "is running" if self.alive else f"ended with {self.process.returncode}"
        return f"{self.name} {end}; its log:\n{self.log}"

    def assert_alive(self) -> None:
        assert self.alive, self.describe()

    def wait_until(
        self, predicate: Callable[[], Result], what: str, timeout: float = 10.0
    ) -> Result:
        """As in ``waiting``; a failure shows the log, and a dead host fails at once."""

        def living() -> Result:
            self.assert_alive()
            return predicate()

        return wait_until(living, f"{self.name}: {what}", timeout, self.describe)

    def _connect(self) -> Probe:
        def attempt() -> Probe | None:
            try:
                return Probe(self._socket)
            except (FileNotFoundError, ConnectionRefusedError):
                return None

        return self.wait_until(attempt, "the probe to listen", START_SECONDS)

    def quit(self, seconds: float = QUIT_SECONDS) -> int:
        """Quit as the user would; a host that asks back or hangs is killed."""
        if self.alive:
            try:
                self.probe.ask("quit")
                return self.process.wait(seconds)
            except (AssertionError, subprocess.TimeoutExpired):
                return self.kill()
        return self.process.wait()

    def kill(self) -> int:
        if self.alive:
            self.process.kill()
        return self.process.wait()

    def wait_for_end(self) -> int:
        """Its exit status, when it has ended by itself.

        The platform may leave keys that come at the wrong moment in its queue
        until it has something else to do, such as to answer a question.
        """
        wait_until(self._has_ended, f"{self.name} to end", explain=self.describe)
        return self.process.wait()

    def _has_ended(self) -> bool:
        try:
            self.probe.state()
        except ProbeError:
            return not self.alive
        return False

    # Looking

    def windows(self, title: str | None = None) -> list[dict[str, Any]]:
        """Visible document windows and panels: what has a title bar."""
        titled = 1
        return [
            window
            for window in self.probe.windows()
            if window["visible"] and window["styleMask"] & titled
            and title in (None, window["title"])
        ]

    def key_window(self) -> dict[str, Any] | None:
        return next((w for w in self.probe.windows() if w["key"]), None)

    def default(self, key: str) -> Default | None:
        return self.probe.default(key)

    def item_at(self, *titles: str) -> dict[str, Any]:
        """A menu item by its titles from the main menu down."""
        menu, item = self.probe.menu()["mainMenu"], None
        for title in titles:
            assert menu, f"{titles}: no menu above {title!r}"
            item = next((i for i in menu["items"] if i["title"] == title), None)
            there = [i["title"] for i in menu["items"]]
            assert item, f"{titles}: no {title!r} in {there}"
            menu = item["submenu"]
        return item

    def windows_menu(self) -> dict[str, Any] | None:
        """The menu that the application itself calls its windows menu."""
        waiting = [self.probe.menu()["mainMenu"]]
        while waiting:
            menu = waiting.pop()
            if menu and menu["isWindowsMenu"]:
                return menu
            waiting += [item["submenu"] for item in menu["items"]] if menu else []
        return None

    def catch_up(self) -> None:
        """Return when the host and the window manager are done with each other.

        The host, until it waits for events; then the manager, with what the
        host has asked of it; then the host, with what has come of that.
        """
        self._handle_events()
        self.desktop.catch_up()
        self._handle_events()

    def _handle_events(self) -> None:
        # It answers when no event is left. One answer may come in the same
        # pass in which it reads what the X server has sent; then it handles
        # that, and the next answer comes after it.
        for _ in range(2):
            self.probe.state()

    # Focus

    def has_focus(self) -> bool:
        """Whether the host has a key window, and the X server sends it the keys.

        Window Maker now and then gives the focus to the host's menu instead;
        what is typed then still goes to the key window.
        """
        windows = self.probe.windows()
        return (
            self.probe.state()["active"]
            and any(window["key"] for window in windows)
            and self.desktop.focus() in [window["xid"] for window in windows]
        )

    def wait_for_focus(self, timeout: float = 10.0) -> dict[str, Any]:
        self.wait_until(self.has_focus, "the host to have the keyboard", timeout)
        self.catch_up()
        return self.key_window()

    def activate(self, title: str | None = None) -> dict[str, Any]:
        """Bring a window of this host to the front, as a task bar does.

        Two hosts that are made to take turns within milliseconds may both end
        up inactive, the one that is leaving having asked for the focus last.
        """
        window = self.wait_until(lambda: self.windows(title), f"a window {title!r}")[0]
        insist(
            lambda: self.desktop.ask_for_focus(window["xid"]),
            lambda: self.has_focus() and self.desktop.focus() == window["xid"],
            f"{self.name} to be active",
            every=1.0,
        )
        return self.wait_for_focus()

    def frame(self, window: dict[str, Any]) -> Rect:
        """Where a window is by the host's own word, counted as the X server counts.

        ``desktop.geometry(window["xid"]).frame`` is the X server's word.
        """
        x, y, width, height = (round(number) for number in window["frame"])
        return Rect(x, self.desktop.size[1] - y - height, width, height)
