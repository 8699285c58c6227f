"""What `cmake --install` puts in place."""

import configparser
import filecmp
import os
import pathlib
import re
import struct
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

_PROJECT = pathlib.Path(__file__).resolve().parents[2]
_BUILD = pathlib.Path(os.environ["AMBREL_BUILD"])
_BUILT = pathlib.Path(os.environ["AMBREL_APPLICATION"])
_CATALOGUE = _PROJECT / "Sources/AmbrelLocalization/Resources"
_IDENTIFIER = "com.ambrel.recovery"
_COMMAND = "ambrel-recovery-app"
_LOCALES = {"", "ar", "de", "es", "fr", "it", "ja", "ko", "pl", "pt", "ru", "tr", "zh_CN", "zh_SG", "zh_TW", "zh_HK"}
_XML_LANGUAGE = "{http://www.w3.org/XML/1998/namespace}lang"


def run(*command, **options):
    return subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=120, check=False,
                          **options)


def files_below(folder):
    return sorted(str(path.relative_to(folder)) for path in folder.rglob("*") if not path.is_dir())


def size_of_picture(path):
    """(width, height) of a PNG file."""
    return struct.unpack(">II", path.read_bytes()[16:24])


class InstalledTree(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.scratch = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory(prefix="ambrel tree é.")))
        subprocess.run(["cmake", "--install", str(_BUILD)], env=os.environ | {"DESTDIR": str(cls.scratch)}, umask=0o022,
                       check=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
        cls.root = next(cls.scratch.rglob("bin")).parent
        cls.private = cls.root / "lib/ambrel-recovery"
        cls.entry = cls.root / f"share/applications/{_IDENTIFIER}.desktop"
        cls.metainfo = cls.root / f"share/metainfo/{_IDENTIFIER}.metainfo.xml"

    def test_the_private_folder_is_the_built_application(self):
        expected = files_below(_BUILT)
        self.assertEqual(expected, files_below(self.private))
        self.assertEqual([], [name for name in expected
                              if not filecmp.cmp(_BUILT / name, self.private / name, shallow=False)])

    def test_everyone_can_read_everything_and_start_the_programs(self):
        programs = {self.private / "AmbrelRecoveryApp", self.private / "Resources/bin/ambrel-recovery"}
        for path in self.root.rglob("*"):
            if not path.is_symlink():
                expected = 0o755 if path.is_dir() or path in programs else 0o644
                self.assertEqual(oct(expected), oct(path.stat().st_mode & 0o7777), path)

    def test_the_command_is_a_relative_link_and_runs_the_self_test(self):
        command = self.root / "bin" / _COMMAND
        self.assertEqual("../lib/ambrel-recovery/AmbrelRecoveryApp", os.readlink(command))
        result = run(_COMMAND, "--self-test", cwd="/", env={"PATH": str(command.parent), "TMPDIR": str(self.scratch)})
        self.assertEqual((0, ""), (result.returncode, result.stderr))

    def test_the_command_runs_the_engine_that_is_installed_with_it(self):
        engine = self.private / "Resources/bin/ambrel-recovery"
        kept = engine.with_name("kept")
        engine.rename(kept)
        self.addCleanup(kept.rename, engine)
        # There is no other one to fall back to.
        result = run(self.root / "bin" / _COMMAND, "--self-test")
        self.assertEqual((1, "Ambrel Recovery app self-test failed.\n"), (result.returncode, result.stderr))

    def test_the_desktop_entry_is_valid(self):
        result = run("desktop-file-validate", self.entry)
        self.assertEqual((0, ""), (result.returncode, result.stdout + result.stderr))

    def test_the_desktop_entry_has_its_texts_in_every_language(self):
        parser = configparser.ConfigParser(interpolation=None, delimiters="=")
        parser.optionxform = str
        parser.read(self.entry, encoding="utf-8")
        entry = parser["Desktop Entry"]
        self.assertEqual((_COMMAND, _IDENTIFIER), (entry["Exec"], entry["Icon"]))
        for key in ("Name", "Comment", "Keywords"):
            found = {re.fullmatch(rf"{key}(?:\[(.*)\])?", name)[1] or "": value
                     for name, value in entry.items() if name.split("[")[0] == key}
            self.assertEqual(_LOCALES, set(found))
            self.assertTrue(all(found.values()))
            if key == "Name":
                self.assertEqual({"Ambrel Recovery"}, set(found.values()))
            else:
                # Only the regions that share a translation have the same text.
                self.assertEqual(14, len(set(found.values())))

    def test_every_language_of_the_catalogue_is_one_of_these(self):
        named_otherwise = {"en": "", "pt-BR": "pt", "zh-Hans": "zh_CN", "zh-Hant": "zh_TW"}
        languages = {path.stem for path in _CATALOGUE.glob("*.lproj")}
        self.assertEqual(14, len(languages))
        self.assertLessEqual({named_otherwise.get(language, language) for language in languages}, _LOCALES)

    def assert_metainfo_is_valid(self, metainfo, *known_problems):
        result = run("appstreamcli", "validate", "--no-net", metainfo, env=os.environ | {"LC_ALL": "C.UTF-8"})
        problems = set(re.findall(r"^[EW]: \S+ (\S+)", result.stdout, re.MULTILINE))
        self.assertLessEqual(problems, set(known_problems), result.stdout)
        if not problems:
            self.assertEqual(0, result.returncode, result.stdout + result.stderr)

    def test_the_description_for_software_centers_is_valid_and_in_every_language(self):
        # Not demanded by every version.
        self.assert_metainfo_is_valid(self.metainfo, "url-homepage-missing")
        component = ElementTree.parse(self.metainfo).getroot()
        self.assertEqual(f"{_IDENTIFIER}.desktop", component.find("launchable").text)
        self.assertEqual(_LOCALES, {summary.get(_XML_LANGUAGE, "") for summary in component.findall("summary")})
        paragraphs = [paragraph.get(_XML_LANGUAGE, "") for paragraph in component.findall("description/p")]
        self.assertEqual({3}, {paragraphs.count(locale) for locale in _LOCALES - {""}})
        self.assertIsNone(component.find("screenshots"))

    def test_it_has_pictures_and_a_homepage_once_there_are_addresses_for_them(self):
        metainfo = self.scratch / f"{_IDENTIFIER}.metainfo.xml"
        subprocess.run(["/usr/bin/python3", "-B", _PROJECT / "Packaging/desktop_files.py", "--catalogue", _CATALOGUE,
                        "--version", "1.0", "--date", "2030-01-02", "--homepage", "https://home.example",
                        "--pictures-url", "https://pictures.example", "--notice", "", self.scratch / "entry", metainfo], check=True)
        self.assert_metainfo_is_valid(metainfo)
        component = ElementTree.parse(metainfo).getroot()
        self.assertEqual("https://home.example", component.find("url").text)
        images = [image.text for image in component.findall("screenshots/screenshot/image")]
        self.assertEqual(4, len(images))
        for image in images:
            self.assertTrue((_PROJECT / "Docs/Pictures" / image.removeprefix("https://pictures.example/")).is_file())

    def test_the_icon_has_every_size(self):
        icons = self.root / "share/icons/hicolor"
        self.assertIn(b"<svg", (icons / f"scalable/apps/{_IDENTIFIER}.svg").read_bytes())
        for size in (16, 22, 24, 32, 48, 64, 128, 256, 512):
            self.assertEqual((size, size), size_of_picture(icons / f"{size}x{size}/apps/{_IDENTIFIER}.png"))

    def test_the_manual_page_is_shown_without_warnings(self):
        page = self.root / f"share/man/man1/{_COMMAND}.1.gz"
        result = run("man", "--warnings", "--local-file", page, env=os.environ | {"LC_ALL": "C.UTF-8", "MANWIDTH": "80"})
        self.assertEqual((0, ""), (result.returncode, result.stderr))
        for text in (_COMMAND, "--self-test", "Ambrel Recovery app self-test failed."):
            self.assertIn(text, result.stdout)


if __name__ == "__main__":
    unittest.main()
