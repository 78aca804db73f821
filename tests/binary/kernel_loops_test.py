# SPDX-License-Identifier: MIT
"""What scripts/loops counts of made-up kernels."""

import unittest

from kernel_loops.control_flow import cycles
from kernel_loops.instructions import Disassembly, Instruction, whole
from kernel_loops.kernels import Kernel, main_loop
from kernel_loops.loops import Program
from kernel_loops.operations import kind, stored_bytes


def program_of(*functions: list[str]) -> Program:
    """Of functions at 1000, 2000 and so on, with an instruction at each address."""
    listing = ""
    for number, code in enumerate(functions, 1):
        listing += f"\n{number * 0x1000:016x} <f{number}>:\n"
        for place, instruction in enumerate(code):
            listing += f"    {number * 0x1000 + place:x}:\t{instruction}\n"
    return Program(Disassembly(listing))


class MainLoop(unittest.TestCase):
    def assert_counts(self, *functions: list[str], **counts: int) -> None:
        """Of the main loop of the first function; what is not named is not there."""
        found = main_loop(Kernel("decode", "Kernel", 0x1000), program_of(*functions))
        self.assertIsNotNone(found)
        self.assertEqual({key: value for key, value in (found or {}).items() if value}, counts)

    def test_simple_loop(self) -> None:
        self.assert_counts(
            ["xor %eax,%eax", "vmovdqu (%rsi,%rax,1),%ymm0", "vpaddw %ymm0,%ymm1,%ymm2",
             "vmovdqu %ymm2,(%rdi,%rax,1)", "vmovdqa %ymm2,0x20(%rsp)", "vpxor %xmm1,%xmm1,%xmm1",
             "add $0x20,%rax", "cmp %rdx,%rax", "jb 1001 <f1+1>", "ret"],
            operations=1, loads=1, stores=2, moves=1, scalar=3, stack=1, bytes=32)

    def test_no_loop(self) -> None:
        program = program_of(["vpaddw %ymm0,%ymm1,%ymm2", "vmovdqu %ymm2,(%rdi)", "ret"])
        self.assertIsNone(main_loop(Kernel("decode", "Kernel", 0x1000), program))

    def test_stores_that_overlap(self) -> None:
        self.assert_counts(
            ["paddw %xmm0,%xmm1", "movq %xmm1,(%rdi)", "movq %xmm1,0x6(%rdi)", "add $0xe,%rdi",
             "movd %xmm1,(%rdi)", "jne 1000 <f1>", "ret"],
            operations=1, stores=3, scalar=2, bytes=18)

    def test_way_that_stores_most(self) -> None:
        self.assert_counts(
            ["je 1004 <f1+4>", "paddw %xmm0,%xmm1", "movdqu %xmm1,(%rdi)", "jmp 1007 <f1+7>",
             "psubw %xmm0,%xmm1", "psubw %xmm0,%xmm2", "movq %xmm2,(%rdi)",
             "dec %rcx", "jne 1000 <f1>", "ret"],
            operations=1, stores=1, scalar=4, bytes=16)

    def test_rows_of_a_block(self) -> None:
        """Two iterations of an inner loop belong to the block."""
        self.assert_counts(
            ["xor %eax,%eax", "paddw %xmm0,%xmm1", "movdqu %xmm1,(%rdi)", "add $0x1,%eax",
             "cmp $0x2,%eax", "jne 1001 <f1+1>", "dec %rcx", "jne 1000 <f1>", "ret"],
            operations=2, stores=2, scalar=1 + 2 * 3 + 2, bytes=32)

    def test_remainder_is_not_counted(self) -> None:
        self.assert_counts(
            ["paddw %xmm0,%xmm1", "paddw %xmm0,%xmm2", "movdqu %xmm1,(%rdi)",
             "paddw %xmm0,%xmm1", "movd %xmm1,(%rdi)", "cmp %rax,%rdi", "jne 1003 <f1+3>",
             "jne 1000 <f1>", "ret"],
            operations=2, stores=1, scalar=1, bytes=16)

    def test_part_that_is_called(self) -> None:
        self.assert_counts(
            ["call 2000 <f2>", "jne 1000 <f1>", "ret"],
            ["paddw %xmm0,%xmm1", "movdqu %xmm1,(%rdi)", "ret"],
            operations=1, stores=1, scalar=3, bytes=16)

    def test_loop_that_is_called(self) -> None:
        self.assert_counts(
            ["jmp 2000 <f2>"],
            ["paddw %xmm0,%xmm1", "movdqu %xmm1,(%rdi)", "jne 2000 <f2>", "ret"],
            operations=1, stores=1, scalar=1, bytes=16)

    def test_copies_of_the_stack_pointer(self) -> None:
        self.assert_counts(
            ["lea 0x20(%rsp),%rax", "mov %rax,%rcx", "paddw (%rcx),%xmm1", "movdqu %xmm1,(%rdi)",
             "jne 1002 <f1+2>", "ret"],
            operations=1, stores=1, scalar=1, stack=1, bytes=16)


class Pieces(unittest.TestCase):
    def test_kinds(self) -> None:
        for text, want in (("movdqa %xmm0,(%rax)", "stores"), ("movdqa (%rax),%xmm0", "loads"),
                           ("movdqa %xmm0,%xmm1", "moves"), ("pxor %xmm0,%xmm0", "moves"),
                           ("pxor %xmm0,%xmm1", "operations"), ("paddw (%rax),%xmm1", "operations"),
                           ("pextrw $0x1,%xmm0,(%rax)", "operations")):
            name, operands = text.split(" ")
            self.assertEqual(kind(Instruction(0, name, operands)), want, text)

    def test_stored_bytes(self) -> None:
        for text, want in (("vmovdqu %ymm0,(%rax)", 32), ("vmovdqu %xmm0,(%rax)", 16),
                           ("movq %xmm0,(%rax)", 8), ("movd %xmm0,(%rax)", 4),
                           ("pextrw $0x1,%xmm0,(%rax)", 2), ("mov %r9,(%rax)", 8),
                           ("mov %eax,(%rdi)", 4), ("mov %r10w,(%rdi)", 2), ("mov %ax,(%rdi)", 2),
                           ("mov %cl,(%rdi)", 1), ("mov %sil,(%rdi)", 1), ("movb $0x1,(%rdi)", 1),
                           ("movw $0x1,(%rdi)", 2)):
            name, operands = text.split(" ")
            self.assertEqual(stored_bytes(Instruction(0, name, operands)), want, text)

    def test_whole_registers(self) -> None:
        for part, register in (("%al", "rax"), ("%ecx", "rcx"), ("%sil", "rsi"), ("%bp", "rbp"),
                               ("%r8d", "r8"), ("%r15", "r15"), ("%xmm0", "%xmm0"),
                               ("$0x1", "$0x1")):
            self.assertEqual(whole(part), register)

    def test_cycles(self) -> None:
        follow: list[list[int]] = [[1], [2, 3], [1], [4, 6], [5], [3], [6], []]
        found = cycles(set(range(8)), follow)
        self.assertEqual(sorted(sorted(body) for body in found), [[1, 2], [3, 4, 5], [6]])


if __name__ == "__main__":
    unittest.main()
