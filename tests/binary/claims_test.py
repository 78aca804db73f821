# SPDX-License-Identifier: MIT
"""Each claim holds for a made-up library, and fails when that is broken."""

import re
import unittest
from typing import NamedTuple

import made_up
from audit import CLAIMS
from checks import Failure

LISTING = "objdump -d --no-show-raw-insn"
DISPATCH = {"nm": made_up.SYMBOLS, "readelf -rW": made_up.RELOCATIONS}
ORDINARY = "".join(f"    {address:x}:\tadd    %eax,%edx\n" for address in range(101))


class Case(NamedTuple):
    claim: str
    printed: dict[str, str]
    words: tuple[str, ...]
    is_pe: bool
    # Ways to break the text of a tool, each with what the failure says: tool, old, new, message.
    breaks: list[tuple[str, str, str, str]]


def elf(claim: str, printed: dict[str, str], *breaks: tuple[str, str, str, str],
        words: tuple[str, ...] = ()) -> Case:
    return Case(claim, printed, words, False, list(breaks))


def pe(claim: str, printed: dict[str, str], *breaks: tuple[str, str, str, str],
       words: tuple[str, ...] = ()) -> Case:
    return Case(claim, printed, words, True, list(breaks))


EXPORTS = "nm -D --defined-only"
EXPORTED = """0000000000001110 T legacy90pxmiTurn@@PXMCC90LGC_9
0000000000001000 T legacy90pxmccFree@@PXMCC90LGC_9
0000000000000000 A PXMCC90LGC_9
"""
EXPORT_BREAKS = [(EXPORTS, "T legacy90pxmccFree", "T extra", r"differ:\n- .*Free\n\+ extra"),
                 (EXPORTS, EXPORTED, "", "- legacy90pxmiTurn")]

CASES = [
    elf("exports-are-exactly-the-list", {EXPORTS: EXPORTED}, *EXPORT_BREAKS),
    elf("exports-are-exactly-the-header", {EXPORTS: EXPORTED}, *EXPORT_BREAKS),
    elf("exports-have-the-version-of-the-interface",
        {EXPORTS: EXPORTED, "readelf -dW": made_up.DYNAMIC},
        (EXPORTS, "Free@@PXMCC90LGC_9", "Free", "versions of names differ"),
        (EXPORTS, "Free@@PXMCC90LGC_9", "Free@@PXMCC90LGC_10", "_10"),
        ("readelf -dW", "so.9", "so", "sonames differ")),
    pe("exports-have-the-ordinals-of-the-list", {"objdump -p": made_up.HEADERS},
       ("objdump -p", "Base \t\t\t1", "Base \t\t\t2", r"\+ 2 legacy90pxmccFree"),
       ("objdump -p", "\t[   1]", "\t[   3]", r"- 2 legacy90pxmiTurn\n\+ 4 legacy90pxmiTurn")),

    elf("no-text-relocation",
        {"readelf -dW": made_up.DYNAMIC, "readelf -SW": made_up.SECTIONS,
         "readelf -rW": made_up.RELOCATIONS},
        ("readelf -dW", "BIND_NOW", "TEXTREL", "text relocations"),
        ("readelf -rW", "0000000000008100", "0000000000001fff", "inside .text at 1fff")),
    elf("full-relro", {"readelf -dW": made_up.DYNAMIC, "readelf -lW": made_up.SEGMENTS},
        ("readelf -lW", "GNU_RELRO", "GNU_NONE", "no RELRO"),
        ("readelf -dW", "BIND_NOW", "", "not bound")),
    elf("stack-is-not-executable", {"readelf -lW": made_up.SEGMENTS},
        ("readelf -lW", " RW ", " RWE ", "RWE"),
        ("readelf -lW", "GNU_STACK", "GNU_OTHER", "stack flags")),
    elf("one-constructor",
        {"readelf -dW": made_up.DYNAMIC, "readelf -SW": made_up.SECTIONS, **DISPATCH},
        ("readelf -dW", "   8 (bytes)", "   16 (bytes)", "not one"),
        ("readelf -dW", "(FLAGS)", "(FINI)", "other start"),
        ("nm", "atLoad", "other", "not atLoad"),
        ("readelf -rW", "0000000000008000", "0000000000008010", "not atLoad")),
    elf("no-dependency", {"readelf -dW": made_up.DYNAMIC, "nm -D --undefined-only": ""},
        ("readelf -dW", "(FLAGS)", "(NEEDED)", "needed libraries"),
        ("nm -D --undefined-only", "", "                 U malloc", "malloc")),
    elf("nothing-can-be-interposed", {"readelf -rW": made_up.RELOCATIONS, LISTING: made_up.CODE},
        ("readelf -rW", "RELATIVE                         1200", "JUMP_SLO 0 free + 0", "by name"),
        (LISTING, "1114:\tmovslq 0x7ee5(%rip),%rax", "1114:\tcall 1000 <free@plt>", "linkage")),
    pe("no-import", {"objdump -p": "DLL Name: pxmcc90lgc.dll\n"},
       ("objdump -p", "pxmcc90lgc", "kernel32", "kernel32")),
    pe("pages-may-lie-anywhere-and-none-is-written-and-executed",
       {"objdump -p": made_up.HEADERS, "objdump -h": made_up.FLAGS},
       ("objdump -p", "HIGH_ENTROPY_VA", "", "no HIGH"),
       ("objdump -p", "DYNAMIC_BASE", "", "no DYNAMIC"),
       ("objdump -p", "NX_COMPAT", "", "no NX"),
       ("objdump -p", "Characteristics 0x22e", "relocations stripped", "moved"),
       ("objdump -h", "READONLY, ", "", "can be written")),

    elf("every-indirect-target-has-endbr64",
        {"readelf -nW": "x86 feature: IBT, SHSTK", "readelf -SW": made_up.SECTIONS,
         EXPORTS: EXPORTED, LISTING: made_up.CODE, **DISPATCH},
        ("readelf -nW", "IBT", "", "not marked"),
        (LISTING, "1110:\tendbr64", "1110:\tnop", "1110"),
        (LISTING, "1200:\tendbr64", "1200:\tnop", "1200")),
    elf("variant-index-is-hidden", {"nm": made_up.SYMBOLS, EXPORTS: EXPORTED},
        ("nm", "VariantIndex", "Index", "not in the symbol table"),
        (EXPORTS, "legacy90pxmccFree", "VariantIndex", "exported")),
    elf("stubs-are-one-load-and-one-jump", {LISTING: made_up.CODE},
        (LISTING, "1110:\tendbr64", "1110:\tpush %rax", "- legacy90pxmiTurn"),
        (LISTING, "# 9000 <VariantIndex>", "# 9000 <Other> <VariantIndex>x", "- legacy"),
        (LISTING, "%r11        # 8108", "%r10        # 8108", "- legacy"),
        (LISTING, "*(%r11,%rax,8)", "*%rax", "- legacy"),
        (LISTING, "1126:\tcs nopw", "1126:\tcs incl", "- legacy")),
    pe("stubs-are-one-load-and-one-jump", {LISTING: made_up.CODE.replace("1110:\tendbr64", "")},
       (LISTING, "movslq", "mov", "- legacy")),
    elf("every-slot-leads-to-the-entry-of-its-variant", DISPATCH,
        ("readelf -rW", "RELATIVE                         1300",
         "RELATIVE                         1200", "slot 1 does not lead to Turn_bb"),
        ("readelf -rW", "0000000000008110", "0000000000008118", "slot 1"),
        ("nm", "0000000000001300 t Turn_bb", "", "slot 1"),
        ("nm", "Turn_table", "table", "no symbol Turn_table")),
    elf("entry-minus-1-leads-to-the-trampoline-before-the-stub", DISPATCH,
        ("readelf -rW", "RELATIVE                         1107",
         "RELATIVE                         1110", "elsewhere"),
        ("nm", "0000000000001110 T", "0000000000001118 T", "fall through")),
    elf("image-starts-unchosen", {"nm": made_up.SYMBOLS, "readelf -SW": made_up.SECTIONS},
        ("nm", "0000000000009000 d", "0000000000009004 d", "starts as 00000000"),
        ("nm", "0000000000009008 d", "0000000000009000 d", "mask starts as ffffffff00000000"),
        ("nm", "enabledFeatures", "otherFeatures", "not one enabled mask")),
    elf("index-is-stored-before-the-enabled-mask", {f"{LISTING} -C": made_up.START},
        (f"{LISTING} -C", "startUp(", "later(", "order ''"),
        (f"{LISTING} -C", "1400:\tmov    %eax", "1400:\tcmp    %eax", "order 'mask'"),
        (f"{LISTING} -C", "    1400:", "    13f0:\tcall 2 <SetEnabledFeatures>\n    1400:",
         "order 'mask index mask'")),
    elf("state-is-the-index-and-two-masks", {"objdump -tC": made_up.WRITABLE},
        ("objdump -tC", ".data.rel.ro\t", ".data\t", r"\+ Turn_table"),
        ("objdump -tC", ".bss\t", ".rodata\t", "- pxm::featureMaskCache")),

    elf("no-weak-symbol", {"nm -C a.o": made_up.SYMBOLS},
        ("nm -C a.o", " t Turn_aa", " W Turn_aa", "Turn_aa"),
        ("nm -C a.o", "0000000000001200 t Turn_aa", "                 w Turn_aa", "Turn_aa"),
        words=("a.o",)),
    pe("no-weak-symbol", {"nm -C a.o": made_up.SYMBOLS, "objdump -h a.o": made_up.FLAGS},
       ("objdump -h a.o", "READONLY", "LINK_ONCE_DISCARD", "merge"), words=("a.o",)),
    elf("no-clone", {"nm a.o": made_up.SYMBOLS},
        ("nm a.o", "Turn_aa", "Turn_aa.constprop.0", "constprop"), words=("a.o",)),
    elf("kernels-are-exactly-those-of-the-lists",
        {"readelf -sWC a.o": made_up.LINKS,
         "readelf -sWC t.o": made_up.TABLE_LINKS},
        ("readelf -sWC a.o", "FUNC    GLOBAL HIDDEN     2 pxm::wide::Twist",
         "FUNC    GLOBAL DEFAULT    2 pxm::wide::Twist", "DEFAULT pxm::wide::Twist"),
        ("readelf -sWC a.o", "LOCAL  DEFAULT    2", "GLOBAL HIDDEN     2", r"\+ .*helper"),
        ("readelf -sWC a.o", "UND pxm::ClampTable", "UND memcpy", "memcpy"),
        ("readelf -sWC t.o", "ClampTable", "OtherTable", "besides tables:\npxm::ClampTable"),
        words=("wide", "a.o", "--", "t.o")),
    elf("entries-are-exactly-those-of-the-list", {"readelf -sWC a.o": made_up.ENTRY_LINKS},
        ("readelf -sWC a.o", "Turn_bb", "Turn_aa", r"- .*Turn_bb\n\+ .*Turn_aa"),
        ("readelf -sWC a.o", "wide::Twist", "plain::Twist", "kernels called differ"),
        words=("bb", "a.o")),
    elf("tables-are-constants",
        {"readelf -sWC t.o": made_up.TABLE_LINKS, "size -A -d t.o": ".text    0    0\n",
         "nm -C t.o": "0000000000000000 R pxm::ClampTable\n"},
        ("readelf -sWC t.o", "OBJECT", "FUNC  ", "other than hidden tables"),
        ("readelf -sWC t.o", "\n", "\n     1: 0 0 NOTYPE GLOBAL HIDDEN UND memcpy\n", "used"),
        ("size -A -d t.o", "0    0", "1    0", "code beside"),
        ("nm -C t.o", " R ", " D ", "nobody can write"),
        words=("t.o",)),
    elf("kernels-are-smaller",
        {"size -A -d a.o": ".text    80    0\n.text.x    10    0\n.data 5 0\n",
         "size -A -d b.o": ".text    100    0\n"},
        ("size -A -d a.o", "80", "81", "91 bytes, which is more than 90 % of 100"),
        ("size -A -d a.o", ".text    80    0\n.text.x    10", ".data 90", "0 bytes"),
        words=("90", "a.o", "--", "b.o")),

    elf("instructions-of-frame", {f"{LISTING} a.o": ORDINARY + "    1:\txgetbv\n"},
        (f"{LISTING} a.o", "xgetbv", "popcnt %eax,%eax", "1 popcnt"),
        (f"{LISTING} a.o", ORDINARY, "", "only 1 instructions"), words=("a.o",)),
    elf("instructions-of-entries", {f"{LISTING} a.o": ORDINARY},
        (f"{LISTING} a.o", "    0:\tadd", "    0:\txgetbv\n    0:\tadd", "1 xgetbv"),
        words=("a.o",)),
    elf("instructions-of-kernels", {f"{LISTING} a.o": ORDINARY + made_up.KERNELS},
        (f"{LISTING} a.o", "vaddps %ymm0", "vaddps %zmm0", "and Avx2Level:\n1 vaddps with masks"),
        words=("bb", "a.o")),
    pe("wide-stack-moves-are-unaligned", {f"{LISTING} a.o": "  10:\tvmovdqu %ymm0,0x20(%rsp)\n"},
       (f"{LISTING} a.o", "vmovdqu", "vmovdqa", "10: vmovdqa %ymm0"), words=("a.o",)),
    elf("wide-registers-are-in-kernels-that-may-use-them", {f"{LISTING} -C": made_up.KERNELS},
        (f"{LISTING} -C", "vpaddw %xmm0", "vpaddw %ymm0", r"\+ pxm::wide::Decode"),
        (f"{LISTING} -C", "vaddps %ymm0,%ymm1,%ymm2", "nop", "- pxm::wide::Twist"),
        (f"{LISTING} -C", "2200 <pxm::wide::Decode(int)>:\n    2200:\tvpaddw %x",
         "2200 <memset>:\n    2200:\tvpaddw %y", "elsewhere:\nmemset"),
        words=("wide:twist",)),
    elf("upper-halves-are-cleared", {f"{LISTING} -C": made_up.KERNELS},
        (f"{LISTING} -C", "    2104:\tvzeroupper\n", "", "helper"),
        (f"{LISTING} -C", "vaddps %ymm0,%ymm1,%ymm2", "nop", "no kernel")),
    elf("twist-kernels-clear-upper-halves", {f"{LISTING} -C": made_up.KERNELS},
        (f"{LISTING} -C", "    2005:\tvzeroupper\n    2008:\tret",
         "    2005:\tje 2000 <f>\n    2008:\tjmp *%rax", "- pxm::wide::Twist")),
]


class Claims(unittest.TestCase):
    def test_hold(self) -> None:
        for case in CASES:
            with self.subTest(case.claim):
                made_up.check(case.claim, case.printed, *case.words, is_pe=case.is_pe)

    def test_fail(self) -> None:
        for case in CASES:
            for tool, old, new, message in case.breaks:
                with self.subTest(case.claim, message=message):
                    self.assertIn(old, case.printed[tool])
                    broken = {**case.printed, tool: case.printed[tool].replace(old, new, 1)}
                    with self.assertRaisesRegex(Failure, re.compile(message)):
                        made_up.check(case.claim, broken, *case.words, is_pe=case.is_pe)

    def test_all_are_here(self) -> None:
        here = {case.claim for case in CASES if case.breaks}
        # Of the size there is nothing to make up: the file itself counts.
        self.assertEqual(here | {"stripped-size"}, set(CLAIMS))

    def test_want_their_words(self) -> None:
        for claim, message in (("no-clone", "no object"), ("stripped-size", "no size"),
                               ("kernels-are-exactly-those-of-the-lists", "no level"),
                               ("instructions-of-kernels", "no tag")):
            with self.subTest(claim), self.assertRaisesRegex(Failure, message):
                made_up.check(claim, {})


if __name__ == "__main__":
    unittest.main()
