# SPDX-License-Identifier: MIT
"""What each operator makes of a line, literally, and what none touches."""

import unittest

from mutation.mutants import OPERATORS
from mutation.source_text import SourceText


def made(operator: str, text: str, name: str = "made_up.inl") -> list[str]:
    source = SourceText(name, text)
    return [edit.applied(text) for edit in OPERATORS[operator](source)]


class Operators(unittest.TestCase):
    def test_constants(self) -> None:
        self.assertEqual(made("constant", "x = 7u;"), ["x = 8u;", "x = 6u;"])
        self.assertEqual(made("constant", "x = 0x10;"), ["x = 0x11;", "x = 0xf;"])
        self.assertEqual(made("constant", "x = 0;"), ["x = 1;", "x = (-1);"])
        self.assertEqual(made("constant", "x = 127.0f;"), ["x = 128.0f;", "x = 126.0f;"])
        self.assertEqual(made("constant", "x = true;"), ["x = false;"])
        self.assertEqual(made("constant", 'x = "Gen";'), ['x = "Fen";'])

    def test_every_negative_byte_of_a_shuffle_is_alike(self) -> None:
        self.assertEqual(made("constant", "_mm_setr_epi8(-1)"), ["_mm_setr_epi8(-0)"])
        self.assertEqual(len(made("constant", "_mm_setr_epi16(-1)")), 2)

    def test_shifts(self) -> None:
        self.assertEqual(made("shift", "a << 3;"), ["a >> 3;"])
        self.assertEqual(made("shift", "a >> n;"), ["a << n;", "a >> 1 >> n;", "a << 1 >> n;"])
        self.assertEqual(made("shift", "_mm_srai_epi16(a, 3);"), ["_mm_srli_epi16(a, 3);"])
        self.assertEqual(made("shift", "Row<Plan<8>> row;"), [])

    def test_comparisons(self) -> None:
        self.assertEqual(made("comparison", "i < n;"), ["i <= n;", "i > n;"])
        self.assertEqual(made("comparison", "i == n;"), ["i != n;", "i <= n;"])
        self.assertEqual(made("comparison", "template <class T>"), [])
        self.assertEqual(made("comparison", "_mm_cmpgt_epi8(a, b)"), ["_mm_cmpeq_epi8(a, b)"])

    def test_arithmetic(self) -> None:
        self.assertEqual(made("arithmetic", "a + b;"), ["a - b;"])
        self.assertEqual(made("arithmetic", "return -a;"), ["return a;"])
        self.assertEqual(made("arithmetic", "x & ~7;"), ["x | ~7;", "x & 7;"])
        self.assertEqual(made("arithmetic", "x += 8;"), ["x -= 8;"])
        self.assertEqual(made("arithmetic", "int* p; const T& r;"), [])
        self.assertEqual(made("arithmetic", "_mm_unpacklo_epi8(a, b)"), ["_mm_unpackhi_epi8(a, b)"])

    def test_members(self) -> None:
        self.assertEqual(made("member", "c.red + red"), ["c.blue + red"])

    def test_conditions(self) -> None:
        self.assertEqual(made("condition", "if (a && b) c;"), ["if (!(a && b)) c;"])
        self.assertEqual(made("condition", "if (int s = f(); s != 0) c;"),
                         ["if (int s = f(); !(s != 0)) c;"])
        self.assertEqual(made("condition", "x = a ? b + 1 : c(d);"), ["x = a ? c(d) : b + 1;"])

    def test_statements(self) -> None:
        self.assertEqual(made("statement", "{ f(a); int x = 1; x += 2; return x; }"),
                         ["{ ; int x = 1; x += 2; return x; }", "{ f(a); int x = 1; ; return x; }"])
        self.assertEqual(made("statement", "if (a) b = c;"), ["if (a) ;"])
        self.assertEqual(made("statement", "for (int i = 0; i < n; ++i) f(i);"),
                         ["for (int i = 0; i < n; ++i) ;"])

    def test_operands(self) -> None:
        self.assertEqual(made("operands", "x = a.b(1) - c[2];"), ["x = c[2] - a.b(1);"])
        self.assertEqual(made("operands", "f(a, g(b, c));"), ["f(g(b, c), a);", "f(a, g(c, b));"])
        self.assertEqual(made("operands", "int f(int a, const T& b) {"), [])
        self.assertEqual(made("operands", "f(a, a);"), [])
        self.assertEqual(made("operands", "_mm_madd_epi16(a, b);"), [])
        self.assertEqual(len(made("operands", "_mm_packs_epi16(a, b);")), 1)

    def test_checks(self) -> None:
        self.assertEqual(made("checks", "Check::Src, Check::Dst, Check::Width"),
                         ["Check::Dst, Check::Src, Check::Width",
                          "Check::Src, Check::Width, Check::Dst"])

    def test_plans(self) -> None:
        plans = made("plan", "plan = {8, ~7, {4}};")
        for expected in ("{16, ~7, {4}}", "{4, ~7, {4}}", "{8, ~15, {4}}", "{8, ~3, {4}}",
                         "{8, ~7, {}}", "{8, ~7, {4, 2}}"):
            self.assertIn(f"plan = {expected};", plans)
        self.assertNotIn("plan = {8, ~7, {4}};", plans)

    def test_rows(self) -> None:
        text = "ROW(a, P<1, 2>, x)\nROW(b, P<1, 2>, y)\n"
        self.assertEqual(made("row", text, "made_up.def"),
                         ["ROW(a, P<1, 2>, y)\nROW(b, P<1, 2>, y)\n",
                          "ROW(a, P<1, 2>, x)\nROW(b, P<1, 2>, x)\n"])
        self.assertEqual(made("row", text), [])

    def test_instructions(self) -> None:
        self.assertEqual(made("instruction", "  jmp *%rax\n", "made_up.S"), ["  \n"])


class Untouched(unittest.TestCase):
    def test_comments_directives_and_assertions(self) -> None:
        for text in ("// a + 1\n", "/* a < 2 */", "#if A > 1\n", '#include "a/b.h"\n',
                     "static_assert(a + 1 == 2);", "#define NAME(x, y)\n"):
            for operator in OPERATORS:
                self.assertEqual(made(operator, text), [], (operator, text))

    def test_bodies_of_macros_are_code(self) -> None:
        self.assertEqual(made("constant", "#define N 4\n"), ["#define N 5\n", "#define N 3\n"])


if __name__ == "__main__":
    unittest.main()
