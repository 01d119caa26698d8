"""The core by itself: time, instructions and allocations of each command."""

from __future__ import annotations

import json
import re
import subprocess
import tempfile
from pathlib import Path

ITEMS = (10, 100, 1000, 10000)
ROUNDS = 100


def times(build: Path) -> dict[str, dict]:
    """Benchmark: nanoseconds and allocations."""
    text = subprocess.run(
        [build / "bench/core/core_bench", "--benchmark_format=json", "--benchmark_min_time=0.1"],
        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True, text=True,
    ).stdout
    return {
        run["name"]: {"ns": run["cpu_time"], "allocations": run.get("allocations")}
        for run in json.loads(text)["benchmarks"]
        if run.get("run_type") == "iteration"
    }


def instructions(build: Path, command: str, items: int) -> float:
    """Of one call, as callgrind counts them."""
    with tempfile.TemporaryDirectory() as folder:
        told = subprocess.run(
            [
                "valgrind", "--tool=callgrind", "--collect-atstart=no",
                f"--callgrind-out-file={folder}/out",
                build / "bench/core/core_instructions", command, str(items), str(ROUNDS),
            ],
            stderr=subprocess.PIPE, check=True, text=True,
        ).stderr
    return int(re.search(r"Collected : (\d+)", told).group(1)) / ROUNDS


def measure(build: Path) -> dict:
    found = times(build)
    parts = sorted({name.split("/")[0] for name in found if name.count("/") == 1})
    for part in parts:
        for items in (ITEMS[0], ITEMS[-1]):
            found[f"{part}/{items}"]["instructions"] = instructions(build, part, items)
    found["settingsLoad"]["instructions"] = instructions(build, "settingsLoad", ITEMS[0])
    return found
