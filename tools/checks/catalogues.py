#!/usr/bin/env python3
"""Checks that each catalogue holds a finished translation of every string: catalogues.py SOURCE_FOLDER LUPDATE_PROGRAM

A string added to the sources and to no catalogue would be shown in English among translated ones."""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml

OPTIONS = ["-silent", "-extensions", "cpp,h,qml", "-locations", "none", "-tr-function-alias", "QT_TRANSLATE_NOOP+=LUMBRA_TEXT"]


def wrong(catalogue, sources, lupdate):
    with tempfile.TemporaryDirectory(prefix="lumbra-test-") as folder:
        copy = shutil.copy(catalogue, folder)
        subprocess.run([lupdate, *OPTIONS, sources, "-ts", copy], check=True)
        messages = xml.parse(copy).findall(".//message")
    if len(messages) < 50:
        yield f"{catalogue.name} holds only {len(messages)} strings"
    for message in messages:
        source, translation = message.find("source").text, message.find("translation")
        text = translation.text or ""
        if translation.get("type") or not text.strip():
            yield f'{catalogue.name}, "{source}": ninja update_translations, then translate'
        elif any(source.count(gap) != text.count(gap) for gap in ("%1", "%2", "%3")):
            yield f'{catalogue.name}, "{source}": "{text}" has other places for values'


source = pathlib.Path(sys.argv[1]) / "src"
found = [line for catalogue in sorted((source / "touch/i18n").glob("*.ts"))
         for line in wrong(catalogue, source, sys.argv[2])]
sys.exit("\n".join(found) or 0)
