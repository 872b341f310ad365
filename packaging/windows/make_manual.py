"""Makes the manual and the papers that it names into pages that a browser opens without Internet.

make_manual.py <manual.md> <folder>; refuses a link or picture that leads nowhere.
"""
import re
import shutil
import sys
from pathlib import Path

import markdown

PAGE = """<!DOCTYPE html>
<html lang="{language}">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>{title}</title>
<style>
body {{ max-width: 60em; margin: 2em auto; padding: 0 1em; line-height: 1.6;
       font-family: "Malgun Gothic", "NanumGothic", sans-serif; color: #1a1a1a; background: #fff; }}
img {{ max-width: 100%; }}
table {{ border-collapse: collapse; }}
th, td {{ border: 1px solid #999; padding: .3em .6em; text-align: left; vertical-align: top; }}
pre, code {{ font-family: Consolas, "NanumGothicCoding", monospace; background: #f2f2f2; }}
pre {{ padding: .6em; overflow-x: auto; }}
blockquote {{ margin-left: 0; padding-left: 1em; border-left: 4px solid #c33; }}
@media (prefers-color-scheme: dark) {{
  body {{ color: #e6e6e6; background: #1e1e1e; }} a {{ color: #8ab4f8; }}
  pre, code {{ background: #2b2b2b; }} }}
</style>
</head>
<body>
{body}
</body>
</html>
"""


def anchor(text, separator):
    """The anchor of a heading, as the links in the papers write it."""
    return re.sub(r"[^\w\- ]", "", text.lower()).replace(" ", separator)


def page_of(source):
    text = re.sub(r"\]\(([\w.-]+)\.md(#[^)]*)?\)", r"](\1.html\2)", source.read_text("utf-8"))
    extensions = ["tables", "fenced_code", "sane_lists", "toc"]
    body = markdown.markdown(
        text, extensions=extensions, extension_configs={"toc": {"slugify": anchor}}
    )
    title = re.search(r"^# (.*)", text, re.MULTILINE).group(1)
    return PAGE.format(
        language="ko" if ".ko." in source.name else "en", title=title, body=body
    )


def make(source, folder, done):
    """Makes the page of `source` and of each paper beside it that it links to."""
    if source in done:
        return
    done.append(source)
    folder.mkdir(parents=True, exist_ok=True)
    page = page_of(source)
    (folder / source.name).with_suffix(".html").write_text(page, "utf-8", newline="\n")
    for target in re.findall(r'(?:href|src)="([^"#:]+)(?:#[^"]*)?"', page):
        if target.endswith(".html"):
            make(source.parent / target.replace(".html", ".md"), folder, done)
        else:
            (folder / target).parent.mkdir(exist_ok=True)
            shutil.copyfile(source.parent / target, folder / target)
    anchors = set(re.findall(r'id="([^"]+)"', page))
    lost = set(re.findall(r'href="#([^"]+)"', page)) - anchors
    if lost:
        sys.exit(f"{source.name}: links that lead nowhere: {', '.join(sorted(lost))}")


if __name__ == "__main__":
    make(Path(sys.argv[1]).resolve(), Path(sys.argv[2]), [])
