# SPDX-License-Identifier: MIT
"""The draw of mutants, the list of equivalent ones, what is kept between runs, and how the output
of tests is read."""

import signal
import tempfile
import unittest
from pathlib import Path

from mutation import equivalent, report
from mutation.judge import KILLED, SAME_CODE, STATIC_ASSERTION, SURVIVED, Verdict
from mutation.mutants import Mutant, in_order, mutants_of
from mutation.places import fewer_rows
from mutation.results import Results
from mutation.source_text import SourceText
from mutation.suite import Outcome, outcome_of
from mutation.workplace import Finished

TEXT = "int f(int a) {\n  a += 1;\n  if (a < 2) g(a);\n  a += 1;\n}\n"


def mutants(name: str = "decode/made_up.inl", text: str = TEXT) -> list[Mutant]:
    return mutants_of(SourceText(name, text))


class Mutants(unittest.TestCase):
    def test_no_two_make_the_same_text(self) -> None:
        texts = [mutant.edit.applied(TEXT) for mutant in mutants()]
        self.assertEqual(len(texts), len(set(texts)))

    def test_like_lines_are_told_apart(self) -> None:
        like = [mutant for mutant in mutants() if mutant.changed == "a += 2;"]
        self.assertEqual([(mutant.line, mutant.occurrence) for mutant in like], [(2, 1), (4, 2)])
        self.assertNotEqual(like[0].identity, like[1].identity)

    def test_identity_outlives_changes_elsewhere(self) -> None:
        moved = mutants(text="// one line more\n" + TEXT)
        self.assertEqual([mutant.identity for mutant in mutants()],
                         [mutant.identity for mutant in moved])

    def test_order_is_even_and_the_seeds(self) -> None:
        everything = mutants() + mutants("encode/made_up.inl")
        order = in_order(everything, 5)
        self.assertEqual(order, in_order(everything, 5))
        self.assertNotEqual(order, in_order(everything, 6))
        self.assertEqual(len(order), len(everything))
        groups = {(mutant.file, mutant.operator) for mutant in everything}
        first = {(mutant.file, mutant.operator) for mutant in order[:len(groups)]}
        self.assertEqual(first, groups)


class EquivalentMutants(unittest.TestCase):
    ENTRY = "decode/made_up.inl #2\n- a += 1;\n+ a += 2;\n= Nobody reads it.\n"

    def reasons(self, text: str) -> dict[str, str]:
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "list"
            path.write_text(text, "ascii")
            return equivalent.reasons(path, mutants())

    def test_an_entry_names_one_mutant(self) -> None:
        named = [mutant for mutant in mutants() if mutant.line == 4 and "+= 2" in mutant.changed]
        self.assertEqual(self.reasons(f"# A title.\n\n{self.ENTRY}"),
                         {named[0].identity: "Nobody reads it."})

    def test_an_entry_that_names_none_is_an_error(self) -> None:
        for old, new in (("#2", "#3"), ("a += 2", "a += 3"), ("decode", "depth")):
            with self.assertRaisesRegex(equivalent.Malformed, "no such mutant"):
                self.reasons(self.ENTRY.replace(old, new))

    def test_an_entry_has_a_reason(self) -> None:
        for bad in (self.ENTRY.replace("Nobody reads it.", " "), self.ENTRY.replace("= N", "N")):
            with self.assertRaisesRegex(equivalent.Malformed, "no four lines"):
                self.reasons(bad)

    def test_no_entry_twice(self) -> None:
        with self.assertRaisesRegex(equivalent.Malformed, "twice"):
            self.reasons(f"{self.ENTRY}\n{self.ENTRY}")


class KeptResults(unittest.TestCase):
    def test_a_run_that_was_stopped_goes_on(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "results"
            first, second = mutants()[:2]
            Results(path).add(first, Verdict(SURVIVED, places=["decode mx"]))
            Results(path).add(second, Verdict(SAME_CODE))
            with open(path, "a", encoding="ascii") as file:
                file.write('{"identity": "cut o')
            kept = Results(path).found
            self.assertEqual(set(kept), {first.identity, second.identity})
            self.assertEqual(kept[first.identity].verdict.places, ["decode mx"])

    def test_the_last_verdict_counts(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "results"
            mutant = mutants()[0]
            Results(path).add(mutant, Verdict(SURVIVED))
            Results(path).add(mutant, Verdict(KILLED, test="New.Test"))
            self.assertEqual(Results(path).found[mutant.identity].verdict.test, "New.Test")


class Report(unittest.TestCase):
    def test_counts_and_lists(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            results = Results(Path(folder) / "results")
            verdicts = [Verdict(KILLED, "fast", "decode mx", "A.B", "fails"),
                        Verdict(KILLED, "long", "decode mx", "C.D", "fails"),
                        Verdict(KILLED, "sanitizers", "decode mx", "E.F", "fails"),
                        Verdict(STATIC_ASSERTION), Verdict(SAME_CODE),
                        Verdict(SURVIVED, places=["decode mx"]),
                        Verdict(SURVIVED, places=["decode m7"])]
            made = mutants()[:len(verdicts)]
            for mutant, verdict in zip(made, verdicts):
                results.add(mutant, verdict)
            reasons = {made[5].identity: "Nobody reads it."}
            where = report.Circumstances("1234567", "a compiler", 5, 99)
            page = report.page(results.found.values(), reasons, where)
            self.assertIn("| all | 6 | 1 | 1 | 1 | 1 | 1 | 1 |", page)
            self.assertIn("**6 were judged**: 4 were noticed, 1 are equivalent, 1 survived", page)
            survivors, equivalents = page.split("## Survivors")[1].split("## Equivalent")
            self.assertIn(f"+ {made[6].changed}\n", survivors)
            self.assertIn("Nobody reads it.", equivalents)
            self.assertTrue(page.endswith("cases: 6 mutants\nseed: 5\n"))
            table = report.table(results.found.values(), reasons).splitlines()
            self.assertEqual(len(table), 1 + 6)


class OutputOfTests(unittest.TestCase):
    RAN = "[ RUN      ] A.B\n[       OK ] A.B (0 ms)\n[ RUN      ] C.D/e\n"

    def test_what_noticed(self) -> None:
        self.assertIsNone(outcome_of(Finished(0, self.RAN)))
        self.assertEqual(outcome_of(Finished(1, self.RAN + "[  FAILED  ] C.D/e, where (1 ms)\n")),
                         Outcome("C.D/e", "fails"))
        self.assertEqual(outcome_of(Finished(-signal.SIGSEGV, self.RAN)),
                         Outcome("C.D/e", "SIGSEGV"))
        self.assertEqual(outcome_of(Finished(-signal.SIGXCPU, self.RAN)),
                         Outcome("C.D/e", "does not end"))
        self.assertEqual(outcome_of(Finished(1, "")), Outcome("before the first test", "fails"))


class FewerRows(unittest.TestCase):
    def test_everything_is_named_once_at_least(self) -> None:
        rows = ["KERNEL(a, X, Image<1>, Form, Pack<4>)", "KERNEL(b, X, Image<1>, Form, Pack<5>)",
                "KERNEL(c, X, Image<2>, Form, Pack<5>)", "KERNEL(d, X, Image<2>, Form, Pack<4>)"]
        kept = fewer_rows("/* title */\n" + "\n".join(rows) + "\n#undef KERNEL\n")
        self.assertIn("/* title */", kept)
        self.assertIn("#undef KERNEL", kept)
        self.assertEqual([row in kept for row in rows], [True, False, True, False])


if __name__ == "__main__":
    unittest.main()
