"""From a key press to the window's final place: Vistrel beside what a user would pick instead."""

from __future__ import annotations

from pathlib import Path

from harness.geometry import Rect
from harness.host import Host
from harness.windowmanager import OPENBOX_CONFIGURATION, Openbox
from place import AT_ONCE, Place
from stopwatch import Event, Stopwatch, arrival

HOME = Rect(300, 200, 600, 400)

VISTREL, OPENBOX, WMCTRL, XDOTOOL, FLOOR = (
    "Vistrel",
    "openbox: MoveResizeTo",
    "openbox: wmctrl",
    "openbox: xdotool",
    "XMoveResizeWindow",
)
KEYS = {
    VISTREL: ("Control_L", "bracketleft"),
    OPENBOX: ("Control_L", "F9"),
    WMCTRL: ("Control_L", "F10"),
    XDOTOOL: ("Control_L", "F11"),
}


def configuration(half: Rect, client: Rect) -> str:
    """openbox's, with three ways to the place that Vistrel brings a window to."""

    def bind(key: str, action: str) -> str:
        return f'<keybind key="C-{key}">{action}</keybind>'

    def execute(command: str) -> str:
        return f'<action name="Execute"><command>{command}</command></action>'

    keys = [
        bind(
            "F9",
            f'<action name="MoveResizeTo"><x>{half.x}</x><y>{half.y}</y>'
            f"<width>{half.width}</width><height>{half.height}</height></action>",
        ),
        bind(
            "F10",
            execute(f"wmctrl -r :ACTIVE: -e 0,{half.x},{half.y},{client.width},{client.height}"),
        ),
        bind(
            "F11",
            execute(
                f"xdotool getactivewindow windowmove {half.x} {half.y} "
                f"windowsize {client.width} {client.height}"
            ),
        ),
    ]
    return OPENBOX_CONFIGURATION.replace(
        "<keyboard/>", f"<keyboard>{''.join(keys)}</keyboard>"
    )


class BoundOpenbox(Openbox):
    """openbox with key bindings. Where to, is asked of Vistrel first."""

    half = Rect(0, 0, 720, 900)
    client = half

    def command(self) -> list[str]:
        command = super().command()
        Path(command[-1]).write_text(configuration(self.half, self.client))
        return command


class Window:
    """The key window of a host, and a stopwatch on it."""

    def __init__(self, host: Host, place: Place) -> None:
        self.desktop = host.desktop
        self.client = host.wait_for_focus()["xid"]
        self.frame = list(self.desktop._upwards(self.client))[-1].id
        self.watch = Stopwatch(place.stopwatch, self.desktop.name, self.client)

    def __enter__(self) -> Window:
        return self

    def __exit__(self, *unused: object) -> None:
        self.watch.__exit__()

    def go_home(self) -> None:
        self.desktop.move_resize(self.client, HOME)
        self.watch.settle()

    def arrival(self, events: list[Event]) -> int | None:
        return arrival(events, self.frame, self.client)

    def _milliseconds_since(self, moment: int) -> float | None:
        arrived = self.arrival(self.watch.settle())
        return arrived and (arrived - moment) / 1e6

    def press(self, way: str) -> float | None:
        """Milliseconds from the key to the window's place; None where nothing happened."""
        return self._milliseconds_since(self.watch.chord(*KEYS[way]))

    def move(self, place: Rect) -> float | None:
        return self._milliseconds_since(self.watch.place(self.client, place))


def measure(place: Place, rounds: int) -> dict:
    """Round by round, so that what the machine does besides is shared by all."""
    server = place.desktop
    with place.host(place.loader, arguments=AT_ONCE) as host, Window(host, place) as window:
        window.go_home()
        window.press(VISTREL)
        target = server.geometry(window.client)
        window.press(VISTREL)
    BoundOpenbox.half, BoundOpenbox.client = target.frame, target.client
    server.manager.restart()

    times: dict[str, list[float]] = {way: [] for way in (*KEYS, FLOOR)}
    places: dict[str, Rect] = {}
    floor = Rect(*target.frame[:2], *target.client[2:])
    with place.host(place.loader, arguments=AT_ONCE) as host, Window(host, place) as window:
        for _ in range(rounds):
            for way in times:
                window.go_home()
                took = window.move(floor) if way == FLOOR else window.press(way)
                assert took is not None, f"{way}: the window has not moved"
                times[way].append(took)
                places[way] = server.geometry(window.client).frame
                if way == VISTREL:
                    window.press(way)  # back, so that the next time is a first one again
    return {"milliseconds": times, "places": {way: list(rect) for way, rect in places.items()}}
