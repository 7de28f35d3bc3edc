#!/usr/bin/env python3
"""Plays the commands of the case files with the real program under valgrind: no access that is wrong, no use of memory
that was never set, nothing leaked and no descriptor left open, whatever the command does and however it ends.

Prints one line a file. Controls, compiled on the spot, commit such errors, which must be found. Exits with 1 when
anything is wrong."""

import argparse
import concurrent.futures
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

FOUND = 99  # what valgrind exits with
NOW = "2026-11-16 09:00:00"
VALGRIND = ["valgrind", "--quiet", "--leak-check=full", "--show-leak-kinds=definite,indirect,possible",
            "--errors-for-leak-kinds=definite,indirect,possible", "--track-origins=no", f"--error-exitcode={FOUND}"]

CONTROLS = {
    "a leak": "char* volatile p = new char[10]; p = nullptr; return p != nullptr;",
    "a read behind the end": "volatile char* p = new char[10]; int x = p[10]; delete[] p; return x & 0;",
    "a value never set": "volatile char* p = new char[10]; int x = p[3] == 'a' ? 1 : 0; delete[] p; return x & 0;",
}


def valgrind(command, folder, **options):
    """The finished process, and what valgrind had to say."""
    log = folder / "valgrind.log"
    done = subprocess.run([*VALGRIND, f"--log-file={log}", *command], stdin=subprocess.DEVNULL, cwd=folder,
                          capture_output=True, timeout=1800, **options)
    return done, log.read_text(errors="replace")


def steps_of(file):
    """(line, words, expected output, exit code) of every command of a case file, and the locale it asks for."""
    steps, locale = [], "C"
    for number, line in enumerate(file.read_text().splitlines(), 1):
        if line.startswith("locale: "):
            locale = line[8:]
        elif line.startswith("$ hwctl"):
            steps.append([number, shlex.split(line[7:]), "", 0])
        elif line.startswith(">"):
            steps[-1][2] += line[2:].removesuffix("\\r") + "\n"
        elif line.startswith("="):
            steps[-1][3] = int(line[1:])
    return steps, locale


def keep_numbers(expected, actual, numbers):
    """Keeps the numbers printed where the expected text has names in braces."""
    parts = re.split(r"\{([A-Za-z]+)\}", expected)
    pattern = "".join(re.escape(part) if i % 2 == 0 else rf"(?P<{part}>\d+)" if parts.index(part) == i else rf"(?P={part})"
                      for i, part in enumerate(parts))
    match = re.fullmatch(pattern, actual.replace("\r\n", "\n"))
    numbers.update({name: value for name, value in match.groupdict().items() if name not in numbers} if match else {})


def play(hwctl, file):
    """What was found in the commands of one file, and how many there were."""
    steps, locale = steps_of(file)
    wrong, numbers = [], {}
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        environment = {"PATH": os.environ["PATH"], "HOME": "/nowhere", "HOURWRIGHT_HOME": str(folder / "home"),
                       "LC_ALL": locale}
        for line, words, out, code in steps:
            words = [re.sub(r"\{([A-Za-z]+)\}", lambda name: numbers.get(name[1], name[0]), word) for word in words]
            now = [] if "--now" in words else ["--now", NOW]
            done, log = valgrind([hwctl, *now, *words], folder, env=environment)
            keep_numbers(out, done.stdout.decode(errors="replace"), numbers)
            if done.returncode != code or log:
                wrong.append(f"{file.name}, line {line}: exit {done.returncode} instead of {code}\n{log}"
                             f"{done.stderr.decode(errors='replace')}")
    return wrong, len(steps)


def controls(compiler):
    """The controls whose error was not found."""
    missed = []
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        for name, body in CONTROLS.items():
            subprocess.run([compiler, "-x", "c++", "-O0", "-w", "-", "-o", folder / "control"], check=True,
                           input=f"int main() {{ {body} }}", text=True)
            done, log = valgrind([folder / "control"], folder)
            if done.returncode != FOUND or not log:
                missed.append(name)
    return missed


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--hwctl", required=True)
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--compiler", default="c++")
    parser.add_argument("only", nargs="*", help="names of case files without .txt")
    options = parser.parse_args()
    hwctl = pathlib.Path(options.hwctl).resolve()
    cases = pathlib.Path(__file__).resolve().parent.parent / "cli" / "cases"
    files = [file for file in sorted(cases.glob("*.txt")) if not options.only or file.stem in options.only]
    missed = controls(options.compiler)
    print(f"controls: {len(CONTROLS) - len(missed)} of {len(CONTROLS)} found", *missed, flush=True)
    commands, failures = 0, len(missed)
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        for file, (wrong, count) in zip(files, pool.map(lambda file: play(hwctl, file), files)):
            print(f"{file.stem}: {count} commands, {len(wrong)} wrong", flush=True)
            print(*wrong, sep="\n", end="\n" if wrong else "", file=sys.stderr, flush=True)
            commands, failures = commands + count, failures + len(wrong)
    print(f"{commands} commands, {failures} failures")
    return 1 if failures or not commands else 0


if __name__ == "__main__":
    sys.exit(main())
