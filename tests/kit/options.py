"""The options of the commands, as their own help shows them."""
import os
import re
import subprocess

import vornkit

VORN = os.environ.get("VORN_PROGRAM", "build/dev/vorn")


class Option:
    """One line of the help: "  -o,--output FILE    the file"."""

    def __init__(self, names, value):
        self.names = names
        self.takes_value = value != ""
        within = re.search(r"\{([^}]*)\}", value)
        self.choices = [re.sub("->.*", "", choice) for choice in within[1].split(",")] if within else []
        alternatives = re.match(r"([a-z]+(?:\|[a-z]+)+)", value)
        if alternatives:
            self.choices = alternatives[1].split("|")
        if all(re.fullmatch("L[0-9]+", choice) for choice in self.choices):  # vornkit explain tells of them
            self.choices = []
        default = re.search(r"=([0-9]+)$", value)
        self.defaults = [default[1]] if default else []


def help_of(*arguments):
    return subprocess.run([vornkit.VORNKIT, *arguments, "--help"], capture_output=True, text=True, check=True).stdout


def subcommands():
    listed = help_of().split("Subcommands:\n")[1]
    return re.findall(r"^  (\w+)", listed, re.M)


def of_subcommand(subcommand):
    """By name."""
    found = {}
    for names, value in re.findall(r"^  (-[-a-z,]+)(?: (\S.*?))?(?:  |$)", help_of(subcommand), re.M):
        option = Option(names.split(","), value)
        found.update({name: option for name in option.names})
    return found


def arguments(subcommand):
    """The names of positional arguments in the usage."""
    usage = re.search(r"^Usage: (.*)$", help_of(subcommand), re.M)[1]
    return re.findall(r"\b([A-Z]+)\b", usage.replace("[OPTIONS]", ""))


def of_vorn():
    """Each option that the usage shows, and whether it takes a value."""
    usage = subprocess.run([VORN], capture_output=True, text=True, check=False).stderr
    return {name: value != "" for name, value in re.findall(r"^  (-[a-z])( <\w+>)?", usage, re.M)}
