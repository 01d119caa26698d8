"""The update check and the pages of the maker, in a real application.

The maker's servers are one server of the tests: a copy of the bundle names it
in its Info.plist, as whoever packages the bundle would.
"""

from __future__ import annotations

import plistlib
from collections.abc import Callable, Iterator
from pathlib import Path

import pytest
from alerts import dismiss, wait_for_alert
from commands import Commands
from harness import webserver
from harness.account import Account
from harness.browser import Browser
from harness.devices import COMMAND
from harness.host import Host
from harness.webserver import Answer, WebServer

StartHost = Callable[..., Host]
Start = Callable[..., Commands]

# Title, message, and the buttons, the default one first.
Words = tuple[str, str, list[str]]

VERSION_FILE = "/versions/Vistrel.txt"
RELEASE_NOTES = "/blog/vistrel?from=menu&to='you'"

UP_TO_DATE = (
    "You're up to date!",
    "Your copy of Quorvix's Vistrel is currently the latest version available.",
    ["OK"],
)
UPDATE = ("Update available", "Do you want to download it now?", ["Download", "Cancel"])
ERROR = (
    "Error!",
    "Unable to check for updates. Please check your internet connection and try again later.",
    ["OK"],
)

CURRENT = webserver.text("1.1.2")
TIMEOUT_SECONDS = 60.0


@pytest.fixture
def server() -> Iterator[WebServer]:
    with WebServer([CURRENT]) as made:
        yield made


@pytest.fixture
def browser(account: Account) -> Browser:
    return Browser(account)


@pytest.fixture
def start(
    start_host: StartHost, copy_of_bundles: Callable[[str], Path], server: WebServer
) -> Start:
    """TextEdit with a copy of Vistrel that knows the maker at the tests' server."""

    def started(environment: dict[str, str] | None = None, **info: str) -> Commands:
        loader = copy_of_bundles("copy")
        file = loader.with_name("Vistrel.bundle") / "Resources" / "Info-gnustep.plist"
        addresses = {
            "VTRMainServer": server.url,
            "VTRSecondServer": f"{server.url}/second",
            "VTRReleaseNotesPage": server.url + RELEASE_NOTES,
        }
        entries = {**plistlib.loads(file.read_bytes()), **addresses, **info}
        file.write_bytes(plistlib.dumps(entries))
        return Commands(start_host("TextEdit", bundles=[loader], environment=environment))

    return started


def choose(commands: Commands, title: str) -> None:
    """By mouse, as there is no shortcut."""
    menu = commands.host.windows_menu()["title"]
    commands.menus.pick(menu, "Quorvix's Vistrel", title)


def check(commands: Commands, picture: Path | None = None) -> Words:
    choose(commands, "Check for Updates…")
    alert = wait_for_alert(commands.host, picture)
    assert alert.whole
    return (*alert.words, list(alert.buttons))


def assert_usable(commands: Commands) -> None:
    """The host lives, has the keyboard, and does what it is told."""
    commands.menus.close()
    commands.host.wait_for_focus()
    commands.press("Toggle ½ Screen Left")
    assert commands.chosen_by(COMMAND, "n") == "New"
    commands.host.wait_for_focus()


class Strangers:
    """The processes that a command has started, as opposed to those that were there."""

    def __init__(self, commands: Commands) -> None:
        self._host = commands.host
        self._before = set(self._host.account.processes())

    def wait_for_end(self) -> None:
        self._host.catch_up()
        self._host.wait_until(
            lambda: set(self._host.account.processes()) <= self._before,
            "what was started to end",
        )


# What the server says, and what the user is told


@pytest.mark.parametrize(
    "content",
    ["1.1.2\n", " 1.1.2", "1.1.1", "1.1.3", "2.0", "", "100% %@ %s %n %d", "ü €",
     "\ufeff1.1.2", "1.1.2\0", "<html>not found</html>"],
)
def test_any_other_text_is_an_update(start: Start, server: WebServer, content: str) -> None:
    server.answers = [webserver.text(content)]
    commands = start()
    assert check(commands) == UPDATE
    assert server.log == [VERSION_FILE] * 2
    dismiss(commands.host, "Escape")
    assert_usable(commands)


def test_the_exact_version_is_up_to_date(start: Start, server: WebServer) -> None:
    commands = start()
    assert check(commands) == UP_TO_DATE
    assert server.log == [VERSION_FILE] * 2
    dismiss(commands.host)
    assert_usable(commands)


FAILURES: dict[str, Answer] = {
    "404": webserver.text("1.1.2", 404),
    "500": webserver.text("1.1.2", 500),
    "invalid": webserver.text(b"1.1.2\xff"),
    "overlong": webserver.text(b"1.1.\xc0\xb2"),
    "cut-off": webserver.cut_off,
    "reset": webserver.reset,
    "too-long": webserver.text(b"1" * ((1 << 20) + 1)),
    "endless": webserver.endless,
}


@pytest.mark.parametrize("failure", FAILURES.values(), ids=FAILURES.keys())
def test_a_first_download_that_fails_is_an_error(
    start: Start, server: WebServer, failure: Answer
) -> None:
    server.answers = [failure, CURRENT]
    commands = start()
    assert check(commands) == ERROR
    assert server.log == [VERSION_FILE], "it is not asked again"
    dismiss(commands.host)
    assert_usable(commands)


def test_a_server_that_is_down_is_an_error(start: Start, server: WebServer) -> None:
    commands = start()
    server.close()
    assert check(commands) == ERROR
    dismiss(commands.host, "Escape")
    assert_usable(commands)


def test_a_host_name_that_does_not_exist_is_an_error(start: Start) -> None:
    commands = start(VTRMainServer="http://quorvix.invalid")
    assert check(commands) == ERROR
    dismiss(commands.host)
    assert_usable(commands)


def test_a_server_that_says_nothing_is_an_error_in_the_end(
    start: Start, server: WebServer
) -> None:
    """The one test that waits for the platform's usual time-out."""
    server.answers = [webserver.silence]
    commands = start()
    with commands.host.probe.patient(2 * TIMEOUT_SECONDS):
        assert check(commands) == ERROR
    assert server.log == [VERSION_FILE]
    dismiss(commands.host)
    assert_usable(commands)


@pytest.mark.parametrize("failure", [FAILURES["500"], FAILURES["reset"]], ids=["500", "reset"])
def test_a_second_download_that_fails_is_an_update(
    start: Start, server: WebServer, failure: Answer
) -> None:
    server.answers = [CURRENT, failure]
    commands = start()
    assert check(commands) == UPDATE
    assert server.log == [VERSION_FILE] * 2
    dismiss(commands.host, "Escape")
    assert_usable(commands)


def test_the_second_text_is_the_one_that_counts(start: Start, server: WebServer) -> None:
    server.answers = [webserver.text("anything"), CURRENT]
    commands = start()
    assert check(commands) == UP_TO_DATE
    dismiss(commands.host)


def test_redirections_are_followed(start: Start, server: WebServer) -> None:
    moved = webserver.redirection("/moved")
    server.answers = [moved, CURRENT, moved, CURRENT]
    commands = start()
    assert check(commands) == UP_TO_DATE
    assert server.log == [VERSION_FILE, "/moved"] * 2
    dismiss(commands.host)


def test_redirections_in_circles_are_an_error(start: Start, server: WebServer) -> None:
    server.answers = [webserver.redirection(VERSION_FILE)]
    commands = start()
    assert check(commands) == ERROR
    assert server.log == [VERSION_FILE] * 11, "the first one and ten more"
    dismiss(commands.host)
    assert_usable(commands)


def test_every_check_asks_the_server_anew(start: Start, server: WebServer) -> None:
    server.answers = [CURRENT, CURRENT, webserver.text("1.1.3"), webserver.text("1.1.3"), CURRENT]
    commands = start()
    for expected in (UP_TO_DATE, UPDATE, UP_TO_DATE):
        assert check(commands) == expected
        dismiss(commands.host, "Escape")
    assert server.log == [VERSION_FILE] * 6


@pytest.mark.parametrize(
    "expected, answer",
    [(UP_TO_DATE, CURRENT), (UPDATE, webserver.text("1.2")), (ERROR, FAILURES["404"])],
    ids=["up-to-date", "update", "error"],
)
def test_each_alert_is_in_the_picture(
    start: Start, server: WebServer, pictures: Path, expected: Words, answer: Answer
) -> None:
    server.answers = [answer]
    commands = start()
    assert check(commands, pictures / "alert.png") == expected
    dismiss(commands.host, "Escape")


def test_the_library_of_downloads_is_loaded_by_the_first_check(
    start: Start, server: WebServer
) -> None:
    def is_loaded(commands: Commands) -> bool:
        return "libcurl" in Path(f"/proc/{commands.host.process.pid}/maps").read_text()

    commands = start()
    assert not is_loaded(commands)
    check(commands)
    assert is_loaded(commands)
    dismiss(commands.host)


# Pages


def test_download_opens_the_release_notes_once(
    start: Start, server: WebServer, browser: Browser
) -> None:
    server.answers = [webserver.text("1.1.3")]
    commands = start()
    strangers = Strangers(commands)
    check(commands)
    dismiss(commands.host, "Return")
    commands.host.wait_until(browser.pages, "the browser")
    strangers.wait_for_end()
    assert browser.pages() == [server.url + RELEASE_NOTES]
    assert_usable(commands)


@pytest.mark.parametrize(
    "content, key", [("1.1.3", "Escape"), ("1.1.2", "Return"), ("1.1.2", "Escape")]
)
def test_any_other_answer_opens_nothing(
    start: Start, server: WebServer, browser: Browser, content: str, key: str
) -> None:
    server.answers = [webserver.text(content)]
    commands = start()
    strangers = Strangers(commands)
    check(commands)
    dismiss(commands.host, key)
    strangers.wait_for_end()
    assert browser.pages() == []
    assert server.log == [VERSION_FILE] * 2
    assert_usable(commands)


@pytest.mark.parametrize(
    "title, page",
    [("Website", RELEASE_NOTES),
     ("More Nifty Apps From Quorvix", "/second/applications/applications.html")],
)
def test_each_link_opens_its_page(
    start: Start, server: WebServer, browser: Browser, title: str, page: str
) -> None:
    commands = start()
    strangers = Strangers(commands)
    choose(commands, title)
    commands.host.wait_until(browser.pages, "the browser")
    strangers.wait_for_end()
    assert browser.pages() == [server.url + page]
    assert server.log == [], "the host itself does not go there"
    assert_usable(commands)


@pytest.fixture
def told(tmp_path: Path) -> Path:
    """A desktop's opener that stays; the file in which it writes down what it is told."""
    opener = tmp_path / "programs" / "xdg-open"
    opener.parent.mkdir()
    file = tmp_path / "told"
    opener.write_text(
        "#!/bin/sh\n"
        f"echo \"$#\" \"$@\" >'{file}.part'\n"
        f"/bin/mv '{file}.part' '{file}'\n"
        "exec /bin/sleep 600\n"
    )
    opener.chmod(0o755)
    return file


def with_only_that_opener(told: Path) -> dict[str, str]:
    return {"PATH": str(told.parent / "programs")}


def test_a_slow_opener_does_not_keep_the_host_waiting(
    start: Start, server: WebServer, told: Path
) -> None:
    commands = start(with_only_that_opener(told))
    choose(commands, "Website")
    commands.host.wait_until(told.exists, "the opener to start")
    assert told.read_text() == f"1 {server.url}{RELEASE_NOTES}\n"
    assert_usable(commands)


@pytest.mark.parametrize(
    "address",
    ["", "/blog", "file:///etc/hostname", "mailto:you@quorvix.example", "httpx://x/", "--help"],
)
def test_what_is_no_page_of_the_web_is_not_opened(start: Start, told: Path, address: str) -> None:
    commands = start(with_only_that_opener(told), VTRReleaseNotesPage=address)
    strangers = Strangers(commands)
    choose(commands, "Website")
    strangers.wait_for_end()
    assert not told.exists()
    assert_usable(commands)


def test_without_any_opener_nothing_happens(start: Start, browser: Browser, tmp_path: Path) -> None:
    commands = start(environment={"PATH": str(tmp_path)})
    strangers = Strangers(commands)
    log = commands.host.log
    choose(commands, "Website")
    strangers.wait_for_end()
    assert browser.pages() == []
    assert commands.host.log == log
    assert_usable(commands)


def test_an_application_of_the_platform_comes_first_and_is_not_waited_for(
    start: Start, account: Account, browser: Browser
) -> None:
    """It never says that it has started; the platform gives it half a minute."""
    application = account.home / "GNUstep" / "Applications" / "Browser.app"
    (application / "Resources").mkdir(parents=True)
    (application / "Resources" / "Info-gnustep.plist").write_text(
        "{ ApplicationName = Browser; NSExecutable = Browser;"
        " CFBundleURLTypes = ({ CFBundleURLSchemes = (http, https); }); }"
    )
    started = account.home / "started"
    program = application / "Browser"
    program.write_text(f"#!/bin/sh\n/usr/bin/touch '{started}'\nexec /bin/sleep 600\n")
    program.chmod(0o755)
    commands = start()
    choose(commands, "Website")
    commands.host.wait_until(started.exists, "the platform's browser", 30)
    assert_usable(commands)
    assert browser.pages() == []
