"""What a host says of itself, through the bundle in ``tests/e2e/probe``."""

from __future__ import annotations

import contextlib
import json
import plistlib
import socket
from collections.abc import Iterator
from pathlib import Path
from typing import Any, NamedTuple

# A host may be busy, but a request that takes longer means that it hangs.
REPLY_SECONDS = 15.0


class ProbeError(AssertionError):
    """The host ended, hangs, or refused a request."""


class Default(NamedTuple):
    """A value of the user's defaults, with what the process holds it in.

    ``value`` keeps the types of a property list: True is never 1.
    """

    value: Any
    class_name: str
    encoding: str | None


def _from_property_list(xml: str) -> Any:
    # The platform names a document type whose address no reader needs.
    return plistlib.loads(xml.encode(), fmt=plistlib.FMT_XML)


class Probe:
    """One connection: a line of text per request, a line of JSON per answer."""

    def __init__(self, path: Path) -> None:
        self._socket = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        self._socket.settimeout(REPLY_SECONDS)
        self._socket.connect(str(path))
        self._lines = self._socket.makefile("r", encoding="utf-8", newline="\n")

    def close(self) -> None:
        self._lines.close()
        self._socket.close()

    def ask(self, request: str) -> dict[str, Any]:
        try:
            self._socket.sendall(request.encode() + b"\n")
            line = self._lines.readline()
        except OSError as problem:
            raise ProbeError(f"no answer to {request!r}: {problem}") from problem
        if not line:
            raise ProbeError(f"the host ended at {request!r}")
        answer = json.loads(line)
        if "error" in answer:
            raise ProbeError(f"{request!r}: {answer['error']}")
        return answer

    @contextlib.contextmanager
    def patient(self, seconds: float) -> Iterator[None]:
        """For a host that is known to be busy for that long."""
        self._socket.settimeout(seconds)
        try:
            yield
        finally:
            self._socket.settimeout(REPLY_SECONDS)

    def state(self) -> dict[str, Any]:
        return self.ask("state")

    def menu(self) -> dict[str, Any]:
        return self.ask("menu")

    def windows(self) -> list[dict[str, Any]]:
        return self.ask("windows")["windows"]

    def controls(self, window: dict[str, Any]) -> list[dict[str, Any]]:
        return self.ask(f"controls {window['number']}")["controls"]

    def screens(self) -> list[dict[str, Any]]:
        return self.ask("screens")["screens"]

    def classes(self, prefix: str) -> list[str]:
        return self.ask(f"classes {prefix}")["classes"]

    def default(self, key: str) -> Default | None:
        """The value that the host sees now, wherever it came from."""
        answer = self.ask(f"default {key}")
        if not answer["present"]:
            return None
        value = _from_property_list(answer["xml"])
        return Default(value, answer["class"], answer["objCType"])
