"""The window program off-screen, and its socket as its neighbours see it."""

import os
import signal
import socket
import struct
import subprocess
import time

from home import environment

HAND_OVER, COME_FORWARD, DATA_CHANGED, TIMERS = 1, 2, 3, 4
MOST_PAYLOAD = 64 * 1024 - 16
MAGIC = b"HWi1"
# How long an honest request may take on a busy machine.
PATIENCE = 20


def frame(kind, payload=b"", length=None):
    return MAGIC + struct.pack("<BI", kind, len(payload) if length is None else length) + payload


def start_window(run, home, words=(), prefix=()):
    """A process group of its own, so that what it runs under ends together with it."""
    command = [*prefix, str(run.hourwright), "--home", str(home.path), "--locale", "C", *words]
    return subprocess.Popen(command, env=environment(QT_QPA_PLATFORM="offscreen"), stdin=subprocess.DEVNULL,
                            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True)


def at_socket(home, call):
    """Does something with a new socket and the address of the home's channel, which may have a long path."""
    folder = os.open(home.path / "runtime", os.O_PATH | os.O_DIRECTORY)
    try:
        made = socket.socket(socket.AF_UNIX)
        try:
            call(made, f"/proc/self/fd/{folder}/instance.sock")
        except OSError:
            made.close()
            raise
        return made
    finally:
        os.close(folder)


def connect(home, patience=PATIENCE):
    def call(made, address):
        made.settimeout(patience)
        made.connect(address)
    return at_socket(home, call)


def ask(home, kind, payload=b"", patience=PATIENCE):
    """The bytes of the reply; nothing when there is none in time."""
    try:
        with connect(home, patience) as connection:
            connection.sendall(frame(kind, payload))
            reply = b""
            while (missing := missing_of(reply)) > 0:
                piece = connection.recv(65536)
                if not piece or missing > MOST_PAYLOAD + len(frame(0)):
                    return None
                reply += piece
            return reply
    except OSError:
        return None


def missing_of(reply):
    """How many bytes of a frame are not there yet, as far as it is known."""
    head = len(frame(0))
    return head - len(reply) if len(reply) < head else head + struct.unpack_from("<I", reply, 5)[0] - len(reply)


def comes_forward(home, patience=PATIENCE):
    """Whether a window on this home answers within the time."""
    end = time.monotonic() + patience
    while True:
        if ask(home, COME_FORWARD, patience=min(5, patience)) == frame(0):
            return True
        if time.monotonic() > end:
            return False
        time.sleep(0.02)


def wait_for(process, patience):
    """The exit code; None when it runs on."""
    try:
        return process.wait(patience)
    except subprocess.TimeoutExpired:
        return None


def end(processes, with_signal=signal.SIGTERM):
    """Ends windows, and kills what is not gone in time."""
    for process in processes:
        send_to_group(process, with_signal)
    for process in processes:
        wait_for(process, PATIENCE)
        send_to_group(process, signal.SIGKILL)
        process.wait()


def send_to_group(process, number):
    try:
        os.killpg(process.pid, number)
    except ProcessLookupError:
        pass
