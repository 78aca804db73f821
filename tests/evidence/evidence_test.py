# SPDX-License-Identifier: MIT
"""What scripts/prove keeps, does again, and writes; with parts that are made up."""

import contextlib
import io
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from evidence.claims import PARTS
from evidence.page import page
from evidence.parts import LIBRARY, SECONDS, Part
from evidence.run import Runner
from evidence.store import Failure, Result, Sources, Store, read_cases, read_seed


def part(name: str, code: str) -> Part:
    """A part that runs Python code."""
    return Part(name=name, claim=f"Claim of {name}", command=(sys.executable, "-c", code, SECONDS),
                inputs=("tests",), minutes=1, able="a fault was made", found="nothing",
                compilers=())


class Reading(unittest.TestCase):
    def test_counts_of_the_same_thing_add_up(self) -> None:
        self.assertEqual(read_cases("cases: 3 calls\nnoise\ncases: 4 calls\ncases: 1 builds\n"),
                         [(7, "calls"), (1, "builds")])

    def test_a_suite_counts_its_tests(self) -> None:
        self.assertEqual(read_cases("12 passed, 0 failed\n"), [(12, "tests")])
        self.assertEqual(read_cases("12 passed, 1 failed\n"), [])

    def test_seeds(self) -> None:
        self.assertEqual(read_seed("seed: 7\nx\nseed: 7\nseed: 9\n"), "7, 9")


class Prove(unittest.TestCase):
    def setUp(self) -> None:
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.source = Path(directory.name)
        for name in (*LIBRARY, "tests", "docs"):
            if "." not in name:
                (self.source / name).mkdir()
                (self.source / name / "file").write_text(name)
            else:
                (self.source / name).write_text(name)
        self.runs = self.source / "runs"
        self.git("init", "-q")
        self.commit()
        self.store = Store(self.source / "build", Sources(self.source))

    def git(self, *arguments: str) -> None:
        subprocess.run(("git", "-c", "user.name=n", "-c", "user.email=e", *arguments), check=True,
                       cwd=self.source, stdout=subprocess.DEVNULL)

    def commit(self) -> None:
        self.git("add", "-A", "--", ".", ":!runs", ":!build")
        self.git("commit", "-q", "-m", "m", "--allow-empty")

    def prove(self, *parts: Part, seconds: float = 1000, again: bool = False) -> str:
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            Runner(self.source, self.store, parts).run(parts, seconds, again)
        return output.getvalue()

    def counting(self, name: str, then: str = "print('cases: 5 calls')") -> Part:
        """A part that leaves a letter for each time that it runs."""
        return part(name, f"open('runs', 'a').write('{name}'); {then}")

    def times(self) -> str:
        return self.runs.read_text() if self.runs.exists() else ""

    def state(self, it: Part) -> str:
        result = self.store.load(it)
        return "due" if result is None else result.state

    def test_what_is_done_is_kept(self) -> None:
        a, b = self.counting("a"), self.counting("b")
        self.assertIn("held       a: 5 calls", self.prove(a))
        self.prove(a, b)
        self.assertEqual(self.times(), "ab")
        self.prove(a, b, again=True)
        self.assertEqual(self.times(), "abab")

    def test_a_change_of_an_input_makes_it_due(self) -> None:
        a = self.counting("a")
        self.prove(a)
        (self.source / "docs/file").write_text("another page")
        self.commit()
        self.prove(a)
        self.assertEqual(self.times(), "a")
        (self.source / "twist/file").write_text("another kernel")
        self.commit()
        self.assertEqual(self.state(a), "due")
        self.prove(a)
        self.assertEqual(self.times(), "aa")

    def test_what_is_not_committed_is_not_proved(self) -> None:
        (self.source / "tests/file").write_text("changed")
        with self.assertRaisesRegex(Failure, "commit first: tests/file"):
            self.prove(self.counting("a"))

    def test_a_failure_is_kept_and_tried_again(self) -> None:
        a = self.counting("a", "print('cases: 5 calls'); raise SystemExit(1)")
        self.prove(a)
        self.assertEqual(self.state(a), "failed")
        self.prove(a)
        self.assertEqual(self.times(), "aa")

    def test_no_case_proves_nothing(self) -> None:
        a = self.counting("a", "print('all is well')")
        self.prove(a)
        self.assertEqual(self.state(a), "failed")

    def test_unfinished_parts_go_on(self) -> None:
        a = self.counting("a", "print('cases: 5 calls'); "
                               "raise SystemExit(75 if len(open('runs').read()) < 2 else 0)")
        self.prove(a)
        self.assertEqual(self.state(a), "unfinished")
        self.prove(a)
        self.assertEqual(self.state(a), "held")

    def test_nothing_starts_after_the_time(self) -> None:
        self.prove(self.counting("a"), seconds=0)
        self.assertEqual(self.times(), "")

    def test_a_part_learns_how_much_time_is_left(self) -> None:
        a = part("a", "import sys; print('cases:', sys.argv[1], 'seconds')")
        self.prove(a, seconds=500)
        result = self.store.load(a)
        self.assertEqual(result and result.cases, [(500, "seconds")])

    def test_the_page_is_written(self) -> None:
        self.prove(self.counting("a"))
        self.assertIn("| [Claim of a](evidence.md#a) | held | 5 calls |",
                      (self.source / "docs/evidence.md").read_text())


class Parts(unittest.TestCase):
    def test_inputs_exist(self) -> None:
        root = Path(__file__).resolve().parent.parent.parent
        for it in PARTS:
            for name in it.depends_on():
                self.assertTrue((root / name).exists(), f"{it.name}: {name}")

    def test_names_differ(self) -> None:
        self.assertEqual(len({it.name for it in PARTS}), len(PARTS))


class Page(unittest.TestCase):
    def test_rows(self) -> None:
        parts = [part("a", ""), part("b", ""), part("c", "")]
        results = [Result("held", [(12345, "calls")], "7", 100, "GCC 12.2.0", "P", "abc"), None,
                   Result("failed", [], "", 1, "", "P", "abc")]
        text = page(parts, results)
        self.assertIn("| [Claim of a](evidence.md#a) | held | 12,345 calls | 7 | 2 min "
                      "| GCC 12.2.0 | `abc` |", text)
        self.assertIn("| [Claim of b](evidence.md#b) | not run |", text)
        self.assertIn("| [Claim of c](evidence.md#c) | **failed** |", text)
        self.assertIn("Processor: P.", text)


if __name__ == "__main__":
    unittest.main()
