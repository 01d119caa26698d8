"""A picture of each comparison."""

from __future__ import annotations

from pathlib import Path

import matplotlib

matplotlib.use("Agg")

from matplotlib import pyplot  # noqa: E402
from matplotlib.axes import Axes  # noqa: E402
from spread import Spread  # noqa: E402

OURS, OTHERS = "#2f6fab", "#b5bcc4"


def bars(axes: Axes, rows: dict[str, list[float]], ours: set[str], digits: int = 1) -> None:
    """One bar a row, with the range in which four of five values lie."""
    names = list(reversed(rows))
    for place, name in enumerate(names):
        spread = Spread.of(rows[name])
        axes.barh(place, spread.median, color=OURS if name in ours else OTHERS)
        axes.plot([spread.low, spread.high], [place, place], color="black", linewidth=1)
        axes.annotate(
            f"{spread.median:.{digits}f}", (max(spread.high, spread.median), place),
            xytext=(5, 0), textcoords="offset points", va="center",
        )
    axes.set_yticks(range(len(names)), names)
    axes.margins(x=0.12)


def save(figure, file: Path) -> None:
    for axes in figure.axes:
        axes.spines[["top", "right"]].set_visible(False)
    figure.tight_layout()
    figure.savefig(file, dpi=100)
    pyplot.close(figure)


def keypress(found: dict, file: Path) -> None:
    figure, axes = pyplot.subplots(figsize=(8, 2.6))
    bars(axes, found["milliseconds"], {"Vistrel"})
    axes.set_xlabel("milliseconds from the key to the window's final place")
    save(figure, file)


def animation(found: dict, file: Path) -> None:
    figure, axes = pyplot.subplots(figsize=(8, 2.6))
    for row, times in enumerate(found["rows"]):
        axes.plot(times, [row] * len(times), "|", color=OURS, markersize=7)
    axes.set_xlabel("milliseconds from the key; each mark is a frame of the window")
    axes.set_ylabel("move")
    save(figure, file)


def inhost(found: dict, file: Path) -> None:
    figure, axes = pyplot.subplots(figsize=(8, 2.2))
    rows = {
        "setFrame:display: until the server is done": found["bare until server"],
        "setFrame:display: until it returns": found["bare"],
        "our whole action until it returns": found["action"],
        "of which ours": [value / 1000 for value in found["own"]],
    }
    bars(axes, rows, {"our whole action until it returns", "of which ours"}, 2)
    axes.set_xlabel("milliseconds")
    save(figure, file)


def loading(starts: dict, hook: dict, file: Path) -> None:
    figure, (left, right) = pyplot.subplots(1, 2, figsize=(8, 1.9))
    bars(left, {"without": starts["without"], "with Vistrel": starts["with"]}, {"with Vistrel"}, 0)
    left.set_xlabel("milliseconds to the first window")
    rows = {"load hook to block": hook["load"], "of which the hook": hook["insert"]}
    bars(right, rows, set(rows), 2)
    right.set_xlabel("milliseconds")
    save(figure, file)


def memory(found: dict, file: Path) -> None:
    figure, axes = pyplot.subplots(figsize=(8, 2.6))
    counts = list(found["without"])
    for shift, kind, colour in ((-0.2, "without", OTHERS), (0.2, "with", OURS)):
        values = [found[kind][count] / 1024 for count in counts]
        places = [place + shift for place in range(len(counts))]
        drawn = axes.bar(places, values, 0.38, color=colour, label=f"{kind} Vistrel")
        axes.bar_label(drawn, fmt="%.1f")
    axes.set_xticks(range(len(counts)), [f"{count} at once" for count in counts])
    axes.set_ylabel("MiB for each host")
    axes.margins(y=0.15)
    axes.legend(frameon=False, loc="upper right")
    save(figure, file)


def core(found: dict, file: Path) -> None:
    figure, axes = pyplot.subplots(figsize=(8, 3))
    axes.set_prop_cycle(color=pyplot.get_cmap("tab20").colors)
    names = sorted({name.split("/")[0] for name in found if name.count("/") == 1})
    for name in names:
        points = sorted((int(key.split("/")[1]), run["ns"] / 1000) for key, run in found.items()
                        if key.startswith(name + "/"))
        if len(points) > 1:
            axes.plot(*zip(*points), marker="o", markersize=3, linewidth=1, label=name)
    axes.set_xscale("log")
    axes.set_yscale("log")
    axes.set_xlabel("items in the Window menu")
    axes.set_ylabel("microseconds")
    axes.legend(frameon=False, fontsize=7, ncols=2, loc="upper left")
    save(figure, file)
