"""The run of scripts/mutate, behind the build."""

import argparse
import os
import sys
from concurrent.futures import ThreadPoolExecutor

sys.path.insert(0, os.path.dirname(os.path.dirname(os.path.abspath(__file__))))

from mutation.build import Build
from mutation.record import Record, read_reasons, report
from mutation.sample import all_places, key, one_each
from mutation.tests import all_tests, failure, temporary_folder
from mutation.trial import NOT_COMPILED, Trial

BUILD = "build/mutate"
REASONS = "tests/mutation/unobservable.toml"


def arguments():
    parser = argparse.ArgumentParser(prog="scripts/mutate", description="Changes one place of src/ at a "
                                     "time, runs the tests and lists the changes that no test sees.")
    parser.add_argument("--seed", type=int, default=1, help="another sample for another number")
    parser.add_argument("--count", type=int, default=300, help="how many changes that compile")
    parser.add_argument("--file", default="", help="only files whose name below src/ begins so")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), help="trials at the same time")
    parser.add_argument("--fresh", action="store_true", help="forget what earlier runs found")
    return parser.parse_args()


def check_unchanged(build, top):
    """The tests must pass before a failure says anything."""
    with temporary_folder() as scratch:
        bad = [test for test in all_tests(build.folder)
               if failure(os.path.join(build.folder, "tests", test), top, scratch, build.folder)]
    if bad:
        sys.exit(f"Without any change these fail: {' '.join(bad)}")


def try_place(build, top, record, place):
    outcome = record.known(place)
    if outcome is None:
        with open(os.path.join(top, "src", place.file), encoding="utf-8") as file:
            text = file.read()
        outcome = Trial(build, top, place.file, text[:place.start] + place.new + text[place.end:]).run()
        record.add(place, outcome)
        print(f"src/{place.file}:{place.number}: {place.old} -> {place.new}: {outcome}", flush=True)
    return place, outcome


def try_all(places, count, jobs, reasons, attempt):
    """Until `count` of them compiled; those that will survive, and so take longest, behind the others."""
    outcomes, places = [], list(places)
    with ThreadPoolExecutor(jobs) as pool:
        while places and count > 0:
            outcomes += pool.map(attempt, sorted(places[:count], key=lambda place: key(place) in reasons))
            places = places[count:]
            count -= sum(outcome != NOT_COMPILED for _, outcome in outcomes[-count:])
    return outcomes


def main():
    wanted, top = arguments(), os.getcwd()
    build, path = Build(BUILD), os.path.join(BUILD, "mutation.jsonl")
    if wanted.fresh and os.path.exists(path):
        os.remove(path)
    check_unchanged(build, top)
    record = Record(path)
    places = one_each(all_places("src", wanted.file), wanted.seed)
    reasons = read_reasons(REASONS)
    outcomes = try_all(places, wanted.count, wanted.jobs, reasons,
                       lambda place: try_place(build, top, record, place))
    sys.exit(0 if report(outcomes, reasons) else 1)


main()
