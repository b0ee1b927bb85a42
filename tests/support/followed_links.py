"""The links of Markdown pages, followed as in a browser: cmark makes HTML of each page, and linkchecker asks for
what it leads to, without a network.

    broken_links(top)       what is wrong with the links of all pages in a folder, a line each

The folder is written to. Headings get the names that the pages of repositories give them.
"""

import csv
import html
import os
import re
import subprocess

HEADING = re.compile(r"<(h[1-6])>(.*?)</\1>", re.DOTALL)
FOLLOWED = re.compile(r"<(?:h[1-6] .*?</h[1-6]>|a .*?</a>|img [^>]*>)", re.DOTALL)  # each anchor has it read anew
TO_A_PAGE = re.compile(r'(href="(?![a-z]+:)[^"#]*\.md)(?=["#])')
# Files may be asked for as fast as can be; a folder may be named without a slash.
SETTINGS = "[checking]\nmaxrequestspersecond=100000\n[filtering]\nignorewarnings=file-missing-slash\n[AnchorCheck]\n"
TIME_LIMIT = 600  # seconds


def with_anchors(text):
    """Letters, digits, hyphens of what each heading shows; a name that comes again is numbered."""
    told = {}

    def named(heading):
        words = html.unescape(re.sub(r"<[^>]+>", "", heading[2])).lower()
        anchor = re.sub(r"[^\w\- ]", "", words).replace(" ", "-")
        told[anchor] = told.get(anchor, -1) + 1
        number = f"-{told[anchor]}" if told[anchor] else ""
        return f'<{heading[1]} id="{anchor}{number}">{heading[2]}</{heading[1]}>'

    return HEADING.sub(named, text)


def as_html(page):
    """The name of the file beside the page that has its headings, links and images."""
    text = subprocess.run(["cmark", "--unsafe", page], capture_output=True, text=True, timeout=TIME_LIMIT,
                          check=True).stdout
    shown = page.with_name(page.name + ".html")
    shown.write_text("\n".join(FOLLOWED.findall(TO_A_PAGE.sub(r"\1.html", with_anchors(text)))))
    return shown


def broken_links(top):
    settings = top / "linkchecker.ini"
    settings.write_text(SETTINGS)
    for folder in (top, *(path for path in top.rglob("*") if path.is_dir())):
        folder.chmod(0o755)  # as root it becomes a user who may do nothing else
    shown = [as_html(page) for page in sorted(top.rglob("*.md"))]
    done = subprocess.run(["linkchecker", "-f", settings, "--no-status", "-r1", "-o", "csv", *shown],
                          capture_output=True, text=True, timeout=TIME_LIMIT, check=False,
                          env=dict(os.environ, HOME=str(top), LC_ALL="C.UTF-8"))
    if done.returncode not in (0, 1):  # 1: it has found something
        raise AssertionError(done.stderr)
    rows = csv.DictReader((line for line in done.stdout.splitlines() if not line.startswith("#")), delimiter=";")
    return sorted(f"{row['parentname'].removeprefix(f'file://{top}/')}: {row['urlname']}: "
                  f"{row['warningstring'] or row['result']}".replace(".md.html", ".md") for row in rows)
