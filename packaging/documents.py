#!/usr/bin/python3
"""Turns the Markdown documents that go into the package into pages that open by a double click:
    documents.py DOCS OUT DOCUMENT...
DOCS is the folder of the documents, OUT the folder for the pages, the pictures and the other files that the
documents link to. A link to a document that is not in the package loses its target and keeps its text.
Fails when a link leads nowhere."""
import os
import re
import shutil
import sys

import markdown

PAGE = """<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>{title}</title>
<style>
body {{ font: 16px/1.5 "Segoe UI", sans-serif; max-width: 52em; margin: 2em auto; padding: 0 1em; color: #222 }}
img {{ max-width: 100%; border: 1px solid #ccc }}
code, pre {{ font: 14px/1.4 Consolas, monospace; background: #f3f3f3 }}
code {{ padding: 0 .2em }}
pre {{ padding: .7em; overflow-x: auto }}
pre code {{ padding: 0 }}
table {{ border-collapse: collapse }}
th, td {{ border: 1px solid #ccc; padding: .3em .6em; text-align: left; vertical-align: top }}
</style>
</head>
<body>
{body}
</body>
</html>
"""


def rewrite_links(body, docs, out, documents):
    """Links in the page's body: to the pages, to files that are copied, or removed."""

    def replaced(match):
        tag, attribute, target, rest = match.groups()
        if re.match(r"[a-z]+:", target) or target.startswith("#"):
            return match.group(0)
        path, _, anchor = target.partition("#")
        if path in documents:
            page = path.removesuffix(".md") + ".html"
            return f'<{tag} {attribute}="{page}{"#" + anchor if anchor else ""}"{rest}'
        if not os.path.exists(os.path.join(docs, path)):
            sys.exit(f"a link leads nowhere: {target}")
        if path.startswith("..") or path.endswith((".md", "/")):
            return f'<{tag} data-not-here="{target}"{rest}'
        os.makedirs(os.path.dirname(os.path.join(out, path)), exist_ok=True)
        shutil.copyfile(os.path.join(docs, path), os.path.join(out, path))
        return match.group(0)

    body = re.sub(r'<(a|img)((?: [a-z]+="[^"]*")*?) (href|src)="([^"]*)"',
                  lambda m: f'<{m[1]} {m[3]}="{m[4]}"{m[2]}', body)
    body = re.sub(r'<(a|img) (href|src)="([^"]*)"([^>]*>)', replaced, body)
    return re.sub(r'<a data-not-here="[^"]*"[^>]*>(.*?)</a>', r"\1", body)


def main(docs, out, *documents):
    os.makedirs(out, exist_ok=True)
    for document in documents:
        with open(os.path.join(docs, document), encoding="utf-8") as file:
            text = file.read()
        body = markdown.markdown(text, extensions=["tables", "fenced_code", "toc", "sane_lists"], output_format="html5")
        # In a cell the bar of a table is written with a stroke before it, also within code.
        body = re.sub(r"<td>.*?</td>", lambda cell: cell[0].replace(r"\|", "|"), body, flags=re.DOTALL)
        title = re.search(r"^# (.*)$", text, re.MULTILINE)[1].replace("`", "")
        page = PAGE.format(title=title, body=rewrite_links(body, docs, out, documents))
        with open(os.path.join(out, document.removesuffix(".md") + ".html"), "w", encoding="utf-8") as file:
            file.write(page)


if __name__ == "__main__":
    main(*sys.argv[1:])
