"""Alerts: bringing one up, reading it, and every way out of it."""

from __future__ import annotations

from collections.abc import Callable
from pathlib import Path
from typing import NamedTuple

from commands import Commands
from harness.devices import COMMAND, CONTROL, OPTION
from harness.geometry import Rect
from harness.host import Host
from harness.menus import rect

SAVE, RESTORE = "Save Default Window Frame", "Restore Default Window Frame"
SHORTCUTS = {
    SAVE: (COMMAND, OPTION, CONTROL, "s"),
    RESTORE: (COMMAND, OPTION, CONTROL, "Return"),
}

SAVED = ("Success!", "Current window frame successfully saved.")
NOTHING_SAVED = ("Error!", "You've yet not saved a window frame for this application.")


class Alert(NamedTuple):
    """What the user sees of it.

    ``begins``: the first lines are in view; ``whole``: so are all others.
    """

    title: str
    message: str
    buttons: dict[str, Rect]
    begins: bool
    whole: bool
    xid: int

    @property
    def words(self) -> tuple[str, str]:
        return self.title, self.message


def shown(host: Host) -> Alert | None:
    """The alert of ours that is up."""
    window = host.probe.ask("modal-window")
    if window.get("class") != "VTRAlertPanel":
        return None
    title, message = (text["text"] for text in window["texts"])
    return Alert(
        title, message,
        {button["title"]: rect(button) for button in window["buttons"]},
        all(text["begins"] for text in window["texts"]),
        all(text["whole"] for text in window["texts"]),
        window["xid"],
    )


def wait_for_alert(host: Host, picture: Path | None = None) -> Alert:
    """An alert that is on screen, drawn, and has the keyboard."""
    alert = host.wait_until(lambda: shown(host), "an alert")
    host.wait_until(lambda: host.desktop.focus() == alert.xid, "the alert to have the keyboard")
    host.wait_for_focus()
    assert host.key_window()["xid"] == alert.xid
    area = host.desktop.geometry(alert.xid).client
    host.wait_until(lambda: host.desktop.colours(area) > 2, "the alert to be drawn")
    if picture:
        host.desktop.screenshot(picture)
    return shown(host)


def ask_for(commands: Commands, title: str, picture: Path | None = None) -> Alert:
    """The alert that a command brings up."""
    commands.desktop.keyboard.chord(*SHORTCUTS[title])
    return wait_for_alert(commands.host, picture)


def press(*keys: str) -> Callable[[Host, Alert], None]:
    def way(host: Host, alert: Alert) -> None:
        host.desktop.keyboard.chord(*keys)

    return way


def click_button(host: Host, alert: Alert) -> None:
    host.desktop.mouse.click(*alert.buttons["OK"].centre)


def ask_manager_to_close(host: Host, alert: Alert) -> None:
    host.desktop.close_window(alert.xid)


def click_title_bar(host: Host, alert: Alert) -> None:
    """Its close button is the last one, in openbox and in Window Maker."""
    frame = host.desktop.geometry(alert.xid).frame
    host.desktop.mouse.click(frame.x + frame.width - 12, frame.y + 11)


WAYS_OUT = {
    "Return": press("Return"),
    "Enter": press("KP_Enter"),
    "space": press("space"),
    "Escape": press("Escape"),
    "button": click_button,
    "manager": ask_manager_to_close,
    "title bar": click_title_bar,
}


def answer(host: Host, way: str) -> Alert:
    alert = shown(host)
    WAYS_OUT[way](host, alert)
    return alert


def dismiss(host: Host, way: str = "Return") -> None:
    """Returns when the host has the keyboard again and nothing is left of the alert."""
    alert = answer(host, way)
    host.wait_until(lambda: shown(host) is None, f"{way} to dismiss the alert")
    host.wait_for_focus()
    assert alert.xid not in [window["xid"] for window in host.probe.windows()]
    assert not host.desktop.is_mapped(alert.xid)


def told(commands: Commands, title: str) -> tuple[str, str]:
    """Gives a command and dismisses its alert; answers the alert's words."""
    alert = ask_for(commands, title)
    dismiss(commands.host)
    return alert.words


def saved_text(frame: Rect, height: int = 900) -> str:
    """A frame of the X server as the platform writes it: y upwards."""
    y = height - frame.y - frame.height
    return f"{{{{{frame.x}, {y}}}, {{{frame.width}, {frame.height}}}}}"
