#!/usr/bin/env python3
"""Makes tables, a JSON file and a plot of what the benchmark prints.

    results.py check COMMAND...         runs the benchmark and says which measure yields no number
    results.py report SAMPLES FOLDER    results.json, scan.svg and tables.md of the file SAMPLES into FOLDER
    results.py publish FOLDER           takes these into docs/performance and docs/performance.md
"""

import collections
import json
import pathlib
import platform
import re
import shutil
import statistics
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
DOCUMENT = ROOT / "docs/performance.md"
KEPT = ROOT / "docs/performance"
BEGIN = "<!-- Written by scripts/benchmark: begin -->"
END = "<!-- Written by scripts/benchmark: end -->"

# The measures, with the words of the table; a size stands for the braces.
MEASURES = {
    "start_ms": "start-up until the window is shown, ms",
    "working_set_kib": "idle working set, KiB",
    "scan_ms": "scan of {} windows, ms",
    "load_ms": "load of {} programs, ms",
    "apply_minimise_ms": "Apply Minimize on {} windows, ms",
    "apply_restore_ms": "Apply Restore on {} windows, ms",
    "store_ms": "storing a profile of {} entries, ms",
    "program_size_bytes": "program file, bytes",
}
COUNTED = {"scan": "window", "load": "program"}


def read_samples(lines):
    """The samples by measure, size and side, and the counted calls by measure, function, side and size."""
    samples = collections.defaultdict(list)
    calls = collections.defaultdict(dict)
    for line in lines:
        words = line.split()
        if words[:1] == ["SAMPLE"]:
            _, measure, size, side, value = words
            samples[measure, int(size), side].append(float(value))
        elif words[:1] == ["CALLS"]:
            _, measure, size, side, function, count = words
            calls[measure, function, side][int(size)] = int(count)
    return samples, calls


def spread(values):
    """Median and quartiles."""
    ordered = sorted(values)
    if len(ordered) == 1:
        lower = upper = ordered[0]
    else:
        lower, _, upper = statistics.quantiles(ordered, n=4, method="inclusive")
    return {"median": statistics.median(ordered), "lower_quartile": lower, "upper_quartile": upper}


def summarise(samples):
    """A row for each measure and size: each side's spread, and that of the ratios, pair by pair."""
    rows = []
    for measure in MEASURES:
        for size in sorted({size for name, size, _ in samples if name == measure}):
            sides = {side: values for (name, at, side), values in samples.items() if (name, at) == (measure, size)}
            row = {"measure": measure, "size": size, "sides": {}, "ratios": {}}
            for side, values in sides.items():
                row["sides"][side] = {**spread(values), "samples": values}
                if side != "wendlow":
                    row["ratios"][side] = spread([one / other for one, other in zip(sides["wendlow"], values)])
            rows.append(row)
    return rows


def summarise_calls(calls):
    """For each counted measure how many calls one window, or one program, more brings on either side."""
    rows = []
    for measure in COUNTED:
        sizes = sorted({size for (name, _, _), counts in calls.items() if name == measure for size in counts})
        if len(sizes) != 2:
            continue
        fewer, more = sizes
        for function in sorted({function for name, function, _ in calls if name == measure}):
            row = {"measure": measure, "function": function, "sizes": sizes, "sides": {}}
            for side in ("wendlow", "bare"):
                counts = calls.get((measure, function, side), {})
                each = (counts.get(more, 0) - counts.get(fewer, 0)) / (more - fewer)
                row["sides"][side] = {"each": each, "others": counts.get(fewer, 0) - each * fewer}
            rows.append(row)
    return rows


def first_line(*command):
    done = subprocess.run(command, capture_output=True, text=True, check=False)
    return done.stdout.strip().splitlines()[0] if done.stdout.strip() else "unknown"


def describe_machine():
    """What the figures depend on; nothing that names the machine."""
    cpuinfo = pathlib.Path("/proc/cpuinfo").read_text("utf-8")
    model = re.search(r"^model name\s*: (.*)$", cpuinfo, re.MULTILINE)
    memory_kib = int(re.search(r"^MemTotal:\s*(\d+)", pathlib.Path("/proc/meminfo").read_text("utf-8"),
                               re.MULTILINE)[1])
    return {
        "processor": model[1] if model else platform.machine(),
        "cores": len(re.findall(r"^processor\s*:", cpuinfo, re.MULTILINE)),
        "memory_gib": round(memory_kib / 2**20),
        "system": "Debian " + pathlib.Path("/etc/debian_version").read_text("utf-8").strip(),
        "kernel": "Linux " + ".".join(platform.release().split(".")[:2]),
        "wine": first_line("/usr/lib/wine/wine64", "--version"),
        "compiler": first_line("x86_64-w64-mingw32-g++", "--version"),
    }


def shown(value):
    """Four figures, in full from a thousand on."""
    return f"{value:.0f}" if value >= 1000 else f"{value:.4g}"


def with_spread(values, show):
    if values["lower_quartile"] == values["upper_quartile"]:
        return show(values["median"])
    return f"{show(values['median'])} ({show(values['lower_quartile'])} to {show(values['upper_quartile'])})"


def table(headings, rows):
    lines = ["| " + " | ".join(headings) + " |", "|" + "---|" * len(headings)]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows])


def table_of_times(rows, side, heading):
    """Wendlow beside one other side."""
    cells = []
    for row in rows:
        if side in row["sides"]:
            cells.append([
                MEASURES[row["measure"]].format(row["size"]),
                with_spread(row["sides"]["wendlow"], shown),
                with_spread(row["sides"][side], shown),
                with_spread(row["ratios"][side], "{:.2f}".format),
            ])
    return table(["work", "Wendlow", heading, "ratio"], cells)


def table_of_calls(rows, measure):
    """The functions that are called more often for more windows or programs, but for those of a message now and
    then."""
    cells = []
    for row in rows:
        each = [row["sides"][side]["each"] for side in ("wendlow", "bare")]
        if row["measure"] == measure and max(each) >= 0.5:
            cells.append([f"`{row['function']}`"] + [f"{value:.3g}" for value in each])
    each = f"per {COUNTED[measure]}"
    return table([f"calls of a {measure}", f"Wendlow, {each}", f"bare calls, {each}"], cells)


def tables_of(results):
    machine = results["machine"]
    repetitions = {len(side["samples"]) for row in results["measures"] for side in row["sides"].values()} - {1}
    return "\n\n".join([
        f"{machine['processor']}, {machine['cores']} cores, {machine['memory_gib']} GiB; {machine['system']},"
        f" {machine['kernel']},\n{machine['wine']}; compiled with {machine['compiler']}.",
        f"Medians of {min(repetitions)} to {max(repetitions)} repetitions, quartiles in brackets.",
        table_of_times(results["measures"], "bare", "bare calls"),
        "Beside the bare window with the libraries that Wendlow has from its start, loaded and not used:",
        table_of_times(results["measures"], "libraries", "bare window with libraries"),
        table_of_calls(results["calls"], "scan"),
        table_of_calls(results["calls"], "load"),
    ]) + "\n"


PLOT = """
set terminal svg size 800,480 font "sans,14" background "white"
set output "{folder}/scan.svg"
set xlabel "windows"
set ylabel "milliseconds"
set xrange [0:*]
set offsets graph 0, graph 0.04, 0, 0
set yrange [0:*]
set grid
set key top left
plot "{folder}/wendlow.dat" using 1:2:3:4 with yerrorlines lw 2 pt 7 title "Wendlow", \\
     "{folder}/bare.dat" using 1:2:3:4 with yerrorlines lw 2 pt 6 title "bare calls"
"""


def plot(rows, folder):
    for side in ("wendlow", "bare"):
        points = [row["sides"][side] | {"size": row["size"]} for row in rows if row["measure"] == "scan_ms"]
        text = "".join(f"{point['size']} {point['median']} {point['lower_quartile']} {point['upper_quartile']}\n"
                       for point in points)
        (folder / f"{side}.dat").write_text(text, "utf-8")
    subprocess.run(["gnuplot"], input=PLOT.format(folder=folder), text=True, check=True)


def as_json(results):
    """A measure, or a counted function, to a line."""
    parts = []
    for name, part in results.items():
        if isinstance(part, list):
            rows = ",\n".join("  " + json.dumps(row) for row in part)
            parts.append(f' "{name}": [\n{rows}\n ]')
        else:
            parts.append(f' "{name}": {json.dumps(part)}')
    return "{\n" + ",\n".join(parts) + "\n}\n"


def report(samples_file, folder):
    samples, calls = read_samples(samples_file.read_text("utf-8").splitlines())
    results = {"machine": describe_machine(), "measures": summarise(samples), "calls": summarise_calls(calls)}
    (folder / "results.json").write_text(as_json(results), "utf-8")
    tables = tables_of(results)
    (folder / "tables.md").write_text(tables, "utf-8")
    plot(results["measures"], folder)
    print(tables)


def publish(folder):
    KEPT.mkdir(exist_ok=True)
    for name in ("results.json", "scan.svg"):
        shutil.copy(folder / name, KEPT / name)
    before, rest = DOCUMENT.read_text("utf-8").split(BEGIN)
    _, after = rest.split(END)
    tables = (folder / "tables.md").read_text("utf-8")
    DOCUMENT.write_text(f"{before}{BEGIN}\n\n{tables}\n{END}{after}", "utf-8")


def check(command):
    done = subprocess.run(command, stdout=subprocess.PIPE, text=True, check=False)
    samples, calls = read_samples(done.stdout.splitlines())
    faults = [] if done.returncode == 0 else [f"the benchmark ended with exit code {done.returncode}"]
    sides = {"start_ms": {"wendlow", "bare", "libraries"}, "working_set_kib": {"wendlow", "bare", "libraries"}}
    for measure in MEASURES:
        for side in sorted(sides.get(measure, {"wendlow", "bare"})):
            values = [value for (name, _, at), found in samples.items() if (name, at) == (measure, side)
                      for value in found]
            if not values or min(values) <= 0:
                faults.append(f"no number for {measure}, {side}")
    per_window = {row["function"]: row["sides"] for row in summarise_calls(calls) if row["measure"] == "scan"}
    for side in ("wendlow", "bare"):
        # A window's process is opened once in each of the two passes.
        if per_window.get("OpenProcess", {}).get(side, {}).get("each") != 2:
            faults.append(f"OpenProcess was not counted twice per window of a scan, {side}")
    for fault in faults:
        print(f"results.py: {fault}", file=sys.stderr)
    if not faults:
        print("every measure yields a number")
    return 1 if faults else 0


def main():
    words = sys.argv[1:]
    if words[:1] == ["check"] and len(words) > 1:
        return check(words[1:])
    if words[:1] == ["report"] and len(words) == 3:
        return report(pathlib.Path(words[1]), pathlib.Path(words[2]))
    if words[:1] == ["publish"] and len(words) == 2:
        return publish(pathlib.Path(words[1]))
    print(__doc__, file=sys.stderr)
    return 2


if __name__ == "__main__":
    sys.exit(main())
