"""What the hardening of the installed program costs.

    python3 bench/hardening.py

Builds `vorn` as it is installed and without hardening (build/hardened, build/unhardened),
then runs both in turn on three scores and prints the ratio of their medians of processor time.
"""
import os
import pathlib
import statistics
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
ROUNDS = 25
TARGET = 1.03
LITERAL = "i1 = 8 0 -300000 {\np2 .001\np3 .5\n" + "".join(
    f"p{field} {' '.join(str(field * value / 7) for value in range(1, 301))}\n" for field in range(4, 9)) + "}\n"
GENERATED = """i1 = 7 0 -300000 {
p2 mo(T .5 f .001 .01 .5 .002 .003)
p3 ra(T .7 [.1 2] .3 [g 1 2])
p4 se(T 1 * [60 62 64 65])
p5 rw(T 1 [0 100] .5 3)
p6 ra(T 1 [x 20 2000])
p7 mo(T 1 e 0 1)
}
"""
NOTES = "i1 = 5 0 -300000 {\np2 .01\np3 .02\np4 ra(T 1 [40 100])\np5 ra(T 1 [40 80])\n}\n"
SCORES = {"literal lists": (LITERAL, ()), "generators": (GENERATED, ()), "MIDI": (NOTES, ("-m",))}


def build(folder, hardening):
    subprocess.run(["cmake", "--preset", "release", "-B", folder, f"-DVORN_HARDENING={hardening}", "-DVORN_BENCH=OFF"],
                   cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", folder, "--target", "vorn"], cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    return ROOT / folder / "vorn"


def processor_time(program, options, score):
    """Of one run, in seconds."""
    running = subprocess.Popen([program, *options, score, "/dev/null"], stderr=subprocess.DEVNULL)
    _, status, used = os.wait4(running.pid, 0)
    if status:
        raise SystemExit(f"{program} refused {score}")
    return used.ru_utime + used.ru_stime


def ratio(programs, options, score):
    times = [[processor_time(program, options, score) for program in programs] for _ in range(ROUNDS)]
    hardened, unhardened = (statistics.median(column) for column in zip(*times))
    return hardened / unhardened


def main():
    programs = [build("build/hardened", "ON"), build("build/unhardened", "OFF")]
    with tempfile.TemporaryDirectory() as folder:
        score = pathlib.Path(folder) / "score.vorn"
        for name, (text, options) in SCORES.items():
            score.write_text(text)
            print(f"{name}: {ratio(programs, options, score):.3f} of the time without hardening (target {TARGET})")


if __name__ == "__main__":
    main()
