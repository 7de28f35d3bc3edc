#!/usr/bin/env python3
"""Measures the release build and prints one table in Markdown.

    bench.py BUILD [--sizes 20000,1000000] [--out FILE]     everything, beside SQLite doing the same work
    bench.py BUILD --growth 1000,10000,… [--out FILE]       how the cost grows with the store

BUILD is the folder of the release build. Stores are made in BUILD/bench-homes, or --folder, and removed at the end.
"""

import argparse
import contextlib
import json
import os
import pathlib
import shutil
import subprocess
import sys
import time

import table
from rows import PARTS

TURNS = 3
SMALL_SIZE = 1000


def say(text):
    print(f"{time.strftime('%H:%M:%S')} {text}", file=sys.stderr, flush=True)


class Bench:
    def __init__(self, build, folder):
        self.bench = build / "bench"
        self.hwctl = build / "bin" / "hwctl"
        self.folder = folder

    def ratios(self, *arguments, wrapper=()):
        """Lines of measurements of whole processes, by row."""
        return self.lines([*wrapper, self.bench / "hourwright_ratios", *arguments])

    @staticmethod
    def lines(command, **environment):
        run = subprocess.run(list(map(str, command)), stdout=subprocess.PIPE, text=True, check=True,
                             env={**os.environ, **environment})
        found = map(json.loads, run.stdout.splitlines())
        return {one["row"]: one for one in found}

    @contextlib.contextmanager
    def home(self, size):
        """A home with that many made-up entries, and what making it cost."""
        home = self.folder / str(size)
        shutil.rmtree(home, ignore_errors=True)
        home.mkdir(parents=True)
        made = self.ratios("make", self.hwctl, home, size)
        if made["demo"]["failed"]:
            sys.exit("bench: the made-up history was not written")
        try:
            yield home, made
        finally:
            shutil.rmtree(home)

    def benchmarks(self, pattern, store, size=SMALL_SIZE, seconds=0.3):
        """Runs of Google Benchmark whose names match."""
        run = subprocess.run([self.bench / "hourwright_bench", f"--benchmark_filter={pattern}",
                              "--benchmark_format=json", f"--benchmark_min_time={seconds}"],
                             stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=True,
                             env={**os.environ, "HOURWRIGHT_BENCH_STORE": str(store),
                                  "HOURWRIGHT_BENCH_SIZE": str(size)})
        return json.loads(run.stdout)["benchmarks"]

    def part(self, key, size, store):
        """One row of parts in a process of their own each, in turns, so that the peak memory is theirs."""
        result = {"ours": [], "other": [], "ours cpu": [], "other cpu": [], "mb": 0, "failed": False}
        checks = set()
        for _ in range(TURNS):
            for side, name in zip(("ours", "other"), PARTS[key]):
                run = self.benchmarks(f"^{name.format(size=size)}$", store, size)[0]
                if run.get("error_occurred"):
                    result["failed"] = True
                    continue
                checks.add(run.get("check"))
                unit = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3}[run["time_unit"]]
                if key == "document growth":
                    unit /= int(run["name"].rsplit("/", 1)[1])
                result[side].append(run["real_time"] * unit)
                result[side + " cpu"].append(run.get("cpu") or run["cpu_time"] * unit)
                if side == "ours":
                    result["mb"] = max(result["mb"], run.get("MB", 0))
        result["failed"] |= len(checks) > 1  # the two sides did not read the same
        return result

    def everything(self, size, small, wrapper):
        with self.home(size) as (home, made):
            store = home / "hourwright.db"
            lines = dict(made)
            say(f"{size:,} entries: parts of the program")
            for key in PARTS:
                lines[key] = self.part(key, size, store)
            say(f"{size:,} entries: whole processes")
            lines |= self.ratios("compare", self.hwctl, home, small, self.bench / "hourwright_start",
                                 self.bench / "hourwright_empty_window", wrapper=wrapper)
            say(f"{size:,} entries: lists of the window")
            lines |= self.lines([self.bench / "hourwright_view_bench"], HOURWRIGHT_BENCH_STORE=str(store))
            return lines

    def other_parts(self, store):
        names = "|".join(sorted({name.split("/")[0] for pair in PARTS.values() for name in pair}))
        return self.benchmarks(f"-^({names})/", store, seconds=0.1)

    def compare(self, sizes):
        load = os.getloadavg()[0]
        wrapper, screen = display()
        with self.home(SMALL_SIZE) as (small, _):
            lines = {size: self.everything(size, small, wrapper) for size in sizes}
            say("other parts")
            others = self.other_parts(small / "hourwright.db")
        return [*table.circumstances(load, screen), "", *table.comparison(sizes, lines), "", *table.parts(others)]

    def growth(self, sizes):
        load = os.getloadavg()[0]
        lines, file_sizes = {}, {}
        for size in sizes:
            say(f"{size:,} entries")
            with self.home(size) as (home, made):
                file_sizes[size] = (home / "hourwright.db").stat().st_size
                lines[size] = made | self.ratios("growth", self.hwctl, home)
        return [*table.circumstances(load, "no screen"), "", *table.growth(sizes, lines, file_sizes)]


def display():
    """How to start programs with a window, and on what: a display of their own when there is one to have."""
    os.environ.pop("WAYLAND_DISPLAY", None)
    if shutil.which("xvfb-run"):
        os.environ["QT_QPA_PLATFORM"] = "xcb"
        return ("xvfb-run", "-a", "-s", "-screen 0 1280x800x24"), "Xvfb"
    os.environ["QT_QPA_PLATFORM"] = "offscreen"
    return (), "the off-screen platform"


def sizes_of(text):
    return [int(size) for size in text.replace(",", " ").split()]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--sizes", type=sizes_of, default=[20_000, 1_000_000])
    parser.add_argument("--growth", type=sizes_of)
    parser.add_argument("--folder", type=pathlib.Path)
    parser.add_argument("--out", type=pathlib.Path)
    options = parser.parse_args()
    bench = Bench(options.build.resolve(), (options.folder or options.build / "bench-homes").resolve())
    text = "\n".join(bench.growth(options.growth) if options.growth else bench.compare(options.sizes)) + "\n"
    if options.out:
        options.out.write_text(text)
    print(text, end="")


if __name__ == "__main__":
    main()
