"""Compiles what depends on one changed file, and links it with what is built.

The build folder stays as it is: changed objects and programs go to a folder of
their own, in which the changed file lies as src/<name>. That folder comes first
among those for includes, so that a changed header is found before the real one.
"""

import json
import os
import shlex
import subprocess

LIBRARY = "libvorn_core.so"


def ninja(folder, *arguments):
    return subprocess.run(["ninja", "-C", folder, *arguments], check=True, capture_output=True,
                          text=True).stdout


def needed_files(folder):
    """For every object the files that it was compiled from, sources and headers."""
    needs = {}
    for block in ninja(folder, "-t", "deps").strip().split("\n\n"):
        target, *files = block.split("\n")
        needs[target.split(":")[0]] = {os.path.normpath(os.path.join(folder, name.strip())) for name in files}
    return needs


class Build:
    """The built preset mutate."""

    def __init__(self, folder):
        self.folder = os.path.abspath(folder)
        self.compilations = {}
        with open(os.path.join(folder, "compile_commands.json"), encoding="utf-8") as file:
            for command in (shlex.split(entry["command"]) for entry in json.load(file)):
                self.compilations[command[command.index("-o") + 1]] = command
        self.needs = needed_files(self.folder)
        self.links = {}

    def dependents(self, name, part):
        """The objects of a part of the build, such as "vorn_core", that need src/<name>."""
        file = os.path.join(self.folder, "../../src", name)
        return [target for target in self.compilations
                if f"/{part}.dir/" in f"/{target}" and os.path.normpath(file) in self.needs.get(target, ())]

    def compile(self, target, scratch, name, options=()):
        """The object, of the file as it lies in scratch; None where it does not compile."""
        result = os.path.join(scratch, target.replace("/", "_"))
        command = list(self.compilations[target])
        command[command.index("-o") + 1] = result
        if command[-1].endswith("/src/" + name):
            command[-1] = os.path.join(scratch, "src", name)
        command[1:1] = ["-I" + os.path.join(scratch, "src")]
        return result if self.succeeds(command + list(options)) else None

    def link(self, target, objects, result):
        """Links the target with some objects exchanged: {name in the build: changed one}."""
        if target not in self.links:
            words = shlex.split(ninja(self.folder, "-t", "commands", target).strip().splitlines()[-1])
            self.links[target] = [word for word in words if word not in (":", "&&")]
        command = [objects.get(word, word) for word in self.links[target]]
        command[command.index("-o") + 1] = result
        return self.succeeds(command)

    def succeeds(self, command):
        return subprocess.run(command, cwd=self.folder, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, check=False).returncode == 0
