"""What a consultant's day does, one command after the other; every kind of writer is among them."""

from home import Home, Step

NOVEMBER = ["--from", "2026-11-01", "--to", "2026-11-30"]
SESSION = [
    ["client", "add", "Acme"],
    ["rate", "add", "Acme", "--type", "normal", "--description", "Standard", "--rate", "80"],
    ["entry", "add", "--client", "Acme", "--project", "Site", "--task", "Review", "--duration", "1.5", "--rate", "80",
     "--status", "billable", "--note", "first"],
    ["entry", "add", "--client", "Acme", "--task", "Call", "--start", "09:00", "--end", "10:30", "--break", "0.25"],
    ["entry", "edit", "{entry}", "--phase", "Build", "--custom1", "x", "--duration", "2"],
    ["undo"],
    ["redo"],
    ["entry", "copy", "{entry}", "--rest-of-week", "--include-weekend"],
    ["expense", "add", "mileage", "--description", "Drive", "--start-odo", "100", "--distance", "42", "--amount",
     "0.42"],
    ["expense", "add", "general", "--description", "Train", "--amount", "45.60"],
    ["expense", "edit", "{expense}", "--amount", "50"],
    ["project", "add", "Acme", "Other", "Task"],
    ["contact", "add", "Acme", "Ms Smith"],
    ["entry", "toggle-billed", "{entry}"],
    ["bulk", "mark-billed", *NOVEMBER],
    ["bulk", "mark-paid", *NOVEMBER],
    ["undo"],
    ["redo"],
    ["bulk", "replace", "task", "Review", "Check"],
    ["undo"],
    ["settings", "set", "DefCurr", "EUR"],
    ["registry", "set", "Own", "hex:01,02"],
    ["filter", "set", "--client", "Acme", "--hide", "paid"],
    ["filter", "clear"],
    ["export", "csv", "{home}/exports/entries.csv", *NOVEMBER],
    ["export", "expenses", "general", "{home}/exports/expenses.csv", *NOVEMBER],
    ["export", "xml", "{home}/exports/entries.xml", *NOVEMBER],
    ["export", "spreadsheet", "{home}/exports/sheet.csv", *NOVEMBER],
    ["export", "expense-spreadsheet", "{home}/exports/expense-sheet.csv", *NOVEMBER],
    ["export", "json", "{home}/exports/old.json", *NOVEMBER],
    ["export", "expense-json", "{home}/exports/expenses.json", *NOVEMBER],
    ["export", "icalendar", "{home}/exports/old.ics", *NOVEMBER],
    ["expense", "delete", "{expense}"],
    ["project", "delete", "Acme", "Other"],
    ["entry", "delete", "{entry}"],
    ["undo"],
    ["store", "copy"],
    ["bulk", "delete", "--from", "2026-11-19", "--to", "2026-11-30"],
    ["wipe", "structure", "--rates"],
    ["store", "restore"],
    ["wipe", "all"],
    ["demo", "--entries", "30"],
]


def prepare_steps(hwctl, folder, demo_entries):
    """Plays the session once and keeps the home before every command."""
    home = Home(hwctl, folder / "session")
    (home.path / "exports").mkdir(parents=True)
    for name in ("old.json", "old.ics"):  # exports take the place of these
        (home.path / "exports" / name).write_bytes(b"of last month\n" * 2000)
    if demo_entries:
        home.must(["demo", "--entries", str(demo_entries)])
    else:
        home.must(["store", "databases"])
    home.must(["settings", "set", "MinTime", "15"])
    steps, ids = [], {}
    for number, template in enumerate(SESSION):
        words = [ids.get(word, word) for word in template]
        before = home.copy_to(folder / f"before-{number}")
        printed = home.must(words).strip()
        if words[1:2] == ["add"]:
            ids.setdefault("{" + words[0] + "}", printed)
        steps.append(Step(words, before, home))
    return steps
