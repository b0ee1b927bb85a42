"""The files for VS Code fit together, and fit what vornkit says and takes."""
import json
import pathlib
import re
import unittest

import jsonschema

import editor_scores
import options
from vornkit import CommandTest

TOP = pathlib.Path(__file__).resolve().parents[2]
FOLDER = TOP / "editors/vscode"


def only(required, **others):
    """An object of these fields and no others: a misspelt one would be passed over without a word."""
    return {"type": "object", "required": list(required), "properties": {**required, **others},
            "additionalProperties": False}


def each(item):
    return {"type": "array", "minItems": 1, "items": item}


TEXT, GROUP, INSIDE = {"type": "string"}, {"type": "integer", "minimum": 1}, {"type": "string", "pattern": r"^\./"}
PAIR = {"type": "array", "items": TEXT, "minItems": 2, "maxItems": 2}
# What VS Code takes of an extension that contributes no code: of each point the fields that stand in ours.
EXTENSION = only(
    {"name": {"type": "string", "pattern": "^[a-z0-9-]+$"}, "version": TEXT, "publisher": TEXT,
     "engines": only({"vscode": {"type": "string", "pattern": r"^\^1\.\d+\.0$"}}),
     "contributes": only({
         "languages": each(only({"id": TEXT}, aliases=each(TEXT), configuration=INSIDE,
                                extensions=each({"type": "string", "pattern": r"^\."}))),
         "grammars": each(only({"language": TEXT, "scopeName": TEXT, "path": INSIDE})),
         "snippets": each(only({"language": TEXT, "path": INSIDE})),
         "problemPatterns": each(only({"name": TEXT, "regexp": TEXT}, file=GROUP, line=GROUP, column=GROUP,
                                      severity=GROUP, message=GROUP, code=GROUP)),
         "problemMatchers": each(only({"name": TEXT, "owner": TEXT, "pattern": TEXT}, label=TEXT, source=TEXT,
                                      fileLocation=PAIR))})},
    displayName=TEXT, description=TEXT, license=TEXT, private={"type": "boolean"}, categories=each(TEXT))
CONFIGURATION = only({}, comments=only({}, lineComment=TEXT, blockComment=PAIR), brackets=each(PAIR), wordPattern=TEXT,
                     autoClosingPairs=each(only({"open": TEXT, "close": TEXT}, notIn=each(TEXT))),
                     surroundingPairs=each(PAIR), folding=only({}, markers=only({"start": TEXT, "end": TEXT})))
LINES = {"anyOf": [TEXT, each(TEXT)]}
SNIPPETS = {"additionalProperties": only({"prefix": LINES, "body": LINES}, description=LINES)}
TASKS = only({"version": {"const": "2.0.0"}, "tasks": each(only(
    {"label": TEXT, "type": {"enum": ["shell", "process"]}, "command": TEXT}, args=each(TEXT), problemMatcher=TEXT,
    presentation=only({}, reveal={"enum": ["always", "silent", "never"]}),
    group={"anyOf": [{"enum": ["build", "test"]}, only({"kind": {"enum": ["build", "test"]}},
                                                       isDefault={"type": "boolean"})]}))})


def read(name):
    return json.loads((FOLDER / name).read_text())


def expanded(body):
    """What stands there when every field keeps its default."""
    text = body if isinstance(body, str) else "\n".join(body)
    text = re.sub(r"\$\{\d+:((?:[^\\}]|\\.)*)\}", r"\1", text.replace("$0", ""))
    return text.replace("\\$", "$")


class VscodeFiles(CommandTest):
    def test_each_file_has_the_fields_that_vs_code_takes(self):
        for name, schema in (("package.json", EXTENSION), ("language-configuration.json", CONFIGURATION),
                             ("snippets/vorn.json", SNIPPETS), ("tasks.json", TASKS)):
            with self.subTest(file=name):
                jsonschema.validate(read(name), schema)

    def test_what_is_named_elsewhere_is_defined(self):
        contributes = read("package.json")["contributes"]
        language, pattern = contributes["languages"][0]["id"], contributes["problemPatterns"][0]
        self.assertEqual({use["language"] for use in contributes["grammars"] + contributes["snippets"]}, {language})
        self.assertEqual(contributes["problemMatchers"][0]["pattern"], "$" + pattern["name"])
        numbers = [group for group in pattern.values() if isinstance(group, int)]
        self.assertEqual(sorted(numbers), list(range(1, re.compile(pattern["regexp"]).groups + 1)))
        matchers = {"$" + matcher["name"] for matcher in contributes["problemMatchers"]}
        self.assertLessEqual({task["problemMatcher"] for task in read("tasks.json")["tasks"]}, matchers)
        configuration = read("language-configuration.json")
        for expression in (configuration["wordPattern"], *configuration["folding"]["markers"].values()):
            re.compile(expression)

    def test_what_the_package_names_is_there(self):
        package = read("package.json")
        contributes = package["contributes"]
        for path in [contributes["languages"][0]["configuration"], contributes["grammars"][0]["path"],
                     contributes["snippets"][0]["path"]]:
            read(path)
        self.assertEqual(read(contributes["grammars"][0]["path"])["scopeName"], contributes["grammars"][0]["scopeName"])
        version = re.search(r"project\(vorn VERSION (\S+)", (TOP / "CMakeLists.txt").read_text())[1]
        self.assertEqual(package["version"], version)

    def test_the_problem_matcher_takes_each_message_and_no_other_line(self):
        pattern = read("package.json")["contributes"]["problemPatterns"][0]
        self.write("bad score.vorn", editor_scores.BAD)
        lines = self.vornkit("check", "bad score.vorn").stdout.splitlines()
        found = [match for match in (re.fullmatch(pattern["regexp"].strip("^$"), line) for line in lines) if match]
        places = [(match[pattern["file"]], match[pattern["line"]], match[pattern["severity"]], match[pattern["code"]])
                  for match in found]
        self.assertIn(("bad score.vorn", "1", "warning", "W30"), places)
        self.assertIn(("bad score.vorn", "9", "error", "E27"), places)
        self.assertIn("note", [place[2] for place in places])
        codes = [line for line in lines if re.search(r" \[[EWL][a-z0-9]+\]$", line)]
        self.assertEqual(len(found), len(codes))
        self.assertEqual(found[-1][pattern["column"]], "4")

    def test_tasks_call_what_there_is(self):
        for task in read("tasks.json")["tasks"]:
            self.assertEqual(task["command"], "vornkit")
            self.assertIn(task["args"][0], options.subcommands())
            self.assertIn(task["problemMatcher"], ["$vornkit-check"])

    def test_snippets_are_accepted_as_they_come(self):
        self.write("file", "te(90)\n")
        names = {word["word"] for word in json.loads(self.vornkit("words", "--format", "json").stdout)["words"]
                 if word["kind"] in ("setting", "generator")} - {"rs", "rd"}
        snippets = read("snippets/vorn.json")
        self.assertLess(names, set(snippets))
        for name, snippet in snippets.items():
            text = expanded(snippet["body"])
            self.assertNotIn("${", text)
            score = text + "\n"
            if name in names:
                values = f"no c4 {text}" if name == "s2" else f"60 {text} 62"
                score = f"i1 = 4 0 8 {{\np2 1\np3 1\np4 {values}\n}}\n"
            self.write("snippet.vorn", score)
            done = self.vornkit("check", "snippet.vorn")
            self.assertEqual(done.returncode, 0, name + done.stdout)


if __name__ == "__main__":
    unittest.main()
