"""The changes that Tools/mutate makes: where they are made, where not, and how they are told apart."""

import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "Tools"))

from mutation.mutants import mutants_of  # noqa: E402


def changed(text, kind=None):
    """The text with each change of a kind, in the order of their places."""
    return [mutant.applied_to(text) for mutant in mutants_of("Source.cpp", text) if kind in (None, mutant.kind)]


def body(*statements):
    return "void function() {\n" + "".join(f"    {statement}\n" for statement in statements) + "}\n"


class Mutants(unittest.TestCase):
    def assert_changed(self, kind, statement, *expected):
        self.assertEqual([body(one) for one in expected], changed(body(statement), kind))

    def test_comparisons(self):
        self.assert_changed("comparison", "f(a < b, c <= d);", "f(a <= b, c <= d);", "f(a < b, c < d);")
        self.assert_changed("comparison", "f(a == b, c != d);", "f(a != b, c != d);", "f(a == b, c == d);")
        self.assert_changed("comparison", "std::array<int, size> a;")

    def test_connectives(self):
        self.assert_changed("connective", "f(a && b || c);", "f(a || b || c);", "f(a && b && c);")
        self.assert_changed("connective", "f([](auto&& value) {});")

    def test_operands(self):
        self.assert_changed("operand removed", "return a && b(x, y) && c;",
                            "return b(x, y) && c;", "return a && c;", "return a && b(x, y);")
        self.assert_changed("operand removed", "f(a || b && c);", "f(b && c);", "f(a);", "f(a || b);")

    def test_constants(self):
        self.assert_changed("constant", "f(7, 0x1F, 1'000, 1.5, true);", "f((7 + 1), 0x1F, 1'000, 1.5, true);",
                            "f(7, (0x1F + 1), 1'000, 1.5, true);", "f(7, 0x1F, (1'000 + 1), 1.5, true);",
                            "f(7, 0x1F, 1'000, (1.5 + 1), true);", "f(7, 0x1F, 1'000, 1.5, false);")
        self.assert_changed("constant", "int8_t a1 = b2;")

    def test_sums(self):
        self.assert_changed("sum", "f(a + b, -c);", "f(a - b, -c);")
        self.assert_changed("sum", "a += b;", "a -= b;")

    def test_flags(self):
        self.assert_changed("flag removed", "open(O_RDWR | O_CLOEXEC);", "open(O_RDWR);")

    def test_negations_and_sorting(self):
        self.assert_changed("negation removed", "return !a;", "return a;")
        self.assert_changed("unstable sort", "std::ranges::stable_sort(values);", "std::ranges::sort(values);")

    def test_conditions(self):
        self.assert_changed("condition", "if (a && b) {}", "if (!(a && b)) {}")
        self.assert_changed("condition", "while (next()) {}", "while (!(next())) {}")
        self.assert_changed("condition", "if (int a = b; a < 1) {}", "if (int a = b; !(a < 1)) {}")
        self.assert_changed("condition", "if (f([] { a(); })) {}", "if (!(f([] { a(); }))) {}")
        self.assert_changed("condition", "return f(a) ? b : c;", "return !(f(a)) ? b : c;")

    def test_conditions_that_another_change_negates(self):
        for condition in ("!a", "a == b", "const auto* a = b"):
            self.assert_changed("condition", f"if ({condition}) {{}}")

    def test_return_values(self):
        self.assert_changed("return value", "return f({1, 2});", "return {};")
        for value in ("", " {}", " true", " std::nullopt"):
            self.assert_changed("return value", f"return{value};")

    def test_removed_statements(self):
        self.assert_changed("call removed", "a.b<C>(d)->e();", ";")
        self.assert_changed("call removed", "runs([] { return 1; });", ";")
        self.assert_changed("call removed", "if (a) { b(); }", "if (a) { ; }")
        self.assert_changed("assignment removed", "a->b = c(d);", ";")
        self.assert_changed("assignment removed", "++count;", ";")
        self.assert_changed("jump removed", "throw Error();", ";")
        self.assert_changed("jump removed", "switch (a) { case 1: break; }", "switch (a) { case 1: ; }")

    def test_declarations_stay(self):
        for statement in ("const Guard guard(mutex);", "std::vector<int> all(3);", "Guard& guard(other);",
                          "auto a = b();", "static_assert(a());", "values.reserve(count);"):
            self.assertEqual([], [mutant for mutant in mutants_of("Source.cpp", body(statement))
                                  if mutant.kind.endswith("removed")], statement)
        self.assertEqual([], changed("class A {\n    A(const A&) = delete;\n    void f();\n};\n"))

    def test_neighboring_statements_are_exchanged(self):
        self.assertEqual([body("b = 1;", "a();", "f(c);"), body("a();", "f(c);", "b = 1;")],
                         changed(body("a();", "b = 1;", "f(c);"), "statements exchanged"))
        self.assertEqual([], changed(body("a();", "const int b = c;", "d();"), "statements exchanged"))
        self.assertEqual([], changed(body("a();", "if (b) { c(); }", "d();"), "statements exchanged"))

    def test_what_is_not_code_stays(self):
        for text in ("// a < 1\n", "/* a && 1 */\n", '#include "a1/1.h"\n', "#define A \\\n    1\n", "static_assert(a == 1);\n",
                     'const auto* a = "b && 1 < 2";\n', 'const auto* a = R"x(1 < 2)" && 1)x";\n', "char a = '1';\n",
                     "[[deprecated(1)]] int a;\n", "template<int a = 1>\nclass B;\n"):
            self.assertEqual([], changed(text), text)
        self.assert_changed("constant", 'qWarning("%d", 1);')

    def test_a_mutant_knows_its_place_and_its_lines(self):
        mutant, = mutants_of("Source.cpp", "int a;\nint b = 1;\n")
        self.assertEqual(("Source.cpp", 2, "constant"), (mutant.path, mutant.line, mutant.kind))
        self.assertEqual("-int b = 1;\n+int b = (1 + 1);", mutant.diff)

    def test_every_mutant_has_a_unique_and_stable_name(self):
        text = body("f(1);", "f(1);", "f(1, 1);")
        names = [mutant.identity for mutant in mutants_of("Source.cpp", text)]
        self.assertEqual(len(names), len(set(names)))
        self.assertEqual(names, [mutant.identity for mutant in mutants_of("Source.cpp", "\n// More.\n" + text)])


if __name__ == "__main__":
    unittest.main()
