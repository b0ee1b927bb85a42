"""From a save to the diagnosis: how long vornkit watch takes on a score of 1,000 lines.

    python3 bench/watch_latency.py build/release/vornkit

Saves the score 40 times, every second time with a mistake in its last line, and prints the
median and the longest of the times until the first line is told. Of these, 15 milliseconds
are the pause in which a save of several steps counts as one.
"""
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

SAVES = 40
BLOCK = "i1 = 5 {} -20 {{\np2 .5\np3 .9\np4 ra(T 1 [60 72])\np5 < 9000 7000 >\n}}\n"
TARGET = 100  # milliseconds


def main():
    program = pathlib.Path(sys.argv[1]).resolve()
    text = "".join(BLOCK.format(4 * number) for number in range(166))
    wrong = text + "i1 = 5 0 4 {\np2 1\np3 1\np4 c4 }\n"
    with tempfile.TemporaryDirectory() as folder:
        score = pathlib.Path(folder) / "a.vorn"
        score.write_text(text)
        watch = subprocess.Popen([program, "watch", score], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        watch.stdout.readline()
        times = []
        for save in range(SAVES):
            time.sleep(0.05)
            start = time.monotonic()
            score.write_text(text if save % 2 else wrong)
            watch.stdout.readline()
            times.append((time.monotonic() - start) * 1000)
            while save % 2 == 0 and "help" not in watch.stdout.readline():
                pass
        watch.terminate()
        watch.wait()
    print(f"{len(wrong.splitlines())} lines, {SAVES} saves: median {statistics.median(times):.1f} ms, "
          f"longest {max(times):.1f} ms  (target {TARGET} ms)")


if __name__ == "__main__":
    main()
