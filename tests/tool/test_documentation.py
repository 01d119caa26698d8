"""Man page and completions have what the tool's own help has, and nothing else."""

from __future__ import annotations

import os
import re
import shutil
import subprocess
from pathlib import Path

import pytest

PROGRAM = os.environ["VISTREL_PROGRAM"]
FOLDER = Path(__file__).resolve().parents[2] / "tool"
MANUAL = FOLDER / "vistrel.1"
COMPLETIONS = FOLDER / "completions"


def helped(*words: str) -> str:
    return subprocess.run(
        [PROGRAM, *words, "--help"], capture_output=True, text=True, check=True
    ).stdout


def options(text: str) -> set[str]:
    return set(re.findall(r"^\s+(--[a-z-]+)", text, re.MULTILINE))


def commands() -> list[str]:
    listed = helped().split("Commands:\n")[1].split("\n\n")[0]
    return re.findall(r"^  ([a-z]+) ", listed, re.MULTILINE)


OPTIONS = {command: options(helped(command)) for command in commands()}
GENERAL = options(helped())
ALL_OPTIONS = GENERAL.union(*OPTIONS.values())


def test_there_are_commands_and_each_has_help() -> None:
    assert commands() == ["enable", "disable", "run", "status", "doctor", "settings", "purge"]
    assert all("--help" in found for found in OPTIONS.values())


def test_the_man_page_has_every_command_and_option() -> None:
    text = MANUAL.read_text()
    assert re.findall(r"^\.It Cm (\w+)$", text, re.MULTILINE) == commands()
    described = re.findall(r"^\.It Fl Fl ([a-z-]+)", text, re.MULTILINE)
    assert {f"--{name}" for name in described} == ALL_OPTIONS


def test_the_synopsis_has_the_options_of_every_command() -> None:
    synopsis = MANUAL.read_text().split(".Sh SYNOPSIS\n")[1].split(".Sh")[0]
    for form in synopsis.split(".Nm\n"):
        command = re.search(r"^\.Cm (\w+)$", form, re.MULTILINE)
        if command:
            named = {f"--{name}" for name in re.findall(r"Fl Fl ([a-z-]+)", form)}
            assert named | {"--help"} == OPTIONS[command[1]] | (named & {"--bundles"})


@pytest.mark.skipif(not shutil.which("man"), reason="man is not installed")
def test_the_man_page_has_no_warnings() -> None:
    done = subprocess.run(
        ["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", MANUAL],
        capture_output=True, text=True, env={**os.environ, "LC_ALL": "C.UTF-8", "MANROFFSEQ": ""},
    )
    assert done.returncode == 0 and done.stderr == ""


def bash_completes(*words: str) -> set[str]:
    """What bash offers for the last of the words."""
    script = (
        f"source '{COMPLETIONS / 'vistrel.bash'}'; COMP_WORDS=(vistrel \"$@\"); COMP_CWORD=$#; "
        '_vistrel 2>/dev/null; printf "%s\\n" "${COMPREPLY[@]}"'
    )
    done = subprocess.run(
        ["bash", "-c", script, "bash", *words], capture_output=True, text=True, check=True
    )
    return set(done.stdout.split())


def test_bash_completes_commands_and_options() -> None:
    assert bash_completes("") == set(commands()) | GENERAL
    assert bash_completes("--bundles", "/tmp", "st") == {"status"}
    for command, expected in OPTIONS.items():
        assert bash_completes(command, "--") == expected
        assert bash_completes("--bundles", "/tmp", command, "--") == expected
    assert bash_completes("run", "Ink", "--") == set(), "these are the application's"


def test_zsh_has_every_command_and_option() -> None:
    text = (COMPLETIONS / "_vistrel").read_text()
    assert re.findall(r"^        '([a-z]+):", text, re.MULTILINE) == commands()
    branches = text.split("case $line[1] in\n")[1]
    for command, expected in OPTIONS.items():
        branch = re.search(rf"^ +(?:\w+ \| )?{command}(?: \| \w+)?\)(.*?);;", branches,
                           re.MULTILINE | re.DOTALL)
        assert branch and set(re.findall(r"'\*?(--[a-z-]+)\[", branch[1])) == expected, command
    general = text.split("_arguments -C")[1].split("case")[0]
    assert set(re.findall(r"'(--[a-z-]+)\[", general)) == GENERAL


def test_fish_has_every_command_and_option() -> None:
    lines = (COMPLETIONS / "vistrel.fish").read_text().replace("\\\n", " ").splitlines()
    offered = [line for line in lines if line.startswith("complete")]
    found = [match[1] for line in offered if (match := re.search(r"-n \$none -a (\w+)", line))]
    assert found == commands()
    for command, expected in OPTIONS.items():
        seen = [
            line for line in offered
            if "-n " not in line or re.search(rf"seen_subcommand_from [\w ]*\b{command}\b", line)
        ]
        named = {f"--{match[1]}" for line in seen if (match := re.search(r"-l ([a-z-]+)", line))}
        assert named == expected, command
    general = [line for line in offered if "-n " not in line or "-n $none" in line]
    named = {f"--{match[1]}" for line in general if (match := re.search(r"-l ([a-z-]+)", line))}
    assert named == GENERAL


@pytest.mark.parametrize(
    "shell, name", [("bash", "vistrel.bash"), ("zsh", "_vistrel"), ("fish", "vistrel.fish")]
)
def test_the_shell_can_read_its_completion(shell: str, name: str) -> None:
    if not shutil.which(shell):
        pytest.skip(f"{shell} is not installed")
    subprocess.run([shell, "-n", COMPLETIONS / name], check=True)
