"""Lets the kernel take only a part of what a program writes, by changing the length on the way into the call."""

import ctypes
import os
import platform

TRACE_ME, PEEK_USER, POKE_USER, SYSCALL, SET_OPTIONS = 0, 3, 6, 24, 0x4200
OPTIONS = 1 | 0x100000  # marked stops at calls; the program ends with its tracer
CALL_STOP = 5 | 0x80
WRITE, PWRITE = 1, 18
NUMBER, LENGTH = 15 * 8, 12 * 8  # places of orig_rax and rdx among the registers


def possible():
    return platform.system() == "Linux" and platform.machine() == "x86_64"


def ptrace(request, process, address=0, data=0):
    library = ctypes.CDLL(None, use_errno=True)
    library.ptrace.restype = ctypes.c_long
    library.ptrace.argtypes = [ctypes.c_long, ctypes.c_long, ctypes.c_void_p, ctypes.c_void_p]
    return library.ptrace(request, process, address, data)


def run_with_short_writes(command, environment, first, for_ever):
    """Runs a command in which the write with this number, counted from 1, or it and all later ones, take half of
    their bytes. The exit code, negative for a signal, and how many writes of more than one byte there were."""
    process = os.fork()
    if process == 0:
        start_traced(command, environment)
    os.waitpid(process, 0)
    ptrace(SET_OPTIONS, process, 0, OPTIONS)
    count, entering, signal = 0, False, 0
    while True:
        ptrace(SYSCALL, process, 0, signal)
        _, status = os.waitpid(process, 0)
        if not os.WIFSTOPPED(status):
            return os.waitstatus_to_exitcode(status), count
        signal = os.WSTOPSIG(status)
        if signal == CALL_STOP:
            signal, entering = 0, not entering
            if entering and is_long_write(process):
                count += 1
                if count == first or (for_ever and count > first):
                    ptrace(POKE_USER, process, LENGTH, ptrace(PEEK_USER, process, LENGTH) // 2)


def start_traced(command, environment):
    try:
        nothing = os.open("/dev/null", os.O_RDWR)
        for number in (0, 1, 2):
            os.dup2(nothing, number)
        ptrace(TRACE_ME, 0)
        os.execve(command[0], command, environment)
    finally:
        os._exit(127)


def is_long_write(process):
    return ptrace(PEEK_USER, process, NUMBER) in (WRITE, PWRITE) and ptrace(PEEK_USER, process, LENGTH) > 1
