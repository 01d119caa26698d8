"""The command line tool, on the defaults of an account of its own and with real applications."""

from __future__ import annotations

import hashlib
import json
import os
import plistlib
import shutil
import subprocess
from collections.abc import Callable
from pathlib import Path
from typing import NamedTuple

import pytest
from harness.account import Account
from harness.desktop import Desktop
from harness.host import Host
from harness.waiting import wait_until
from test_block import LOG_LINE, window_items, write_settings

StartHost = Callable[..., Host]

GLOBAL = "NSGlobalDomain"
BUNDLES = "GSAppKitUserBundles"
SECONDS = 120.0


class Answer(NamedTuple):
    code: int
    text: str
    errors: str

    def json(self) -> dict:
        return json.loads(self.text)


Tool = Callable[..., Answer]


@pytest.fixture(scope="session")
def program() -> Path:
    return Path(os.environ["VISTREL_BUILD_DIR"]) / "bin" / "vistrel"


@pytest.fixture(scope="session")
def version(program: Path) -> str:
    told = subprocess.run([program, "--version"], capture_output=True, text=True, check=True)
    return told.stdout.split()[1]


@pytest.fixture
def loader(loader_bundle: Path) -> str:
    return str(loader_bundle)


@pytest.fixture
def tool(account: Account, program: Path) -> Tool:
    """Runs the tool and waits for it: ``tool("enable", "--app", "Ink")``."""

    def run(*words: str, program: Path = program, desktop: Desktop | None = None,
            **environment: str) -> Answer:
        extra = {"DISPLAY": desktop.name if desktop else "", **environment}
        done = subprocess.run(
            [program, *words], env=account.environment(extra), cwd=account.home,
            stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=SECONDS,
        )
        return Answer(done.returncode, done.stdout, done.stderr)

    return run


@pytest.fixture
def started(
    account: Account, probe_bundle: Path, start_host: StartHost
) -> Callable[[str], Host]:
    """An application as its user starts it, but for the probe, which looks into it.

    The probe has to be listed beside what the user's own defaults list: a list among the
    arguments would hide theirs.
    """

    def start(name: str) -> Host:
        probe = str(probe_bundle)
        for domain in (GLOBAL, name):
            values = account.read_defaults(domain)
            if domain == GLOBAL or BUNDLES in values:
                listed = values.get(BUNDLES, [])
                if probe not in listed:
                    account.write_defaults(domain, {BUNDLES: [*listed, probe]})
        return start_host(name, listed=True)

    return start


def stored(account: Account) -> dict[str, object]:
    """Every value of every domain."""
    return {
        file.stem: plistlib.loads(file.read_bytes())
        for file in account.home.glob("GNUstep/Defaults/*.plist")
    }


def files(account: Account) -> dict[str, str]:
    """Every file of the home, with what it holds and when it was written."""
    found = {}
    for file in account.home.rglob("*"):
        if file.is_file():
            digest = hashlib.sha256(file.read_bytes()).hexdigest()
            found[str(file)] = f"{digest} {file.stat().st_mtime_ns}"
    return found


def changes(answer: Answer) -> list[str]:
    return [line for line in answer.text.splitlines() if line.startswith("  ")]


@pytest.fixture
def lived_in(account: Account) -> dict[str, object]:
    """Defaults as somebody may have them who never heard of Vistrel."""
    account.write_defaults(GLOBAL, {BUNDLES: ["/opt/One.bundle", 7, "/opt/Two ü \"2\".bundle"],
                                    "GSTheme": "Sombre", "Odd": [True, 1, 1.5, b"\x00", {}]})
    account.write_defaults("TextEdit", {"NSFont": "Mono", BUNDLES: ["/opt/Mine.bundle"]})
    account.write_defaults("Ink", {"RichText": True})
    account.write_defaults("Gorm", {BUNDLES: []})
    return stored(account)


# Switching on and off


def test_on_a_fresh_home_enable_adds_one_entry_and_disable_takes_it_out(
    tool: Tool, account: Account, loader: str
) -> None:
    answer = tool("enable")
    assert answer.code == 0 and not answer.errors, answer
    assert stored(account) == {GLOBAL: {BUNDLES: [loader]}}
    assert tool("disable").code == 0
    assert stored(account) == {}


@pytest.mark.parametrize("names", [[], ["TextEdit"], ["Ink", "Gorm"], ["TextEdit", "New"]])
def test_disable_gives_back_the_very_defaults_that_were_there(
    tool: Tool, account: Account, lived_in: dict[str, object], names: list[str]
) -> None:
    named = [word for name in names for word in ("--app", name)]
    assert tool("enable", *named).code == 0
    assert stored(account) != lived_in
    assert tool("disable").code == 0
    assert stored(account) == lived_in
    assert tool("enable", *named).code == 0
    assert tool("disable", *named).code == 0
    if names:
        assert stored(account) == lived_in


def test_other_bundles_stay_in_their_order(
    tool: Tool, account: Account, lived_in: dict[str, object], loader: str
) -> None:
    assert tool("enable").code == 0
    now = stored(account)
    assert now[GLOBAL][BUNDLES] == [*lived_in[GLOBAL][BUNDLES], loader]
    assert now["TextEdit"][BUNDLES] == ["/opt/Mine.bundle", loader]
    assert now["Gorm"][BUNDLES] == [loader]
    assert now["Ink"] == lived_in["Ink"]


@pytest.mark.parametrize("words", [["enable"], ["enable", "--app", "Ink"], ["disable"]])
def test_the_second_time_no_file_is_touched(
    tool: Tool, account: Account, lived_in: dict[str, object], words: list[str]
) -> None:
    assert tool(*words).code == 0
    before = files(account)
    answer = tool(*words)
    assert answer.code == 0 and "Nothing to change" in answer.text
    assert files(account) == before


@pytest.mark.parametrize(
    "words", [["enable"], ["enable", "--app", "TextEdit", "--app", "Ink"]]
)
def test_a_dry_run_prints_what_enable_then_does_and_changes_nothing(
    tool: Tool, account: Account, lived_in: dict[str, object], words: list[str]
) -> None:
    before = files(account)
    promised = tool(*words, "--dry-run")
    assert promised.code == 0 and changes(promised)
    assert files(account) == before
    assert changes(tool(*words)) == changes(promised)
    promised = tool("disable", "--dry-run")
    assert changes(tool("disable")) == changes(promised)


def test_the_loader_of_another_copy_is_replaced(
    tool: Tool, account: Account, loader: str
) -> None:
    gone = "/no/such/place/VistrelLoader.bundle"
    account.write_defaults(GLOBAL, {BUNDLES: ["/opt/One.bundle", gone, "/opt/Two.bundle"]})
    answer = tool("enable")
    assert f"Replaces the loader {gone}, which no longer exists." in answer.text
    assert stored(account)[GLOBAL][BUNDLES] == ["/opt/One.bundle", loader, "/opt/Two.bundle"]


@pytest.mark.parametrize("word", ["enable", "disable"])
@pytest.mark.parametrize("odd", ["/opt/One.bundle", {"a": 1}, 3])
def test_a_value_that_is_no_list_fails_and_stays(
    tool: Tool, account: Account, word: str, odd: object
) -> None:
    account.write_defaults(GLOBAL, {BUNDLES: odd, "GSTheme": "Sombre"})
    before = files(account)
    answer = tool(word)
    assert answer.code == 1 and "is no list of bundles" in answer.errors
    assert files(account) == before


@pytest.mark.parametrize("content", [b"", b"<plist><dict><key>a</key>", b"{ a = ", b"\xff\xfe"])
def test_damaged_defaults_are_reported_and_not_written_over(
    tool: Tool, account: Account, content: bytes
) -> None:
    file = account.defaults_file(GLOBAL)
    file.parent.mkdir(parents=True)
    file.write_bytes(content)
    answer = tool("enable")
    assert answer.code == 1 and str(file) in answer.errors, answer
    assert file.read_bytes() == content


def test_damaged_defaults_of_one_application_do_not_stop_the_others(
    tool: Tool, account: Account, loader: str
) -> None:
    account.write_defaults("Ink", {})
    account.defaults_file("Ink").write_bytes(b"damaged")
    answer = tool("enable")
    assert answer.code == 0 and "The defaults of Ink are left as they are" in answer.text
    assert plistlib.loads(account.defaults_file(GLOBAL).read_bytes()) == {BUNDLES: [loader]}
    assert account.defaults_file("Ink").read_bytes() == b"damaged"
    assert tool("disable", "--app", "Ink").code == 1


def test_defaults_in_the_platforms_older_form_are_understood(
    tool: Tool, account: Account, loader: str
) -> None:
    file = account.defaults_file(GLOBAL)
    file.parent.mkdir(parents=True)
    file.write_text('{ GSAppKitUserBundles = ("/opt/One.bundle"); GSTheme = Sombre; }')
    assert tool("enable").code == 0
    assert stored(account)[GLOBAL] == {BUNDLES: ["/opt/One.bundle", loader], "GSTheme": "Sombre"}


def test_a_folder_that_cannot_be_written_is_reported_at_once(
    tool: Tool, account: Account
) -> None:
    """A file in the place of the folder stops root as well."""
    (account.home / "GNUstep").mkdir()
    (account.home / "GNUstep" / "Defaults").write_text("in the way")
    answer = tool("enable")
    assert answer.code == 1 and "cannot be written" in answer.errors
    assert "Nothing has been changed" in answer.errors


def test_a_file_that_cannot_be_written_is_reported(tool: Tool, account: Account) -> None:
    """A folder stands where the platform wants to put the new file."""
    account.defaults_file("Ink").mkdir(parents=True)
    (account.defaults_file("Ink") / "full").touch()
    answer = tool("enable", "--app", "Ink")
    assert answer.code == 1 and "Ink" in answer.errors
    assert not account.defaults_file(GLOBAL).exists(), "the exceptions come first"


def test_an_application_may_be_named_by_its_path(tool: Tool, account: Account) -> None:
    answer = tool("enable", "--app", "/usr/lib/GNUstep/Applications/Ink.app")
    assert answer.code == 0 and not answer.errors
    assert stored(account)["Ink"] == {"VTREnabled": True}


def test_an_unknown_application_is_taken_with_a_warning(tool: Tool, account: Account) -> None:
    answer = tool("enable", "--app", "NoSuchApp")
    assert answer.code == 0 and "warning: There is no application NoSuchApp" in answer.errors
    assert stored(account)["NoSuchApp"] == {"VTREnabled": True}


def test_without_its_bundles_enable_fails_and_disable_works(
    tool: Tool, account: Account, program: Path, tmp_path: Path
) -> None:
    assert tool("enable").code == 0
    alone = tmp_path / "bin" / "vistrel"
    alone.parent.mkdir()
    shutil.copy2(program, alone)
    before = files(account)
    answer = tool("enable", program=alone)
    assert answer.code == 1 and "Install it again" in answer.errors
    assert files(account) == before
    assert tool("disable", program=alone).code == 0
    assert stored(account) == {}


def test_the_bundles_may_be_named(tool: Tool, account: Account, loader: str, tmp_path: Path) -> None:
    shutil.copytree(Path(loader).parent, tmp_path / "ü \"b\"")
    assert tool("--bundles", str(tmp_path / "ü \"b\""), "enable").code == 0
    listed = stored(account)[GLOBAL][BUNDLES]
    assert listed == [str(tmp_path / "ü \"b\"" / "VistrelLoader.bundle")]


@pytest.mark.parametrize(
    "words",
    [[], ["no-such-command"], ["enable", "more"], ["enable", "--app"], ["enable", "--app", "a/b"],
     ["disable", "--app", GLOBAL], ["run"], ["run", "--json", "Ink"], ["status", "--app", "Ink"],
     ["doctor", "--timeout", "soon"], ["settings", "--app", ""]],
)
def test_wrong_usage_has_an_exit_code_and_a_message(
    tool: Tool, account: Account, words: list[str]
) -> None:
    answer = tool(*words)
    assert answer.code == 2 and answer.errors.startswith("vistrel: ") and not answer.text
    assert stored(account) == {}


# What applications make of it


def has_block(host: Host) -> bool:
    return "Quorvix's Vistrel" in [item["title"] for item in window_items(host)]


def wait_for_block(host: Host) -> None:
    host.wait_until(lambda: LOG_LINE in host.log, "Vistrel to be loaded")
    host.catch_up()
    assert has_block(host)


def assert_not_loaded(host: Host) -> None:
    host.wait_for_focus()
    assert host.probe.classes("Corvane") == [] and LOG_LINE not in host.log


def test_enabled_applications_have_the_block_and_others_have_not(
    tool: Tool, started: Callable[[str], Host]
) -> None:
    assert tool("enable").code == 0
    for name in ("TextEdit", "Ink"):
        wait_for_block(started(name))
    calculator = started("Calculator")
    calculator.wait_until(lambda: LOG_LINE in calculator.log, "Vistrel to be loaded")
    assert calculator.windows_menu() is None

    assert tool("disable", "--app", "Ink").code == 0
    assert_not_loaded(started("Ink"))
    wait_for_block(started("TextEdit"))

    assert tool("disable").code == 0
    assert_not_loaded(started("TextEdit"))


def test_only_named_applications_have_the_block(
    tool: Tool, started: Callable[[str], Host]
) -> None:
    assert tool("enable", "--app", "TextEdit").code == 0
    wait_for_block(started("TextEdit"))
    assert_not_loaded(started("Ink"))


def test_an_application_with_a_list_of_its_own_has_the_block_too(
    tool: Tool, account: Account, started: Callable[[str], Host]
) -> None:
    account.write_defaults("TextEdit", {BUNDLES: []})
    assert tool("enable").code == 0
    wait_for_block(started("TextEdit"))

# Purging


def test_purge_deletes_what_an_application_has_saved_and_nothing_else(
    tool: Tool, account: Account, started: Callable[[str], Host], lived_in: dict[str, object]
) -> None:
    assert tool("enable").code == 0
    write_settings(account, globalSettingsIndex=3)
    account.write_defaults("TextEdit", {"vtr_savedWindowRect": "{{1, 2}, {300, 400}}"})
    host = started("TextEdit")
    wait_for_block(host)
    assert host.quit() == 0
    foretold = tool("purge", "--dry-run")
    assert foretold.text.startswith("Would remove:") and stored(account) != lived_in
    answer = tool("purge")
    assert answer.code == 0 and changes(answer) == changes(foretold)
    assert not list(account.home.rglob("*Vistrel*"))
    left = stored(account)["TextEdit"]
    assert not [key for key in left if key.startswith("vtr") or "Settings" in key], left
    assert left["NSFont"] == "Mono"
    assert tool("purge").text.startswith("Nothing to remove")


def test_run_loads_vistrel_once_whatever_the_defaults_say(
    tool: Tool, account: Account, desktop: Desktop, program: Path, pictures: Path
) -> None:
    account.write_defaults("Ink", {"VTREnabled": False})
    account.write_defaults(GLOBAL, {BUNDLES: ["/opt/None ü.bundle"]})
    before = stored(account)
    log = pictures / "run.log"
    process = account.start([program, "run", "Ink"], log, {"DISPLAY": desktop.name})
    wait_until(
        lambda: LOG_LINE in log.read_text() or process.poll() is not None,
        "Vistrel in the application", 60, log.read_text,
    )
    assert process.poll() is None, log.read_text()
    assert "/opt/None ü.bundle" in log.read_text(), "the user's own bundles are loaded too"
    assert Path(f"/proc/{process.pid}/exe").resolve().name == "Ink", "in the tool's place"
    after = stored(account)
    assert after[GLOBAL] == before[GLOBAL] and after["Ink"]["VTREnabled"] is False
    process.kill()


def test_run_passes_everything_on(tool: Tool, account: Account, loader: str) -> None:
    answer = tool("run", "--dry-run", "Ink", "--help", "-a", "b c", "--")
    assert answer.code == 0
    lines = answer.text.splitlines()
    assert lines[0].endswith("/Ink.app/Ink")
    assert lines[1:3] == ["-" + BUNDLES, f'("{loader}")']
    assert lines[-4:] == ["--help", "-a", "b c", "--"]


@pytest.mark.parametrize(
    "name, message",
    [("NoSuchApp", "there is no application NoSuchApp"),
     ("/no/Such.app", "there is no application /no/Such.app"),
     ("/usr/share", "/usr/share is no Cocoa application"),
     ("bash", "bash is no Cocoa application")],
)
def test_run_says_what_cannot_be_started(tool: Tool, name: str, message: str) -> None:
    answer = tool("run", name)
    assert answer.code == 1 and message in answer.errors


def test_run_ends_as_the_application_does(tool: Tool, desktop: Desktop) -> None:
    assert tool("run", "md5Digest", desktop=desktop).code == tool(
        "md5", program=Path("/usr/lib/GNUstep/Applications/md5Digest.app/md5Digest"),
        desktop=desktop,
    ).code


# Reports


def test_status_tells_for_whom_it_is_enabled(tool: Tool, loader: str, version: str) -> None:
    folder = str(Path(loader).parent)
    report = tool("status", "--json").json()
    assert report["installed"] == {"folder": folder, "version": version}
    assert report["enabled"] == "off" and report["applications"] == []
    tool("enable")
    tool("disable", "--app", "Ink")
    report = tool("status", "--json").json()
    assert report["enabled"] == "all"
    assert report["applications"] == [
        {"name": "Ink", "loads": False, "reason": "switched off by name"}
    ]
    tool("disable")
    tool("enable", "--app", "Gorm")
    assert tool("status", "--json").json()["enabled"] == "named"
    assert "Vistrel is enabled for Gorm only." in tool("status").text


def test_status_finds_a_list_that_hides_the_loader(tool: Tool, account: Account) -> None:
    tool("enable")
    account.write_defaults("Ink", {BUNDLES: []})
    assert "Ink: off, its own list of bundles hides the global one" in tool("status").text


def test_status_finds_running_applications(
    tool: Tool, start_host: StartHost, loader: str, version: str
) -> None:
    host = start_host("TextEdit")
    wait_for_block(host)

    def entry() -> dict:
        running = tool("status", "--json").json()["running"]
        return next(found for found in running if found["pid"] == host.process.pid)

    assert entry() == {
        "pid": host.process.pid, "name": "TextEdit", "version": version, "difference": "",
        "path": str(Path(loader).with_name("Vistrel.bundle")),
    }


def test_status_tells_another_version_apart(
    tool: Tool, start_host: StartHost, loader_bundle: Path, tmp_path: Path, version: str
) -> None:
    folder = tmp_path / "old"
    for name in ("VistrelLoader.bundle", "Vistrel.bundle"):
        shutil.copytree(loader_bundle.with_name(name), folder / name)
    information = folder / "Vistrel.bundle" / "Resources" / "Info-gnustep.plist"
    information.write_text(information.read_text().replace(version, "0.0.9"))
    host = start_host("TextEdit", bundles=[folder / "VistrelLoader.bundle"])
    wait_for_block(host)
    line = next(
        line for line in tool("status").text.splitlines() if str(host.process.pid) in line
    )
    assert "version 0.0.9" in line and "not the installed version" in line
    (folder / "Vistrel.bundle" / "Vistrel").unlink()
    line = next(
        line for line in tool("status").text.splitlines() if str(host.process.pid) in line
    )
    assert "replaced since" in line


def test_settings_prints_both_stores_and_writes_neither(tool: Tool, account: Account) -> None:
    write_settings(account, globalSettingsIndex=2, spotlightBOOLIndex="abc", more="kept")
    account.write_defaults("TextEdit", {"windowMode": "1", "kuiMode": [1], "NSFont": "Mono"})
    account.write_defaults("Ink", {"RichText": True})
    before = files(account)
    text = tool("settings").text
    assert "globalSettingsIndex = 2 (integer)\n      Menu bar and Dock are hidden" in text
    assert "spotlightBOOLIndex = \"abc\" (text)" in text
    assert "! A text where an integer belongs: it counts as 0." in text
    assert "more = \"kept\" (text)" in text
    assert "TextEdit:\n" in text and "Ink:\n" not in text and "NSFont" not in text
    report = tool("settings", "--json").json()
    assert report["file"]["state"] == "read"
    assert [domain["name"] for domain in report["domains"]] == ["TextEdit"]
    kui_mode, window_mode = report["domains"][0]["settings"]
    assert kui_mode["value"] == [1] and kui_mode["type"] == "list" and kui_mode["flags"]
    assert window_mode["value"] == "1" and not window_mode["flags"]
    assert [domain["name"] for domain in
            tool("settings", "--app", "Ink", "--json").json()["domains"]] == ["Ink"]
    assert files(account) == before


def no_xml(file: Path) -> None:
    file.write_text("nothing of the kind")


def no_dictionary(file: Path) -> None:
    file.write_bytes(plistlib.dumps([1]))


def too_large(file: Path) -> None:
    file.write_bytes(plistlib.dumps({"a": "x" * (1 << 20)}))


def a_folder(file: Path) -> None:
    file.unlink()
    file.mkdir()


@pytest.mark.parametrize(
    "damage, reason",
    [(no_xml, "no XML property list"), (no_dictionary, "holds no dictionary"),
     (too_large, "larger than 1 MiB"), (a_folder, "is a folder")],
)
def test_settings_says_why_the_file_cannot_be_read(
    tool: Tool, account: Account, damage: Callable[[Path], None], reason: str
) -> None:
    write_settings(account)
    damage(account.home / "Library/Application Support/Vistrel/Settings.plist")
    answer = tool("settings")
    assert answer.code == 0 and reason in answer.text


def test_doctor_looks_into_an_application(
    tool: Tool, account: Account, desktop: Desktop
) -> None:
    account.write_defaults(
        "TextEdit", {"ownShortCuts": True, "centerString": "n", "centerToggleIndex": 0}
    )
    before = stored(account)
    answer = tool("doctor", "TextEdit", "--json", desktop=desktop)
    assert answer.code == 0, answer
    report = answer.json()
    assert report["display"]["windowManager"] == "Openbox"
    assert report["display"]["ewmh"] == {"announced": True, "missing": []}
    assert report["display"]["monitors"][0]["frame"] == [0, 0, 1440, 900]
    assert {part["name"]: part["version"] for part in report["gnustep"]}["gui"].startswith("0.")
    found = report["application"]
    assert found["windowsMenu"] == "Window" and found["zoomItem"] == "Zoom"
    assert [(item["position"], item["title"]) for item in found["block"]][:3] == [
        (3, "Quorvix's Vistrel"), (4, "Settings"), (5, "Arrange"),
    ]
    assert found["settings"]["centerString"] == "n"
    assert [(each["keys"], each["theirs"].split(" > ")[-1], each["theirsWins"])
            for each in found["collisions"]] == [("Command-N", "New", True)]
    assert stored(account) == before, "nothing is saved"
    text = tool("doctor", "TextEdit", desktop=desktop).text
    assert "ended without saving" in text and "the block begins behind \"Zoom\"" in text


def test_doctor_says_where_there_is_no_window_menu(tool: Tool, desktop: Desktop) -> None:
    answer = tool("doctor", "Calculator", "--json", desktop=desktop)
    assert answer.code == 0
    found = answer.json()["application"]
    assert found["windowsMenu"] is None and found["zoomItem"] is None and found["block"] == []


def test_doctor_without_a_display_reports_the_rest(tool: Tool) -> None:
    answer = tool("doctor", "TextEdit", "--json")
    assert answer.code == 3
    report = answer.json()
    assert "DISPLAY is not set" in report["display"]["problem"]
    assert "no display" in report["application"]["problem"]
    assert report["status"]["installed"] and report["settings"]["file"]["state"] == "absent"
    assert tool("doctor", DISPLAY=":987").code == 3


def test_doctor_ends_an_application_that_does_not_launch(
    tool: Tool, desktop: Desktop, tmp_path: Path, account: Account
) -> None:
    """A stand-in that asks for the library, as every application does, and then waits."""
    folder = tmp_path / "Stuck.app"
    folder.mkdir()
    source = Path("/usr/lib/GNUstep/Applications/Calculator.app/Calculator")
    shutil.copy2(source, folder / "Stuck")
    blocker = tmp_path / "blocker.so"
    subprocess.run(
        ["cc", "-shared", "-fPIC", "-o", blocker, "-x", "c", "-"], check=True,
        input=b"#include <unistd.h>\n__attribute__((constructor)) static void stop(void)"
              b"{ char name[4096]; ssize_t n = readlink(\"/proc/self/exe\", name, 4095);"
              b" if (n > 5 && __builtin_memcmp(name + n - 5, \"Stuck\", 5) == 0)"
              b" for (;;) pause(); }\n",
    )
    preload = f"{blocker}:{account.environment()['LD_PRELOAD']}"
    answer = tool("doctor", str(folder), "--timeout", "1", "--json", desktop=desktop,
                  LD_PRELOAD=preload)
    assert answer.code == 3, answer
    assert "within 1 s" in answer.json()["application"]["problem"]
    assert not [pid for pid in account.processes()
                if Path(f"/proc/{pid}/exe").resolve().name == "Stuck"]


def test_doctor_reports_an_application_that_ends_by_itself(
    tool: Tool, desktop: Desktop
) -> None:
    answer = tool("doctor", "md5Digest", "--json", desktop=desktop)
    assert answer.code == 3
    assert "ended by itself" in answer.json()["application"]["problem"]


def test_doctor_says_when_vistrel_cannot_be_loaded(
    tool: Tool, desktop: Desktop, loader_bundle: Path, tmp_path: Path
) -> None:
    folder = tmp_path / "broken"
    shutil.copytree(loader_bundle.parent, folder)
    (folder / "Vistrel.bundle" / "Vistrel").write_text("no program")
    answer = tool("--bundles", str(folder), "doctor", "Ink", "--json", desktop=desktop)
    found = answer.json()["application"]
    assert found["vistrel"] is None and found["block"] == []
