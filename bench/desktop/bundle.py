"""The bundle as it is shipped: what it takes, shows and needs."""

from __future__ import annotations

import shutil
import subprocess
import tempfile
from pathlib import Path


def run(*words: str | Path) -> str:
    return subprocess.run(words, stdout=subprocess.PIPE, check=True, text=True).stdout


def measure(bundle: Path) -> dict:
    with tempfile.TemporaryDirectory() as folder:
        copy = Path(folder) / bundle.name
        shutil.copytree(bundle, copy)
        program = copy / bundle.stem
        run("strip", program)
        symbols = [line.split()[-1] for line in run("nm", "-D", "--defined-only", program).splitlines()]
        needed = [
            line.split("[")[1].rstrip("]")
            for line in run("readelf", "-dW", program).splitlines()
            if "(NEEDED)" in line
        ]
        return {
            "program": program.stat().st_size,
            "all": sum(file.stat().st_size for file in copy.rglob("*") if file.is_file()),
            "exported": symbols,
            "needed": needed,
        }
