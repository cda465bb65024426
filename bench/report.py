#!/usr/bin/env python3
"""Puts our benchmark medians beside the engine's floor and writes the table.

The floor of a benchmark is the time the sqlite3 shell needs for the same native statements
on the same store file, rows printed to /dev/null. The shell is started once per run, so a
batch of K runs of the statements is timed against a run with none, and the difference
divided by K: the shell's own start-up and the opening of the file fall out.

Usage: report.py BENCHMARK_JSON FLOORS_JSON RESULTS_MD [--seconds-so-far S]
"""

import datetime
import json
import os
import platform
import statistics
import subprocess
import sys
import time

BATCH_SECONDS = 0.15  # long enough that the shell's start-up noise stays near 1%
PAIRS = 5
SLOW_SECONDS = 0.1  # beyond this a list no longer appears at once
# The store's name columns sort in the program's own order; the shell loads it to read them.
NAMEFOLD = os.environ.get("CORVANE_NAMEFOLD_EXTENSION", "")
LOAD_NAMEFOLD = ".load " + NAMEFOLD + "\n" if NAMEFOLD else ""


def shell_seconds(store, script):
    start = time.perf_counter()
    subprocess.run(["sqlite3", "-init", "/dev/null", "-batch", store], input=script, text=True,
                   stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, check=True)
    return time.perf_counter() - start


def floor_seconds(store, statements, operations):
    once = "".join(s + ";\n" for s in statements)
    # The warm-up run fills the page cache, as the first load does in the benchmark.
    base = ".bail on\n" + LOAD_NAMEFOLD + once

    def batch(k):
        return shell_seconds(store, base + once * k) - shell_seconds(store, base)

    k = 1
    while True:
        spent = batch(k)
        if spent >= BATCH_SECONDS or k >= 100000:
            break
        k = min(k * 100, max(k * 2, int(k * BATCH_SECONDS * 1.2 / max(spent, 1e-4))))
    runs = []
    for _ in range(PAIRS):
        runs.append(batch(k) / (k * operations))
    return max(statistics.median(runs), 0.0)


def medians(benchmark_json):
    with open(benchmark_json) as f:
        data = json.load(f)
    result = {}
    for b in data["benchmarks"]:
        if b.get("run_type") != "aggregate" or b.get("aggregate_name") != "median":
            continue
        name = b["run_name"].removesuffix("/real_time")
        scale = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}[b["time_unit"]]
        result[name] = {"seconds": b["real_time"] * scale, "rows": b.get("rows"),
                        "repetitions": b.get("repetitions")}
    return result, data.get("context", {})


def show(seconds):
    if seconds is None:
        return "n/a"
    if seconds >= 1:
        return f"{seconds:.2f} s"
    if seconds >= 1e-3:
        return f"{seconds * 1e3:.3g} ms"
    return f"{seconds * 1e6:.3g} µs"


def cpu_model():
    try:
        with open("/proc/cpuinfo") as f:
            for line in f:
                if line.startswith("model name"):
                    return line.split(":", 1)[1].strip()
    except OSError:
        pass
    return platform.processor() or "unknown CPU"


def main():
    args = sys.argv[1:]
    if len(args) < 3:
        sys.exit(__doc__)
    ours, context = medians(args[0])
    with open(args[1]) as f:
        cases = json.load(f)

    rows, notes, above, slow = [], [], [], []
    for c in cases:
        mine = ours.get(c["name"])
        if mine is None:
            continue  # filtered out of this run
        floor = None
        if c.get("statements"):
            floor = floor_seconds(c["store"], c["statements"], c.get("operations", 1))
        ratio = mine["seconds"] / floor if floor else None
        mark = ""
        if c.get("note"):
            if c["note"] not in notes:
                notes.append(c["note"])
            mark = " " + "*" * (notes.index(c["note"]) + 1)
        rows_text = "" if mine["rows"] is None else str(int(mine["rows"]))
        rows.append((c["label"], c["drinks"], show(mine["seconds"]), show(floor) + mark,
                     f"{ratio:.1f}" if ratio else "n/a", rows_text))
        if mine["seconds"] > SLOW_SECONDS:
            slow.append((c["label"], c["drinks"], show(mine["seconds"]), show(floor)))
        if ratio and ratio > 2:
            above.append((c["label"], c["drinks"], ratio, c.get("reason") or "NO REASON RECORDED"))
        print(f"  {c['name']}: ours {show(mine['seconds'])}, floor {show(floor)}", file=sys.stderr)

    # What the shell itself costs per statement, as a scale for the shortest floors.
    shell_cost = floor_seconds(cases[0]["store"], ["SELECT 1"], 1) if cases else None

    cores = os.cpu_count()
    try:
        cores = int(subprocess.run(["nproc"], capture_output=True, text=True, check=True).stdout)
    except (OSError, subprocess.CalledProcessError, ValueError):
        pass
    engine = subprocess.run(["sqlite3", "--version"], capture_output=True, text=True).stdout.split()
    sizes = sorted({c["drinks"] for c in cases})
    lines = [
        "# Benchmark results",
        "",
        f"- Date: {datetime.datetime.now(datetime.timezone.utc):%Y-%m-%d %H:%M} UTC",
        f"- Machine: {cores} cores ({cpu_model()}), {platform.system()} {platform.release()}",
        f"- Engine: SQLite {engine[0] if engine else '?'}; Release build",
        f"- Stores: {', '.join(f'{n:,}' for n in sizes)} drinks, generated (bench/StoreGenerator)",
        f"- Ours: median of {max((m['repetitions'] or 0) for m in ours.values())} repetitions, wall time "
        "(Google Benchmark)",
        f"- Load average at the start: {', '.join(f'{x:.1f}' for x in context.get('load_avg', []))}",
        "- Engine floor: the same statements through the sqlite3 shell on the same file, rows printed "
        f"to /dev/null; median of {PAIRS} timed batches (the shell's own cost per statement, `SELECT 1`: "
        f"{show(shell_cost)})",
        "",
        "| Operation | N | Ours | Engine floor | Ratio | Rows |",
        "|---|---:|---:|---:|---:|---:|",
    ]
    for r in rows:
        lines.append(f"| {r[0]} | {r[1]:,} | {r[2]} | {r[3]} | {r[4]} | {r[5]} |")
    if notes:
        lines.append("")
        for i, n in enumerate(notes):
            lines.append(f"{'*' * (i + 1)} Floor: {n}.")
    lines += ["", "## Ratios above 2", ""]
    if above:
        for label, n, ratio, reason in above:
            lines.append(f"- {label}, {n:,} drinks, {ratio:.1f}: {reason}")
    else:
        lines.append("None.")
    lines += ["", "## Slower than 100 ms", ""]
    if slow:
        lines.append("Where the floor is as slow, the statement needs another plan in the engine (an index), "
                     "not less work of ours.")
        lines.append("")
        for label, n, mine, floor in slow:
            lines.append(f"- {label}, {n:,} drinks: ours {mine}, floor {floor}")
    else:
        lines.append("None.")
    text = "\n".join(lines) + "\n"
    with open(args[2], "w") as f:
        f.write(text)
    print(text)
    missing = [a for a in above if a[3] == "NO REASON RECORDED"]
    if missing:
        print(f"{len(missing)} ratio(s) above 2 have no reason recorded in their benchmark's floor.",
              file=sys.stderr)


if __name__ == "__main__":
    main()
