/* SPDX-License-Identifier: MIT */
/* Entries that convert well and leave the processor otherwise than they found it, or ask more of it
   than they may. All arguments are in registers. */
        .text

/* A bad entry: some instructions, the good entry, some instructions. eax is the status then. */
        .macro  ENTRY name, before, after
        .globl  bad_\name
        .hidden bad_\name
        .type   bad_\name, @function
bad_\name:
        endbr64
        subq    $8, %rsp
        \before
        call    *goodEntry(%rip)
        \after
        addq    $8, %rsp
        ret
        .size   bad_\name, . - bad_\name
        .endm

        .hidden goodEntry
        .hidden goodVariantIndex
        .hidden startUpOfTheProgram

        ENTRY   LosesRbx, "", "movl $1, %ebx"
        ENTRY   LosesRbp, "", "movl $1, %ebp"
        ENTRY   LosesR12, "", "movl $1, %r12d"
        ENTRY   LosesR13, "", "movl $1, %r13d"
        ENTRY   LosesR14, "", "movl $1, %r14d"
        ENTRY   LosesR15, "", "movl $1, %r15d"
        ENTRY   LeavesTheDirectionFlag, "", "std"
        ENTRY   LeavesTheRoundingMode, "", "ldmxcsr roundedDown(%rip)"
        ENTRY   LeavesTheX87ControlWord, "", "fldcw singlePrecision(%rip)"
        ENTRY   RaisesAFlagOfNoPixel, "", "xorps %xmm0, %xmm0; divss %xmm0, %xmm0"
        ENTRY   TakesThePitchAs64Bits, "movzbl (%rdi,%rsi), %eax", ""
        ENTRY   LeavesUpperHalves, "", "vinsertf128 $1, sixteenOnes(%rip), %ymm0, %ymm0"
        ENTRY   LeavesMmxRegisters, "", "pxor %mm0, %mm0"
        ENTRY   AsksTheSystem, "", "movl %eax, (%rsp); movl $39, %eax; syscall; movl (%rsp), %eax"
        ENTRY   NeedsADeepStack, "movb $0, -4096(%rsp)", ""
        ENTRY   WritesToTheLibrary, "movq goodVariantIndex(%rip), %rax; lock orl $0, (%rax)", ""
        ENTRY   NeedsANewerProcessor, "vpabsb %ymm0, %ymm0; vzeroupper", ""

/* The thunk: five of the six registers that carry arguments. */
        .globl  bad_ThunkLosesR9
        .hidden bad_ThunkLosesR9
        .type   bad_ThunkLosesR9, @function
bad_ThunkLosesR9:
        .irp    register, rdi, rsi, rdx, rcx, r8
        pushq   %\register
        .endr
        subq    $8, %rsp
        call    startUpOfTheProgram
        addq    $8, %rsp
        .irp    register, r8, rcx, rdx, rsi, rdi
        popq    %\register
        .endr
        movl    $1, %r9d
        ret
        .size   bad_ThunkLosesR9, . - bad_ThunkLosesR9

        .section .rodata
        .balign 16
sixteenOnes:
        .fill   16, 1, 1
roundedDown:
        .long   0x3F80
singlePrecision:
        .short  0x007F
        .section .note.GNU-stack, "", @progbits
