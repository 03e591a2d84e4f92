"""Sphinx configuration of the scripting documentation; the pages must be readable from disk, without a network."""

import importlib.util
import re
from pathlib import Path

project = "Strativo scripting"
author = "the Strativo developers"
project_copyright = author
language = "en"

extensions = []
highlight_language = "python3"
nitpicky = True

html_theme = "furo" if importlib.util.find_spec("furo") else "alabaster"
html_title = project
html_show_sourcelink = False
html_copy_source = False
html_show_sphinx = False


def embed_system_style_sheets(app, exception):
    """Debian's theme names a style sheet of its web server; a page read from disk needs the sheet itself."""
    for sheet in Path(app.outdir).rglob("*.css"):
        text = sheet.read_text(encoding="utf-8")
        embedded = re.sub(
            r"@import url\((/javascript/[^)]+)\);",
            lambda match: Path("/usr/share" + match[1]).read_text(encoding="utf-8"),
            text,
        )
        if embedded != text:
            sheet.write_text(embedded, encoding="utf-8")


def setup(app):
    app.connect("build-finished", embed_system_style_sheets)
