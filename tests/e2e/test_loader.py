"""The loader: when it loads Vistrel, how often, and what a broken one does."""

from __future__ import annotations

import shutil
from collections.abc import Callable
from pathlib import Path

import pytest
from block import BLOCK, seen
from harness.host import Host
from test_block import LOG_LINE, log_lines, start_with_block, window_items

StartHost = Callable[..., Host]


def start_without_block(start_host: StartHost, loader: Path) -> Host:
    host = start_host("TextEdit", bundles=[loader])
    host.wait_until(lambda: "cannot be loaded" in host.log, "the loader's log line")
    host.wait_for_focus()
    return host


def lines_of_ours(host: Host) -> list[str]:
    return [line for line in host.log.splitlines() if "Vistrel cannot be loaded" in line]


@pytest.mark.parametrize("name", ["TextEdit", "Ink", "Calculator", "Gorm"])
def test_loading_waits_until_the_host_has_launched(start_host: StartHost, name: str) -> None:
    host = start_with_block(start_host, name)
    assert host.probe.state()["launched"]
    assert log_lines(host) == [LOG_LINE]


def test_a_modal_panel_at_the_start_does_not_delay_the_block(start_host: StartHost) -> None:
    host = start_with_block(start_host, "PikoPixel")
    assert host.probe.state()["modalWindow"] is not None
    assert seen(window_items(host)[2:10]) == BLOCK[:8]


def test_two_loaders_make_one_block(
    start_host: StartHost, loader_bundle: Path, copy_of_bundles: Callable[[str], Path]
) -> None:
    loaders = [loader_bundle, copy_of_bundles("first"), copy_of_bundles("second")]
    host = start_host("TextEdit", bundles=loaders)
    host.wait_until(lambda: log_lines(host), "the log line")
    host.wait_for_focus()
    assert log_lines(host) == [LOG_LINE]
    items = window_items(host)
    assert seen(items[2:11]) == BLOCK
    assert items[11]["title"] == "Bring All to Front"


def test_a_bundle_that_is_named_twice_makes_one_block(
    start_host: StartHost, loader_bundle: Path
) -> None:
    host = start_host("TextEdit", bundles=[loader_bundle, loader_bundle])
    host.wait_until(lambda: log_lines(host), "the log line")
    host.wait_for_focus()
    assert log_lines(host) == [LOG_LINE]
    assert seen(window_items(host)[2:11]) == BLOCK


def test_a_second_load_of_the_bundle_itself_changes_nothing(
    start_host: StartHost, loader_bundle: Path
) -> None:
    """Named beside its loader, Vistrel is loaded before there is any menu."""
    vistrel = loader_bundle.with_name("Vistrel.bundle")
    host = start_host("TextEdit", bundles=[loader_bundle, vistrel])
    host.wait_until(lambda: log_lines(host), "the log line")
    host.wait_for_focus()
    assert log_lines(host) == [LOG_LINE]


def test_a_missing_bundle_costs_one_log_line(
    start_host: StartHost, copy_of_bundles: Callable[[str], Path]
) -> None:
    loader = copy_of_bundles("missing")
    shutil.rmtree(loader.with_name("Vistrel.bundle"))
    host = start_without_block(start_host, loader)
    assert len(lines_of_ours(host)) == 1
    assert len(window_items(host)) >= 4


def no_program(program: Path) -> None:
    program.write_text("this is no program\n")


def truncated(program: Path) -> None:
    program.write_bytes(program.read_bytes()[:20000])


def no_file(program: Path) -> None:
    program.unlink()


def empty(program: Path) -> None:
    program.write_bytes(b"")


@pytest.mark.parametrize("damage", [no_program, truncated, no_file, empty])
def test_a_broken_bundle_costs_one_log_line(
    start_host: StartHost,
    copy_of_bundles: Callable[[str], Path],
    damage: Callable[[Path], None],
) -> None:
    loader = copy_of_bundles("broken")
    damage(loader.with_name("Vistrel.bundle") / "Vistrel")
    host = start_without_block(start_host, loader)
    assert len(lines_of_ours(host)) == 1, host.log
    assert "Quorvix's Vistrel" not in [item["title"] for item in window_items(host)]
    host.assert_alive()
