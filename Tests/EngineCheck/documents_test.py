"""What Tools/check-engine takes for a sound document: the same as the application does."""

import copy
import json
import sys
import unittest

from small_backup import PROJECT

sys.path.insert(0, str(PROJECT / "Tools/engine_check"))

import documents  # noqa: E402

_SOUND = {documents.TEXT: ["", "text", "1"], documents.OPTIONAL_TEXT: [None, "text"], documents.TRUTH: [True, False],
          documents.SIGNED: [0, -(1 << 63), (1 << 63) - 1], documents.UNSIGNED: [0, (1 << 64) - 1],
          documents.TEXTS: [[], ["text"]], documents.OBJECT: [{}], documents.OBJECTS: [[]]}
_UNSOUND = {documents.TEXT: [None, 1, True, [], {}], documents.OPTIONAL_TEXT: [1, True, [], {}],
            documents.TRUTH: [None, 0, 1, "true", [], {}],
            documents.SIGNED: [None, "1", True, 0.5, 1 << 63, -(1 << 63) - 1, [], {}],
            documents.UNSIGNED: [None, "1", True, 0.5, 1 << 64, -1, [], {}],
            documents.TEXTS: [None, "text", [1], [None], [["text"]], {}], documents.OBJECT: [None, "text", 1, []],
            documents.OBJECTS: [None, "text", {}]}


def _value(kind):
    return _SOUND[kind][-1]


def _object(fields):
    return {key: _value(kind) for key, kind in fields.items()}


def _parsed(value):
    return documents.parse(json.dumps(value).encode())


def _inspection():
    snapshot = _object(documents.SNAPSHOT) | {"counts": _object(documents.COUNTS),
                                              "payloadFileEvidence": _object(documents.EVIDENCE)}
    return _object(documents.INSPECTION) | {"preservedBranches": [_object(documents.BRANCH)], "snapshots": [snapshot]}


# How to get to each kind of object in the document, and its fields.
_PLACES = {
    "document": (lambda document: document, documents.INSPECTION),
    "branches": (lambda document: document["preservedBranches"][0], documents.BRANCH),
    "snapshots": (lambda document: document["snapshots"][0], documents.SNAPSHOT),
    "counts": (lambda document: document["snapshots"][0]["counts"], documents.COUNTS),
    "evidence": (lambda document: document["snapshots"][0]["payloadFileEvidence"], documents.EVIDENCE),
}


class Fields(unittest.TestCase):
    def test_a_sound_document_has_no_faults(self):
        self.assertEqual(dict.fromkeys(_PLACES, []), documents.inspection_faults(_parsed(_inspection())))
        self.assertEqual([], documents.faults(_parsed(_object(documents.EXPORT)), documents.EXPORT, "document"))

    def test_each_missing_field_is_a_fault_of_its_object_alone(self):
        for kind, (place, fields) in _PLACES.items():
            for key in fields:
                with self.subTest(f"{kind}.{key}"):
                    document = _inspection()
                    del place(document)[key]
                    found = [one for one, faults in documents.inspection_faults(_parsed(document)).items() if faults]
                    self.assertEqual([] if fields[key] == documents.OPTIONAL_TEXT else [kind], found)

    def test_each_unsound_value_is_a_fault_of_its_object_alone(self):
        for kind, (place, fields) in _PLACES.items():
            for key, type_ in fields.items():
                for value in _UNSOUND[type_]:
                    with self.subTest(f"{kind}.{key} = {value}"):
                        document = _inspection()
                        place(document)[key] = value
                        faults = documents.inspection_faults(_parsed(document))
                        self.assertEqual([kind], [one for one, found in faults.items() if found])

    def test_each_sound_value_is_accepted(self):
        for kind, (place, fields) in _PLACES.items():
            for key, type_ in fields.items():
                # Whatever is in these has fields of its own.
                for value in _SOUND[type_] if type_ not in (documents.OBJECT, documents.OBJECTS) else []:
                    with self.subTest(f"{kind}.{key} = {value}"):
                        document = _inspection()
                        place(document)[key] = value
                        self.assertFalse(any(documents.inspection_faults(_parsed(document)).values()))

    def test_each_fault_of_an_export_document_is_found(self):
        for key, type_ in documents.EXPORT.items():
            for value in _UNSOUND[type_]:
                with self.subTest(f"{key} = {value}"):
                    document = _object(documents.EXPORT) | {key: value}
                    self.assertEqual(1, len(documents.faults(_parsed(document), documents.EXPORT, "document")))
            document = _object(documents.EXPORT)
            del document[key]
            self.assertEqual([f"document.{key} is missing"], documents.faults(_parsed(document), documents.EXPORT,
                                                                                     "document"))

    def test_every_element_of_a_list_is_looked_at(self):
        document = _inspection()
        document["snapshots"].append(copy.deepcopy(document["snapshots"][0]))
        del document["snapshots"][1]["counts"]["items"]
        document["preservedBranches"].append("no branch")
        faults = documents.inspection_faults(_parsed(document))
        self.assertEqual(["counts[1].items is missing"], faults["counts"])
        self.assertEqual(["preservedBranches[1] is no object"], faults["branches"])


class Texts(unittest.TestCase):
    def test_texts_that_are_no_document_are_refused(self):
        for text in (b"", b"   ", b"null", b"[]", b"{} {}", b"{}x", b"{\"a\":1,}", b"{\"a\":NaN}", b"{\"a\":Infinity}",
                     b"{\"a\":01}", b"{\"a\":\"\n\"}", b"{\"a\":\"\\ud800\"}", b"{\"\\udc00\":1}", b"{\"a\":\"\xff\"}",
                     b"\xef\xbb\xbf\xef\xbb\xbf{}", b"\xff\xfe{\0}\0", b"[" * 100_000, b"{\"a\":" * 100_000):
            with self.subTest(text[:20]), self.assertRaises(ValueError):
                documents.parse(text)

    def test_a_mark_and_blanks_around_the_document_are_accepted(self):
        self.assertEqual({}, documents.parse(b"\xef\xbb\xbf \n{}\r\t"))

    def test_the_first_of_two_equal_keys_counts(self):
        self.assertEqual({"a": "1"}, documents.parse(b'{"a":"1","a":"2"}'))

    def test_an_integer_may_be_written_in_any_way(self):
        for text, is_sound in (("1e3", True), ("10.0", True), ("-0", True), ("1e19", True), ("1.5", False), ("1e-1", False),
                               ("1e20", False), ("1e99999999999999999999", False), ("9" * 5000, False)):
            with self.subTest(text[:20]):
                document = documents.parse(b'{"a":' + text.encode() + b"}")
                self.assertEqual(is_sound, not documents.faults(document, {"a": documents.UNSIGNED}, "document"))


if __name__ == "__main__":
    unittest.main()
