"""A web server on the loopback interface, whose answers a test lays out.

It is of the tests, not of their account: the host reaches it over the network
as it reaches any other.
"""

from __future__ import annotations

import contextlib
import select
import socket
import struct
from collections.abc import Callable, Sequence
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer
from threading import Thread

Request = BaseHTTPRequestHandler
Answer = Callable[[Request], None]

# Longer than any client waits: a server that is waited for for ever.
FOREVER_SECONDS = 300.0


class WebServer:
    """Answers the first request by the first of ``answers``, and so on; the last one stays."""

    def __init__(self, answers: Sequence[Answer] = ()) -> None:
        self.answers = list(answers)
        self.log: list[str] = []
        self._server = ThreadingHTTPServer(("127.0.0.1", 0), self._handler())
        self._server.daemon_threads = True
        self._thread = Thread(target=self._server.serve_forever, args=(0.02,), daemon=True)
        self._thread.start()

    def __enter__(self) -> WebServer:
        return self

    def __exit__(self, *unused: object) -> None:
        self.close()

    def close(self) -> None:
        """From here on nobody answers, and connections are refused."""
        self._server.shutdown()
        self._thread.join()
        self._server.server_close()

    @property
    def url(self) -> str:
        return f"http://127.0.0.1:{self._server.server_port}"

    def _handler(self) -> type[BaseHTTPRequestHandler]:
        server = self

        class Handler(BaseHTTPRequestHandler):
            def do_GET(self) -> None:
                number = len(server.log)
                server.log.append(self.path)
                with contextlib.suppress(ConnectionError):
                    server.answers[min(number, len(server.answers) - 1)](self)

            def log_message(self, *unused: object) -> None:
                pass

        return Handler


# Answers


def text(body: str | bytes, status: int = 200) -> Answer:
    content = body.encode() if isinstance(body, str) else body

    def answer(request: Request) -> None:
        request.send_response(status)
        request.send_header("Content-Length", str(len(content)))
        request.end_headers()
        request.wfile.write(content)

    return answer


def redirection(path: str, status: int = 302) -> Answer:
    def answer(request: Request) -> None:
        request.send_response(status)
        request.send_header("Location", path)
        request.end_headers()

    return answer


def cut_off(request: Request) -> None:
    """Half a text."""
    request.send_response(200)
    request.send_header("Content-Length", "10")
    request.end_headers()
    request.wfile.write(b"1.1.2")


def reset(request: Request) -> None:
    """Half a text from a server that crashes."""
    request.send_response(200)
    request.send_header("Content-Length", "10")
    request.end_headers()
    request.wfile.write(b"1.1.2")
    at_once = struct.pack("ii", 1, 0)
    request.connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, at_once)
    # Both files and the socket itself hold the connection.
    request.wfile.close()
    request.rfile.close()
    request.connection.close()


def endless(request: Request) -> None:
    """Until the client has had enough."""
    request.send_response(200)
    request.end_headers()
    while True:
        request.wfile.write(b"1.1.2" * 10000)


def silence(request: Request) -> None:
    """Nothing, for as long as the client waits."""
    select.select([request.connection], [], [], FOREVER_SECONDS)
