"""Makes the manual's HTML pages from its Markdown.

    python3 make_html.py NAME OUT [STAMP]

NAME is the product's name in the titles. Every page is listed in index.md, whose lists are also
the navigation beside each page. A line [[图:PANEL|text]] is the picture pictures/PANEL.png, left
out while there is none. STAMP is a file to touch when all is done. Fails on a page that is not
listed, or listed and not there, and on links that lead nowhere. Needs cmark-gfm.
"""

import html
import pathlib
import re
import shutil
import subprocess
import sys

SOURCE = pathlib.Path(__file__).parent
PICTURE = re.compile(r"^\[\[图:(\w+)\|(.*)\]\]$", re.MULTILINE)
LINK = re.compile(r"\]\((\w+)\.md\)")
ENTRY = re.compile(r"^- \[(.*)\]\((\w+)\.md\)$")
HEADING = re.compile(r"^# (.*)$", re.MULTILINE)

PAGE = """<!DOCTYPE html>
<html lang="zh-CN">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>{title} - {product}</title>
<link rel="stylesheet" href="style.css">
</head>
<body>
<nav>
<p class="product"><a href="index.html">{product}</a></p>
{navigation}</nav>
<main>
{body}
</main>
</body>
</html>
"""


def to_html(text):
    # Our own pages hold tags, so they are let through.
    return subprocess.run(["cmark-gfm", "--unsafe", "--extension", "table"], input=text,
                          stdout=subprocess.PIPE, text=True, encoding="utf-8", check=True).stdout


def picture(match):
    name, caption = match.group(1), html.escape(match.group(2))
    if not (SOURCE / "pictures" / f"{name}.png").exists():
        return ""
    image = f'<img src="pictures/{name}.png" alt="{caption}">'
    return f"<figure>{image}<figcaption>{caption}</figcaption></figure>"


def navigation(index, current):
    """The lists of the first page, with the page at hand marked."""
    parts, is_open = [], False
    for line in index.splitlines():
        if line.startswith("#"):
            if is_open:
                parts.append("</ul>")
            is_open = False
        if line.startswith("### "):
            parts.append(f"<h2>{html.escape(line[4:])}</h2>")
        entry = ENTRY.match(line)
        if entry:
            if not is_open:
                parts.append("<ul>")
            is_open = True
            here = ' class="here"' if entry.group(2) == current else ""
            caption = html.escape(entry.group(1))
            parts.append(f'<li{here}><a href="{entry.group(2)}.html">{caption}</a></li>')
    return "\n".join(parts + ["</ul>"] * is_open) + "\n"


def main(product, out, stamp=None):
    out = pathlib.Path(out)
    pages = {file.stem: file.read_text(encoding="utf-8") for file in SOURCE.glob("*.md")}
    listed = {entry.group(2) for entry in map(ENTRY.match, pages["index"].splitlines()) if entry}
    linked = {name for text in pages.values() for name in LINK.findall(text)}
    if wrong := listed ^ (set(pages) - {"index"}) | linked - set(pages):
        sys.exit(f"not both listed in index.md and there: {sorted(wrong)}")

    shutil.rmtree(out, ignore_errors=True)
    (out / "pictures").mkdir(parents=True)
    for file in (SOURCE / "pictures").glob("*.png"):
        shutil.copy(file, out / "pictures")
    shutil.copy(SOURCE / "style.css", out)
    for name, text in pages.items():
        text = LINK.sub(r"](\1.html)", PICTURE.sub(picture, text))
        body = to_html(text)
        page = PAGE.format(title=html.escape(HEADING.search(text).group(1)),
                           product=html.escape(product),
                           navigation=navigation(pages["index"], name), body=body)
        (out / f"{name}.html").write_text(page, encoding="utf-8")
    if stamp:
        pathlib.Path(stamp).touch()


if __name__ == "__main__":
    main(*sys.argv[1:])
