"""The pictures of the docs, from those of a tour: pictures.py TOUR DOCS

A tour numbers its pictures; here they are found by name, brought to the size
that a page has room for, and some of them made into a short animation.
"""

from __future__ import annotations

import sys
from pathlib import Path

from PIL import Image

# Where a menu in the upper left corner of the screen ends.
MENUS = (0, 0, 760, 400)
WIDTH = 640
FRAME_MILLISECONDS = 1300

# Name in the docs: name on the tour.
MENU_PICTURES = {
    "block": "window-menu",
    "vistrel-menu": "vistrel",
    "settings-menu": "settings",
    "arrange": "arrange",
}
SCREEN_PICTURES = {
    name: name
    for name in (
        "left-half", "right-half", "left-third", "middle-third", "right-third",
        "centred", "standard-size", "fullscreen", "hidden", "floating",
    )
}
WINDOW_PICTURES = {"settings": "settings-window", "about": "about"}
ANIMATION = (
    "window-menu", "arrange", "left-half", "left-half-back", "right-half",
    "middle-third", "middle-third-back", "standard-size", "fullscreen", "fullscreen-back",
)


class TourPictures:
    def __init__(self, folder: Path) -> None:
        self.folder = folder

    def open(self, name: str) -> Image.Image:
        """The picture of the step with this name, as NN-NAME.png."""
        found = [file for file in self.folder.glob("*.png") if file.stem[3:] == name]
        if len(found) != 1:
            raise SystemExit(f"pictures: {len(found)} pictures of {name} in {self.folder}")
        return Image.open(found[0]).convert("RGB")


def reduced(image: Image.Image) -> Image.Image:
    height = round(image.height * WIDTH / image.width)
    return image.resize((WIDTH, height), Image.Resampling.LANCZOS)


def few_colours(image: Image.Image) -> Image.Image:
    return image.quantize(128, dither=Image.Dither.NONE)


def main(tour: Path, docs: Path) -> int:
    pictures = TourPictures(tour)
    for name, step in MENU_PICTURES.items():
        few_colours(pictures.open(step).crop(MENUS)).save(docs / f"{name}.png", optimize=True)
    for name, step in SCREEN_PICTURES.items():
        few_colours(reduced(pictures.open(step))).save(docs / f"{name}.png", optimize=True)
    for name, step in WINDOW_PICTURES.items():
        few_colours(pictures.open(step)).save(docs / f"{name}.png", optimize=True)
    frames = [few_colours(reduced(pictures.open(step))) for step in ANIMATION]
    frames[0].save(
        docs / "tour.gif", save_all=True, append_images=frames[1:], optimize=True,
        duration=FRAME_MILLISECONDS, loop=0,
    )
    return 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1]), Path(sys.argv[2])))
