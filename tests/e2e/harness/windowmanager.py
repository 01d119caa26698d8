"""Window managers for the tests.

A host looks for the window manager once, at its start, so ``start`` returns
only when the manager has announced itself on the root window.
"""

from __future__ import annotations

import os
import signal
import subprocess
from abc import ABC, abstractmethod
from pathlib import Path

from Xlib import X

from .account import Account
from .waiting import wait_until
from .xserver import XServer

# No key or mouse binding that a test might type or click by accident; what is
# left is what a user needs: focus and raise by a click, move by the title.
OPENBOX_CONFIGURATION = """\
<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse></focus>
  <desktops><number>1</number><popupTime>0</popupTime></desktops>
  <keyboard/>
  <mouse>
    <context name="Client">
      <mousebind button="Left" action="Press">
        <action name="Focus"/><action name="Raise"/>
      </mousebind>
    </context>
    <context name="Titlebar">
      <mousebind button="Left" action="Press">
        <action name="Focus"/><action name="Raise"/>
      </mousebind>
      <mousebind button="Left" action="Drag"><action name="Move"/></mousebind>
    </context>
    <context name="BRCorner">
      <mousebind button="Left" action="Drag"><action name="Resize"/></mousebind>
    </context>
    <context name="Close">
      <mousebind button="Left" action="Click"><action name="Close"/></mousebind>
    </context>
  </mouse>
</openbox_config>
"""


def announced(server: XServer) -> bool:
    """Whether a living window manager has said that it manages this screen."""
    display = server.connection
    atom = display.intern_atom("_NET_SUPPORTING_WM_CHECK")
    check = server.root.get_full_property(atom, X.AnyPropertyType)
    if not check:
        return False
    child = display.create_resource_object("window", check.value[0])
    try:
        echo = child.get_full_property(atom, X.AnyPropertyType)
    except Exception:  # the window of a manager that has ended
        return False
    return bool(echo) and echo.value[0] == check.value[0]


class WindowManager(ABC):
    def __init__(self, account: Account, server: XServer, log: Path) -> None:
        self._account, self._server, self._log = account, server, log
        self._process: subprocess.Popen[bytes] | None = None

    @abstractmethod
    def command(self) -> list[str]:
        """Write what configuration there is, and say how to start."""

    def start(self) -> None:
        self._process = self._account.start(
            self.command(), self._log, extra={"DISPLAY": self._server.name}
        )
        wait_until(
            lambda: announced(self._server),
            f"{type(self).__name__} to manage {self._server.name}",
            timeout=20,
            explain=lambda: self._log.read_text(errors="replace"),
        )

    def restart(self) -> None:
        """As after a crash of it: for a while there is none."""
        self.close()
        wait_until(lambda: not announced(self._server), "the window manager to be gone")
        self.start()

    def close(self) -> None:
        """Kill its whole session: one of them answers no polite signal."""
        if self._process is not None and self._process.poll() is None:
            os.killpg(self._process.pid, signal.SIGKILL)
            self._process.wait()


class Openbox(WindowManager):
    def command(self) -> list[str]:
        file = self._account.root / "openbox.xml"
        file.write_text(OPENBOX_CONFIGURATION)
        return ["openbox", "--sm-disable", "--config-file", str(file)]


class WindowMaker(WindowManager):
    """Without its dock, clip and drawer, which are no subject of these tests."""

    def command(self) -> list[str]:
        return ["wmaker", "--static", "--no-dock", "--no-clip", "--no-drawer"]
