"""Every link from one document to another, to one of its headings, to a picture or to a source leads somewhere."""

import pathlib
import tempfile
import unittest
import urllib.parse

from documents import PROJECT, anchors, documents, links


def broken_links(document, project):
    """(target, reason) of each link of a document that leads nowhere, or out of the project."""
    text = document.read_text(encoding="utf-8")
    found = []
    for target in links(text):
        path, _, anchor = urllib.parse.unquote(target).partition("#")
        if target.split(":")[0] in ("http", "https", "mailto"):
            continue
        place = (document.parent / path).resolve() if path else document
        if not place.is_relative_to(project.resolve()) or not place.exists():
            found.append((target, "there is no such file"))
        elif anchor and (place.suffix != ".md" or anchor not in anchors(place.read_text(encoding="utf-8"))):
            found.append((target, "there is no such heading"))
    return found


class Links(unittest.TestCase):
    def test_lead_somewhere_in_every_document(self):
        self.assertGreater(sum(len(links(path.read_text(encoding="utf-8"))) for path in documents()), 50)
        for document in documents():
            with self.subTest(document=document.relative_to(PROJECT)):
                self.assertEqual([], broken_links(document, PROJECT))


class PlantedLinks(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.project = pathlib.Path(folder.name)
        (self.project / "Other page.md").write_text("# A `title`, twice\n\n## A title, twice\n\n```\n# no heading\n```\n",
                                                    encoding="utf-8")
        self.document = self.project / "page.md"

    def broken(self, text):
        self.document.write_text(text, encoding="utf-8")
        return [target for target, _ in broken_links(self.document, self.project)]

    def test_what_exists_is_found(self):
        self.assertEqual([], self.broken(
            "# Here\n[a](#here) [two\nlines](Other%20page.md) [b](Other%20page.md#a-title-twice) ![c](<page.md>)\n"
            "[d](Other%20page.md#a-title-twice-1) [e](https://example.org) `[f](code)`\n```\n[g](code)\n```\n"))

    def test_what_does_not_exist_is_named(self):
        for target in ("missing.md", "Other%20page.md#no-heading", "#there", "../outside.md", "page.md#A-title"):
            self.assertEqual([target], self.broken(f"# Here\n\n![a]({target})\n"))


if __name__ == "__main__":
    unittest.main()
