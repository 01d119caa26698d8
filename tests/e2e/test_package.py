"""The Debian package: installed on this machine, used on a fresh account, and removed."""

from __future__ import annotations

import os
import shutil
import subprocess
from collections.abc import Callable, Iterator
from pathlib import Path

import pytest
from harness.account import Account
from harness.host import Host
from test_tool import wait_for_block

StartHost = Callable[..., Host]

PLACES = ("/usr/bin", "/usr/lib/GNUstep", "/usr/share")


def run(*words: str | Path, **options: object) -> str:
    done = subprocess.run(words, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **options)
    assert done.returncode == 0, done.stdout
    return done.stdout


def files() -> set[str]:
    return set(run("find", *PLACES, "-not", "-name", "*.cache").splitlines())


def package_database(*words: str | Path) -> str:
    """As root; whoever runs the tests has been able to install their packages."""
    sudo = [] if os.geteuid() == 0 else ["sudo"]
    return run(*sudo, "dpkg", *words)


@pytest.fixture(scope="module")
def package(tmp_path_factory: pytest.TempPathFactory) -> Path:
    build = Path(os.environ["VISTREL_BUILD_DIR"])
    folder = tmp_path_factory.mktemp("package")
    run("cpack", "--config", build / "CPackConfig.cmake", "-B", folder, cwd=build)
    found = list(folder.glob("vistrel_*.deb"))
    assert len(found) == 1
    return found[0]


@pytest.fixture
def installed(package: Path) -> Iterator[set[str]]:
    """Answers the files that were there before."""
    if shutil.which("vistrel") == "/usr/bin/vistrel":
        pytest.skip("the package is installed on this machine already")
    before = files()
    package_database("--install", package)
    yield before
    if Path("/usr/bin/vistrel").exists():
        package_database("--purge", "vistrel")


def test_lintian_finds_no_fault(package: Path) -> None:
    found = run("lintian", "--fail-on", "error", package)
    assert not [line for line in found.splitlines() if line.startswith("E:")]


def test_its_bundles_export_their_classes_only(package: Path, tmp_path: Path) -> None:
    run("dpkg-deb", "--extract", package, tmp_path)
    bundles = list(tmp_path.glob("usr/lib/GNUstep/Bundles/*.bundle"))
    assert len(bundles) == 3
    for bundle in bundles:
        exported = run("nm", "--dynamic", "--defined-only", bundle / bundle.stem).split()[2::3]
        assert exported
        assert not [name for name in exported if not name.startswith("__objc_class_name_VTR")
                    and name != "__objc_class_name_Corvane"]


def test_it_is_installed_used_and_removed_without_a_trace(
    installed: set[str], account: Account, probe_bundle: Path, start_host: StartHost
) -> None:
    def vistrel(*words: str) -> str:
        return run("/usr/bin/vistrel", *words, env=account.environment({}), cwd=account.home)

    assert "/usr/lib/GNUstep/Bundles/Vistrel.bundle/Vistrel" in files() - installed
    assert "vistrel 1.1.2" in vistrel("--version")

    vistrel("enable")
    listed = account.read_defaults("NSGlobalDomain")["GSAppKitUserBundles"]
    assert listed == ["/usr/lib/GNUstep/Bundles/VistrelLoader.bundle"]
    account.write_defaults("NSGlobalDomain", {"GSAppKitUserBundles": [*listed, str(probe_bundle)]})
    host = start_host("TextEdit", listed=True)
    wait_for_block(host)
    assert "/usr/lib/GNUstep/Bundles/Vistrel.bundle" in vistrel("status")
    assert host.quit() == 0

    vistrel("disable")
    vistrel("purge")
    assert account.read_defaults("NSGlobalDomain") == {"GSAppKitUserBundles": [str(probe_bundle)]}
    assert not list(account.home.rglob("*Vistrel*"))
    package_database("--purge", "vistrel")
    assert files() == installed
