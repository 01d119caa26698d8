"""The block of commands as a user has to find it in a host's Window menu."""

from __future__ import annotations

from typing import Any, NamedTuple

SHIFT, CONTROL, OPTION, COMMAND = 0x20000, 0x40000, 0x80000, 0x100000
FRESH = COMMAND  # what an item has that nobody gave a shortcut


class Row(NamedTuple):
    title: str
    action: str | None = None
    key: str = ""
    mask: int = FRESH
    submenu: tuple[Row, ...] = ()


SEPARATOR = Row("-")

ABOUT = (
    Row("About", "about:"),
    Row("Website", "openWebsite:"),
    Row("Check for Updates…", "updates:"),
    Row("More Nifty Apps From Quorvix", "quorvix:"),
)
SETTINGS = (
    Row("Settings…", "preferences:", ",", COMMAND | OPTION),
    Row("Save Default Window Frame", "saveWind:", "s", COMMAND | OPTION | CONTROL),
    Row("Restore Default Window Frame", "restoreWind:", "\n", COMMAND | OPTION | CONTROL),
)
ARRANGE = (
    Row("Center Window", "center:", "\n", OPTION),
    Row("Center Average Window", "centerAverage:", "\n", CONTROL | OPTION),
    SEPARATOR,
    Row("Toggle ½ Screen Left", "left:", "[", CONTROL),
    Row("Toggle ½ Screen Right", "right:", "]", CONTROL),
    SEPARATOR,
    Row("Toggle ⅓ Screen Left", "threeL:"),
    Row("Toggle ⅓ Screen Middle", "threeM:"),
    Row("Toggle ⅓ Screen Right", "threeR:"),
)
FULLSCREEN = Row("Toggle Fullscreen", "doFullscreen:", "\n", COMMAND)
HIDING = Row("Toggle Menu And Dock", "setKUIMode:", "\n", CONTROL)
FLOATING = Row("Toggle Floating Window", "floating:", "\n", CONTROL | SHIFT)
LION = Row(
    "Make OS X Lion Fullscreen Window", "makeLionFullscreen:", "f",
    COMMAND | OPTION | CONTROL,
)
SPOTLIGHT = Row("Show Spotlight Window", "spotlight:", " ", COMMAND | OPTION)

BLOCK = (
    SEPARATOR,
    Row("Quorvix's Vistrel", submenu=ABOUT),
    Row("Settings", submenu=SETTINGS),
    Row("Arrange", submenu=ARRANGE),
    FULLSCREEN,
    HIDING,
    FLOATING,
    LION,
    SEPARATOR,
)


def seen(items: list[dict[str, Any]]) -> tuple[Row, ...]:
    """What the host's process really has, in the same form."""
    return tuple(_seen(item) for item in items)


def _seen(item: dict[str, Any]) -> Row:
    if item["isSeparator"]:
        return SEPARATOR
    parent = item["submenu"]
    return Row(
        item["title"],
        None if parent else item["action"],
        item["keyEquivalent"],
        item["keyEquivalentModifierMask"],
        seen(parent["items"]) if parent else (),
    )


def commands(items: list[dict[str, Any]]) -> list[dict[str, Any]]:
    """The items that send an action, those in submenus too."""
    found = []
    for item in items:
        if item["submenu"]:
            found += commands(item["submenu"]["items"])
        elif not item["isSeparator"]:
            found.append(item)
    return found


def marked(items: list[dict[str, Any]]) -> list[int]:
    """The indexes of the items with a check mark."""
    return [index for index, item in enumerate(items) if item["state"] == 1]
