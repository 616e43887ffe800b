"""Writes blocks of the tutorial's source as one web page.

Everything is in the page, pictures and script too, so it works from disk and without a network.
"""
import base64
import html
import pathlib
import re

from source import Heading, Lines, List, Paragraph, Picture, Table

STYLE = """
:root { color-scheme: light dark; --text: #1d2429; --back: #fff; --rule: #96a0a6; --head: #1f4e6e;
  --shade: #e2e9ee; }
@media (prefers-color-scheme: dark) { :root { --text: #e4e8ea; --back: #1d2226; --rule: #6b767d;
  --head: #8fc3e6; --shade: #2d363c; } }
body { margin: 0; display: flex; font: 16px/1.5 "Liberation Sans", Arial, sans-serif;
  color: var(--text); background: var(--back); }
nav { position: sticky; top: 0; flex: 0 0 17rem; box-sizing: border-box; height: 100vh;
  overflow-y: auto; padding: 1rem; border-right: 1px solid var(--rule); }
nav ul { list-style: none; padding: 0; }
nav ul ul { padding-left: 1rem; }
nav a { display: block; padding: .2rem 0; color: inherit; }
nav label, nav input, nav output { display: block; width: 100%; box-sizing: border-box; }
nav input { font: inherit; padding: .3rem; }
main { max-width: 46rem; padding: 1rem 2rem; }
h1, h2, h3 { color: var(--head); line-height: 1.25; }
table { border-collapse: collapse; }
th, td { border: 1px solid var(--rule); padding: .3rem .6rem; text-align: left; }
th { background: var(--shade); }
pre, code { font-family: "Liberation Mono", "Courier New", monospace; }
pre, code.ticket { background: #f6f6f0; }
pre, .black { color: #000; }
pre { padding: .6rem 1rem; overflow-x: auto; }
code.ticket { padding: 0 .2rem; }
.magenta { color: #f0f; } .red { color: #f00; } .blue { color: #00f; } .green { color: #00a000; }
figure { margin: 1.5rem 0; } img { max-width: 100%; } figcaption { font-style: italic; }
@media (max-width: 50rem) { body { display: block; }
  nav { position: static; height: auto; border: 0; } main { padding: 1rem; } }
@media print { nav { display: none; } }
"""

# Shows only the sections that hold every word looked for.
SCRIPT = """
const field = document.getElementById("search");
const told = document.getElementById("found");
const sections = [...document.querySelectorAll("main section")];
field.addEventListener("input", () => {
  const words = field.value.toLowerCase().split(/\\s+/).filter(Boolean);
  let shown = 0;
  for (const section of sections) {
    const text = section.textContent.toLowerCase();
    section.hidden = !words.every(word => text.includes(word));
    const entry = document.querySelector(`nav a[href="#${section.id}"]`);
    if (entry) entry.parentElement.hidden = section.hidden;
    shown += section.hidden ? 0 : 1;
  }
  told.value = words.length ? `${shown} of ${sections.length} sections` : "";
});
"""


def plain(spans):
    return "".join(span.text for span in spans)


def runs(spans):
    pieces = []
    for span in spans:
        text = html.escape(span.text, quote=False)
        if span.fixed:
            kind = f' class="ticket {span.colour}"' if span.ticket else ""
            text = f"<code{kind}>{text}</code>"
        text = f"<b>{text}</b>" if span.bold else text
        pieces.append(f"<i>{text}</i>" if span.italic else text)
    return "".join(pieces)


def ticket_line(spans):
    return "".join(f'<span class="{span.colour}">{html.escape(span.text, quote=False)}</span>'
                   for span in spans)


def table(block):
    rows = []
    for index, row in enumerate(block.rows):
        cell = 'th scope="col"' if index == 0 else "td"
        rows.append("<tr>" + "".join(f"<{cell}>{runs(c)}</{cell[:2]}>" for c in row) + "</tr>")
    return "<table>\n" + "\n".join(rows) + "\n</table>"


def picture(block, folder):
    data = base64.b64encode(pathlib.Path(folder, block.file).read_bytes()).decode()
    return (f'<figure><img src="data:image/png;base64,{data}" '
            f'alt="{html.escape(plain(block.caption))}">'
            f"<figcaption>{runs(block.caption)}</figcaption></figure>")


def name_of(heading):
    return re.sub(r"\W+", "-", plain(heading.spans).lower()).strip("-")


def block_html(block, folder):
    if isinstance(block, Heading):
        return f"<h{block.level}>{runs(block.spans)}</h{block.level}>"
    if isinstance(block, Paragraph):
        return f"<p>{runs(block.spans)}</p>"
    if isinstance(block, List):
        kind = "ol" if block.numbered else "ul"
        return f"<{kind}>" + "".join(f"<li>{runs(i)}</li>" for i in block.items) + f"</{kind}>"
    if isinstance(block, Table):
        return table(block)
    if isinstance(block, Lines):
        return "<pre>" + "\n".join(ticket_line(line) for line in block.lines) + "</pre>"
    assert isinstance(block, Picture)
    return picture(block, folder)


def document(blocks, folder):
    """The whole page; pictures are read from `folder`."""
    title = next(plain(block.spans) for block in blocks if isinstance(block, Heading))
    contents, parts = [], ["<section>"]
    for block in blocks:
        if isinstance(block, Heading) and block.level == 2:
            name = name_of(block)
            contents.append(f'<li><a href="#{name}">{runs(block.spans)}</a></li>')
            parts.append(f'</section>\n<section id="{name}">')
        parts.append(block_html(block, folder))
    return "\n".join((
        "<!DOCTYPE html>", '<html lang="en">', '<head><meta charset="utf-8">',
        '<meta name="viewport" content="width=device-width, initial-scale=1">',
        f"<title>{html.escape(title)}</title>", f"<style>{STYLE}</style></head>", "<body>",
        '<nav aria-label="Contents">', '<label for="search">Search</label>',
        '<input id="search" type="search">', '<output id="found" for="search"></output>',
        "<ul>", *contents, "</ul></nav>", "<main>", *parts, "</section></main>",
        f"<script>{SCRIPT}</script>", "</body></html>", ""))
