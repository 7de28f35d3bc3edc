"""Turns measurements into Markdown."""

import datetime
import os
import pathlib
import platform
import statistics
import subprocess

from rows import ROWS


BUSY = "The machine was busy with other work: only the columns of the processor's time can be relied on."


def duration(seconds):
    for unit, factor in (("s", 1), ("ms", 1e3), ("µs", 1e6), ("ns", 1e9)):
        if seconds * factor >= 1 or unit == "ns":
            return f"{seconds * factor:.3g} {unit}" if seconds * factor < 1000 else f"{seconds * factor:.0f} {unit}"
    return ""


def spread(samples):
    """How far the middle run lies above the best one, in percent."""
    return round(100 * (statistics.median(samples) / min(samples) - 1))


class Measured:
    """One row at one size: the best of its runs counts, since what disturbs a run only makes it slower."""

    def __init__(self, row, line):
        self.row = row
        self.failed = line.get("failed", False) or not line.get("ours")
        if self.failed:
            return
        self.samples = line["ours"]
        self.ours = min(line["ours"])
        self.cpu = min(line["ours cpu"])
        self.other = min(line["other"]) if line.get("other") else None
        self.ratio = self.ours / self.other if self.other else None
        self.cpu_ratio = min(line["ours cpu"]) / max(min(line["other cpu"]), 1e-9) if self.other else None
        self.megabytes = line.get("mb") or None

    def misses(self):
        """The limits that are not kept, as texts."""
        if self.failed:
            return ["failed"]
        found = []
        if self.row.ratio and self.ratio > self.row.ratio:
            found.append(f"{self.ratio:.2f} x, limit {self.row.ratio:g} x; {self.cpu_ratio:.2f} x of the processor")
        if self.row.seconds and self.ours > self.row.seconds:
            found.append(f"{duration(self.ours)}, limit {duration(self.row.seconds)}; {duration(self.cpu)} of the"
                         " processor")
        if self.row.megabytes and self.megabytes and self.megabytes > self.row.megabytes:
            found.append(f"{self.megabytes:.0f} MB, limit {self.row.megabytes:g} MB")
        return found

    def cells(self):
        if self.failed:
            return ["failed", "", "", "", ""]
        ours = duration(self.ours)
        if len(self.samples) > 1:
            ours += f" +{spread(self.samples)} %"
        slow = "**" if self.row.seconds and self.ours > self.row.seconds else ""
        mark = "**" if self.row.ratio and self.ratio > self.row.ratio else ""
        return [
            slow + ours + slow,
            duration(self.other) if self.other else "",
            f"{mark}{self.ratio:.2f}{mark}" if self.ratio else "",
            f"{self.cpu_ratio:.2f}" if self.cpu_ratio else "",
            f"{self.megabytes:.0f}" if self.megabytes else "",
        ]


def line(cells):
    return "| " + " | ".join(cells) + " |"


def comparison(sizes, lines):
    """The table of all rows; `lines` has the measurements by size and row."""
    head = ["operation", "compared with", "limit"]
    for size in sizes:
        head += [f"{size:,}: ours", "other", "ratio", "CPU", "MB"]
    table = [line(head), line(["---"] * 3 + ["--:"] * (5 * len(sizes)))]
    misses = []
    for row in ROWS:
        cells = [row.operation, row.other, row.limit()]
        for size in sizes:
            if row.key not in lines[size]:
                cells += [""] * 5
                continue
            measured = Measured(row, lines[size][row.key])
            cells += measured.cells()
            misses += [f"- {size:,}: {row.operation}: {text}" for text in measured.misses()]
        table.append(line(cells))
    verdict = ["Over their limit:", ""] + misses if misses else ["Every limit is kept."]
    return table + [""] + verdict


def growth(sizes, lines, file_sizes):
    """The table of what grows with the store; `file_sizes` in bytes. In brackets the processor's time."""
    head = ["entries", "demo", "add one", "list a week", "CSV", "CPU a million", "MB", "summary", "MB", "file MB"]
    table = [line(head), line(["--:"] * len(head))]
    for size in sizes:
        best = {key: f"{duration(min(value['ours']))} ({duration(min(value['ours cpu']))})"
                for key, value in lines[size].items()}
        million = min(lines[size]["CSV"]["ours cpu"]) / size * 1e6
        memory = {key: value["mb"] for key, value in lines[size].items()}
        table.append(line([
            f"{size:,}", best["demo"], best["add"], best["list week"], best["CSV"], duration(million),
            f"{memory['CSV']:.0f}", best["summary"], f"{memory['summary']:.0f}", f"{file_sizes[size] / 1e6:.1f}",
        ]))
    return table


def parts(benchmarks):
    table = [line(["part of the program", "time"]), line(["---", "--:"])]
    for run in benchmarks:
        seconds = run["real_time"] * {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1}[run["time_unit"]]
        table.append(line(["`" + run["name"] + "`", duration(seconds)]))
    return table


def output_of(*command):
    try:
        return subprocess.run(command, capture_output=True, text=True, check=True).stdout.strip()
    except (OSError, subprocess.CalledProcessError):
        return "unknown"


def processor():
    for text in pathlib.Path("/proc/cpuinfo").read_text().splitlines():
        if text.startswith("model name"):
            return text.split(":", 1)[1].strip()
    return platform.machine()


def circumstances(load_before, screen):
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 2**30
    load = max(load_before, os.getloadavg()[0])
    now = datetime.datetime.now().strftime("%Y-%m-%d %H:%M")
    commit = output_of("git", "describe", "--always", "--dirty", "--abbrev=10")
    sqlite = output_of("sqlite3", "--version").split(" ")[0]
    return [
        f"{now}, commit {commit}; {processor()}, {os.cpu_count()} processors, {memory:.0f} GB; Linux "
        f"{platform.release()}, SQLite {sqlite}; window on {screen}; load {load_before:.1f} before, "
        f"{os.getloadavg()[0]:.1f} after.",
        *(["", BUSY] if load > 2 * os.cpu_count() else []),
    ]
