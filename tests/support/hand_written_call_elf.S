/* SPDX-License-Identifier: MIT */
/* rdi: function, rsi: words, rdx: registers before, rcx: registers after. */
        .text
        .globl  handWrittenCall
        .type   handWrittenCall, @function
handWrittenCall:
        endbr64
        .irp    register, rbx, rbp, r12, r13, r14, r15
        pushq   %\register
        .endr
        subq    $24, %rsp
        movq    %rcx, (%rsp)
        movq    %rdi, 8(%rsp)
        movq    %rsi, %rax
        movq    (%rdx), %rbx
        movq    8(%rdx), %rbp
        movq    16(%rdx), %r12
        movq    24(%rdx), %r13
        movq    32(%rdx), %r14
        movq    40(%rdx), %r15
        movq    (%rax), %rdi
        movq    8(%rax), %rsi
        movq    16(%rax), %rdx
        movq    24(%rax), %rcx
        movq    32(%rax), %r8
        movq    40(%rax), %r9
        call    *8(%rsp)
        movq    (%rsp), %r11
        movq    %rbx, (%r11)
        movq    %rbp, 8(%r11)
        movq    %r12, 16(%r11)
        movq    %r13, 24(%r11)
        movq    %r14, 32(%r11)
        movq    %r15, 40(%r11)
        pushfq
        popq    %rdx
        andq    $0x400, %rdx
        movq    %rdx, 224(%r11)
        stmxcsr 232(%r11)
        fnstcw  236(%r11)
        cld
        addq    $24, %rsp
        .irp    register, r15, r14, r13, r12, rbp, rbx
        popq    %\register
        .endr
        ret
        .size   handWrittenCall, . - handWrittenCall
        .section .note.GNU-stack, "", @progbits
