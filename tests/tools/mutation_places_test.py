#!/usr/bin/env python3
"""What scripts/mutate would change in a source, and that each change listed as
one that nobody can observe is still one that it could make."""

import sys

sys.path.insert(0, "scripts/lib")

from mutation.places import find_places
from mutation.record import read_reasons
from mutation.sample import all_places, key, one_each

TABLE = {
    "int a = b < c;": ["< <=", "< >="],
    "bool a = b && !c;": ["&& ||", "! "],
    "a += b - 2;": ["+= -=", "- +", "2 (2 + 1)", "2 (2 - 1)"],
    "a = -b;": ["- "],
    "++a;": ["++ --"],
    "a = 'x' == true;": ["'x' ('x' + 1)", "'x' ('x' - 1)", "== !=", "true false"],
    "x = 1'000.5e-3F;": ["1'000.5e-3F (1'000.5e-3F + 1)", "1'000.5e-3F (1'000.5e-3F - 1)"],
    "if (a) b();": ["if (a) if (false)", "if (a) if (true)", "b(); ;"],
    "while (f(a)) continue;": ["while (f(a)) while (false)"],
    "if (int a = f()) return a;": ["return a; return {};"],
    "return true;": ["true false"],
    "{ a.b(c)->d; e::f(g); }": ["e::f(g); ;"],
    # Neither operators nor calls.
    "char* const* a; T&& b; S<T> c; const U& d;": [],
    "template <typename T> T f(T, U&&);": [],
    "#if A < 1 \\\n  && 2\n": [],
    '// a < 1\n/* b\n + 2 */ "c == 3 \\" + 4"': [],
    "static_assert(sizeof(A) == 8 + 1);": [],
}


def found(text):
    return [f"{place.old} {place.new}" for place in find_places("a.cpp", text)]


def wrong_tables():
    return [f"{text!r}: {found(text)}" for text, wanted in TABLE.items() if found(text) != wanted]


def wrong_sample():
    """A line put before the others moves the places, and changes neither their keys nor their order."""
    text = "a = b < c;\na = b < c;\nd = 3;\n"
    before = [key(place) for place in one_each(find_places("a.cpp", text), 1)]
    behind = [key(place) for place in one_each(find_places("a.cpp", "\n" + text), 1)]
    other = [key(place) for place in one_each(find_places("a.cpp", text), 2)]
    is_right = before == behind and len(set(before)) == 3 and before != other
    return [] if is_right else [f"the samples are {before}, {behind} and {other}"]


def wrong_reasons():
    reasons = read_reasons("tests/mutation/unobservable.toml")
    known = {key(place) for place in all_places("src")}
    lost = [f"src/ has no such change any more:\n{entry}" for entry in reasons if entry not in known]
    return lost + [f"no reason is given for\n{entry}" for entry, reason in reasons.items() if not reason]


problems = wrong_tables() + wrong_sample() + wrong_reasons()
print("\n".join(problems))
sys.exit(1 if problems else 0)
