"""Writes the desktop entry and the description for software centers, with the texts of the catalogue.

Usage: desktop_files.py --catalogue FOLDER --version VERSION --date DATE --homepage URL --pictures-url URL --notice TEXT
                        ENTRY METAINFO

An address or a notice that is empty is left out.
"""

import argparse
import json
import pathlib
import xml.etree.ElementTree as ElementTree

_IDENTIFIER = "com.ambrel.recovery"
_COMMAND = "ambrel-recovery-app"
# The title of the window, which is the same in every language.
_NAME = "Ambrel Recovery"
_SOURCE_LANGUAGE = "en"
# Languages whose desktops use other names than the catalogue: with regions instead of scripts.
_LOCALES = {"pt-BR": ["pt"], "zh-Hans": ["zh_CN", "zh_SG"], "zh-Hant": ["zh_TW", "zh_HK"]}
_SUMMARY = "recovery.restore.title"
_DESCRIPTION = ["recovery.first-launch.body", "recovery.inspect-card.body", "recovery.choose-package.body"]
_KEYWORDS = ["navigation.backup", "recovery.restore.navigation-title", "library.smart.photos", "files-export.start",
             "recovery.snapshots.title", "recovery.prompt.recovery-key"]
# Each picture with the text that describes it, the most telling one first.
_PICTURES = {"snapshots": "recovery.snapshots.title", "choose": "recovery.choose-package.action",
             "exporting": "files-export.running", "complete": "files-export.completed.title"}


class Texts:
    """The texts of the catalogue in every language, English first."""

    def __init__(self, folder):
        languages = sorted((path.stem for path in pathlib.Path(folder).glob("*.lproj")),
                           key=lambda language: (language != _SOURCE_LANGUAGE, language))
        self._tables = {language: json.loads((pathlib.Path(folder) / f"{language}.lproj" / "Localizable.json")
                                             .read_text(encoding="utf-8")) for language in languages}

    def of(self, key):
        """(locale, text) for each locale; the locale is empty for English."""
        for language, table in self._tables.items():
            locales = [""] if language == _SOURCE_LANGUAGE else _LOCALES.get(language, [language])
            for locale in locales:
                yield locale, table["ambrel." + key]

    def lists_of(self, keys):
        """(locale, texts) for each locale, without repetitions."""
        for texts in zip(*map(self.of, keys)):
            yield texts[0][0], list(dict.fromkeys(text for _, text in texts))


def _entry_lines(key, translations):
    for locale, value in translations:
        yield f"{key}[{locale}]={value}" if locale else f"{key}={value}"


def desktop_entry(texts):
    keywords = ((locale, "".join(word.replace(";", r"\;") + ";" for word in words))
                for locale, words in texts.lists_of(_KEYWORDS))
    lines = ["[Desktop Entry]", "Type=Application", f"Exec={_COMMAND}", f"Icon={_IDENTIFIER}", "Terminal=false",
             "Categories=Utility;Archiving;", "StartupNotify=true", f"StartupWMClass={_COMMAND}",
             *_entry_lines("Name", ((locale, _NAME) for locale, _ in texts.of(_SUMMARY))),
             *_entry_lines("Comment", texts.of(_SUMMARY)), *_entry_lines("Keywords", keywords)]
    return "\n".join(lines) + "\n"


def _add(parent, tag, text=None, **attributes):
    element = ElementTree.SubElement(parent, tag, attributes)
    element.text = text
    return element


def _add_translated(parent, tag, translations):
    for locale, text in translations:
        _add(parent, tag, text, **({"xml:lang": locale} if locale else {}))


def metainfo(texts, options):
    component = ElementTree.Element("component", type="desktop-application")
    _add(component, "id", _IDENTIFIER)
    # Of this description alone: software centers collect only those with a permissive license.
    _add(component, "metadata_license", "FSFAP")
    _add(component, "name", _NAME)
    _add_translated(component, "summary", texts.of(_SUMMARY))
    description = _add(component, "description")
    if options.notice:
        _add(description, "p", options.notice)
    for key in _DESCRIPTION:
        _add_translated(description, "p", texts.of(key))
    _add(component, "launchable", f"{_IDENTIFIER}.desktop", type="desktop-id")
    _add(_add(component, "provides"), "binary", _COMMAND)
    if options.homepage:
        _add(component, "url", options.homepage, type="homepage")
    # Only addresses on the web are allowed.
    if options.pictures_url:
        screenshots = _add(component, "screenshots")
        for index, (name, caption) in enumerate(_PICTURES.items()):
            screenshot = _add(screenshots, "screenshot", **({"type": "default"} if index == 0 else {}))
            _add_translated(screenshot, "caption", texts.of(caption))
            _add(screenshot, "image", f"{options.pictures_url}/{name}.png")
    _add(component, "content_rating", type="oars-1.1")
    _add(_add(component, "releases"), "release", version=options.version, date=options.date)
    ElementTree.indent(component)
    return ElementTree.tostring(component, encoding="unicode", xml_declaration=True) + "\n"


def main():
    parser = argparse.ArgumentParser()
    for name in ("catalogue", "version", "date", "homepage", "pictures-url", "notice"):
        parser.add_argument(f"--{name}", required=True)
    parser.add_argument("entry", type=pathlib.Path)
    parser.add_argument("metainfo", type=pathlib.Path)
    options = parser.parse_args()
    texts = Texts(options.catalogue)
    options.entry.write_text(desktop_entry(texts), encoding="utf-8")
    options.metainfo.write_text(metainfo(texts, options), encoding="utf-8")


if __name__ == "__main__":
    main()
