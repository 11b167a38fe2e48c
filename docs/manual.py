#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the manual's PDF: manual.py OUT.pdf. Fails if a picture is missing."""
import pathlib
import sys

import markdown
import weasyprint

STYLE = """
@page { size: A5; margin: 16mm 15mm 18mm; @bottom-center { content: counter(page); font-size: 8pt; color: #888 } }
body { font: 9.5pt/1.45 Roboto, sans-serif; color: #222 }
h1 { font-size: 22pt; margin: 0 0 6mm; border-bottom: 1mm solid #0068b2; padding-bottom: 2mm }
h2 { font-size: 13pt; margin: 7mm 0 2mm; break-after: avoid }
p, ol, ul { margin: 0 0 2.5mm }
ol, ul { padding-left: 5mm }
li { margin-bottom: 1.2mm }
img { width: 100%; margin: 2mm 0; border-radius: 1.5mm }
p:has(img), img { break-inside: avoid }
code { font-size: 9pt }
"""


def fetch(url):
    """Any file but no other address; weasyprint alone would only warn of a missing one."""
    path = pathlib.Path(url.removeprefix("file://"))
    if not path.is_file():
        sys.exit(f"manual: there is no {path}")
    return weasyprint.default_url_fetcher(path.as_uri())


def main():
    source = pathlib.Path(__file__).with_suffix(".md").resolve()
    html = markdown.markdown(source.read_text(encoding="utf-8"), extensions=["tables"])
    page = weasyprint.HTML(string=f'<html lang="en"><body>{html}</body></html>', base_url=str(source), url_fetcher=fetch)
    page.write_pdf(sys.argv[1], stylesheets=[weasyprint.CSS(string=STYLE)])


main()
