"""A desktop: an X server, a window manager, devices, and eyes.

What is asked here is answered by the X server and the window manager alone,
never by the application that the question is about.
"""

from __future__ import annotations

from collections.abc import Iterator
from pathlib import Path
from typing import NamedTuple

from PIL import Image, ImageGrab
from Xlib import X, error
from Xlib.protocol import event

from .account import Account
from .devices import Keyboard, Mouse
from .geometry import Rect
from .managerecho import ManagerEcho
from .windowmanager import Openbox, WindowManager
from .xserver import MonitorServer, VirtualServer, XServer

SOURCE_IS_A_PAGER = 2


class Geometry(NamedTuple):
    """Where a window is: its contents, and with its decorations."""

    client: Rect
    frame: Rect


class Desktop:
    def __init__(
        self,
        account: Account,
        logs: Path,
        size: tuple[int, int] = (1440, 900),
        manager: type[WindowManager] | None = Openbox,
    ) -> None:
        self.account = account
        self.server = self._serve(logs / "xserver.log", size)
        self.name = self.server.name
        self.connection = self.server.connection
        self.mouse = Mouse(self.connection)
        self.keyboard = Keyboard(self.connection)
        self._echo = ManagerEcho(self.connection)
        self.manager = manager and manager(account, self.server, logs / "manager.log")
        if self.manager:
            self.manager.start()
            self.catch_up()

    def _serve(self, log: Path, size: tuple[int, int]) -> XServer:
        return VirtualServer(self.account, log, size)

    def __enter__(self) -> Desktop:
        return self

    def __exit__(self, *unused: object) -> None:
        self.close()

    def close(self) -> None:
        if self.manager:
            self.manager.close()
        self.server.close()

    # Looking

    @property
    def size(self) -> tuple[int, int]:
        root = self.server.root.get_geometry()
        return root.width, root.height

    def screenshot(self, file: Path | None = None) -> Image.Image:
        image = ImageGrab.grab(xdisplay=self.name)
        if file is not None:
            file.parent.mkdir(parents=True, exist_ok=True)
            image.save(file)
        return image

    def colours(self, area: Rect) -> int:
        """How many colours there are: one or two where nothing is drawn yet.

        A host draws a new window some time after it has put it on screen, so
        wait for this before looking closer.
        """
        part = self.screenshot().crop(area.box)
        return len(part.getcolors(area.width * area.height))

    def window(self, xid: int):
        return self.connection.create_resource_object("window", xid)

    def _upwards(self, xid: int) -> Iterator:
        """The window and those around it, up to the one in the root window."""
        window = self.window(xid)
        while window.id != self.server.root.id:
            yield window
            window = window.query_tree().parent

    def _rect(self, window) -> Rect:
        size = window.get_geometry()
        border = size.border_width
        corner = self.server.root.translate_coords(window, 0, 0)
        return Rect(
            corner.x - border, corner.y - border,
            size.width + 2 * border, size.height + 2 * border,
        )

    def geometry(self, xid: int) -> Geometry:
        around = list(self._upwards(xid))
        return Geometry(self._rect(around[0]), self._rect(around[-1]))

    def is_mapped(self, xid: int) -> bool:
        try:
            return self.window(xid).get_attributes().map_state == X.IsViewable
        except error.BadWindow:
            return False

    def focus(self) -> int:
        """The X window that has the keyboard; 0 when there is none."""
        focus = self.connection.get_input_focus().focus
        return focus if isinstance(focus, int) else focus.id

    def is_above(self, upper: int, lower: int) -> bool:
        """By the X server's own order, which managers do not always report."""
        order = [child.id for child in self.server.root.query_tree().children]
        tops = [list(self._upwards(xid))[-1].id for xid in (upper, lower)]
        return order.index(tops[0]) > order.index(tops[1])

    def states(self, xid: int) -> set[str]:
        """Names such as _NET_WM_STATE_ABOVE."""
        atom = self.connection.intern_atom("_NET_WM_STATE")
        found = self.window(xid).get_full_property(atom, X.AnyPropertyType)
        names = found.value if found else []
        return {self.connection.get_atom_name(name) for name in names}

    def settle(self) -> None:
        """No button, no key, and the mouse where nothing is."""
        self.mouse.release_all()
        self.keyboard.release_all()
        width, height = self.size
        self.mouse.move(width - 1, height - 1)

    def catch_up(self) -> None:
        """Return when the window manager has done all that it was asked to do."""
        self._echo.wait()

    # Acting, as a task bar or a pager would

    def _ask_manager(self, xid: int, name: str, data: list[int]) -> None:
        message = event.ClientMessage(
            window=self.window(xid),
            client_type=self.connection.intern_atom(name),
            data=(32, data + [0] * (5 - len(data))),
        )
        mask = X.SubstructureRedirectMask | X.SubstructureNotifyMask
        self.server.root.send_event(message, event_mask=mask)
        self.connection.sync()

    def ask_for_focus(self, xid: int) -> None:
        """Ask the manager to bring a window to the front and to focus it.

        With the time, as after a click: a request for the focus that seems
        older than the last change of it is ignored by the X server.
        """
        now = self.server.time()
        self._ask_manager(xid, "_NET_ACTIVE_WINDOW", [SOURCE_IS_A_PAGER, now])

    def resize_client(self, xid: int, width: int, height: int) -> None:
        """As a program would ask for it; every window manager follows this."""
        self.window(xid).configure(width=width, height=height)
        self.connection.sync()

    def place_client(self, xid: int, place: Rect) -> None:
        """Likewise; whether the place is that of the contents is the manager's affair."""
        x, y, width, height = place
        self.window(xid).configure(x=x, y=y, width=width, height=height)
        self.connection.sync()

    def close_window(self, xid: int) -> None:
        now = self.server.time()
        self._ask_manager(xid, "_NET_CLOSE_WINDOW", [now, SOURCE_IS_A_PAGER])

    def move_resize(self, xid: int, client: Rect) -> None:
        """Move and size the contents of a window, as if the user had done it."""
        gravity_static, all_four = 10, 0xF << 8
        flags = gravity_static | all_four | SOURCE_IS_A_PAGER << 12
        self._ask_manager(xid, "_NET_MOVERESIZE_WINDOW", [flags, *client])


class MultiMonitorDesktop(Desktop):
    """Two monitors side by side unless told otherwise; see ``arrange``."""

    MONITORS = [(0, 0, 1440, 900), (1440, 0, 1280, 800)]

    def _serve(self, log: Path, size: tuple[int, int]) -> XServer:
        server = MonitorServer(self.account, log)
        server.arrange(self.MONITORS)
        return server

    def arrange(self, monitors: list[tuple[int, int, int, int]]) -> None:
        self.server.arrange(monitors)
