"""A mouse and a keyboard: events that no program can tell from real ones."""

from __future__ import annotations

import time

from Xlib import XK, X
from Xlib.display import Display
from Xlib.ext import xtest

# What the platform makes of the keys unless its user says otherwise.
COMMAND = "Alt_L"
OPTION = "Alt_R"
CONTROL = "Control_L"
SHIFT = "Shift_L"

# A person holds a button down for longer than this. A control that begins to
# track the mouse after the button is up again would wait for ever.
CLICK_SECONDS = 0.06


class Mouse:
    def __init__(self, display: Display) -> None:
        self._display = display

    def move(self, x: int, y: int) -> None:
        xtest.fake_input(self._display, X.MotionNotify, x=int(x), y=int(y))
        self._display.sync()

    def press(self, button: int = 1) -> None:
        xtest.fake_input(self._display, X.ButtonPress, button)
        self._display.sync()

    def release(self, button: int = 1) -> None:
        xtest.fake_input(self._display, X.ButtonRelease, button)
        self._display.sync()

    def click(self, x: int, y: int, button: int = 1) -> None:
        self.move(x, y)
        self.press(button)
        time.sleep(CLICK_SECONDS)
        self.release(button)

    def drag(
        self, start: tuple[int, int], end: tuple[int, int], steps: int = 8
    ) -> None:
        """Press at ``start``, move in a straight line, release at ``end``."""
        self.move(*start)
        self.press()
        for step in range(1, steps + 1):
            part = step / steps
            self.move(
                round(start[0] + (end[0] - start[0]) * part),
                round(start[1] + (end[1] - start[1]) * part),
            )
            time.sleep(CLICK_SECONDS / 4)
        self.release()

    def is_pressed(self, button: int = 1) -> bool:
        mask = self._display.screen().root.query_pointer().mask
        return bool(mask & (X.Button1Mask << button - 1))

    def release_all(self) -> None:
        """After a test that failed between a press and a release."""
        for button in range(1, 6):
            if self.is_pressed(button):
                self.release(button)

    @property
    def position(self) -> tuple[int, int]:
        pointer = self._display.screen().root.query_pointer()
        return pointer.root_x, pointer.root_y


class Keyboard:
    def __init__(self, display: Display) -> None:
        self._display = display

    def code(self, name: str) -> tuple[int, bool]:
        """The key for a keysym's name or a character, and whether it needs shift."""
        keysym = XK.string_to_keysym(name) or (ord(name) if len(name) == 1 else 0)
        for code, level in sorted(self._display.keysym_to_keycodes(keysym)):
            if level in (0, 1):
                return code, level == 1
        raise ValueError(f"no key for {name!r}")

    def down(self, name: str) -> None:
        xtest.fake_input(self._display, X.KeyPress, self.code(name)[0])
        self._display.sync()

    def up(self, name: str) -> None:
        xtest.fake_input(self._display, X.KeyRelease, self.code(name)[0])
        self._display.sync()

    def release_all(self) -> None:
        for place, pressed in enumerate(self._display.query_keymap()):
            for bit in range(8):
                if pressed & 1 << bit:
                    xtest.fake_input(self._display, X.KeyRelease, place * 8 + bit)
        self._display.sync()

    def chord(self, *names: str) -> None:
        """Press keys in this order and release them in the opposite one."""
        for name in names:
            self.down(name)
        for name in reversed(names):
            self.up(name)

    def type(self, text: str) -> None:
        for character in text:
            name = {"\n": "Return", "\t": "Tab"}.get(character, character)
            self.chord(*([SHIFT] if self.code(name)[1] else []), name)
