# SPDX-License-Identifier: MIT
"""The lists in a made-up source, and what the readers take from text."""

import os
import tempfile
import unittest

from checks import Failure
from reading.disassembly import parse_functions, parse_instructions
from reading.library import Section, parse_relocations, parse_sections
from reading.source_lists import SourceLists, Variant
from reading.symbols import Symbol, parse_pe_links, parse_symbols


class Lists(unittest.TestCase):
    def setUp(self) -> None:
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.source = directory.name
        self.lists = SourceLists(self.source)

    def write(self, name: str, text: str) -> None:
        path = os.path.join(self.source, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="ascii") as file:
            file.write(text)

    def test_kernels(self) -> None:
        self.write("twist/kernels.def", "/* KERNEL(no) */\nKERNEL(B, x, Y<3>)\nKERNEL(A, x)\n")
        self.write("depth/kernels.def", "KERNEL(C)\n")
        self.assertEqual(self.lists.kernels("v", "twist", "depth"),
                         ["pxm::v::A", "pxm::v::B", "pxm::v::C"])

    def test_variants(self) -> None:
        self.write("frame/variants.def", "VARIANT(a, low,  low, featureNone, 1)\n"
                                         "VARIANT(b, high, low, featureX | featureY,\n  2)\n")
        self.assertEqual(self.lists.variants, {"a": Variant("low", "low", []),
                                               "b": Variant("high", "low", ["X", "Y"])})

    def test_lost_variant(self) -> None:
        self.write("frame/variants.def", "#if 0\nVARIANT(a, x, x, featureNone)\n#endif\n"
                                         "VARIANT(b, x, x, featureNone)\n")
        with self.assertRaisesRegex(Failure, "1 variants"):
            self.assertIsNone(self.lists.variants)

    def test_missing_list(self) -> None:
        with self.assertRaisesRegex(Failure, "frame/conversions.def.+(No such file|not found)"):
            self.lists.exports()


class Readers(unittest.TestCase):
    def test_symbols(self) -> None:
        text = "\na.o:\n0000000000000010 T f(int, long)\n                 U g\n"
        self.assertEqual(parse_symbols(text), [Symbol(16, "T", "f(int, long)"),
                                               Symbol(None, "U", "g")])

    def test_pe_links(self) -> None:
        given, asked = parse_pe_links("0000000000000000 T f(int)\n0000000000000000 R table\n"
                                      "0000000000000000 t hidden\n                 U g(int)\n")
        self.assertEqual(given, ["GLOBAL FUNC HIDDEN f", "GLOBAL OBJECT HIDDEN table"])
        self.assertEqual(asked, ["GLOBAL NOTYPE HIDDEN g"])

    def test_sections(self) -> None:
        text = "  [ 7] .text    PROGBITS        0000000000007000 006000 000010 00  AX  0   0 32\n"
        text_section = parse_sections(text)[".text"]
        self.assertEqual(text_section, Section(0x7000, 0x6000, 0x10))
        self.assertEqual([text_section.has(a) for a in (0x6fff, 0x7000, 0x700f, 0x7010)],
                         [False, True, True, False])

    def test_relocations(self) -> None:
        text = ("0000000000000010  0000000000000008 R_X86_64_RELATIVE    5a0\n"
                "0000000000000018  0000000200000006 R_X86_64_GLOB_DAT    0000000000000000 f + 0\n")
        found = parse_relocations(text)
        self.assertEqual(found.targets, {0x10: 0x5a0})
        self.assertEqual(len(found.others), 1)

    def test_functions(self) -> None:
        text = ("a.o:     file format elf64-x86-64\n\nDisassembly of section .text:\n\n"
                "0000000000000010 <f(a<b>)>:\n      10:\tnotrack jmp *%rax\n      13:\tret\n\n"
                "0000000000000020 <g>:\n      20:\tcall   10 <f(a<b>)>\n\t...\n")
        first, second = parse_functions(text)
        self.assertEqual((first.address, first.name), (0x10, "f(a<b>)"))
        self.assertEqual([it.name for it in first.instructions()], ["jmp", "ret"])
        self.assertEqual([it.target for it in first.instructions()], [None, None])
        self.assertEqual([it.target for it in second.instructions()], [0x10])
        self.assertEqual(len(list(parse_instructions(text))), 3)


if __name__ == "__main__":
    unittest.main()
