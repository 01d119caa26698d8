"""Vistrel's settings window in a host, as its user sees and works it."""

from __future__ import annotations

from typing import Any

from commands import Commands
from harness.devices import COMMAND, OPTION
from harness.form import Form, Place
from harness.geometry import Rect

TITLE = "Vistrel Settings"

MENU_AND_DOCK = "Menu bar and Dock at launch:"

# Key: where its control is; in the order of the keyboard.
ALL_APPLICATIONS = {
    "globalSettingsIndex": Place("choice", MENU_AND_DOCK),
    "spotlightBOOL": Place("check", "Add “Show Spotlight Window” to the menu"),
    "spotlightBOOLIndex": Place("choice", "Its shortcut:"),
    "globalSettingsFakeFSABool":
        Place("check", "Let main windows use the system's full screen"),
    "vtrDisplaySetupBool": Place("check", "One saved frame for each number of screens"),
    "globalSettingsRestartBOOL":
        Place("check", "Restart after saving (only stored, has no effect)"),
    "vtrRestartFinderBOOL": Place("check", "Restart Finder (only stored, has no effect)"),
}
SAVE = Place("button", "Save")
THIS_APPLICATION = {
    "kuiMode": Place("choice", MENU_AND_DOCK, 1),
    "windowMode": Place("choice", "Window at launch:"),
    "ownShortCuts": Place("check", "Use these instead of the built-in ones"),
}
SHORTCUTS = {
    "restoreToggleIndex": Place("choice", "Restore Default Window Frame:"),
    "restoreString": Place("field", "Restore Default Window Frame:"),
    "centerToggleIndex": Place("choice", "Center Window:"),
    "centerString": Place("field", "Center Window:"),
    "fullscreenToggleIndex": Place("choice", "Toggle Fullscreen:"),
    "fullscreenString": Place("field", "Toggle Fullscreen:"),
    "menuToggleIndex": Place("choice", "Toggle Menu And Dock:"),
    "menuString": Place("field", "Toggle Menu And Dock:"),
}
MANUAL, HOME_PAGE, CLOSE = (
    Place("button", title) for title in ("Manual", "Home Page", "Close")
)
PLACES = {**ALL_APPLICATIONS, **THIS_APPLICATION, **SHORTCUTS}
KEYBOARD_ORDER = [
    *ALL_APPLICATIONS.values(), SAVE, *THIS_APPLICATION.values(), *SHORTCUTS.values(),
    MANUAL, HOME_PAGE, CLOSE,
]


class SettingsWindow:
    """Opened by its shortcut, as soon as this is made."""

    def __init__(self, commands: Commands) -> None:
        self.commands, self.host = commands, commands.host
        self.desktop = commands.host.desktop
        self.controls = Form(self.host, TITLE)
        self.open()

    def open(self) -> dict[str, Any]:
        assert self.commands.chosen_by(COMMAND, OPTION, "comma") == "Settings…"
        self.host.wait_until(lambda: self.is_key, "the settings window to be key")
        self.host.wait_for_focus()
        return self.window

    @property
    def is_key(self) -> bool:
        window = self.host.key_window()
        return bool(window) and window["title"] == TITLE and window["visible"]

    @property
    def window(self) -> dict[str, Any] | None:
        return next(iter(self.host.windows(TITLE)), None)

    def wait_until_closed(self) -> None:
        self.host.wait_until(lambda: self.window is None, "the settings window to close")
        self.host.catch_up()

    def frame(self) -> Rect:
        """As the X server has it, with the title bar."""
        return self.desktop.geometry(self.window["xid"]).frame

    def value(self, key: str) -> Any:
        """What the control shows."""
        return self.controls.value(PLACES[key])

    def stored(self, key: str) -> Any:
        """What the host has in its defaults."""
        default = self.host.default(key)
        return default.value if default else None

    def change(self, key: str, value: Any) -> None:
        """By mouse, texts by keyboard as well; returns when the host has stored it."""
        place = PLACES[key]
        if place.kind == "check":
            self.controls.toggle(place)
        elif place.kind == "choice":
            self.controls.choose(place, value)
        else:
            self.controls.type(place, value)
        self.host.wait_until(
            lambda: self.stored(key) == value, f"{key} to be stored as {value!r}"
        )

    def save(self) -> None:
        """Click Save; returns when it has been done."""
        self.controls.click(SAVE.title)
