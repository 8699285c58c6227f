"""Makes one page of the pictures of all screens: a row for each state, a column for each language.

Usage: picture_overview.py FOLDER WIDTH HEIGHT

FOLDER holds <language>/<number>-<state>.png. The page, FOLDER/index.html, needs nothing but these pictures.
"""

import html
import pathlib
import sys

# English first, the pseudo-localized form last.
LANGUAGES = {
    "en": "English", "es": "Spanish", "pt-BR": "Brazilian Portuguese", "de": "German", "fr": "French", "it": "Italian",
    "ja": "Japanese", "ko": "Korean", "ru": "Russian", "pl": "Polish", "tr": "Turkish", "ar": "Arabic",
    "zh-Hans": "Simplified Chinese", "zh-Hant": "Traditional Chinese", "pseudo": "Pseudo-localized",
}

# What each picture shows, in the words of someone who cannot see it.
STATES = {
    "choose": "The first screen, with nothing chosen",
    "choose-recovery-key": "The first screen with the recovery key picked",
    "filled-long-name": "The first screen with a package of a very long name",
    "filled": "The first screen with a package and a passphrase",
    "preparing-unknown": "The package is being prepared; how far is not known",
    "preparing": "The package is being prepared; 42 percent are done",
    "inspecting": "The backup is being inspected",
    "snapshots-large": "Two incomplete snapshots, one of them with very large numbers",
    "fork": "Three snapshots and the notice of two histories",
    "snapshots": "Three snapshots, the newest one selected",
    "alert-destination": "The alert about a destination that cannot be used",
    "exporting": "A snapshot is being exported",
    "complete": "The last screen: the export is complete",
    "alert-wrong-passphrase": "The alert about a passphrase that does not fit",
    "alert-wrong-recovery-key": "The alert about a recovery key that does not fit",
    "alert-invalid-package": "The alert about a package that is not supported",
    "alert-package-unavailable": "The alert about a package that cannot be read",
    "alert-integrity": "The alert about a damaged backup",
    "alert-cancelled": "The alert about a recovery that was cancelled",
    "alert-generic": "The alert about an unexpected problem",
}

PAGE = """<!DOCTYPE html>
<html lang="en">
<meta charset="utf-8">
<title>Ambrel Recovery: every screen in every language</title>
<style>
  body {{ margin: 0; background: #222; color: #eee; font: 14px sans-serif; }}
  h1, p {{ margin: 16px; }}
  table {{ border-collapse: collapse; }}
  thead th {{ position: sticky; top: 0; background: #222; z-index: 1; }}
  tbody th {{ position: sticky; left: 0; background: #222; max-width: 150px; text-align: left; font-weight: normal; }}
  th, td {{ padding: 6px 8px; vertical-align: top; }}
  img {{ display: block; width: 440px; height: auto; }}
  figure {{ margin: 0; }}
  figcaption {{ padding-top: 4px; color: #aaa; }}
  a {{ color: inherit; }}
</style>
<h1>Every screen in every language</h1>
<p>A row is a state, a column a language. The window has {width} by {height} points. A click shows a picture in its full
size.</p>
<table>
<thead><tr><th>State</th>{heads}</tr></thead>
<tbody>
{rows}
</tbody>
</table>
</html>
"""


def cell(folder, language, name, state):
    """One picture with its caption. Raises FileNotFoundError where there is none."""
    path = f"{language}/{name}"
    if not (folder / path).is_file():
        raise FileNotFoundError(f"{path} was not drawn")
    alternative = html.escape(f"{STATES[state]}. {LANGUAGES[language]}.")
    caption = html.escape(f"{state}, {LANGUAGES[language]}")
    return (f'<td><figure><a href="{path}"><img loading="lazy" src="{path}" alt="{alternative}"></a>'
            f"<figcaption>{caption}</figcaption></figure></td>")


def page(folder, width, height):
    """The page of the pictures in `folder`. Raises KeyError for a state or a language that it does not know."""
    languages = sorted((path.name for path in folder.iterdir() if path.is_dir()), key=list(LANGUAGES).index)
    rows = []
    for name in sorted(path.name for path in (folder / languages[0]).glob("*.png")):
        state = name.removesuffix(".png").split("-", 1)[1]
        cells = "".join(cell(folder, language, name, state) for language in languages)
        rows.append(f'<tr><th scope="row">{html.escape(STATES[state])}</th>{cells}</tr>')
    heads = "".join(f'<th scope="col">{LANGUAGES[language]} ({language})</th>' for language in languages)
    return PAGE.format(width=width, height=height, heads=heads, rows="\n".join(rows))


def main(arguments):
    if len(arguments) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    folder = pathlib.Path(arguments[0])
    (folder / "index.html").write_text(page(folder, *arguments[1:]), encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
