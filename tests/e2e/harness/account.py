"""A user account of its own for every run, without touching the system.

GNUstep asks the account database, not $HOME, where a user's home is. A
preloaded wrapper library answers from a file instead, in which the present
user id has its home inside a temporary folder. The daemons that GNUstep
starts by itself (distributed notifications, pasteboard) are found through
the temporary folder, so that is private as well, and they end with it.
"""

from __future__ import annotations

import os
import plistlib
import shutil
import subprocess
import tempfile
import uuid
from collections.abc import Mapping, Sequence
from pathlib import Path
from typing import Any

from . import processes

USER = "tester"
MARKER = "VTR_TEST_ACCOUNT"
WRAPPER_LIBRARY = "libnss_wrapper.so"
DIES_WITH_THE_TESTS = ["/usr/bin/setpriv", "--pdeathsig", "KILL"]


def _wrapper() -> Path:
    found = sorted(Path("/usr/lib").glob(f"*/{WRAPPER_LIBRARY}"))
    if not found:
        raise RuntimeError(f"{WRAPPER_LIBRARY} is missing: install libnss-wrapper")
    return found[0]


class Account:
    """A home, a temporary folder, and every process started with them."""

    def __init__(self) -> None:
        # Directly in /tmp: the address of a Unix socket may be 107 bytes long.
        self.root = Path(tempfile.mkdtemp(prefix="vtr-", dir="/tmp"))
        self.home = self._folder("home")
        self.temp = self._folder("tmp")
        self.marker = uuid.uuid4().hex
        self._preload = _wrapper()
        self._children: list[subprocess.Popen[bytes]] = []
        self._write_databases()

    def __enter__(self) -> Account:
        return self

    def __exit__(self, *unused: object) -> None:
        self.close()

    def _folder(self, name: str) -> Path:
        folder = self.root / name
        folder.mkdir(mode=0o700)
        return folder

    def _write_databases(self) -> None:
        user, group = os.getuid(), os.getgid()
        (self.root / "passwd").write_text(
            f"{USER}:x:{user}:{group}:Tester:{self.home}:/bin/sh\n"
        )
        (self.root / "group").write_text(f"{USER}:x:{group}:\n")

    def environment(
        self, extra: Mapping[str, str] | None = None, preload: Sequence[Path] = ()
    ) -> dict[str, str]:
        """A complete environment: nothing of the tester's own leaks in.

        ``preload`` comes first, as the run-time libraries of the sanitizers
        insist.
        """
        return {
            "PATH": "/usr/local/bin:/usr/bin:/bin",
            "LANG": "C.UTF-8",
            "HOME": str(self.home),
            "USER": USER,
            "LOGNAME": USER,
            "TMPDIR": str(self.temp),
            "TEMP": str(self.temp),
            "TMP": str(self.temp),
            "NSS_WRAPPER_PASSWD": str(self.root / "passwd"),
            "NSS_WRAPPER_GROUP": str(self.root / "group"),
            "LD_PRELOAD": ":".join(str(path) for path in [*preload, self._preload]),
            MARKER: self.marker,
            **(extra or {}),
        }

    def start(
        self,
        arguments: Sequence[str | Path],
        log: Path,
        extra: Mapping[str, str] | None = None,
        preload: Sequence[Path] = (),
        pass_fds: Sequence[int] = (),
    ) -> subprocess.Popen[bytes]:
        """Start a program as this user, its output going to ``log``.

        It also ends when the tests are killed and cannot clean up.
        """
        log.parent.mkdir(parents=True, exist_ok=True)
        with log.open("wb") as output:
            child = subprocess.Popen(
                [*DIES_WITH_THE_TESTS, *(str(argument) for argument in arguments)],
                env=self.environment(extra, preload),
                cwd=self.home,
                stdin=subprocess.DEVNULL,
                stdout=output,
                stderr=subprocess.STDOUT,
                pass_fds=pass_fds,
                start_new_session=True,
            )
        self._children.append(child)
        return child

    def defaults_file(self, domain: str) -> Path:
        return self.home / "GNUstep" / "Defaults" / f"{domain}.plist"

    def write_defaults(self, domain: str, values: Mapping[str, Any]) -> None:
        """Add values to a domain, for the hosts that start after this."""
        merged = {**self.read_defaults(domain), **values}
        file = self.defaults_file(domain)
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_bytes(plistlib.dumps(merged))

    def read_defaults(self, domain: str) -> dict[str, Any]:
        """A domain as it is on disk; hosts write theirs when they quit."""
        file = self.defaults_file(domain)
        return plistlib.loads(file.read_bytes()) if file.exists() else {}

    def processes(self) -> list[int]:
        """Every living process of this account, daemons included."""
        return processes.carrying(MARKER, self.marker)

    def close(self) -> None:
        """End what still runs, and only that; then remove the folders."""
        processes.end_all(MARKER, self.marker)
        for child in self._children:
            child.wait(timeout=10)
        shutil.rmtree(self.root, ignore_errors=True)
