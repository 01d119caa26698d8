"""The About window in real applications, and the pages that it opens."""

from __future__ import annotations

import plistlib
import shutil
from collections.abc import Callable
from pathlib import Path

import pytest
from block import ABOUT as ABOUT_MENU
from commands import Commands
from harness.account import Account
from harness.browser import Browser
from harness.controls import Controls
from harness.desktop import Desktop
from harness.devices import COMMAND
from harness.geometry import Rect
from harness.host import Host
from harness.waiting import wait_until

StartHost = Callable[..., Host]

TITLE = "About Vistrel"
SUBMENU, ABOUT = "Quorvix's Vistrel", ABOUT_MENU[0].title
LINKS = ["Manuals", "Quorvix Home Page", "Support", "Acknowledgements"]


class AboutWindow:
    """A host whose menu has been used to open it."""

    def __init__(self, host: Host) -> None:
        self.host, self.desktop = host, host.desktop
        self.commands = Commands(host)
        self.controls = Controls(host, TITLE)

    def choose(self) -> None:
        """The command, by mouse."""
        menus = self.commands.menus
        menus.pick(self.host.windows_menu()["title"], SUBMENU, ABOUT)
        menus.close()
        self.host.catch_up()

    def open(self) -> dict:
        self.choose()
        self.host.wait_until(self.is_in_front, "the About window to be in front")
        self.host.wait_until(self.controls.is_placed, "the About window to be placed")
        return self.controls.window()

    def is_open(self) -> bool:
        return bool(self.host.windows(TITLE))

    def is_in_front(self) -> bool:
        windows = self.host.windows(TITLE)
        return bool(windows) and windows[0]["key"] and self.host.has_focus()

    def made(self) -> int:
        """How many there are in the host, on screen or not."""
        return len([w for w in self.host.probe.windows() if w["title"] == TITLE])

    def frame(self) -> Rect:
        """As the X server has it."""
        return self.desktop.geometry(self.controls.window()["xid"]).frame

    def is_centred(self) -> bool:
        width, height = self.desktop.size
        x, y = self.frame().centre
        return abs(x - width / 2) <= 1 and abs(y - height / 2) <= 1

    def wait_until_centred(self) -> None:
        self.host.wait_until(self.is_centred, "the window to be in the centre")

    def wait_for_focus_on(self, link: str) -> None:
        self.host.wait_until(
            lambda: self.controls.focused() == link, f"the focus on {link!r}"
        )

    def press(self, *keys: str) -> None:
        self.desktop.keyboard.chord(*keys)
        # A host that was busy answering handles what it has read meanwhile only when it is woken.
        self.host.catch_up()

    def wait_until_closed(self) -> None:
        self.host.wait_until(lambda: not self.is_open(), "the window to close")
        self.host.catch_up()


@pytest.fixture
def about(start_host: StartHost) -> AboutWindow:
    return AboutWindow(start_host("TextEdit"))


@pytest.fixture
def info(loader_bundle: Path) -> dict:
    """What the bundle says of itself."""
    file = loader_bundle.parent / "Vistrel.bundle" / "Resources" / "Info-gnustep.plist"
    return plistlib.loads(file.read_bytes())


# The window


def test_it_opens_in_the_centre_with_the_keyboard(about: AboutWindow) -> None:
    document = about.host.key_window()
    window = about.open()
    about.wait_until_centred()
    assert about.desktop.is_above(window["xid"], document["xid"])


def test_the_documents_commands_still_mean_the_document(about: AboutWindow) -> None:
    document = about.host.key_window()
    about.open()
    assert [w["number"] for w in about.host.probe.windows() if w["main"]] == [document["number"]]


def test_it_shows_the_version_of_the_bundle(about: AboutWindow, info: dict) -> None:
    about.open()
    labels = [c["value"] for c in about.controls.all() if c["kind"] == "label"]
    assert labels[:2] == ["Vistrel", f"Version {info['CFBundleShortVersionString']}"]
    assert info["CFBundleShortVersionString"] == "1.1.2"


def test_its_icon_is_drawn(about: AboutWindow) -> None:
    about.open()
    area = next(c for c in about.controls.all() if c["class"] == "NSImageView")["rect"]
    icon = Rect(*(round(number) for number in area))
    about.host.wait_until(lambda: about.desktop.colours(icon) > 100, "the icon to be drawn")


def test_two_commands_in_a_row_make_one_window(about: AboutWindow) -> None:
    first = about.open()
    assert about.open()["xid"] == first["xid"]
    assert about.made() == 1
    about.wait_until_centred()


def drag_by_title(about: AboutWindow) -> None:
    frame = about.frame()
    title = (frame.x + frame.width // 2, frame.y + 8)
    about.desktop.mouse.drag(title, (title[0] + 250, title[1] + 180))


def test_the_command_brings_it_back_after_its_user_has_moved_it(about: AboutWindow) -> None:
    about.open()
    about.wait_until_centred()
    drag_by_title(about)
    about.host.wait_until(lambda: not about.is_centred(), "the window to be moved")
    about.host.catch_up()
    about.open()
    about.wait_until_centred()
    assert about.made() == 1


def test_another_manager_lets_it_come_back_to_the_centre(
    start_host: StartHost, other_manager: Desktop
) -> None:
    about = AboutWindow(start_host("TextEdit", desktop=other_manager))
    about.open()
    about.wait_until_centred()
    drag_by_title(about)
    about.host.wait_until(lambda: not about.is_centred(), "the window to be moved")
    about.host.catch_up()
    about.open()
    about.wait_until_centred()


def by_its_button(about: AboutWindow) -> None:
    frame = about.frame()
    about.desktop.mouse.click(frame.x + frame.width - 12, frame.y + 10)


def by_the_manager(about: AboutWindow) -> None:
    about.desktop.close_window(about.controls.window()["xid"])


def by_escape(about: AboutWindow) -> None:
    about.press("Escape")


def by_command_w(about: AboutWindow) -> None:
    about.press(COMMAND, "w")


@pytest.mark.parametrize("close", [by_its_button, by_the_manager, by_escape, by_command_w])
def test_after_closing_the_command_shows_the_same_window_in_the_centre(
    about: AboutWindow, close: Callable[[AboutWindow], None]
) -> None:
    about.open()
    about.wait_until_centred()
    for _ in range(2):
        close(about)
        about.wait_until_closed()
        about.host.wait_for_focus()
        assert about.host.windows(), "the document stays"
        about.open()
        about.wait_until_centred()
        assert about.made() == 1


def test_another_manager_closes_it_without_harm(
    start_host: StartHost, other_manager: Desktop
) -> None:
    about = AboutWindow(start_host("TextEdit", desktop=other_manager))
    for _ in range(2):
        about.open()
        about.wait_until_centred()
        by_the_manager(about)
        about.wait_until_closed()


@pytest.mark.parametrize("name", ["Ink", "EdenMath"])
def test_other_applications_show_it_too(start_host: StartHost, name: str) -> None:
    about = AboutWindow(start_host(name))
    about.open()
    about.wait_until_centred()
    assert [c["title"] for c in about.controls.all() if c["kind"] == "button"] == LINKS


# Its links


def pages(info: dict) -> list[str]:
    """In the order of the links."""
    main, second = info["VTRMainServer"], info["VTRSecondServer"]
    return [
        f"{second}/support/manuals/manuals.html",
        f"{main}/",
        f"{second}/support/support.html",
        f"{main}/acknowledgment.html",
    ]


def command_line(pid: int) -> bytes:
    try:
        return Path(f"/proc/{pid}/cmdline").read_bytes()
    except OSError:  # ended meanwhile
        return b""


def wait_for_opener(account: Account) -> None:
    """Return when no page is on its way to a browser, whether there is one or not."""
    wait_until(
        lambda: not any(b"xdg-open" in command_line(pid) for pid in account.processes()),
        "the pages to have been opened",
    )


def opened(account: Account, browser: Browser, count: int) -> list[str]:
    """The pages that the browser was told to open, when they are so many and no more come."""
    wait_until(lambda: len(browser.pages()) >= count, f"{count} pages to be opened")
    wait_for_opener(account)
    return browser.pages()


def test_each_link_opens_its_page_once(
    about: AboutWindow, account: Account, info: dict
) -> None:
    browser = Browser(account)
    about.open()
    for count, link in enumerate(LINKS, start=1):
        about.controls.click(link)
        assert opened(account, browser, count) == pages(info)[:count]
    assert about.is_open()


def test_each_link_is_reached_by_the_keyboard(
    about: AboutWindow, account: Account, info: dict
) -> None:
    browser = Browser(account)
    about.open()
    for count, link in enumerate(LINKS, start=1):
        about.wait_for_focus_on(link)
        about.press("space")
        assert opened(account, browser, count) == pages(info)[:count]
        about.press("Tab")
    about.wait_for_focus_on(LINKS[0])


def test_without_a_browser_a_link_does_nothing(
    start_host: StartHost, account: Account
) -> None:
    about = AboutWindow(start_host("TextEdit", environment={"BROWSER": "no-such-browser"}))
    about.open()
    for link in LINKS:
        about.controls.click(link)
    wait_for_opener(account)
    about.host.catch_up()
    assert about.host.key_window()["title"] == TITLE


# Its interface file


@pytest.fixture
def interface(loader_bundle: Path, tmp_path: Path) -> Path:
    """That of a copy of the bundles."""
    bundles = shutil.copytree(loader_bundle.parent, tmp_path / "bundles")
    return bundles / "Vistrel.bundle" / "Resources" / "VTRAbout.xib"


def cut_off(file: Path) -> None:
    content = file.read_bytes()
    file.write_bytes(content[: len(content) // 2])


def overwrite(file: Path) -> None:
    file.write_bytes(b"\x00 no interface \xff" * 50)


@pytest.mark.parametrize("damage", [Path.unlink, cut_off, overwrite])
def test_without_its_interface_file_the_command_does_nothing(
    start_host: StartHost, interface: Path, damage: Callable[[Path], None]
) -> None:
    damage(interface)
    loader = interface.parents[2] / "VistrelLoader.bundle"
    about = AboutWindow(start_host("TextEdit", bundles=[loader]))
    document = about.host.key_window()
    for _ in range(2):
        about.choose()
        assert about.made() == 0
        assert about.host.key_window() == document
