"""A tour of Vistrel in a real application: tour.py APP-FOLDER PICTURES

Gives each command for real, by mouse or by its shortcut, prints where the
window was before and after, and takes a picture of each step.
"""

from __future__ import annotations

import os
import shutil
import sys
import tempfile
from collections.abc import Callable
from pathlib import Path

import settingswindow
from harness.account import Account
from harness.desktop import Desktop
from harness.devices import COMMAND, CONTROL
from harness.form import Form
from harness.geometry import Rect
from harness.host import Host
from harness.menus import Menus, rect

LOG_LINE = "VTRLog - Screens: "

# A desktop that shows where windows end.
BACKGROUND = 0x46637F

# How much of the desktop a picture of one window shows around it, in pixels.
MARGIN = 24

ABOUT = "About Vistrel"

# More than there are before the About window's icon is drawn.
MANY_COLOURS = 500

# Toggles are picked twice: there, and back.
ARRANGE = [
    ("Toggle ½ Screen Left", "left-half"),
    ("Toggle ½ Screen Right", "right-half"),
    ("Toggle ⅓ Screen Left", "left-third"),
    ("Toggle ⅓ Screen Middle", "middle-third"),
    ("Toggle ⅓ Screen Right", "right-third"),
    ("Center Window", "centred"),
    ("Center Average Window", "standard-size"),
]


class Tour:
    def __init__(self, host: Host, desktop: Desktop, pictures: Path) -> None:
        self.host, self.desktop, self.pictures = host, desktop, pictures
        self.menus = Menus(host)
        self.window_menu = (host.windows_menu() or {}).get("title")
        self.step = 0

    def frame(self) -> Rect:
        """As the X server has it."""
        window = self.host.wait_for_focus()
        return self.desktop.geometry(window["xid"]).frame

    def picture(self, name: str, area: Rect | None = None) -> str:
        """Of the whole screen, or of a part of it."""
        self.step += 1
        file = f"{self.step:02}-{name}.png"
        image = self.desktop.screenshot()
        (image.crop(area.box) if area else image).save(self.pictures / file)
        return file

    def show_menu(self, name: str, *titles: str) -> None:
        area = rect(self.menus.open(self.window_menu, *titles))
        self.host.wait_until(lambda: self.desktop.colours(area) > 2, "the menu to be drawn")
        print(f"  {' > '.join([self.window_menu, *titles]):46} {self.picture(name)}")

    def show(self, title: str, name: str, command: Callable[[], None]) -> None:
        before = self.frame()
        command()
        self.menus.close()
        self.host.catch_up()
        after = self.frame()
        picture = self.picture(name)
        print(f"  {title:46} {text(before)} -> {text(after)}  {picture}")

    def pick(self, title: str, name: str, *parents: str) -> None:
        """Choose the command with the mouse, if this version has it."""
        path = (self.window_menu, *parents, title)
        if not self.host.item_at(*path)["enabled"]:
            return
        self.show(title, name, lambda: self.menus.pick(*path))
        if title.startswith("Toggle"):
            self.show(f"{title}, and back", f"{name}-back", lambda: self.menus.pick(*path))

    def settings(self) -> None:
        """Open the settings window, change something in it, and close it."""
        path = (self.window_menu, "Settings", "Settings…")
        if not self.host.item_at(*path)["enabled"]:
            return
        self.menus.pick(*path)
        self.menus.close()
        self.host.wait_until(lambda: self.host.windows(settingswindow.TITLE), "the window")
        frame = self.frame()
        controls = Form(self.host, settingswindow.TITLE)
        controls.toggle(settingswindow.PLACES["ownShortCuts"])
        controls.type(settingswindow.PLACES["centerString"], "e")
        self.desktop.settle()
        self.host.catch_up()
        picture = self.picture("settings-window", around(frame))
        print(f"  {'Settings…':46} {text(frame)}  {picture}")
        controls.click(settingswindow.CLOSE.title)
        self.host.wait_until(
            lambda: not self.host.windows(settingswindow.TITLE), "the window to close"
        )

    def about(self) -> None:
        """Open the About window and close it."""
        path = (self.window_menu, "Quorvix's Vistrel", "About")
        if not self.host.item_at(*path)["enabled"]:
            return
        self.menus.pick(*path)
        self.menus.close()
        self.desktop.settle()
        self.host.wait_until(lambda: self.host.windows(ABOUT), "the window")
        frame = self.frame()
        self.host.wait_until(
            lambda: self.desktop.colours(frame) > MANY_COLOURS, "the icon to be drawn"
        )
        picture = self.picture("about", around(frame))
        print(f"  {'About':46} {text(frame)}  {picture}")
        self.desktop.keyboard.chord("Escape")
        self.host.wait_until(lambda: not self.host.windows(ABOUT), "the window to close")

    def full_screen(self) -> None:
        """By its shortcut: the menu is out of sight when it is wanted again."""
        if not self.host.item_at(self.window_menu, "Toggle Fullscreen")["enabled"]:
            return
        width, height = self.desktop.size
        window = self.frame()
        self.show("Toggle Fullscreen (Command-Return)", "fullscreen", lambda: self.reach(
            lambda frame: frame.width >= width and frame.height >= height))
        self.show("Toggle Fullscreen, and back", "fullscreen-back", lambda: self.reach(
            lambda frame: frame == window))

    def reach(self, arrived: Callable[[Rect], bool]) -> None:
        self.desktop.keyboard.chord(COMMAND, "Return")
        self.host.wait_until(lambda: arrived(self.frame()), "the window to arrive")

    def menu_and_dock(self) -> None:
        title = "Toggle Menu And Dock"
        if not self.host.item_at(self.window_menu, title)["enabled"]:
            return
        self.show(f"{title} (Control-Return)", "hidden", lambda: self.hide(False))
        self.show(f"{title}, and back", "shown", lambda: self.hide(True))

    def hide(self, visible: bool) -> None:
        self.desktop.keyboard.chord(CONTROL, "Return")
        self.host.wait_until(
            lambda: self.menus.main()["visible"] is visible, "the menu to go or to come"
        )

    def give(self) -> None:
        if self.window_menu is None:
            print("This application has no Window menu, so there is nothing to show.")
            return
        self.show_menu("window-menu")
        for title in ("Quorvix's Vistrel", "Settings", "Arrange"):
            self.show_menu(title.split()[-1].lower(), title)
        self.menus.close()
        self.about()
        self.settings()
        for title, name in ARRANGE:
            self.pick(title, name, "Arrange")
        self.full_screen()
        self.menu_and_dock()
        self.pick("Toggle Floating Window", "floating")
        self.pick("Make OS X Lion Fullscreen Window", "full-screen-capable")


def paint(desktop: Desktop) -> None:
    root = desktop.server.root
    root.change_attributes(background_pixel=BACKGROUND)
    root.clear_area()
    desktop.connection.sync()


def around(frame: Rect) -> Rect:
    """With some of the desktop."""
    x, y, width, height = frame
    return Rect(x - MARGIN, y - MARGIN, width + 2 * MARGIN, height + 2 * MARGIN)


def text(frame: Rect) -> str:
    return f"({frame.x}, {frame.y}) {frame.width}x{frame.height}".ljust(20)


def main(application: Path, pictures: Path) -> int:
    shutil.rmtree(pictures, ignore_errors=True)
    pictures.mkdir(parents=True)
    bundles = [
        Path(os.environ[f"VISTREL_{name}_BUNDLE"]) for name in ("LOADER", "PROBE")
    ]
    print("Frames are x, y from the upper left corner, width x height.")
    with tempfile.TemporaryDirectory() as logs, Account() as account:
        with Desktop(account, Path(logs)) as desktop:
            paint(desktop)
            with Host(str(application), account, desktop, bundles, Path(logs)) as host:
                host.wait_until(lambda: LOG_LINE in host.log, "Vistrel to be loaded")
                host.wait_for_focus()
                Tour(host, desktop, pictures).give()
    print(f"Pictures: {pictures}")
    return 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1]), Path(sys.argv[2])))
