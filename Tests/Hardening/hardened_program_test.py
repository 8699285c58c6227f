"""The look into programs finds each protection that was left out, and nothing in a program that has them all."""

import json
import os
import pathlib
import platform
import subprocess
import tempfile
import unittest

import hardened_program

COMPILER = os.environ["AMBREL_COMPILER"]
# Copies an argument of unknown length into an array, and reads as many bytes as it is told to.
SOURCE = """
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/socket.h>
#include <unistd.h>
int main(int count, char** arguments) {
#ifdef TALKS
    count += ::socket(AF_INET, SOCK_STREAM, 0);
#endif
    char text[64];
    std::strcpy(text, arguments[count - 1]);
    std::puts(text);
    return static_cast<int>(::read(0, text, std::strlen(text)));
}
"""
COMPILING = {"-O2": "", "-fPIE": "", "-fstack-protector-strong": "", "-D_FORTIFY_SOURCE=3": ""}
LINKING = {"-pie": "", "-Wl,-z,relro": "", "-Wl,-z,now": "", "-Wl,-z,noexecstack": ""}
if platform.machine() == "x86_64":
    COMPILING["-fcf-protection=full"] = LINKING["-Wl,-z,shstk"] = ""
elif platform.machine() == "aarch64":
    COMPILING["-mbranch-protection=standard"] = ""


class HardenedProgram(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.folder = pathlib.Path(directory.name)
        self.program = self.folder / "program"
        self.object = self.folder / "program.o"

    def build(self, **instead):
        """Builds with all protections, but with those options that `instead` names replaced."""
        source = self.folder / "program.cpp"
        source.write_text(SOURCE, encoding="utf-8")
        replaced = {option: instead.get(option, option) for option in [*COMPILING, *LINKING]}
        compiling = [word for option in COMPILING for word in replaced[option].split()]
        linking = [word for option in LINKING for word in replaced[option].split()]
        for command in (["-U_FORTIFY_SOURCE", *compiling, "-c", source, "-o", self.object],
                        [self.object, *linking, "-o", self.program]):
            subprocess.run([COMPILER, *command], check=True)

    def assert_missing(self, text, **instead):
        self.build(**instead)
        self.assertEqual([text], hardened_program.missing_in_program(self.program))

    def test_a_program_with_everything_passes(self):
        self.build()
        self.assertEqual([], hardened_program.missing_in_program(self.program))
        self.assertEqual([], hardened_program.missing_in_object(self.object))

    def test_a_program_for_one_address(self):
        self.assert_missing("cannot be loaded at any address (PIE)", **{"-fPIE": "-fno-pie", "-pie": "-no-pie"})

    def test_a_library_in_place_of_a_program(self):
        self.build(**{"-fPIE": "-fPIC", "-pie": "-shared"})
        self.assertIn("cannot be loaded at any address (PIE)", hardened_program.missing_in_program(self.program))

    def test_writable_tables(self):
        self.assert_missing("tables of addresses stay writable (RELRO)", **{"-Wl,-z,relro": "-Wl,-z,norelro"})

    def test_late_binding(self):
        self.assert_missing("functions are bound when first called (BIND_NOW)", **{"-Wl,-z,now": "-Wl,-z,lazy"})

    def test_an_executable_stack(self):
        self.build(**{"-Wl,-z,noexecstack": "-Wl,-z,execstack"})
        self.assertEqual(["the stack can be executed", "memory is writable and executable"],
                         hardened_program.missing_in_program(self.program))

    def test_an_unguarded_stack(self):
        self.assert_missing("the stack is not guarded (__stack_chk_fail)",
                            **{"-fstack-protector-strong": "-fno-stack-protector"})

    def test_unchecked_sizes(self):
        self.build()
        self.assertTrue(hardened_program.checks_sizes(self.object))
        self.build(**{"-D_FORTIFY_SOURCE=3": ""})
        self.assertFalse(hardened_program.checks_sizes(self.object))

    def test_options_that_were_left_out_or_undone(self):
        every = ("c++ -D_GLIBCXX_ASSERTIONS -O2 -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3 "
                 "-fstack-clash-protection -c x.cpp")
        self.assertEqual([], hardened_program.missing_in_command(every))
        for option in ("-D_GLIBCXX_ASSERTIONS", "-O2", "-fstack-protector-strong", "-D_FORTIFY_SOURCE=3",
                       "-fstack-clash-protection"):
            with self.subTest(option=option):
                self.assertEqual(1, len(hardened_program.missing_in_command(every.replace(option, ""))))
        for option in ("-O0", "-fno-stack-protector", "-fno-stack-clash-protection", "-U_GLIBCXX_ASSERTIONS"):
            with self.subTest(option=option):
                self.assertEqual(1, len(hardened_program.missing_in_command(f"{every} {option}")))

    @unittest.skipUnless(platform.machine() == "x86_64", "a note of x86-64")
    def test_unchecked_return_addresses(self):
        self.assert_missing("return addresses are not checked (SHSTK)", **{"-Wl,-z,shstk": ""})

    @unittest.skipUnless(platform.machine() == "x86_64", "options of x86-64")
    def test_an_object_without_landing_pads(self):
        for protection, missing in (("none", "IBT, SHSTK"), ("return", "IBT"), ("branch", "SHSTK")):
            with self.subTest(protection=protection):
                self.build(**{"-fcf-protection=full": f"-fcf-protection={protection}"})
                self.assertEqual([f"control flow is not protected ({missing})"],
                                 hardened_program.missing_in_object(self.object))

    def test_a_call_to_the_network(self):
        self.assert_missing("it can reach for the network", **{"-O2": "-O2 -DTALKS"})

    def test_a_library_for_the_network(self):
        library = self.folder / "libcurl.so.4"
        subprocess.run([COMPILER, "-shared", "-x", "c++", "/dev/null", f"-Wl,-soname,{library.name}", "-o", library],
                       check=True)
        self.assert_missing("it can reach for the network", **{"-pie": f"-pie -Wl,--no-as-needed {library}"})

    def test_libraries_from_elsewhere(self):
        for folder in ("/usr/local/lib", "lib", "", "$ORIGIN/../lib", "$ORIGIN/lib:/tmp"):
            for kind in ("--enable-new-dtags", "--disable-new-dtags"):
                with self.subTest(folder=folder, kind=kind):
                    self.assert_missing("libraries are looked for outside of its folder",
                                        **{"-pie": f"-Wl,-pie,{kind},-rpath,{folder or '/lib:'}"})

    def test_libraries_from_its_own_folder(self):
        for folder in ("$ORIGIN", "$ORIGIN/lib", "${ORIGIN}/lib"):
            with self.subTest(folder=folder):
                self.build(**{"-pie": f"-Wl,-pie,-rpath,{folder}"})
                self.assertEqual([], hardened_program.missing_in_program(self.program))

    def test_what_is_not_a_program_is_an_error(self):
        text = self.folder / "text"
        text.write_text("not a program")
        for path in (text, self.folder / "nothing"):
            with self.subTest(path=path.name), self.assertRaises(ValueError):
                hardened_program.missing_in_program(path)

    def run_command(self):
        """The exit status of the check of what was built last."""
        programs, objects, commands = (self.folder / name for name in ("programs", "objects", "commands"))
        programs.write_text(f"{self.program}\n")
        objects.write_text(f"{self.folder}/./program.o\n")
        options = " ".join(["-D_GLIBCXX_ASSERTIONS", "-fstack-clash-protection", *COMPILING])
        command = f"c++ {options} -o program.o -c program.cpp"
        commands.write_text(json.dumps([{"directory": str(self.folder), "command": command}]))
        return hardened_program.main([str(programs), str(objects), str(commands)])

    def test_the_command_fails_if_something_is_missing(self):
        self.build()
        self.assertEqual(0, self.run_command())
        self.build(**{"-Wl,-z,now": "-Wl,-z,lazy"})
        self.assertEqual(1, self.run_command())
        self.build(**{"-D_FORTIFY_SOURCE=3": ""})
        self.assertEqual(1, self.run_command())

    def test_missing_input_and_an_object_of_unknown_origin_are_complaints(self):
        self.build()
        self.assertEqual(1, len(hardened_program.complaints_about([], [], {})))
        self.assertEqual([f"{self.object}: no command is known that made it"],
                         hardened_program.complaints_about([self.program], [self.object], {}))


if __name__ == "__main__":
    unittest.main()
