"""Writes docs/performance.md and its plot from what measure.py has found."""
import pathlib
import platform
import re
import statistics
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]
KIB, MIB = 1 << 10, 1 << 20
SIZE_NAMES = {KIB: "1 KiB", 10 * KIB: "10 KiB", 100 * KIB: "100 KiB", 10 * MIB: "10 MiB"}
ENCODED = 63 / 45  # bytes on the wire for each of a file
DIALOGS = {"frmOpen": "file picker in a folder of 10,000 files and 1,000 subfolders",
           "frmSettings": "e-mail settings", "frmMessage": "message editor", "frmAtch": "attachments",
           "frmStore": "stored games", "frmAbout": "about", "message box": "message box",
           "frmProgRept": "report"}
PLOT = """set terminal svg size 900,640 background "white" font "sans,13"
set output "{output}"
set multiplot layout 2,2
set key top left
set grid
set style data linespoints
set logscale xy
set xlabel "file size, one player (KiB)"
set ylabel "ms"
plot $sizes using 1:2 title "turnpost", $sizes using 1:3 title "blocking client"
unset logscale y
set ylabel "MiB at most"
plot $sizes using 1:4 title "turnpost", $sizes using 1:5 title "blocking client"
unset logscale x
set xlabel "players, 100 KiB each"
set ylabel "ms"
set yrange [0:]
plot $players using 1:2 title "turnpost", $players using 1:3 title "blocking client"
set ylabel "MiB at most"
set key bottom right
plot $players using 1:4 title "turnpost", $players using 1:5 title "blocking client"
"""


def figure(values, unit="ms"):
    middle = statistics.median(values)
    digits = 3 if middle < 1 else 2 if middle < 10 else 1 if middle < 100 else 0
    return f"{middle:,.{digits}f} {unit} ({min(values):,.{digits}f} to {max(values):,.{digits}f})"


def rates(size, values):
    return [size / value / 1e6 for value in values]  # GB/s from milliseconds


def ratio(ours, others):
    return statistics.median(ours) / statistics.median(others)


def verdict(met):
    return "met" if met else "**missed**"


def encoding(times):
    for size in (KIB, 100 * KIB, 10 * MIB):
        ours = rates(size, times[f"UuencodeInMemory/{size}"])
        others = {name: rates(size, times["encode", size, name])
                  for name in ("perl", "binascii", "sharutils")}
        names = ", ".join(f"{name} {statistics.median(other):.2g}" for name, other in others.items())
        met = statistics.median(ours) >= max(1.5, *map(statistics.median, others.values()))
        yield (f"UUencode in memory, {SIZE_NAMES[size]}", "1.5 GB/s, ahead of the others",
               figure(ours, "GB/s"), f"GB/s: {names}", verdict(met))
    ours = times["MessageFromFileToWire"]
    yield ("a mail of 100 KiB from file to bytes for the wire", "150 µs", figure(ours), "",
           verdict(statistics.median(ours) <= 0.150))


def sending(times, memory):
    for size in SIZE_NAMES:
        most = 1.5 if size == 10 * MIB else 2
        ours = times[(16, size), "turnpost"]
        others = {name: times[(16, size), name] for name in ("smtplib", "curl", "msmtp", "swaks")
                  if times[(16, size), name]}
        blocking = times[(16, size), "blocking"]
        names = "".join(f"; {name} {statistics.median(other):.0f}" for name, other in others.items())
        met = ratio(ours, blocking) <= most and all(ratio(ours, other) < 1 for other in others.values())
        yield (f"16 × {SIZE_NAMES[size]} to the sink",
               f"{most} × the blocking client" + (", ahead of the others" if others else ""), figure(ours),
               f"blocking client {figure(blocking)}, ratio {ratio(ours, blocking):.2f}{names}",
               verdict(met))
    large = (16, 10 * MIB)
    peak = [kib / KIB for kib in memory[large, "turnpost"]]
    encoded = 10 * ENCODED
    yield ("the same, memory at most", f"3 × the encoded mail of {encoded:.0f} MiB", figure(peak, "MiB"),
           f"ratio {statistics.median(peak) / encoded:.2f}",
           verdict(statistics.median(peak) <= 3 * encoded))
    gaps = [gap for gap in times[large, "gap"] if gap]
    yield ("the same, longest gap in the event loop", "50 ms, in every send", figure(gaps), "",
           verdict(max(gaps) <= 50))
    if times["postfix", "turnpost"]:
        ours, blocking = times["postfix", "turnpost"], times["postfix", "blocking"]
        yield ("16 × 100 KiB to a real Postfix", "1.2 × the blocking client", figure(ours),
               f"blocking client {figure(blocking)}, ratio {ratio(ours, blocking):.2f}",
               verdict(ratio(ours, blocking) <= 1.2))
    else:
        yield ("16 × 100 KiB to a real Postfix", "1.2 × the blocking client", "not measured", "", "")


def windows(times, memory):
    for name, found, unit, most in (("exec to mapped window", times, "ms", 1.25),
                                    ("memory of the program, 16 rows", memory, "MiB", 1.2)):
        scale = KIB if unit == "MiB" else 1
        ours, bare = ([value / scale for value in found["start", what]] for what in ("turnpost", "bare"))
        yield (name, f"{most} × a bare window of 100 controls", figure(ours, unit),
               f"bare window {figure(bare, unit)}, ratio {ratio(ours, bare):.2f}",
               verdict(ratio(ours, bare) <= most))
    for name, words in DIALOGS.items():
        ours = times["dialog", name]
        yield (f"first opening: {words}", "50 ms", figure(ours), "", verdict(statistics.median(ours) <= 50))
    for name in ("SaveGame", "LoadGame"):
        yield ({"SaveGame": "saving a game, without the flush to disk", "LoadGame": "loading a game"}[name],
               "1 ms", figure(times[name]), "", verdict(statistics.median(times[name]) < 1))


def plot(times, memory, output):
    def rows(cases):
        for position, what in cases:
            yield " ".join(str(value) for value in (
                position, *(statistics.median(times[what, client]) for client in ("turnpost", "blocking")),
                *(statistics.median(memory[what, client]) / KIB for client in ("turnpost", "blocking"))))

    sizes = rows((2 ** power / KIB, (1, 1 << power)) for power in range(10, 27, 2))
    players = rows((count, (count, 100 * KIB)) for count in range(1, 17))
    data = "".join(f"${name} << END\n" + "\n".join(lines) + "\nEND\n"
                   for name, lines in (("sizes", sizes), ("players", players)))
    subprocess.run(["gnuplot"], input=data + PLOT.format(output=output), text=True, check=True)


def write(times, memory, load, rounds):
    plot(times, memory, ROOT / "docs/pictures/performance.svg")
    processor = re.search(r"model name\s*: (.*)", pathlib.Path("/proc/cpuinfo").read_text())[1]
    cores = pathlib.Path("/proc/cpuinfo").read_text().count("processor\t")
    table = "\n".join("| " + " | ".join(row) + " |" for row in
                      (*encoding(times), *sending(times, memory), *windows(times, memory)))
    largest = (1, 64 * MIB)
    text = (ROOT / "tools/benchmarks/performance.md.in").read_text()
    (ROOT / "docs/performance.md").write_text(text.format(
        rounds=rounds, load=f"{load:.1f}", machine=f"{processor}, {cores} cores, Linux {platform.release()}",
        table=table, largest_time=figure(times[largest, "turnpost"]),
        largest_gap=figure([gap for gap in times[largest, "gap"] if gap]),
        largest_memory=figure([kib / KIB for kib in memory[largest, "turnpost"]], "MiB")))
