"""What a browser is to the web front end, in Python's standard library: requests and a WebSocket (RFC 6455)."""

import base64
import contextlib
import json
import os
import socket
import struct
import time

TEXT, BINARY, CLOSE, PING, PONG = 1, 2, 8, 9, 10


class Closed(Exception):
    """The server has ended the WebSocket: with a close code, or None where it just ended the connection."""

    def __init__(self, code, reason=""):
        super().__init__(f"closed with {code} {reason}")
        self.code = code


def connect(port, address="127.0.0.1", receive_buffer=None):
    link = socket.socket(socket.AF_INET6 if ":" in address else socket.AF_INET)
    if receive_buffer:
        link.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, receive_buffer)
    link.settimeout(20)
    link.connect((address, port))
    return link


def read_answer(link):
    """Reads an HTTP answer up to the end of the connection: its status, its fields by their names in lower case, its body."""
    data = b""
    with contextlib.suppress(ConnectionResetError):
        while piece := link.recv(1 << 16):
            data += piece
    if not data:
        return 0, {}, b""
    head, _, body = data.partition(b"\r\n\r\n")
    first, *fields = head.decode("latin1").split("\r\n")
    return int(first.split()[1]), {name.lower(): value for name, _, value in (field.partition(": ") for field in fields)}, body


def request(port, target="/", method="GET", host="localhost", address="127.0.0.1", fields=(), version="HTTP/1.1"):
    with connect(port, address) as link:
        link.sendall("\r\n".join([f"{method} {target} {version}", f"Host: {host}", *fields, "", ""]).encode("latin1"))
        return read_answer(link)


def upgrade_head(host, origin=None, key=None, path="/remote"):
    key = key or base64.b64encode(os.urandom(16)).decode()
    origin = [f"Origin: {origin}"] if origin else []
    fields = ["Connection: Upgrade", "Upgrade: websocket", "Sec-WebSocket-Version: 13", f"Sec-WebSocket-Key: {key}", *origin]
    return "\r\n".join([f"GET {path} HTTP/1.1", f"Host: {host}", *fields, "", ""]).encode("latin1")


def frame(payload, opcode=TEXT, last=True, masked=True):
    payload = payload.encode() if isinstance(payload, str) else payload
    head = bytes([(0x80 if last else 0) | opcode])
    length = len(payload)
    mark = 0x80 if masked else 0
    head += bytes([mark | length]) if length < 126 else bytes([mark | 126]) + struct.pack(">H", length) if length < 65536 else bytes([mark | 127]) + struct.pack(">Q", length)
    if not masked:
        return head + payload
    key = os.urandom(4)
    return head + key + bytes(byte ^ key[index % 4] for index, byte in enumerate(payload))


class WebSocket:
    """An open WebSocket. `lines` are what the server has sent and nobody has looked at yet."""

    def __init__(self, port, host=None, origin=None, address="127.0.0.1", receive_buffer=None):
        self.link = connect(port, address, receive_buffer)
        self.unread = b""
        self.pongs = True  # answers pings
        self.pings = 0
        self.link.sendall(upgrade_head(host or f"localhost:{port}", origin))
        while b"\r\n\r\n" not in self.unread:
            piece = self.link.recv(4096)
            if not piece:
                break
            self.unread += piece
        head, _, self.unread = self.unread.partition(b"\r\n\r\n")
        self.status = int(head.split()[1]) if head else 0

    def close(self):
        self.link.close()

    def send(self, *messages):
        self.link.sendall(b"".join(frame(message) for message in messages))

    def send_raw(self, data):
        self.link.sendall(data)

    def take(self, count, until):
        while len(self.unread) < count:
            self.link.settimeout(max(until - time.monotonic(), 0.001))
            try:
                piece = self.link.recv(1 << 16)
            except (ConnectionResetError, BrokenPipeError):
                raise Closed(None) from None
            if not piece:
                raise Closed(None)
            self.unread += piece
        taken, self.unread = self.unread[:count], self.unread[count:]
        return taken

    def receive(self, patience=20):
        """The next message. TimeoutError where none comes in time."""
        until = time.monotonic() + patience
        while True:
            first, second = self.take(2, until)
            length = second & 127
            if length == 126:
                length = struct.unpack(">H", self.take(2, until))[0]
            elif length == 127:
                length = struct.unpack(">Q", self.take(8, until))[0]
            payload = self.take(length, until)
            if first & 15 == PING:
                self.pings += 1
                if self.pongs:
                    self.link.sendall(frame(payload, PONG))
            elif first & 15 == CLOSE:
                code = struct.unpack(">H", payload[:2])[0] if payload else None
                with contextlib.suppress(OSError):
                    self.link.sendall(frame(payload[:2], CLOSE))
                raise Closed(code, payload[2:].decode())
            elif first & 15 == TEXT:
                return json.loads(payload.decode())

    def until(self, is_last, patience=20):
        """Reads messages until `is_last(object)`: all of them."""
        deadline = time.monotonic() + patience
        found = []
        while True:
            found.append(self.receive(max(deadline - time.monotonic(), 0.001)))
            if is_last(found[-1]):
                return found

    def ask(self, command, patience=20):
        """Sends a command; its reply."""
        self.send(command)
        return self.until(lambda line: line.get("reply") == command.split()[0], patience)[-1]

    def closed(self, patience=20):
        """Reads to the end: the close code."""
        deadline = time.monotonic() + patience
        try:
            while True:
                self.receive(max(deadline - time.monotonic(), 0.001))
        except Closed as end:
            return end.code

    def hello(self, token='""', start_tab=0, advanced="false"):
        return self.ask(f"hello {token} {start_tab} {advanced}")
