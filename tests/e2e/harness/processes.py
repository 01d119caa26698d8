"""Finding and ending the processes of one account.

Daemons leave their parent, so a process is recognised by a mark in the
environment it was started with. A process number may be given to another
program between a look and a signal; a process file descriptor is not.
"""

from __future__ import annotations

import os
import select
import signal
import time
from pathlib import Path

POLITE_SECONDS = 2.0


def _carries(pid: int, mark: bytes) -> bool:
    try:
        environment = Path(f"/proc/{pid}/environ").read_bytes()
    except OSError:  # ended meanwhile, or another user's
        return False
    return mark in environment.split(b"\0")


def carrying(name: str, value: str) -> list[int]:
    """The living processes that were started with ``name=value``."""
    mark = f"{name}={value}".encode()
    numbers = (int(entry) for entry in os.listdir("/proc") if entry.isdigit())
    return [pid for pid in numbers if pid != os.getpid() and _carries(pid, mark)]


def _signal_and_wait(pids: list[int], mark: bytes, number: int, seconds: float) -> None:
    """Signal each process and wait until all of them have ended, or time is up."""
    limit = time.monotonic() + seconds
    descriptors = []
    for pid in pids:
        try:
            descriptor = os.pidfd_open(pid)
        except ProcessLookupError:
            continue
        descriptors.append(descriptor)
        if _carries(pid, mark):
            try:
                signal.pidfd_send_signal(descriptor, number)
            except ProcessLookupError:
                pass
    for descriptor in descriptors:
        select.select([descriptor], [], [], max(0.0, limit - time.monotonic()))
        os.close(descriptor)


def end_all(name: str, value: str) -> None:
    """Ask all processes with this mark to end, then make them.

    Repeated, because one of them may have started another meanwhile.
    """
    mark = f"{name}={value}".encode()
    _signal_and_wait(carrying(name, value), mark, signal.SIGTERM, POLITE_SECONDS)
    limit = time.monotonic() + 10.0
    while left := carrying(name, value):
        if time.monotonic() > limit:
            raise RuntimeError(f"processes {left} do not end")
        _signal_and_wait(left, mark, signal.SIGKILL, 1.0)
