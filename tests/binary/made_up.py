# SPDX-License-Identifier: MIT
"""A made-up library for tests: what the tools would print of it."""

from unittest import mock

from audit import CLAIMS
from claims.subject import Subject
from reading.library import Library
from reading.source_lists import SourceLists, Variant


class MadeUpLists(SourceLists):
    """A conversion and a service, of which the conversion has two variants and two kernels."""

    variants = {"aa": Variant("plain", "plain", []),
                "bb": Variant("wide", "wide", ["Avx", "AvxState", "Avx2Level"])}

    def __init__(self) -> None:
        super().__init__(".")

    def rows(self, file: str, *macros: str) -> list[str]:
        raise AssertionError(f"{file} is read")

    def exports(self) -> list[str]:
        return ["legacy90pxmccFree", "legacy90pxmiTurn"]

    def header_names(self) -> list[str]:
        return self.exports()

    def dispatched(self) -> dict[str, str]:
        return {"Turn": "legacy90pxmiTurn"}

    def entries(self, tag: str) -> list[str]:
        return [f"Turn_{tag}"]

    def kernels(self, level: str, *families: str) -> list[str]:
        names = {"twist": f"pxm::{level}::Twist", "decode": f"pxm::{level}::Decode"}
        return sorted(names[family] for family in families if family in names)


class MadeUpLibrary(Library):
    data = b"\xff\xff\xff\xff\0\0\0\0\7\0\0\0\0\0\0\0"

    def __init__(self, is_pe: bool) -> None:
        super().__init__("library")
        self.__dict__["is_pe"] = is_pe

    def initial_bytes(self, section: object, address: int, count: int) -> bytes:
        return self.data[address - 0x9000:][:count]


def check(claim: str, printed: dict[str, str], *words: str, is_pe: bool = False) -> None:
    """Checks a claim where each tool, named with its options, prints a text."""

    def output(*command: str, given: str = "") -> str:
        del given
        tool = " ".join(part for part in command if part not in ("library", *words))
        named = [file for file in words if file in command]
        return printed[" ".join([tool, *named])]

    with (mock.patch("reading.tools.output", output), mock.patch("claims.dispatch.TABLES", 1),
          mock.patch("builtins.print")):
        CLAIMS[claim](Subject(MadeUpLibrary(is_pe), MadeUpLists(), list(words)))


SECTIONS = """
  [Nr] Name              Type            Address          Off    Size   ES Flg Lk Inf Al
  [ 7] .text             PROGBITS        0000000000001000 001000 001000 00  AX  0   0 32
  [ 8] .init_array       INIT_ARRAY      0000000000008000 008000 000008 08  WA  0   0  8
  [10] .data             PROGBITS        0000000000009000 009000 000010 00  WA  0   0  8
"""
RELOCATIONS = """
    Offset             Info             Type               Symbol's Value  Symbol's Name + Addend
0000000000008000  0000000000000008 R_X86_64_RELATIVE                         1000
0000000000008100  0000000000000008 R_X86_64_RELATIVE                         1107
0000000000008108  0000000000000008 R_X86_64_RELATIVE                         1200
0000000000008110  0000000000000008 R_X86_64_RELATIVE                         1300
"""
SYMBOLS = """
0000000000001000 t _ZL6atLoadv
0000000000001107 t Turn_trampoline
0000000000001110 T legacy90pxmiTurn
0000000000001200 t Turn_aa
0000000000001300 t Turn_bb
0000000000008108 d Turn_table
0000000000009000 d VariantIndex
0000000000009008 d _ZN3pxm12_GLOBAL__N_115enabledFeaturesE
"""
DYNAMIC = """
 0x000000000000000e (SONAME)             Library soname: [libpxmcc90lgc.so.9]
 0x000000000000001b (INIT_ARRAYSZ)       8 (bytes)
 0x000000000000001e (FLAGS)              BIND_NOW
"""
SEGMENTS = """
  GNU_STACK      0x000000 0x0000000000000000 0x0000000000000000 0x000000 0x000000 RW  0x10
  GNU_RELRO      0x09f3f8 0x000000000009f3f8 0x000000000009f3f8 0x000c08 0x000c08 R   0x1
"""
CODE = """
0000000000001000 <_ZL6atLoadv>:
    1000:\tendbr64
    1004:\tret

0000000000001107 <Turn_trampoline>:
    1107:\tendbr64

0000000000001110 <legacy90pxmiTurn>:
    1110:\tendbr64
    1114:\tmovslq 0x7ee5(%rip),%rax        # 9000 <VariantIndex>
    111b:\tlea    0x6fe6(%rip),%r11        # 8108 <Turn_table>
    1122:\tjmp    *(%r11,%rax,8)
    1126:\tcs nopw 0x0(%rax,%rax,1)

0000000000001200 <Turn_aa>:
    1200:\tendbr64
    1204:\tret

0000000000001300 <Turn_bb>:
    1300:\tendbr64
    1304:\tret
"""
START = """
0000000000001400 <pxm::startUp(unsigned int)>:
    1400:\tmov    %eax,0x7bfa(%rip)        # 9000 <VariantIndex>
    1406:\tmov    %rdx,0x7bfb(%rip)        # 9008 <pxm::(anonymous namespace)::enabledFeatures>
    140d:\tret
"""
WRITABLE = """
0000000000009008 l     O .data\t0000000000000008 pxm::(anonymous namespace)::enabledFeatures
0000000000008108 l     O .data.rel.ro\t0000000000000010 Turn_table
0000000000009020 l     O .bss\t0000000000000010              pxm::featureMaskCache
0000000000009000 g     O .data\t0000000000000004 .hidden VariantIndex
"""
HEADERS = """
Characteristics 0x22e
DllCharacteristics\t00000160
\t\t\t\t\tHIGH_ENTROPY_VA
\t\t\t\t\tDYNAMIC_BASE
\t\t\t\t\tNX_COMPAT
Ordinal Base \t\t\t1

[Ordinal/Name Pointer] Table
\t[   0] legacy90pxmccFree
\t[   1] legacy90pxmiTurn

The Function Table
\t[   2] other
"""
FLAGS = """
  0 .text         00001000  00000001  00000001  00000600  2**5
                  CONTENTS, ALLOC, LOAD, READONLY, CODE
  1 .data         00001000  00000001  00000001  00000600  2**5
                  CONTENTS, ALLOC, LOAD, DATA
"""
LINKS = """
   Num:    Value          Size Type    Bind   Vis      Ndx Name
     0: 0000000000000000     0 NOTYPE  LOCAL  DEFAULT  UND
     1: 0000000000000000    99 FUNC    LOCAL  DEFAULT    2 pxm::wide::helper(int)
     2: 0000000000000000    99 FUNC    GLOBAL HIDDEN     2 pxm::wide::Twist(int, int)
     3: 0000000000000000    99 FUNC    GLOBAL HIDDEN     2 pxm::wide::Decode(int)
     4: 0000000000000000     0 NOTYPE  GLOBAL HIDDEN   UND pxm::ClampTable
"""
TABLE_LINKS = """
     2: 0000000000000000  1000 OBJECT  GLOBAL HIDDEN     4 pxm::ClampTable
"""
ENTRY_LINKS = """
     2: 0000000000000000    99 FUNC    GLOBAL HIDDEN     2 Turn_bb
     3: 0000000000000000     0 NOTYPE  GLOBAL HIDDEN   UND pxm::wide::Twist(int, int)
     4: 0000000000000000     0 NOTYPE  GLOBAL HIDDEN   UND pxm::wide::Decode(int)
"""
KERNELS = """
0000000000002000 <pxm::wide::Twist(int, int)>:
    2000:\tcall   2100 <pxm::wide::(anonymous namespace)::helper(int)>
    2005:\tvzeroupper
    2008:\tret

0000000000002100 <pxm::wide::(anonymous namespace)::helper(int)>:
    2100:\tvaddps %ymm0,%ymm1,%ymm2
    2104:\tvzeroupper
    2107:\tret

0000000000002200 <pxm::wide::Decode(int)>:
    2200:\tvpaddw %xmm0,%xmm1,%xmm2
    2204:\tret
"""
