"""Measures Vistrel beside what a user would pick instead: bench.py BUILD RESULTS [PART...]

Writes RESULTS/results.json. With PARTs, only those are measured anew.
"""

from __future__ import annotations

import json
import os
import platform
import subprocess
import sys
from collections.abc import Callable
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "e2e"))

import animation  # noqa: E402
import atrest  # noqa: E402
import bundle  # noqa: E402
import core  # noqa: E402
import inhost  # noqa: E402
import keypress  # noqa: E402
import loading  # noqa: E402
from harness.account import Account  # noqa: E402
from harness.desktop import Desktop  # noqa: E402
from place import Place  # noqa: E402

PARTS: dict[str, Callable[[Place], dict]] = {
    "bundle": lambda place: bundle.measure(place.bundle("Vistrel")),
    "core": lambda place: core.measure(place.build),
    "keypress": lambda place: keypress.measure(place, rounds=40),
    "animation": lambda place: animation.measure(place, rounds=20),
    "inhost": lambda place: inhost.measure(place, rounds=40),
    "starts": lambda place: loading.measure_starts(place, rounds=100),
    "hook": lambda place: loading.measure_hook(place, rounds=25),
    "rest": lambda place: atrest.measure_rest(place, seconds=60),
    "memory": lambda place: atrest.measure_memory(place),
    "settings": lambda place: atrest.measure_settings_window(place),
}


def version(package: str) -> str:
    asked = ["dpkg-query", "-W", "-f", "${Version}", package]
    return subprocess.run(asked, stdout=subprocess.PIPE, text=True).stdout


def machine() -> dict:
    cpu = next(
        line.split(":")[1].strip()
        for line in Path("/proc/cpuinfo").read_text().splitlines()
        if line.startswith("model name")
    )
    packages = ("gnustep-gui-runtime", "gnustep-back0.29-cairo", "openbox", "wmctrl", "xdotool", "xvfb")
    return {
        "cpu": cpu, "cores": os.cpu_count(), "kernel": platform.release(),
        "packages": {name: version(name) for name in packages},
    }


def main() -> int:
    build, results = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve()
    parts = sys.argv[3:] or list(PARTS)
    unknown = [part for part in parts if part not in PARTS]
    if unknown:
        print(f"bench: there is no {', '.join(unknown)}; there are {', '.join(PARTS)}", file=sys.stderr)
        return 2
    results.mkdir(parents=True, exist_ok=True)
    file = results / "results.json"
    found = json.loads(file.read_text()) if file.exists() and sys.argv[3:] else {}
    found["machine"] = machine()
    with Account() as account, Desktop(
        account, results, manager=keypress.BoundOpenbox
    ) as desktop:
        place = Place(account, desktop, build, results)
        for part in parts:
            print(f"== {part}", flush=True)
            found[part] = PARTS[part](place)
            file.write_text(json.dumps(found, indent=1))
    return 0


if __name__ == "__main__":
    sys.exit(main())
