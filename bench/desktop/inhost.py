"""The same move inside the host: our whole action beside the platform's bare method."""

from __future__ import annotations

from pathlib import Path

from keypress import Window
from place import AT_ONCE, Place


def report(file: Path) -> list[list[str]]:
    return [line.split() for line in file.read_text().splitlines()] if file.exists() else []


def measure(place: Place, rounds: int) -> dict:
    file, go = place.logs / "moves.txt", place.logs / "go"
    for each in (file, go):
        each.unlink(missing_ok=True)
    environment = {
        "VTR_BENCH_REPORT": str(file), "VTR_BENCH_GO": str(go), "VTR_BENCH_ROUNDS": str(rounds),
    }
    host = place.host(place.bundle("VistrelMoveBench"), arguments=AT_ONCE, environment=environment)
    with host, Window(host, place) as window:
        window.go_home()
        go.touch()
        host.wait_until(lambda: ["end"] in report(file), "the moves", timeout=30 + 2 * rounds)
        events = window.watch.settle()
    lines = [[line[0], *map(int, line[1:])] for line in report(file) if line[0] in ("bare", "action")]

    found: dict[str, list[float]] = {
        "bare": [], "bare until server": [], "action": [], "action after server": [],
        "late events": [], "own": [], "in menus": [], "platform": [],
    }
    for number, (kind, begin, end, *move) in enumerate(lines):
        until = begin + 240_000_000  # shorter than the pause between two moves
        mine = [event for event in events if begin <= event.time < until]
        arrived = window.arrival(mine)
        found[kind].append((end - begin) / 1e6)
        if kind == "bare":
            found["bare until server"].append((arrived - begin) / 1e6)
        else:
            found["action after server"].append((end - arrived) / 1e6)
            found["late events"].append(sum(event.time > end for event in mine))
            in_window, in_menus = move
            found["own"].append((end - begin - in_window - in_menus) / 1e3)
            found["in menus"].append(in_menus / 1e3)
            found["platform"].append(in_window / 1e3)
    return found
