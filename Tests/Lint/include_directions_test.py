"""The lint of include directions finds what it is there to find, and nothing else."""

import pathlib
import tempfile
import unittest

import include_directions


class IncludeDirections(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.top = pathlib.Path(directory.name).resolve()
        for library in include_directions.LIBRARIES:
            self.write(f"{library}/Type.h", "#pragma once\n")
        self.write("StandInEngine/Common/Bytes.h", "#pragma once\n")

    def write(self, path, text):
        file = self.top / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")

    def violations_of(self, path, *lines):
        self.write(path, "".join(f"{line}\n" for line in lines))
        return include_directions.violations(self.top)

    def test_allowed_includes_pass(self):
        self.write("StandInEngine/Common/Bytes.cpp", '#include "Common/Bytes.h"\n')
        self.assertEqual([], self.violations_of(
            "Sources/AmbrelRecoveryApp/Screens/List/Rows.cpp",
            '#include "AmbrelRecoveryApp/Screens/Type.h"', '#include "AmbrelRecoveryApp/Controls/Type.h"',
            '#include "AmbrelRecoveryApp/Model/Type.h"', '#include "AmbrelRecoveryAppSupport/Type.h"',
            '#include "AmbrelLocalization/Type.h"', '#include "AmbrelPlatform/Type.h"', "#include <QWidget>",
            '#include "Screen.moc"'))
        self.assertEqual([], self.violations_of(
            "Sources/AmbrelLocalization/Store.cpp", "#include <QSettings>", "#include <unicode/locid.h>"))

    def test_libraries_side_by_side_do_not_know_each_other(self):
        self.assertEqual(
            ['Sources/AmbrelLocalization/Table.cpp:1: '
             'Sources/AmbrelLocalization may not include "AmbrelRecoveryAppSupport/Type.h"'],
            self.violations_of("Sources/AmbrelLocalization/Table.cpp", '#include "AmbrelRecoveryAppSupport/Type.h"'))

    def test_a_lower_library_does_not_include_a_higher_one(self):
        for library, included in (("AmbrelRecoveryAppSupport", "AmbrelRecoveryApp"),
                                 ("AmbrelRecoveryAppSupport", "AmbrelLocalization"),
                                 ("AmbrelLocalization", "AmbrelRecoveryApp"),
                                 ("AmbrelPlatform", "AmbrelRecoveryAppSupport")):
            with self.subTest(library=library, included=included):
                self.assertEqual(1, len(self.violations_of(
                    f"Sources/{library}/File.cpp", "", f'  #  include "{included}/Type.h"')))
                (self.top / f"Sources/{library}/File.cpp").unlink()

    def test_the_folders_of_the_application_do_not_know_those_above_or_beside_them(self):
        for library, included in (("Foundation", "Secrets"), ("Secrets", "Model"), ("Model", "Controls"),
                                  ("Controls", "Model"), ("FilePanels", "Desktop"), ("Desktop", "Screens"),
                                  ("Screens", "FilePanels"), ("Screens", ".")):
            with self.subTest(library=library, included=included):
                path = pathlib.PurePath("AmbrelRecoveryApp", included, "Type.h")
                self.assertEqual(
                    [f'Sources/AmbrelRecoveryApp/{library}/File.cpp:1: Sources/AmbrelRecoveryApp/{library} may not '
                     f'include "{path}"'],
                    self.violations_of(f"Sources/AmbrelRecoveryApp/{library}/File.cpp", f'#include "{path}"'))
                (self.top / f"Sources/AmbrelRecoveryApp/{library}/File.cpp").unlink()

    def test_there_are_no_cycles(self):
        known = set()
        for library, allowed in include_directions.LIBRARIES.items():
            self.assertLessEqual(set(allowed), known, library)
            known.add(library)

    def test_a_file_outside_of_every_library_is_reported(self):
        self.assertEqual(["Sources/Stray.cpp: it is in no library's folder"],
                         self.violations_of("Sources/Stray.cpp", "#include <vector>"))

    def test_the_stand_in_engine_shares_no_code(self):
        self.assertEqual(1, len(self.violations_of(
            "StandInEngine/Main.cpp", '#include "AmbrelRecoveryAppSupport/Type.h"')))
        (self.top / "StandInEngine/Main.cpp").unlink()
        self.assertEqual(1, len(self.violations_of(
            "Sources/AmbrelRecoveryApp/Main.cpp", '#include "Common/Bytes.h"')))

    def test_a_path_through_a_parent_folder_is_refused(self):
        self.assertEqual(1, len(self.violations_of(
            "StandInEngine/Main.cpp", '#include "../Sources/AmbrelPlatform/Type.h"')))

    def test_the_toolkit_stays_out_of_the_engine_client(self):
        for line in ("#include <QString>", "#include <QtCore/QString>", "#include <qglobal.h>", "# include <QtGlobal>"):
            for library in ("AmbrelRecoveryAppSupport", "AmbrelPlatform"):
                with self.subTest(line=line, library=library):
                    self.assertEqual(1, len(self.violations_of(f"Sources/{library}/File.h", line)))
                    (self.top / f"Sources/{library}/File.h").unlink()

    def test_a_project_without_its_libraries_is_an_error(self):
        with tempfile.TemporaryDirectory() as empty:
            self.assertEqual(2, include_directions.main([empty]))


if __name__ == "__main__":
    unittest.main()
