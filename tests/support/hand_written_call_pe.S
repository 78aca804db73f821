/* SPDX-License-Identifier: MIT */
/* rcx: function, rdx: words, r8: registers before, r9: registers after. The frame: 32 bytes of shadow
   space and two words for the callee, the place of `after`, the function, ten vector registers. */
        .text
        .globl  handWrittenCall
        .def    handWrittenCall; .scl 2; .type 32; .endef
        .seh_proc handWrittenCall
handWrittenCall:
        .irp    register, rbx, rbp, r12, r13, r14, r15, rdi, rsi
        pushq   %\register
        .seh_pushreg %\register
        .endr
        subq    $232, %rsp
        .seh_stackalloc 232
        .set    offset, 64
        .irp    register, xmm6, xmm7, xmm8, xmm9, xmm10, xmm11, xmm12, xmm13, xmm14, xmm15
        movaps  %\register, offset(%rsp)
        .seh_savexmm %\register, offset
        .set    offset, offset + 16
        .endr
        .seh_endprologue
        movq    %r9, 48(%rsp)
        movq    %rcx, 56(%rsp)
        movq    32(%rdx), %rax
        movq    %rax, 32(%rsp)
        movq    40(%rdx), %rax
        movq    %rax, 40(%rsp)
        .set    offset, 64
        .irp    register, xmm6, xmm7, xmm8, xmm9, xmm10, xmm11, xmm12, xmm13, xmm14, xmm15
        movups  offset(%r8), %\register
        .set    offset, offset + 16
        .endr
        movq    (%r8), %rbx
        movq    8(%r8), %rbp
        movq    16(%r8), %r12
        movq    24(%r8), %r13
        movq    32(%r8), %r14
        movq    40(%r8), %r15
        movq    48(%r8), %rdi
        movq    56(%r8), %rsi
        movq    24(%rdx), %r9
        movq    16(%rdx), %r8
        movq    (%rdx), %rcx
        movq    8(%rdx), %rdx
.Lguarded:
        call    *56(%rsp)
        nop
.Lguarded_end:
.Lreturned:
        movq    48(%rsp), %r11
        movq    %rbx, (%r11)
        movq    %rbp, 8(%r11)
        movq    %r12, 16(%r11)
        movq    %r13, 24(%r11)
        movq    %r14, 32(%r11)
        movq    %r15, 40(%r11)
        movq    %rdi, 48(%r11)
        movq    %rsi, 56(%r11)
        .set    offset, 64
        .irp    register, xmm6, xmm7, xmm8, xmm9, xmm10, xmm11, xmm12, xmm13, xmm14, xmm15
        movups  %\register, offset(%r11)
        .set    offset, offset + 16
        .endr
        pushfq
        popq    %rdx
        andq    $0x400, %rdx
        movq    %rdx, 224(%r11)
        stmxcsr 232(%r11)
        fnstcw  236(%r11)
        cld
        .set    offset, 64
        .irp    register, xmm6, xmm7, xmm8, xmm9, xmm10, xmm11, xmm12, xmm13, xmm14, xmm15
        movaps  offset(%rsp), %\register
        .set    offset, offset + 16
        .endr
        addq    $232, %rsp
        .irp    register, rsi, rdi, r15, r14, r13, r12, rbp, rbx
        popq    %\register
        .endr
        ret
.Lcaught:
        movl    $0x5EED5EED, %eax
        jmp     .Lreturned
        /* Whatever is raised in the call goes on at .Lcaught, in this frame. */
        .seh_handler __C_specific_handler, @except
        .seh_handlerdata
        .long   1
        .rva    .Lguarded, .Lguarded_end
        .long   1
        .rva    .Lcaught
        .text
        .seh_endproc
