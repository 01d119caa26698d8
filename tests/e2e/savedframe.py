"""The commands of the saved frame, and what they tell their user."""

from __future__ import annotations

from pathlib import Path

from commands import Commands
from harness import alerts
from harness.alerts import Alert
from harness.devices import COMMAND, CONTROL, OPTION
from harness.geometry import Rect

SAVE, RESTORE = "Save Default Window Frame", "Restore Default Window Frame"
SHORTCUTS = {
    SAVE: (COMMAND, OPTION, CONTROL, "s"),
    RESTORE: (COMMAND, OPTION, CONTROL, "Return"),
}

SAVED = Alert("Success!", "Current window frame successfully saved.", ["OK"])
NOTHING_SAVED = Alert(
    "Error!", "You've yet not saved a window frame for this application.", ["OK"]
)


def ask_for(commands: Commands, title: str, picture: Path | None = None) -> Alert:
    """The alert that a command brings up."""
    commands.desktop.keyboard.chord(*SHORTCUTS[title])
    return alerts.wait_for(commands.host, picture)


def dismiss(commands: Commands, way: str = "Return") -> None:
    """Returns when the host has the keyboard again."""
    alerts.answer(commands.host, way)
    commands.host.wait_for_focus()


def told(commands: Commands, title: str) -> Alert:
    """Gives a command and dismisses its alert."""
    alert = ask_for(commands, title)
    dismiss(commands)
    return alert


def saved_text(frame: Rect, height: int = 900) -> str:
    """A frame of the X server as it is saved: y upwards."""
    y = height - frame.y - frame.height
    return f"{{{{{frame.x}, {y}}}, {{{frame.width}, {frame.height}}}}}"
