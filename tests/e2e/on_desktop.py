"""Run a command on a fresh desktop, as a fresh user: on_desktop.py COMMAND..."""

from __future__ import annotations

import os
import sys
import tempfile
from pathlib import Path

from harness.account import Account
from harness.desktop import Desktop


def of_sanitizers() -> dict[str, str]:
    """What a program with sanitizers needs of our environment."""
    options = {
        name: os.environ[name]
        for name in ("ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS")
        if name in os.environ
    }
    # They refuse a second copy of the C library, which the account's wrapper
    # library would load.
    return {**options, "NSS_WRAPPER_DISABLE_DEEPBIND": "1"} if options else {}


def main(command: list[str]) -> int:
    with tempfile.TemporaryDirectory() as folder, Account() as account:
        log = Path(folder) / "command.log"
        with Desktop(account, Path(folder)) as desktop:
            environment = {**of_sanitizers(), "DISPLAY": desktop.name}
            status = account.start(command, log, environment).wait()
        sys.stdout.write(log.read_text(errors="replace"))
        return status


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
