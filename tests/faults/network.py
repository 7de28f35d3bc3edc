"""No program of ours asks for the network, and none needs it."""

import re
import subprocess
import sys

import trace
import window
from home import environment
from run import Result

INTERNET = re.compile(r"socket\(AF_(INET6?|PACKET|BLUETOOTH|VSOCK)\b")


def no_network(run):
    """The session and a window on a machine without a network, and the sockets that they ask for."""
    result = Result()
    alone = without_network()
    if alone is None:
        return result.skip("unshare -n is not permitted")
    for step in run.sample(run.steps, 12):
        home = run.begin(step)
        log = run.folder / "log"
        code = home.run(step.words, [*alone, *trace.sockets(log)]).returncode
        sound = code == 0 and home.content() == step.content_after
        result.add(asked_for(log) or (None if sound else f"exit {code} without a network"), step.name)
    result.add(window_alone(run, alone), "the window")
    result.control = asking_program_is_found(run, alone)
    return result


def without_network():
    """What a command runs under to have no network, if this user may have it."""
    for words in (["unshare", "-n"], ["unshare", "-rn"]):
        if subprocess.run([*words, "true"], check=False, stderr=subprocess.DEVNULL).returncode == 0:
            return words
    return None


def asked_for(log):
    """The first line of the log that asks for the network."""
    with open(log, encoding="ascii", errors="replace") as file:
        return next((line.strip() for line in file if INTERNET.search(line)), None)


def window_alone(run, alone):
    home = run.begin(run.steps[-1])
    log = run.folder / "log"
    process = window.start_window(run, home, prefix=[*alone, *trace.sockets(log)])
    answers = window.comes_forward(home) and home.run(["timer", "add", "--task", "x"]).returncode == 0
    window.end([process])
    return asked_for(log) or (None if answers else "it does not answer")


def asking_program_is_found(run, alone):
    log = run.folder / "log"
    asking = "import socket; socket.socket(socket.AF_INET6, socket.SOCK_DGRAM)"
    subprocess.run([*alone, *trace.sockets(log), sys.executable, "-c", asking], env=environment(), check=False)
    return asked_for(log) is not None
