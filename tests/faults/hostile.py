"""What a program of the same user may do to the socket of the running window."""

import multiprocessing
import signal
import struct
import time

import window
from run import Result
from window import DATA_CHANGED, HAND_OVER, MOST_PAYLOAD, TIMERS, frame


MOST_WAITING = 256


def hostile_messages(run):
    """After and during every attack the window answers honest requests, and the records are as before."""
    result = Result()
    for number in range(12 if run.long else 1):
        home = run.begin(run.steps[-1])
        content = home.content()
        process = window.start_window(run, home)
        attack_all(run, (process, home), result, number)
        window.end([process])
        sound = home.check() == 0 and home.content() == content
        result.add(None if sound else "the records have changed", f"round {number}")
    return result


def attack_all(run, victim, result, number):
    process, home = victim
    result.add(not_answering(*victim), f"round {number}, start")
    for attack in ATTACKS:
        held = attack(home, run.random)
        result.add(not_answering(*victim), f"{attack.__name__}, round {number}, meanwhile")
        for connection in held:
            connection.close()
        result.add(not_answering(*victim), f"{attack.__name__}, round {number}, afterwards")
    process.send_signal(signal.SIGSTOP)
    result.control = not_answering(*victim, 1) is not None and result.control is not False
    process.send_signal(signal.SIGCONT)
    second = window.wait_for(window.start_window(run, home, ["--view", "week"]), window.PATIENCE)
    result.add(None if second == 0 else f"exit {second}", f"second start, round {number}")
    result.add(queue_without_end(run, home), f"more command lines than can wait, round {number}")
    result.add(not_answering(*victim), f"more command lines than can wait, round {number}, afterwards")


def queue_without_end(run, home):
    """While a question is open command lines wait: the first are taken, the later ones refused, and a second start is
    told so."""
    window.ask(home, HAND_OVER, line_payload("--new-entry"))
    replies = [window.ask(home, HAND_OVER, line_payload("--view week")) for _ in range(MOST_WAITING + 20)]
    taken = replies.count(frame(0))
    if replies != [frame(0)] * taken + [frame(1)] * (len(replies) - taken) or not 0 < taken <= MOST_WAITING:
        return f"{taken} are taken, {replies.count(frame(1))} refused"
    code = window.wait_for(window.start_window(run, home, ["--view", "week"]), window.PATIENCE)
    return None if code == 1 else f"a start that is refused exits with {code}"


def not_answering(process, home, patience=window.PATIENCE):
    if process.poll() is not None:
        return f"the window has ended with {process.returncode}"
    began = time.monotonic()
    if not window.comes_forward(home, patience):
        return "it does not come forward"
    code = home.run(["timer", "list"]).returncode
    if code != 0:
        return f"timer list exits with {code}"
    return None if time.monotonic() - began < patience else "an honest request takes too long"


def send(home, *messages):
    """One connection a message; replies are not read. The connections are handed back open."""
    connections = []
    for message in messages:
        try:
            connection = window.connect(home, 2)
            connections.append(connection)
            connection.sendall(message)
        except OSError:
            pass  # refusing is a good answer
    return connections


def wrong_lengths(home, _random):
    lengths = [MOST_PAYLOAD + 1, 64 * 1024, 2 ** 31, 2 ** 32 - 1]
    return send(home, *[frame(HAND_OVER, b"ab", length) for length in lengths],
                frame(HAND_OVER, bytes(200), 2), frame(DATA_CHANGED, b"", 7), frame(DATA_CHANGED) * 5,
                frame(HAND_OVER, bytes(4 * MOST_PAYLOAD), 4 * MOST_PAYLOAD))


def half_frames(home, random):
    """They begin and never go on."""
    whole = frame(HAND_OVER, bytes(1000))
    return send(home, *[whole[:random.randrange(len(whole))] for _ in range(150)])


def drips(home, _random):
    """A byte now and then on every connection."""
    connections = send(home, *[b"H"] * 60)
    for piece in (b"W", b"i", b"1", b"\x01"):
        time.sleep(0.05)
        for connection in connections:
            try:
                connection.send(piece)
            except OSError:
                pass
    return connections


def garbage(home, random):
    return send(home, *[random.randbytes(random.randrange(1, 9000)) for _ in range(40)],
                *[window.MAGIC + random.randbytes(random.randrange(1, 9000)) for _ in range(40)],
                b"GET / HTTP/1.0\r\n\r\n", b"\0" * 70000)


def unknown_kinds(home, random):
    return send(home, *[frame(kind, random.randbytes(20)) for kind in (0, *range(5, 256, 5))])


def wrong_encodings(home, random):
    lone = struct.pack("<HHH", 0xD800, 0x41, 0)
    payloads = [b"", b"\0", b"\0\0", b"a\0", b"a\0b\0", b"a\0\0\0b\0\0\0", lone, struct.pack("<HH", 0xDC00, 0),
                struct.pack("<HH", 0xFFFE, 0), "--view week".encode() + b"\0", random.randbytes(2000) + b"\0\0"]
    return send(home, *[frame(HAND_OVER, payload) for payload in payloads])


def line(text):
    return frame(HAND_OVER, line_payload(text))


def line_payload(text):
    return (text.encode("utf-16-le") + b"\0\0")[-MOST_PAYLOAD:]


def absurd_lines(home, random):
    """The first that needs an answer of the user keeps the others waiting."""
    lines = ["x " * 16000, "x" * 32000, '"' * 9001, "\\" * 32001, "--view", "--view year", "--view week " * 2000,
             "--date 9999-99-99", "--date 0000-00-00", "--date 1600-12-31", "--date 30828-01-01", "--date=",
             "--home /etc", "--home=", "--locale nonsense", "--platform", "--help", "--version", "-", "--", "-- --",
             "/etc/passwd", "../../../../etc/shadow", "/dev/zero.hwd", "/proc/self/mem.hwd", "a\u202eb.hwd", "\x01\x02",
             "--new-entry " * 2000, "--new-entry"]
    return send(home, *[line(text) for text in random.sample(lines, len(lines))])


def extreme_views(home, _random):
    return send(home, *[line(text) for text in ("--view day --date 1601-01-01", "--view month --date 9999-12-31",
                                                "--view week --date 1601-01-01", "--date 9999-12-31 --view day")])


def strange_timers(home, random):
    return send(home, *[frame(TIMERS, payload) for payload in
                        (b"", b"\0", b"\xff" * 5000, b"\x01" * MOST_PAYLOAD, bytes(MOST_PAYLOAD),
                         *[b"\x02" + random.randbytes(random.randrange(1, 300)) for _ in range(60)])])


def silent_connections(home, _random):
    """More than the window listens to, and nothing is ever said."""
    return send(home, *[b""] * 400)


def hasty_connections(home, _random):
    """They go away before anything could be done."""
    for _ in range(20):
        for connection in send(home, *[b""] * 20, *[frame(DATA_CHANGED)] * 20, *[frame(TIMERS)] * 10):
            connection.close()
    return []


def flood(home, _random):
    """Thousands of notices and long tokens, whose answers nobody fetches."""
    for _ in range(40):
        held = send(home, *[frame(DATA_CHANGED)] * 50, frame(window.COME_FORWARD, b"t" * MOST_PAYLOAD))
        for connection in held:
            connection.close()
    return send(home, *[frame(DATA_CHANGED)] * 60)


class Crowd:
    """Programs that flood the window until they are closed."""

    def __init__(self, home):
        fork = multiprocessing.get_context("fork")
        self.members = [fork.Process(target=flood_for_ever, args=(home,)) for _ in range(4)]
        for member in self.members:
            member.start()

    def close(self):
        for member in self.members:
            member.kill()
            member.join()


def flood_for_ever(home):
    while True:
        for connection in send(home, *[frame(DATA_CHANGED)] * 100):
            connection.close()


def crowd(home, _random):
    """Several flood it at once, and go on while honest ones ask."""
    flooding = Crowd(home)
    time.sleep(0.5)
    return [flooding]


ATTACKS = [extreme_views, wrong_lengths, half_frames, drips, garbage, unknown_kinds, wrong_encodings, absurd_lines, strange_timers,
           silent_connections, hasty_connections, flood, crowd]
