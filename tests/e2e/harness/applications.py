"""Where the applications of the platform are."""

from __future__ import annotations

import functools
import subprocess
from pathlib import Path

FOLDERS = ["/usr/lib/GNUstep/Applications", "/usr/local/lib/GNUstep/Applications"]
VARIABLES = ["GNUSTEP_SYSTEM_APPS", "GNUSTEP_LOCAL_APPS", "GNUSTEP_USER_APPS"]


def _configured(variable: str) -> str:
    try:
        answer = subprocess.run(
            ["gnustep-config", f"--variable={variable}"],
            capture_output=True, text=True, check=False, timeout=20,
        )
    except FileNotFoundError:
        return ""
    return answer.stdout.strip()


@functools.cache
def _folders() -> list[Path]:
    names = [*FOLDERS, *(_configured(variable) for variable in VARIABLES)]
    return [Path(name) for name in dict.fromkeys(names) if name]


def find(name: str) -> Path | None:
    """The executable of an application, by its name or by the path of its folder.

    None where it is not installed.
    """
    stem = Path(name).stem
    for folder in [Path(name).parent] if "/" in name else _folders():
        executable = folder / f"{stem}.app" / stem
        if executable.is_file():
            return executable
    return None
