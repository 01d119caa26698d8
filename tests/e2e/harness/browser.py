"""The user's web browser, which writes down what it is told to open.

It is set as any desktop sets it: a desktop entry, named in the user's list of
default applications.
"""

from __future__ import annotations

from .account import Account

# In one step, because it may be read at any moment.
PROGRAM = """\
#!/bin/sh
printf '%s\\n' "$*" >>"{record}"
"""

DESKTOP_ENTRY = """\
[Desktop Entry]
Type=Application
Name=Browser of the tests
Exec={program} %u
MimeType=x-scheme-handler/http;x-scheme-handler/https;
"""

DEFAULT_APPLICATIONS = """\
[Default Applications]
x-scheme-handler/http=browser.desktop
x-scheme-handler/https=browser.desktop
"""


class Browser:
    def __init__(self, account: Account) -> None:
        self._record = account.home / "opened"
        program = account.home / "browser"
        program.write_text(PROGRAM.format(record=self._record))
        program.chmod(0o755)
        entry = account.home / ".local" / "share" / "applications" / "browser.desktop"
        entry.parent.mkdir(parents=True)
        entry.write_text(DESKTOP_ENTRY.format(program=program))
        defaults = account.home / ".config" / "mimeapps.list"
        defaults.parent.mkdir(parents=True)
        defaults.write_text(DEFAULT_APPLICATIONS)

    def pages(self) -> list[str]:
        """What it was started with, each time."""
        return self._record.read_text().splitlines() if self._record.exists() else []
