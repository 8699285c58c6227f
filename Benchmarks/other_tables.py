#!/usr/bin/env python3
"""Writes a string table in the source forms of gettext, Qt and ICU: other_tables.py TABLE.json FOLDER"""

import json
import pathlib
import sys
from xml.sax.saxutils import escape


def quoted(text):
    return json.dumps(text, ensure_ascii=False)


def gettext_source(texts):
    header = 'msgid ""\nmsgstr "Content-Type: text/plain; charset=UTF-8\\n"\n'
    return header + "".join(f"\nmsgid {quoted(key)}\nmsgstr {quoted(text)}\n" for key, text in texts.items())


def qt_source(texts):
    messages = "".join(
        f'<message id="{escape(key)}"><source/><translation>{escape(text)}</translation></message>\n'
        for key, text in texts.items()
    )
    return (
        '<?xml version="1.0" encoding="utf-8"?>\n<!DOCTYPE TS>\n'
        f'<TS version="2.1" language="en">\n<context>\n<name></name>\n{messages}</context>\n</TS>\n'
    )


def icu_source(texts):
    return "root {\n" + "".join(f"{quoted(key)} {{ {quoted(text)} }}\n" for key, text in texts.items()) + "}\n"


def main():
    texts = json.loads(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))
    folder = pathlib.Path(sys.argv[2])
    for name, source in (
        ("ambrel.po", gettext_source(texts)),
        ("ambrel.ts", qt_source(texts)),
        ("root.txt", "\ufeff" + icu_source(texts)),
    ):
        (folder / name).write_text(source, encoding="utf-8")


if __name__ == "__main__":
    main()
