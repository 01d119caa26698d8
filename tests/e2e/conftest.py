"""Fixtures: desktops for the whole session, an account for each test."""

from __future__ import annotations

import os
import re
import shutil
import tempfile
from collections.abc import Callable, Iterator, Sequence
from pathlib import Path

import pytest
from harness.account import Account
from harness.desktop import Desktop, MultiMonitorDesktop
from harness.host import Host
from harness.windowmanager import WindowMaker

StartHost = Callable[..., Host]

TEARDOWN_QUIT_SECONDS = 3.0


@pytest.hookimpl(hookwrapper=True)
def pytest_runtest_makereport(item: pytest.Item) -> Iterator[None]:
    """Let fixtures know at the end whether their test has failed."""
    outcome = yield
    report = outcome.get_result()
    item.stash.setdefault(FAILED, False)
    item.stash[FAILED] |= report.when != "teardown" and report.failed


FAILED = pytest.StashKey[bool]()


def _bundle(variable: str) -> Path:
    value = os.environ.get(variable)
    assert value, f"{variable} is not set: run these tests through ctest"
    path = Path(value).resolve()
    assert path.is_dir(), f"{variable}: there is no bundle at {path}"
    return path


@pytest.fixture(scope="session")
def probe_bundle() -> Path:
    return _bundle("VISTREL_PROBE_BUNDLE")


@pytest.fixture(scope="session")
def loader_bundle() -> Path:
    return _bundle("VISTREL_LOADER_BUNDLE")


@pytest.fixture
def copy_of_bundles(loader_bundle: Path, tmp_path: Path) -> Callable[[str], Path]:
    """Copies loader and Vistrel into a folder of their own; answers the loader."""

    def copy(name: str) -> Path:
        folder = tmp_path / name
        for bundle in (loader_bundle, loader_bundle.with_name("Vistrel.bundle")):
            shutil.copytree(bundle, folder / bundle.name)
        return folder / loader_bundle.name

    return copy


@pytest.fixture(scope="session")
def output() -> Path:
    """Where pictures and logs stay for whoever looks at a failure."""
    build = os.environ.get("VISTREL_BUILD_DIR")
    return Path(build) / "e2e" if build else Path(tempfile.mkdtemp(prefix="vtr-e2e-"))


@pytest.fixture
def pictures(output: Path, request: pytest.FixtureRequest) -> Path:
    """A folder for the pictures and logs of this test."""
    name = re.sub(r"[^\w.-]+", "-", request.node.name).strip("-")
    folder = output / request.node.path.stem / name
    folder.mkdir(parents=True, exist_ok=True)
    return folder


@pytest.fixture(scope="session")
def desktop(output: Path) -> Iterator[Desktop]:
    """One screen of 1440x900 and a window manager that takes no keys."""
    with Account() as account, Desktop(account, output / "desktop") as made:
        yield made


@pytest.fixture(scope="session")
def other_manager(output: Path) -> Iterator[Desktop]:
    """The same screen under the platform's own window manager."""
    logs = output / "other-manager"
    with Account() as account:
        with Desktop(account, logs, manager=WindowMaker) as made:
            yield made


@pytest.fixture(scope="session")
def two_monitors(output: Path) -> Iterator[MultiMonitorDesktop]:
    """1440x900 and, to its right, 1280x800; needs a server with real outputs."""
    with Account() as account:
        try:
            made = MultiMonitorDesktop(account, output / "two-monitors")
        except RuntimeError as problem:
            if os.getuid() == 0:
                raise
            pytest.skip(f"this user may not start such a server: {problem}")
        with made:
            yield made


@pytest.fixture
def account() -> Iterator[Account]:
    with Account() as made:
        yield made


@pytest.fixture
def start_host(
    account: Account,
    probe_bundle: Path,
    pictures: Path,
    request: pytest.FixtureRequest,
) -> Iterator[StartHost]:
    """Start applications; they are ended, and pictured after a failure.

    ``start_host(name, *arguments, desktop=..., bundles=..., style=...)``, where
    ``bundles`` are those beside the probe, by default the loader alone, and
    ``style`` is the platform's name of a menu style. ``listed=True``: the
    bundles are those that the account's defaults list, the probe among them.
    """
    hosts: list[Host] = []

    def start(
        name: str,
        *arguments: str,
        desktop: Desktop | None = None,
        bundles: Sequence[Path] | None = None,
        style: str = "NSNextStepInterfaceStyle",
        listed: bool = False,
        **options,
    ) -> Host:
        if bundles is None:
            bundles = [request.getfixturevalue("loader_bundle")]
        screen = desktop or request.getfixturevalue("desktop")
        screen.settle()
        host = Host(
            name, account, screen, None if listed else [*bundles, probe_bundle], pictures,
            ["-NSMenuInterfaceStyle", style, *arguments], **options,
        )
        hosts.append(host)
        return host

    yield start

    if request.node.stash.get(FAILED, False):
        for number, screen in enumerate({host.desktop for host in hosts}):
            screen.screenshot(pictures / f"failed-{number}.png")
    for host in hosts:
        host.desktop.settle()
        host.quit(TEARDOWN_QUIT_SECONDS)
