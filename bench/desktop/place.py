"""Where everything is that a measurement needs."""

from __future__ import annotations

import subprocess
from pathlib import Path
from typing import NamedTuple

from harness import applications
from harness.account import Account
from harness.desktop import Desktop
from harness.host import ALWAYS, Host, property_list_array

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

    def bare_host(self, log: str, *bundles: Path) -> subprocess.Popen[bytes]:
        """A host with these bundles and nothing else: the probe has a socket of its own."""
        loading = ["-GSAppKitUserBundles", property_list_array(bundles)] if bundles else []
        return self.account.start(
            [
                applications.find(APPLICATION), *ALWAYS,
                "-NSMenuInterfaceStyle", "NSNextStepInterfaceStyle", *loading,
            ],
            self.logs / f"{log}.log",
            extra={"DISPLAY": self.desktop.name},
        )
