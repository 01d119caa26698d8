"""Writes docs/performance.md and its pictures from the results: report.py RESULTS DOCS"""

from __future__ import annotations

import json
import string
import sys
from pathlib import Path

import charts
from spread import Spread

KEPT_MS, OWN_US, HOOK_MS, OURS_MS, START, PSS_KIB, SIZE, RATE = 5, 20, 10, 1, 3, 1024, 400, 60
FRAME_MS = 1000 / 60
FLOOR = "XMoveResizeWindow"
GEOMETRY = ("left", "right", "threeL", "threeM", "threeR", "center", "centerAverage")


def table(head: list[str], rows: list[list[str]]) -> str:
    lines = [head, ["---"] * len(head), *rows]
    return "\n".join("| " + " | ".join(line) + " |" for line in lines)


def medians(rows: dict[str, list[float]]) -> dict[str, float]:
    return {name: Spread.of(row).median for name, row in rows.items()}


class Report:
    def __init__(self, found: dict) -> None:
        self.found = found
        self.keys = medians(found["keypress"]["milliseconds"])
        self.ours = self.keys["Vistrel"]

    def goals(self) -> str:
        """What has to be reached, what was measured, and whether it is enough."""
        found, keys, ours = self.found, self.keys, self.ours
        inhost, rest = found["inhost"], found["rest"]
        hook = medians(found["hook"])
        hook_ours = hook["insert"] - hook["in menus"]
        starts = medians(found["starts"])
        longer = 100 * (starts["with"] / starts["without"] - 1)
        slower = [keys["openbox: wmctrl"] / ours, keys["openbox: xdotool"] / ours]
        late = sum(inhost["late events"])
        after = Spread.of(inhost["action after server"])
        own, menus = Spread.of(inhost["own"]), Spread.of(inhost["in menus"])
        action = Spread.of(inhost["action"])
        more = found["memory"]["with"]["1"] - found["memory"]["without"]["1"]
        most = max(
            found["memory"]["with"][count] - found["memory"]["without"][count]
            for count in found["memory"]["with"]
        )
        counts = ("wake-ups", "threads", "descriptors")
        extra = {what: rest["with"][what] - rest["without"][what] for what in counts}
        allocating = [
            name for name, run in found["core"].items()
            if name.split("/")[0] in GEOMETRY and (run["allocations"] or 0) > 0
        ]
        linear = found["core"]["left/10000"]["ns"] / found["core"]["left/1000"]["ns"]
        size = found["bundle"]["program"] / 1024
        foreign = [n for n in found["bundle"]["exported"] if not n.startswith("__objc_class_name_")]
        rate, first = Spread.of(found["animation"]["rate"]), Spread.of(found["animation"]["first"])
        return table(["What", "Goal", "Measured", ""], [
            [what, goal, measured, "reached" if reached else "**missed**"]
            for what, goal, measured, reached in [
                ["Key press to final place, beside openbox's own command", f"at most {KEPT_MS} ms more",
                 f"{ours - keys['openbox: MoveResizeTo']:+.1f} ms",
                 ours <= keys["openbox: MoveResizeTo"] + KEPT_MS],
                ["Beside `wmctrl` and `xdotool` on a key", "3 times faster",
                 " and ".join(f"{each:.1f}" for each in slower) + " times faster", min(slower) >= 3],
                ["Our action returns after the server's last event", f"at most {KEPT_MS} ms",
                 f"{after.median:.1f} ms", after.median <= KEPT_MS],
                ["Events of a move after our action has returned", "none",
                 f"{late} in {len(inhost['late events'])} moves", late == 0],
                ["Our own share of it", f"under {OWN_US} µs",
                 f"{own.median:.0f} µs of {action.median:.1f} ms; {menus.median:.0f} µs more in the host's menus",
                 own.median < OWN_US],
                ["Load hook to block", f"at most {HOOK_MS} ms", f"{hook['load']:.1f} ms",
                 hook["load"] <= HOOK_MS],
                ["Ours of it", f"under {OURS_MS} ms",
                 f"{hook_ours:.2f} ms; {hook['in menus']:.2f} ms more in the host's menus",
                 hook_ours < OURS_MS],
                ["Host start to first window", f"at most {START} % longer", f"{longer:+.1f} %",
                 longer <= START],
                ["At rest: wake-ups, threads, descriptors", "none more",
                 ", ".join(f"{extra[what]:+d}" for what in counts),
                 all(extra[what] <= 0 for what in counts)],
                ["Memory for each host (Pss)", f"at most {PSS_KIB} KiB more",
                 f"{more:+.0f} KiB alone, {most:+.0f} KiB at most", most <= PSS_KIB],
                ["Allocations of geometry commands", "none",
                 "none" if not allocating else ", ".join(allocating), not allocating],
                ["Ten times the menu", "ten times the time", f"{linear:.1f} times", 8 <= linear <= 12],
                ["Program, stripped", f"under {SIZE} KiB", f"{size:.0f} KiB", size < SIZE],
                ["Exported symbols", "Objective-C classes only",
                 f"{len(found['bundle']['exported'])} classes, {len(foreign)} others", not foreign],
                ["Animation", f"at least {RATE} steps a second", f"{rate.median:.0f}",
                 rate.median >= RATE],
                ["First step after the key", f"within {FRAME_MS:.1f} ms", f"{first.median:.1f} ms",
                 first.median <= FRAME_MS],
            ]
        ])

    def keypress(self) -> str:
        rows = self.found["keypress"]["milliseconds"]
        places = self.found["keypress"]["places"]
        floor = self.keys[FLOOR]
        return table(["By", "ms", "Beside Vistrel", "More than the last row, ms", "Final frame"], [
            [name, Spread.of(row).text(), f"{self.keys[name] / self.ours:.2f}",
             f"{self.keys[name] - floor:+.1f}", "{2} x {3} at {0}, {1}".format(*places[name])]
            for name, row in rows.items()
        ])

    def animation(self) -> str:
        found = self.found["animation"]
        exact = sum(end == self.found["keypress"]["places"]["Vistrel"] for end in found["ends"])
        return table(["", ""], [
            ["Key to the first step, ms", Spread.of(found["first"]).text()],
            ["Key to the last step, ms", Spread.of(found["total"]).text()],
            ["Steps a second", Spread.of(found["rate"]).text()],
            ["Longest time between two steps, ms", Spread.of(found["longest"]).text()],
            ["Ends exactly where it ends without animation", f"{exact} of {len(found['ends'])}"],
        ])

    def inhost(self) -> str:
        found = self.found["inhost"]
        return table(["", "ms"], [
            ["`setFrame:display:` until it returns", Spread.of(found["bare"]).text(2)],
            ["`setFrame:display:` until the server is done", Spread.of(found["bare until server"]).text(2)],
            ["our whole action until it returns", Spread.of(found["action"]).text(2)],
            ["of that, after the server's last event", Spread.of(found["action after server"]).text(2)],
            ["of that, in the host's menus, for the marks", Spread.of(
                [value / 1000 for value in found["in menus"]]).text(3)],
            ["of that, our own calculation and flags", Spread.of(
                [value / 1000 for value in found["own"]]).text(3)],
        ])

    def loading(self) -> str:
        starts, hook = self.found["starts"], self.found["hook"]
        return table(["", "ms"], [
            ["start to first window, without", Spread.of(starts["without"]).text()],
            ["start to first window, with Vistrel", Spread.of(starts["with"]).text()],
            ["load hook to block", Spread.of(hook["load"]).text(2)],
            ["of that, in the hook: settings, block, marks", Spread.of(hook["insert"]).text(2)],
            ["of that, in the host's menus", Spread.of(hook["in menus"]).text(2)],
        ])

    def rest(self) -> str:
        rest = self.found["rest"]
        return table([f"In {rest['seconds']:.0f} seconds", "without", "with Vistrel"], [
            [what, str(rest["without"][what]), str(rest["with"][what])]
            for what in ("wake-ups", "threads", "descriptors")
        ])

    def memory(self) -> str:
        found, settings = self.found["memory"], self.found["settings"]
        rows = [
            [f"{count} hosts" if count != "1" else "1 host", f"{found['without'][count]:.0f}",
             f"{found['with'][count]:.0f}", f"{found['with'][count] - found['without'][count]:+.0f}"]
            for count in found["with"]
        ]
        return table(["KiB for each host", "without", "with Vistrel", ""], rows) + (
            f"\n\nThe settings window, opened once, adds {settings['opened'] - settings['before']:.0f} KiB "
            f"while it is open and {settings['closed'] - settings['before']:.0f} KiB after it was closed."
        )

    def core(self) -> str:
        found = self.found["core"]
        rows = []
        for name in sorted({key.split("/")[0] for key in found}):
            runs = [found.get(f"{name}/{items}") for items in (10, 100, 1000, 10000)]
            if not any(runs):
                run = found[name]
                counted = f"{run['instructions']:.0f}" if "instructions" in run else ""
                rows.append([
                    f"`{name}`", f"{run['ns'] / 1000:.2f}", "", "", "", counted,
                    f"{run['allocations']:.0f}",
                ])
                continue
            counted = [run.get("instructions") for run in runs]
            allocations = runs[0]["allocations"]
            rows.append([
                f"`{name}`", *(f"{run['ns'] / 1000:.2f}" for run in runs),
                f"{counted[0]:.0f} and {counted[-1]:.0f}" if counted[0] else "",
                f"{allocations:.0f}" if allocations is not None else "",
            ])
        return table(
            ["µs with a menu of", "10", "100", "1,000", "10,000 items",
             "instructions (10 and 10,000)", "allocations"], rows,
        )

    def bundle(self) -> str:
        found = self.found["bundle"]
        return table(["", ""], [
            ["program, stripped", f"{found['program'] / 1024:.0f} KiB"],
            ["whole bundle, with interface files and icons", f"{found['all'] / 1024:.0f} KiB"],
            ["exports", ", ".join(
                f"`{name.removeprefix('__objc_class_name_')}`" for name in found["exported"])],
            ["needs", ", ".join(f"`{name}`" for name in found["needed"])],
        ])

    def machine(self) -> str:
        found = self.found["machine"]
        packages = ", ".join(f"{name} {version}" for name, version in found["packages"].items())
        return f"{found['cores']} cores ({found['cpu']}), Linux {found['kernel']}; {packages}"

    def write(self, docs: Path) -> None:
        pictures = docs / "pictures"
        found = self.found
        charts.keypress(found["keypress"], pictures / "performance-key-press.png")
        charts.animation(found["animation"], pictures / "performance-animation.png")
        charts.inhost(found["inhost"], pictures / "performance-in-the-host.png")
        charts.loading(found["starts"], found["hook"], pictures / "performance-loading.png")
        charts.memory(found["memory"], pictures / "performance-memory.png")
        charts.core(found["core"], pictures / "performance-core.png")
        template = string.Template(Path(__file__).with_name("performance.md").read_text())
        sections = ("goals", "machine", "keypress", "animation", "inhost", "loading", "rest", "memory",
                    "core", "bundle")
        text = template.substitute({name: getattr(self, name)() for name in sections})
        (docs / "performance.md").write_text(text)


if __name__ == "__main__":
    Report(json.loads((Path(sys.argv[1]) / "results.json").read_text())).write(Path(sys.argv[2]))
