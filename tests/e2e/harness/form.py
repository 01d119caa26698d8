"""A window of labelled controls: choices, check boxes and text fields."""

from __future__ import annotations

from typing import Any, NamedTuple

from .controls import Control, Controls
from .geometry import Rect

# How far the middle of a label may be from the middle of its control.
SAME_ROW = 6


class Place(NamedTuple):
    """Where a user finds a control.

    A check box or a button carries its title. Anything else stands behind its
    label; ``number`` counts those with the same label from the top.
    """

    kind: str
    title: str
    number: int = 0


def area(control: Control) -> Rect:
    return Rect(*(round(number) for number in control["rect"]))


def _middle(control: Control) -> int:
    return area(control).centre[1]


class Form(Controls):
    # Looking

    def labels(self) -> list[str]:
        return [control["value"] for control in self.all() if control["kind"] == "label"]

    def at(self, place: Place) -> Control:
        all_ = self.all()
        found = [
            control for control in all_
            if control["kind"] == place.kind and place.title in self._names(control, all_)
        ]
        assert len(found) > place.number, f"no {place} among {all_}"
        return sorted(found, key=_middle)[place.number]

    @staticmethod
    def _names(control: Control, all_: list[Control]) -> list[str]:
        if control["kind"] in ("check", "button"):
            return [control["title"]]
        return [
            label["value"] for label in all_
            if label["kind"] == "label" and abs(_middle(label) - _middle(control)) < SAME_ROW
        ]

    def value(self, place: Place) -> Any:
        """The index of a choice, the state of a check box, the text of a field."""
        name = {"choice": "index", "check": "state"}.get(place.kind, "value")
        return self.at(place)[name]

    def has_focus(self, place: Place) -> bool:
        return self.at(place)["focused"]

    def wait_for(self, place: Place, value: Any) -> None:
        self._host.wait_until(
            lambda: self.value(place) == value, f"{place} to become {value!r}"
        )

    # Acting

    def toggle(self, place: Place) -> None:
        """Click a check box."""
        after = 1 - self.value(place)
        self.click(place.title)
        self.wait_for(place, after)

    def choose(self, place: Place, index: int) -> None:
        """Hold the button down from a pop-up button to one of its items."""
        mouse = self._host.desktop.mouse
        self._host.wait_until(self.is_placed, f"{self._window_title!r} to be placed")
        mouse.move(*area(self.at(place)).centre)
        mouse.press()
        menu = self._host.wait_until(
            lambda: self.at(place)["menu"], f"the choices of {place} to open"
        )
        item = Rect(*(round(number) for number in menu["rects"][index]))
        mouse.move(*item.centre)
        self._host.wait_until(
            lambda: self.at(place)["menu"]["highlighted"] == index,
            f"choice {index} of {place} to be highlighted",
        )
        mouse.release()
        self.wait_for(place, index)
        self._host.wait_until(
            lambda: not self.at(place)["menu"], f"the choices of {place} to close"
        )

    def type(self, place: Place, text: str) -> None:
        """Click a text field and type into it."""
        desktop = self._host.desktop
        self._host.wait_until(self.is_placed, f"{self._window_title!r} to be placed")
        desktop.mouse.click(*area(self.at(place)).centre)
        self._host.wait_until(lambda: self.has_focus(place), f"{place} to take the keyboard")
        desktop.keyboard.type(text)
        self._host.catch_up()
