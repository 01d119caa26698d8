"""The alerts of a host: what they say, and every way out of them."""

from __future__ import annotations

from collections.abc import Callable
from pathlib import Path
from typing import Any, NamedTuple

from .geometry import Rect
from .host import Host

# The bundle's own alerts, as opposed to the host's.
CLASS = "VTRAlertPanel"


class Alert(NamedTuple):
    """Title, message, and the titles of the buttons, the default one first."""

    title: str
    message: str
    buttons: list[str]


# Looking


def shown(host: Host) -> Alert | None:
    """The alert that the host shows now."""
    window = _window(host)
    if window is None:
        return None
    title, message = (text["text"] for text in window["texts"])
    return Alert(title, message, [button["title"] for button in window["buttons"]])


def wait_for(host: Host, picture: Path | None = None) -> Alert:
    """The alert, when it is on screen, drawn, and has the keyboard."""
    host.wait_until(lambda: _has_keyboard(host), "an alert with the keyboard")
    host.catch_up()
    host.wait_until(lambda: host.desktop.colours(area(host)) > 2, "the alert to be drawn")
    if picture:
        host.desktop.screenshot(picture)
    return shown(host)


def area(host: Host) -> Rect:
    """Where the alert is on the screen, with its decorations."""
    return host.desktop.geometry(xid(host)).frame


def xid(host: Host) -> int:
    return _window(host)["xid"]


def begins(host: Host) -> bool:
    """Whether the first line of each text is in view."""
    return all(text["begins"] for text in _window(host)["texts"])


def is_whole(host: Host) -> bool:
    """Whether every line is."""
    return all(text["whole"] for text in _window(host)["texts"])


def _window(host: Host) -> dict[str, Any] | None:
    window = host.probe.modal_window()
    return window if window.get("class") == CLASS else None


def _has_keyboard(host: Host) -> bool:
    window = _window(host)
    return window is not None and window["key"] and host.desktop.focus() == window["xid"]


# Acting


def _press(key: str) -> Callable[[Host], None]:
    return lambda host: host.desktop.keyboard.chord(key)


def _click_default_button(host: Host) -> None:
    place = Rect(*(round(number) for number in _window(host)["buttons"][0]["rect"]))
    host.desktop.mouse.click(*place.centre)


def _click_title_bar(host: Host) -> None:
    """Its close button is the last one, in openbox and in Window Maker."""
    frame = area(host)
    host.desktop.mouse.click(frame.x + frame.width - 12, frame.y + 11)


WAYS_OUT: dict[str, Callable[[Host], None]] = {
    "Return": _press("Return"),
    "Enter": _press("KP_Enter"),
    "space": _press("space"),
    "Escape": _press("Escape"),
    "button": _click_default_button,
    "manager": lambda host: host.desktop.close_window(xid(host)),
    "title bar": _click_title_bar,
}


def answer(host: Host, way: str = "Return") -> None:
    """By one of ``WAYS_OUT``; returns when nothing is left of the alert."""
    panel = xid(host)
    WAYS_OUT[way](host)
    host.wait_until(lambda: shown(host) is None, f"{way} to end the alert")
    host.catch_up()
    assert panel not in [window["xid"] for window in host.probe.windows()]
    assert not host.desktop.is_mapped(panel)
