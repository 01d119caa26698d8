"""The modal alert of a host: what it says, and its answer by key."""

from __future__ import annotations

from typing import NamedTuple

from .geometry import Rect
from .host import Host


class Alert(NamedTuple):
    """Title, message, and the titles of the buttons, the default one first."""

    title: str
    message: str
    buttons: list[str]


def shown(host: Host) -> Alert | None:
    """The alert that the host shows now."""
    window = host.probe.modal_window()
    if not window["shown"]:
        return None
    title, message = (text["text"] for text in window["texts"])
    return Alert(title, message, [button["title"] for button in window["buttons"]])


def _has_keyboard(host: Host) -> bool:
    window = host.probe.modal_window()
    return window["shown"] and window["key"] and host.desktop.focus() == window["xid"]


def wait_for(host: Host) -> Alert:
    """The alert, when it is on screen, drawn, and has the keyboard."""
    host.wait_until(lambda: _has_keyboard(host), "an alert with the keyboard")
    host.catch_up()
    host.wait_until(lambda: host.desktop.colours(area(host)) > 2, "the alert to be drawn")
    return shown(host)


def area(host: Host) -> Rect:
    """Where the alert is on the screen."""
    return host.desktop.geometry(host.probe.modal_window()["xid"]).frame


def answer(host: Host, key: str) -> None:
    """By ``Return`` or ``Escape``; returns when the alert has gone."""
    host.desktop.keyboard.chord(key)
    host.wait_until(lambda: not shown(host), f"the alert to end at {key}")
    host.catch_up()
