"""What loading costs: the start of a host, and the load hook in it."""

from __future__ import annotations

import time

from inhost import report
from place import Place
from stopwatch import Event, Stopwatch


def is_document(event: Event) -> bool:
    """Not the icon, nor a menu."""
    return event.place.width >= 300 and event.place.height >= 200


def start(place: Place, watch: Stopwatch, number: int, *bundles) -> float:
    """Milliseconds from the start of the process to its first window."""
    begin = time.monotonic_ns()
    process = place.bare_host(f"start-{number}", *bundles)
    shown = watch.wait_for("map", is_document)
    watch.settle()
    process.kill()
    process.wait()
    watch.settle()
    return (shown.time - begin) / 1e6


def measure_starts(place: Place, rounds: int) -> dict:
    found: dict[str, list[float]] = {"without": [], "with": []}
    with Stopwatch(place.stopwatch, place.desktop.name) as watch:
        for number in range(rounds + 1):
            for kind, bundles in (("without", ()), ("with", (place.loader,))):
                took = start(place, watch, number, *bundles)
                if number > 0:  # the first reads the files from disk
                    found[kind].append(took)
    return found


def measure_hook(place: Place, rounds: int) -> dict:
    """Milliseconds from the load hook to the inserted block."""
    file = place.logs / "load.txt"
    file.unlink(missing_ok=True)
    environment = {
        "VTR_BENCH_REPORT": str(file), "VTR_BENCH_BUNDLE": str(place.bundle("Vistrel")),
    }
    for number in range(rounds + 1):
        for bundle, word in (("VistrelLoadBench", "load"), ("VistrelMoveBench", "insert")):
            before = len(report(file))
            with place.host(place.bundle(bundle), environment=environment) as host:
                host.wait_until(lambda: len(report(file)) > before, word)
    lines = [(line[0], *map(int, line[1:])) for line in report(file)[2:]]

    def milliseconds(word: str) -> list[float]:
        return [(end - begin) / 1e6 for kind, begin, end, _ in lines if kind == word]

    return {
        "load": milliseconds("load"),
        "insert": milliseconds("insert"),
        "in menus": [menus / 1e6 for kind, *_, menus in lines if kind == "insert"],
        "items": sorted({items for kind, *_, items in lines if kind == "load"}),
    }
