"""Giving Vistrel's commands to a host, and what a test wants to know after one."""

from __future__ import annotations

from harness.desktop import Geometry
from harness.devices import COMMAND, CONTROL, OPTION, SHIFT
from harness.geometry import Rect
from harness.host import Host
from harness.menus import Menus

LOG_LINE = "VTRLog - Screens: "

# Command: the keys of its built-in shortcut.
SHORTCUTS = {
    "Toggle ½ Screen Left": (CONTROL, "bracketleft"),
    "Toggle ½ Screen Right": (CONTROL, "bracketright"),
    "Center Window": (OPTION, "Return"),
    "Center Average Window": (CONTROL, OPTION, "Return"),
    "Toggle Fullscreen": (COMMAND, "Return"),
    "Toggle Menu And Dock": (CONTROL, "Return"),
    "Toggle Floating Window": (CONTROL, SHIFT, "Return"),
    "Make OS X Lion Fullscreen Window": (COMMAND, OPTION, CONTROL, "f"),
}

ARRANGE = ("Center", "Toggle ½", "Toggle ⅓")


class Commands:
    """A host that has its block and the keyboard."""

    def __init__(self, host: Host) -> None:
        host.wait_until(lambda: LOG_LINE in host.log, "Vistrel to be loaded")
        host.wait_for_focus()
        self.host, self.desktop = host, host.desktop
        self.menus = Menus(host)

    def press(self, title: str) -> None:
        """By its shortcut; returns when its action has been performed."""
        assert self.chosen_by(*SHORTCUTS[title]) == title

    def actions(self) -> int:
        """How many actions the host's menus have sent."""
        return self.host.probe.state()["actions"]

    def chosen_by(self, *keys: str) -> str:
        """The title of the item that the host's menus choose for these keys."""
        before = self.actions()
        self.desktop.keyboard.chord(*keys)
        self.host.wait_until(lambda: self.actions() > before, f"an action for {keys}")
        self.host.wait_until(self._is_done_showing, f"{keys} no longer to be shown")
        self.host.catch_up()
        return self.host.probe.state()["lastAction"]

    def _is_done_showing(self) -> bool:
        """While a host shows a shortcut in its menu, it handles no events, unless an alert is up."""
        shown = self.menus.main()["highlighted"] != -1
        return not shown or self.host.probe.state()["mode"] == "NSModalPanelRunLoopMode"

    def pick(self, title: str) -> None:
        """By mouse, from the menu."""
        parents = ["Arrange"] if title.startswith(ARRANGE) else []
        self.menus.pick(self.host.windows_menu()["title"], *parents, title)
        self.menus.close()
        self.host.catch_up()

    def _geometry(self) -> Geometry:
        """The key window's, as the X server has it.

        For a moment there may be none: a manager takes the keyboard from a window whose level it
        changes, and gives it back.
        """
        window = self.host.wait_until(self.host.key_window, "a key window")
        return self.desktop.geometry(window["xid"])

    def frame(self) -> Rect:
        return self._geometry().frame

    def client(self) -> Rect:
        return self._geometry().client

    def assert_agreement(self) -> None:
        """The host and the X server have the same idea of where the window is."""
        assert self.host.frame(self.host.key_window()) == self.frame()

    def marked(self) -> list[str]:
        """The titles of the items of the Window menu that show a check mark."""
        items = self.host.windows_menu()["items"]
        return [item["title"] for item in items if item["state"] == 1]

    def wait_for_frame(self, frame: Rect) -> None:
        self.host.wait_until(lambda: self.frame() == frame, f"the frame {frame}")
