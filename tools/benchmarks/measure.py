#!/usr/bin/env python3
"""Measures everything docs/performance.md says, and writes it: measure.py ROUNDS. Whatever is
compared takes turns in each round, so that both meet the same machine."""
import binascii
import collections
import json
import os
import pathlib
import re
import smtplib
import statistics
import subprocess
import sys
import tempfile
import time

import report

ROOT = pathlib.Path(__file__).resolve().parents[2]
PROGRAMS = ROOT / "build/bench/tools/benchmarks"
KIB, MIB = 1 << 10, 1 << 20
SIZES = (KIB, 10 * KIB, 100 * KIB, 10 * MIB)
PLAYERS = range(1, 17)
ROUNDS = int(sys.argv[1])
times = collections.defaultdict(list)  # what: milliseconds
memory = collections.defaultdict(list)  # what: KiB at most


def output(*command, **options):
    return subprocess.run([str(word) for word in command], check=True, text=True,
                          stdout=subprocess.PIPE, **options).stdout


def measured(what, work):
    start = time.perf_counter()
    work()
    times[what].append((time.perf_counter() - start) * 1000)


def send(what, client, port, folder, players, size, repeats):
    *sends, peak = output(PROGRAMS / "bench_send", client, f"127.0.0.1:{port}", f"{folder}/", players,
                          size, repeats).splitlines()
    for line in sends:
        taken, gap = map(float, line.split())
        times[what, client].append(taken)
        times[what, "gap"].append(gap)
    before, most = map(int, peak.split())
    memory[what, client].append(most)
    memory[what, client, "added"].append(most - before)


def by_smtplib(port, folder):
    for player in PLAYERS:
        data = (folder / f"GAME.M{player}").read_bytes()
        lines = [binascii.b2a_uu(data[i:i + 45], backtick=True) for i in range(0, len(data), 45)]
        text = b"Subject: Turn\n\nHello\n\nbegin 664 GAME.M\n" + b"".join(lines) + b"`\nend\n"
        with smtplib.SMTP("127.0.0.1", port, local_hostname="host") as server:
            server.sendmail("host@example.org", f"p{player}@example.org", text)


def peers(port, folder, size):
    """What these send is encoded already; nothing of that counts against them."""
    what = 16, size
    for player in PLAYERS:
        (folder / f"GAME.M{player}").write_bytes(b"x" * size)
    message = folder / "message"
    message.write_bytes(b"Subject: Turn\n\nHello\n\n" + encoded(b"x" * size))
    addresses = [f"p{player}@example.org" for player in PLAYERS]
    measured((what, "smtplib"), lambda: by_smtplib(port, folder))
    mails = [["--url", f"smtp://127.0.0.1:{port}", "--mail-from", "host@example.org", "--mail-rcpt", to,
              "-T", message] for to in addresses]
    words = [word for mail in mails for word in ["--next", "-s", *mail]][1:]
    measured((what, "curl"), lambda: output("curl", *words))
    measured((what, "msmtp"), lambda: [
        output("msmtp", "--host=127.0.0.1", f"--port={port}", "--from=host@example.org", to,
               stdin=message.open()) for to in addresses])
    measured((what, "swaks"), lambda: [
        output("swaks", "--server", f"127.0.0.1:{port}", "--helo", "host", "--from", "host@example.org",
               "--to", to, "--data", f"@{message}", "--silent", "3") for to in addresses])


def encoded(data):
    return b"".join(binascii.b2a_uu(data[i:i + 45]) for i in range(0, len(data), 45))


def encoders(folder):
    for size in (KIB, 100 * KIB, 10 * MIB):
        data = bytes(range(256)) * (size // 256)
        (folder / "bytes").write_bytes(data)
        repeats = max(1, MIB // size)
        measured(("encode", size, "binascii"), lambda: [encoded(data) for _ in range(repeats)])
        times["encode", size, "binascii"][-1] /= repeats
        times["encode", size, "perl"].append(float(output(
            "perl", "-MTime::HiRes=time", "-e", "local $/; open F, '<:raw', $ARGV[0]; $b = <F>;"
            "$t = time; $x = pack('u', $b) for 1..$ARGV[1]; print 1000 * (time - $t) / $ARGV[1]",
            folder / "bytes", repeats)))
        measured(("encode", size, "sharutils"),
                 lambda: subprocess.run(["uuencode", folder / "bytes", "GAME.M1"], check=True,
                                        stdout=subprocess.DEVNULL))


def work():
    """Inside the process; each figure of the library is the mean of many."""
    with tempfile.TemporaryDirectory(dir="/dev/shm") as folder:
        run = output(PROGRAMS / "bench_work", f"{folder}/", f"--benchmark_repetitions={3 * ROUNDS}",
                     "--benchmark_min_time=0.1", "--benchmark_enable_random_interleaving=true",
                     "--benchmark_format=json", stderr=subprocess.DEVNULL)
    for figure in json.loads(run)["benchmarks"]:
        if figure["run_type"] == "iteration":
            times[figure["run_name"]].append(figure["real_time"] / 1e6)


def windows(folder):
    """Without a window manager, whose own time would count."""
    output(PROGRAMS / "bench_work", f"{folder}/", "--benchmark_filter=SaveGame", stderr=subprocess.DEVNULL)
    turnpost = folder / "turnpost"
    turnpost.write_bytes((ROOT / "build/bench/src/turnpost").read_bytes())
    turnpost.chmod(0o755)
    for i in range(10000):
        (folder / f"{i}.hst").touch()
    for i in range(1000):
        (folder / f"folder {i}").mkdir()
    reading, writing = os.pipe()
    with subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1600x1200x24"],
                          pass_fds=[writing], stderr=subprocess.DEVNULL) as screen:
        surroundings = dict(os.environ, DISPLAY=f":{os.read(reading, 16).decode().strip()}",
                            XDG_RUNTIME_DIR=folder, QT_QPA_PLATFORM="xcb")
        try:
            for _ in range(2 * ROUNDS):
                for what, program in 4 * (("bare", PROGRAMS / "bench_bare"), ("turnpost", turnpost)):
                    taken, most = output(PROGRAMS / "bench_mapped", program, env=surroundings).split()
                    times["start", what].append(float(taken))
                    memory["start", what].append(int(most))
                for line in output(PROGRAMS / "bench_dialogs", f"{folder}/", env=surroundings).splitlines():
                    name, taken = line.rsplit(" ", 1)
                    times["dialog", name].append(float(taken))
        finally:
            screen.terminate()


def real_server(folder):
    """By its own script; nothing when that may not be used."""
    as_root = [] if os.getuid() == 0 else ["sudo", "-n", "--preserve-env=http_proxy,https_proxy,no_proxy"]
    clients = "\n".join(f'echo "{client} "$({PROGRAMS}/bench_send {client} $TURNPOST_SERVER {folder}/ 16 '
                        f'{100 * KIB} 2)' for client in ("blocking", "turnpost"))
    done = subprocess.run([*as_root, ROOT / "tests/interop/run", "postfix", "sh", "-c",
                           f"for i in $(seq {ROUNDS}); do {clients}; done"],
                          text=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    for client, first, second in re.findall(r"^(blocking|turnpost) (\S+) \S+ (\S+)", done.stdout, re.M):
        times["postfix", client] += [float(first), float(second)]


def measure():
    with tempfile.TemporaryDirectory() as name, subprocess.Popen(
            [PROGRAMS / "bench_sink"], text=True, stdin=subprocess.PIPE, stdout=subprocess.PIPE) as sink:
        folder = pathlib.Path(name)
        port = int(sink.stdout.readline())
        work()
        for _ in range(ROUNDS):
            for client in "blocking", "turnpost":
                for size in SIZES:
                    send((16, size), client, port, folder, 16, size, 3)
                for players in PLAYERS:
                    send((players, 100 * KIB), client, port, folder, players, 100 * KIB, 1)
                for power in range(10, 27, 2):
                    send((1, 1 << power), client, port, folder, 1, 1 << power, 1)
            for size in SIZES[:3]:
                peers(port, folder, size)
            encoders(folder)
        sink.stdin.close()
        (folder / "windows").mkdir(mode=0o700)
        windows(folder / "windows")
        real_server(folder)


if __name__ == "__main__":
    load = os.getloadavg()[0]
    measure()
    report.write(times, memory, load, ROUNDS)
