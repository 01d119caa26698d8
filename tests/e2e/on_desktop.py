"""Run a command on a fresh desktop, as a fresh user: on_desktop.py COMMAND..."""

from __future__ import annotations

import sys
import tempfile
from pathlib import Path

from harness.account import Account
from harness.desktop import Desktop


def main(command: list[str]) -> int:
    with tempfile.TemporaryDirectory() as folder, Account() as account:
        log = Path(folder) / "command.log"
        with Desktop(account, Path(folder)) as desktop:
            status = account.start(command, log, {"DISPLAY": desktop.name}).wait()
        sys.stdout.write(log.read_text(errors="replace"))
        return status


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
