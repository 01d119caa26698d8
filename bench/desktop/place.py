"""Where everything is that a measurement needs."""

from __future__ import annotations

from pathlib import Path
from typing import NamedTuple

from harness.account import Account
from harness.desktop import Desktop
from harness.host import Host

APPLICATION = "TextEdit"
AT_ONCE = ("-NSWindowResizeTime", "0")


class Place(NamedTuple):
    account: Account
    desktop: Desktop
    build: Path
    logs: Path

    @property
    def stopwatch(self) -> Path:
        return self.build / "bench" / "stopwatch" / "stopwatch"

    def bundle(self, name: str) -> Path:
        return self.build / "bundles" / f"{name}.bundle"

    @property
    def loader(self) -> Path:
        return self.bundle("VistrelLoader")

    def host(self, *bundles: Path, arguments: tuple[str, ...] = (), **options) -> Host:
        """A host with these bundles, and with the probe of the tests."""
        return Host(
            APPLICATION, self.account, self.desktop,
            [*bundles, self.bundle("VistrelProbe")], self.logs, arguments, **options,
        )
