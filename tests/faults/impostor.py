"""Listens in place of a window and behaves badly."""

import os
import random
import struct
import threading
import time


def endless(connection, piece, pause):
    while True:
        connection.sendall(piece)
        time.sleep(pause)


ANSWERS = {
    "silent": lambda connection: time.sleep(600),
    "closing": lambda connection: None,
    "garbage": lambda connection: connection.sendall(random.randbytes(5000)),
    "wrong outcome": lambda connection: connection.sendall(b"HWi1" + struct.pack("<BI", 9, 3) + b"abc"),
    "wrong answer": lambda connection: connection.sendall(b"HWi1" + struct.pack("<BI", 0, 3) + b"\xff\xff\xff"),
    "huge": lambda connection: endless(connection, b"HWi1\0\xff\xff\xff\xff" + bytes(9000), 0.01),
    "dripping": lambda connection: endless(connection, b"H", 0.5),
}


def serve(connection, record, answer):
    def receive():
        try:
            while data := connection.recv(65536):
                os.write(record, data)
        except OSError:
            pass  # the answer has ended the connection
    try:
        reader = threading.Thread(target=receive, daemon=True)
        reader.start()
        reader.join(0.05)
        answer(connection)
        connection.close()
    except OSError:
        pass


def listen(bound, path, behaviour, user, listening):
    """Never returns. Takes a bound socket; every byte that is sent here goes into the file; it is the user who
    listens by whom the others know whose socket it is."""
    record = os.open(path, os.O_WRONLY | os.O_CREAT | os.O_TRUNC, 0o600)
    if user:
        os.setgid(user)
        os.setuid(user)
    bound.listen(64)
    listening.set()
    while True:
        if behaviour == "deaf":
            time.sleep(600)
        connection = bound.accept()[0]
        threading.Thread(target=serve, args=(connection, record, ANSWERS[behaviour]), daemon=True).start()
