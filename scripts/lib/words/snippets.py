"""Snippets of VS Code: one for each command and generator, from its example, and some of more lines."""
import json
import re

SKELETONS = {
    "instrument block": ("block", [
        "i${1:1} = ${2:5}, ${3:0}, ${4:8} {", "p2 ${5:1}", "p3 ${6:.9}", "p4(op) no ${7:< c4 e g >}",
        "p5 ${8:8000}", "}", "$0"], "An instrument block: instrument, p-fields, start and length in beats."),
    "include": ("include", ["#include |${1:file}|", "$0"], "The text of another file in this place."),
    "constant": ("const", ["#const ${1:NAME} ${2:1}", "$0"], "A constant, which ~NAME stands for."),
    "macro": ("define", ["#define ${1:NAME}(${2:a'b}) #${3:\\$a \\$b}#", "$0"], "A macro with arguments."),
    "condition": ("if", ["#if(${1:1})", "$0", "#endif"], "Lines that are read when the value is not 0."),
    "function table": ("table", ["> f${1:1} 0 ${2:8192} 10 ${3:1}", "$0"], "A function table of Csound."),
}
KINDS = ["global-command", "setting", "generator"]


def called(word):
    """The call of the example, with a field for each of its arguments; a bracket holds one."""
    call = re.search(rf"\b{word['word']}\(([^()]*)\)", word["example"])[1]
    arguments = re.findall(r"\[[^]]*\]|\S+", call)
    fields = [f"[${{{at}:{text[1:-1]}}}]" if text[0] == "[" else f"${{{at}:{text}}}"
              for at, text in enumerate(arguments, 1)]
    return f"{word['word']}({' '.join(fields)})$0"


def text(words):
    snippets = {name: {"prefix": prefix, "body": body, "description": description}
                for name, (prefix, body, description) in SKELETONS.items()}
    for kind in KINDS:
        for word in words.of_kind(kind):
            if "(" in word["signature"]:
                snippets[word["word"]] = {"prefix": word["word"], "body": called(word),
                                          "description": f"{word['signature']}: {word['text']}"}
    return json.dumps(snippets, indent=4, ensure_ascii=False) + "\n"
