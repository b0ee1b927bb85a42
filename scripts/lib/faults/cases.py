"""What is run: cases of the tests with every kind of file, and scores that fill buffers."""

import dataclasses
import pathlib
import shlex

CASES = pathlib.Path("tests/cases")


@dataclasses.dataclass(frozen=True)
class Case:
    name: str
    arguments: tuple
    inputs: dict  # bytes by name
    not_failing: tuple = ()  # names of system calls


def case_of_folder(folder, arguments):
    paths = [path for path in (CASES / folder).rglob("*") if path.is_file()]
    inputs = {str(path.relative_to(CASES / folder)): path.read_bytes() for path in paths
              if not path.name.startswith("expected") and path.name != "args"}
    return Case(folder, tuple(shlex.split(arguments)), inputs)


def case_of_text(name, text, arguments):
    return Case(name, tuple(shlex.split(arguments)), {"in.vorn": text.encode()})


ALL_FILES = "-l run.log -x run.exp in.vorn out.sco"
QUICK = [
    Case("all kinds of files", tuple(shlex.split(ALL_FILES)), {
        "in.vorn": b"#include |part.inc|\ni1 = 4 0 $COUNT {p2 1 p3 .5 p4 ra(~BEATS 1 [1 2])}\n",
        "part.inc": b"#define COUNT #3#\n#include |inner/more.inc|\n> a line\n",
        "inner/more.inc": b"#const BEATS ~[2 + 1]\n"}),
    # Where a file cannot be told from another, nothing is known to be the same.
    Case("an include that is the output", ("in.vorn", "out.sco"),
         {"in.vorn": b"#include |out.sco|\n"}, not_failing=("newfstatat", "fstat")),
]
# None draws from a set marked "*" by SE: without memory for its marks it repeats elements, untold, on purpose.
FURTHER = [
    case_of_folder("preproc_includes/nested", ALL_FILES),
    case_of_folder("midi_runs/log", "-m -l run.log in.vorn out.mid"),
    case_of_folder("preproc_combinations/includes_in_includes_with_comments", ALL_FILES),
    case_of_folder("preproc_combinations/wherever_text_stands", ALL_FILES),
    case_of_folder("preproc_more/expansions_in_the_log", ALL_FILES),
    case_of_folder("preproc_includes/failure_in_an_included_file", ALL_FILES),
    case_of_folder("driver_log/error", ALL_FILES),
    case_of_folder("generators_statement/every_function", "-t " + ALL_FILES),
    case_of_folder("examples/clockwork", ALL_FILES),
    case_of_folder("examples/midi_chorale", "-m -x run.exp in.vorn out.mid"),
    case_of_folder("pieces/waltz", ALL_FILES),
    case_of_folder("pieces/machine", "in.vorn out.sco"),
    case_of_text("many events", "i1 = 5 0 -60000 {\np2 .01\np3 1\np4 ra(-60000 1 [1 2])\np5 9\n}\n", ALL_FILES),
    case_of_text("long lines", ("i1 = 3 0 1 {p2 1 p3 1 ;" + 900 * "." + "\n}\n") * 10, ALL_FILES),
    case_of_text("many notes", "i1 = 5 0 -60000 {\np2 .01\np3 1\np4 60\np5 9\n}\n", "-m in.vorn out.mid"),
]
