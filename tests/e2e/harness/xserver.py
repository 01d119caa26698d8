"""X servers for the tests, each with a free display number of its own."""

from __future__ import annotations

import contextlib
import os
import select
import subprocess
from collections.abc import Sequence
from pathlib import Path

from Xlib import X, Xatom, error
from Xlib.display import Display
from Xlib.ext import randr

from .account import Account
from .dummyconf import DUMMY_CONFIGURATION

START_SECONDS = 20.0


def _number_from(pipe: int) -> str:
    """The display number that a server writes when it accepts clients."""
    text = b""
    while not text.endswith(b"\n"):
        ready, _, _ = select.select([pipe], [], [], START_SECONDS)
        chunk = os.read(pipe, 16) if ready else b""
        if not chunk:
            break
        text += chunk
    return text.decode().strip()


class XServer:
    """A server and one connection to it.

    The connection stays open for as long as the server runs: a server whose
    last client leaves forgets what was set in it.
    """

    def __init__(self, account: Account, command: Sequence[str], log: Path) -> None:
        reader, writer = os.pipe()
        try:
            self._process = account.start(
                [*command, "-displayfd", str(writer), "-nolisten", "tcp"],
                log,
                extra={"LD_PRELOAD": ""},
                pass_fds=[writer],
            )
            os.close(writer)
            number = _number_from(reader)
        finally:
            os.close(reader)
        if not number:
            self._process.kill()
            raise RuntimeError(f"{command[0]} did not start:\n{log.read_text()}")
        self.name = f":{number}"
        self.connection = Display(self.name)
        self._clock = self.root.create_window(
            0, 0, 1, 1, 0, X.CopyFromParent, event_mask=X.PropertyChangeMask
        )

    @property
    def root(self):
        return self.connection.screen().root

    def time(self) -> int:
        """The server's clock now, learnt as clients do: from a changed property."""
        atom = self.connection.intern_atom("VTR_TIME")
        self._clock.change_property(atom, Xatom.STRING, 8, b"?")
        while (event := self.connection.next_event()).type != X.PropertyNotify:
            pass
        return event.time

    def crash(self) -> None:
        """For whoever is connected, the connection breaks."""
        self._process.kill()
        self._process.wait()

    def close(self) -> None:
        with contextlib.suppress(error.ConnectionClosedError):
            self.connection.close()
        self._process.terminate()
        try:
            self._process.wait(timeout=5)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()


class VirtualServer(XServer):
    """One screen of any size, in memory only."""

    def __init__(
        self, account: Account, log: Path, size: tuple[int, int] = (1440, 900)
    ) -> None:
        width, height = size
        screen = f"{width}x{height}x24"
        super().__init__(
            account,
            ["Xvfb", "-screen", "0", screen, "-dpi", "96", "-noreset"],
            log,
        )


class MonitorServer(XServer):
    """Several monitors, as RandR outputs of the dummy driver.

    The platform counts outputs that show something; the monitors that one can
    define on any other headless server are none.
    """

    def __init__(self, account: Account, log: Path) -> None:
        configuration = log.with_suffix(".conf")
        configuration.parent.mkdir(parents=True, exist_ok=True)
        configuration.write_text(DUMMY_CONFIGURATION)
        super().__init__(
            account,
            ["Xorg", "-config", str(configuration), "-noreset", "-novtswitch",
             "-sharevts", "-dpi", "96", "-logfile", str(log.with_suffix(".xorg"))],
            log,
        )

    def arrange(self, monitors: Sequence[tuple[int, int, int, int]]) -> None:
        """Show exactly these (x, y, width, height), first one primary.

        Sizes are those of the configuration: 1440x900, 1280x800, 1024x768.
        """
        resources = randr.get_screen_resources(self.root)
        modes = {(mode.width, mode.height): mode.id for mode in resources.modes}
        for crtc in resources.crtcs:
            self._set(crtc, resources, 0, 0, 0, [])
        self._resize(monitors)
        pairs = zip(monitors, resources.crtcs, resources.outputs)
        for (x, y, width, height), crtc, output in pairs:
            mode = modes[width, height]
            self.connection.xrandr_add_output_mode(output, mode)
            self._set(crtc, resources, x, y, mode, [output])
        self.root.xrandr_set_output_primary(resources.outputs[0])
        self.connection.sync()

    def _set(self, crtc, resources, x, y, mode, outputs) -> None:
        self.connection.xrandr_set_crtc_config(
            crtc, resources.config_timestamp, x, y, mode, randr.Rotate_0, outputs,
            X.CurrentTime,
        )

    def _resize(self, monitors: Sequence[tuple[int, int, int, int]]) -> None:
        width = max(x + w for x, _, w, _ in monitors)
        height = max(y + h for _, y, _, h in monitors)
        millimetres = [round(pixels / 96 * 25.4) for pixels in (width, height)]
        self.root.xrandr_set_screen_size(width, height, *millimetres)
