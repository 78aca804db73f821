# SPDX-License-Identifier: MIT
"""What made-up instructions need."""

import unittest

from checks import Failure
from instruction_sets import InstructionSet
from reading.disassembly import parse_instructions

AVX = ["Avx", "AvxState"]
AVX2 = [*AVX, "Avx2Level"]


def objections(needs: list[str], instruction: str, detects: bool = False) -> list[str]:
    allowed = InstructionSet(needs, detects)
    return [what for it in parse_instructions(f"  0:\t{instruction}\n")
            for what in allowed.objections(it)]


class Instructions(unittest.TestCase):
    def assert_first_in(self, instruction: str, *sets: list[str]) -> None:
        """The last of the sets has the instruction, those before it have not."""
        for lower in sets[:-1]:
            self.assertNotEqual(objections(lower, instruction), [], lower)
        self.assertEqual(objections(sets[-1], instruction), [], sets[-1])

    def test_each_step(self) -> None:
        self.assert_first_in("paddw  %xmm0,%xmm1", [])
        self.assert_first_in("pshufb %xmm0,%xmm1", [], ["Sse3"], ["Ssse3"])
        self.assert_first_in("pmulld %xmm0,%xmm1", ["Ssse3"], ["Sse41"])
        self.assert_first_in("vpaddw %xmm0,%xmm1,%xmm2", ["Sse41"], ["Avx"], AVX)
        self.assert_first_in("vaddps %ymm0,%ymm1,%ymm2", ["Sse41"], AVX)
        self.assert_first_in("vpaddw %ymm0,%ymm1,%ymm2", AVX, AVX2)
        self.assert_first_in("shlx   %eax,%ebx,%ecx", AVX, AVX2)
        self.assert_first_in("vzeroupper", ["Sse41"], AVX)

    def test_forms(self) -> None:
        self.assert_first_in("pextrw $0x0,%xmm0,(%rax)", ["Ssse3"], ["Sse41"])
        self.assert_first_in("pextrw $0x0,%xmm0,%eax", [])
        self.assert_first_in("vbroadcastss %xmm0,%ymm1", AVX, AVX2)
        self.assert_first_in("vbroadcastss (%rax),%ymm1", AVX)

    def test_never(self) -> None:
        for instruction in ("vpaddw %zmm0,%zmm1,%zmm2", "vpaddw %ymm17,%ymm1,%ymm2",
                            "vpaddw %ymm0,%ymm1,%ymm2{%k1}", "kmovd  %eax,%k1", "popcnt %eax,%eax",
                            "prefetcht0 (%rax)", "vpermb %ymm0,%ymm1,%ymm2", "xgetbv"):
            self.assertNotEqual(objections(AVX2, instruction), [], instruction)

    def test_ordinary(self) -> None:
        for instruction in ("add    %eax,%edx", "rep stos %al,%es:(%rdi)", "notrack jmp *%rax"):
            self.assertEqual(objections([], instruction), [], instruction)
        self.assertEqual(objections([], "xgetbv", detects=True), [])

    def test_prefix_hides_nothing(self) -> None:
        self.assertEqual(objections([], "data16 cs popcnt %eax,%eax"), ["popcnt"])

    def test_unknown_feature(self) -> None:
        with self.assertRaisesRegex(Failure, "for the feature Later"):
            InstructionSet(["Later"])


if __name__ == "__main__":
    unittest.main()
