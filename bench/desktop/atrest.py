"""What a host with Vistrel takes of the machine while nobody uses it."""

from __future__ import annotations

import time
from contextlib import ExitStack
from pathlib import Path

from harness.devices import COMMAND, OPTION
from harness.waiting import wait_until
from loading import is_document
from place import Place
from stopwatch import Stopwatch


def wake_ups(pid: int) -> int:
    """How often any thread of the process has gone to sleep."""
    return sum(
        int(line.split()[1])
        for status in Path(f"/proc/{pid}/task").glob("*/status")
        for line in status.read_text().splitlines()
        if line.startswith("voluntary_ctxt_switches")
    )


def entries(pid: int, what: str) -> int:
    return len(list(Path(f"/proc/{pid}/{what}").iterdir()))


def pss(pid: int) -> float:
    """KiB, what is shared counted in parts."""
    for line in Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines():
        if line.startswith("Pss:"):
            return float(line.split()[1])
    raise ValueError(f"no Pss for {pid}")


def still(pids: list[int]) -> None:
    """Returns when the processes have not run for a second."""
    seen: list[list[int]] = []

    def are_still() -> bool:
        seen.append([wake_ups(pid) for pid in pids])
        time.sleep(1)
        return [wake_ups(pid) for pid in pids] == seen[-1]

    wait_until(are_still, "the hosts to come to rest", timeout=60)


def started(place: Place, watch: Stopwatch, bundles: list[tuple[Path, ...]]) -> list:
    """Hosts with these bundles, one after the other, each with its window on the screen."""
    hosts = []
    for each in bundles:
        hosts.append(place.bare_host(f"rest-{len(hosts)}", *each))
        watch.wait_for("map", is_document)
    watch.settle(1)
    return hosts


def end(hosts: list) -> None:
    for host in hosts:
        host.kill()
    for host in hosts:
        host.wait()


def measure_rest(place: Place, seconds: float) -> dict:
    """Both side by side, behind another application, which has the blinking caret."""
    with ExitStack() as stack:
        watch = stack.enter_context(Stopwatch(place.stopwatch, place.desktop.name))
        hosts = started(place, watch, [(), (place.loader,), ()])
        stack.callback(end, hosts)
        without, with_vistrel = hosts[0].pid, hosts[1].pid
        still([without, with_vistrel])
        before = [wake_ups(pid) for pid in (without, with_vistrel)]
        time.sleep(seconds)
        after = [wake_ups(pid) for pid in (without, with_vistrel)]
        return {
            kind: {
                "wake-ups": after[index] - before[index],
                "threads": entries(pid, "task"),
                "descriptors": entries(pid, "fd"),
            }
            for index, (kind, pid) in enumerate([("without", without), ("with", with_vistrel)])
        } | {"seconds": seconds}


def measure_memory(place: Place, counts: tuple[int, ...] = (1, 4, 16)) -> dict:
    """KiB of Pss for each host, with so many hosts of one kind."""
    found: dict[str, dict[str, float]] = {"without": {}, "with": {}}
    with Stopwatch(place.stopwatch, place.desktop.name) as watch:
        for count in counts:
            for kind, bundles in (("without", ()), ("with", (place.loader,))):
                hosts = started(place, watch, [bundles] * count)
                found[kind][str(count)] = sum(pss(host.pid) for host in hosts) / count
                end(hosts)
                watch.settle()
    return found


def measure_settings_window(place: Place) -> dict:
    """KiB of Pss of one host before its settings window was opened, and after it was closed."""
    with place.host(place.loader) as host:
        host.wait_for_focus()
        pid = host.process.pid
        before = pss(pid)
        place.desktop.keyboard.chord(COMMAND, OPTION, "comma")
        window = host.wait_until(lambda: host.windows("Vistrel Settings"), "the settings window")[0]
        host.wait_for_focus()
        opened = pss(pid)
        place.desktop.close_window(window["xid"])
        host.wait_until(lambda: not host.windows("Vistrel Settings"), "the window to be closed")
        host.catch_up()
        return {"before": before, "opened": opened, "closed": pss(pid)}
