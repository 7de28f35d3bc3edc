"""The rows of the table: what is measured, what it is compared with, and the limits that it is to keep."""

from dataclasses import dataclass
from typing import Optional


@dataclass(frozen=True)
class Row:
    key: str
    operation: str
    other: str = ""
    ratio: Optional[float] = None  # limit of ours / other
    seconds: Optional[float] = None  # limit of ours
    megabytes: Optional[float] = None  # limit of the peak memory

    def limit(self) -> str:
        texts = []
        if self.ratio:
            texts.append(f"{self.ratio:g} x")
        if self.seconds:
            texts.append(f"{self.seconds * 1000:g} ms" if self.seconds < 1 else f"{self.seconds:g} s")
        if self.megabytes:
            texts.append(f"{self.megabytes:g} MB")
        return ", ".join(texts)


SHELL = "SQLite shell"
CURSOR = "SQLite, in process"
SMALL = "a store of 1,000"
VIEW = "the toolkit's list of fixed texts"

ROWS = [
    Row("demo", "`hwctl demo`: the made-up history", seconds=60),
    Row("add", "`hwctl entry add`", SHELL + ": `INSERT`", ratio=3),
    Row("add, small store", "`hwctl entry add`", SMALL, ratio=1.3),
    Row("bulk write", "bulk write in one transaction", CURSOR + ": `INSERT`"),
    Row("walk", "walk over all entries", CURSOR + ": cursor", ratio=1.7),
    Row("week", "seek and read a week", CURSOR + ": index range"),
    Row("list week", "`hwctl entry list --week --json`", SHELL + ": `SELECT`", ratio=4),
    Row("list week, small store", "`hwctl entry list --week --json`", SMALL, ratio=1.3),
    Row("filter", "walk with a filter on the client", CURSOR + ": `WHERE`"),
    Row("CSV of few", "`hwctl export csv`, the rarest task (2 %)", "the same, no entry", ratio=1.2),
    Row("CSV by nine texts", "`hwctl export csv`, nine texts filtered", "the same, no entry", ratio=1.5),
    Row("CSV", "`hwctl export csv`", SHELL + ": `-csv`", ratio=2, megabytes=40),
    Row("XML", "`hwctl export xml`", "our CSV", ratio=1.3, megabytes=40),
    Row("spreadsheet", "`hwctl export spreadsheet`", SHELL + ": `-csv`"),
    Row("JSON", "`hwctl export json`", SHELL + ": `-json`"),
    Row("iCalendar", "`hwctl export icalendar`", "our CSV"),
    Row("summary", "`hwctl summary` of the largest client", SHELL + ": aggregates", ratio=4),
    Row("mark paid", "`hwctl bulk mark-paid`, up to 100,000", SHELL + ": `UPDATE`", ratio=3),
    Row("undo", "`hwctl undo` of that", SHELL + ": `UPDATE`"),
    Row("start", "window: start to first paint", "an empty window"),
    Row("list first paint", "list of up to 100,000 rows: first paint", VIEW),
    Row("list complete", "… until all rows are there"),
    Row("list longest step", "… longest moment without an answer meanwhile", seconds=0.1),
    Row("list by client", "… arranged by client"),
    Row("find in vain", "… find a text that no row has"),
    Row("scroll", "scroll a page of it, on average", VIEW, seconds=0.016),
    Row("scroll, slowest page", "… the slowest of 100 pages", VIEW),
    Row("scroll, simple list", "… simple list, on average", VIEW, seconds=0.016),
    Row("scroll, tree list", "… tree list, on average", VIEW, seconds=0.016),
    Row("document", "markup document of so many elements", "its text put together by hand"),
    Row("document growth", "… time an element", "a document of 1,000", ratio=1.5),
]

# Rows measured by parts of the program in one process: name of the benchmark of ours and of the other.
PARTS = {
    "bulk write": ("bulkWrite/ours/{size}/manual_time", "bulkWrite/raw/{size}/manual_time"),
    "walk": ("walk/ours", "walk/raw"),
    "week": ("week/ours", "week/raw"),
    "filter": ("filter/ours", "filter/raw"),
    "document": ("document/ours/{size}", "document/raw/{size}"),
    "document growth": ("document/ours/{size}", "document/ours/1000"),
}
