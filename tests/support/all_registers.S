/* SPDX-License-Identifier: MIT */
        .bss
        .balign 64
        .globl  arrived
        .type   arrived, @object
        .size   arrived, 2240
arrived:
        .zero   2240
        .globl  bytesOfVectorRegisters
        .type   bytesOfVectorRegisters, @object
        .size   bytesOfVectorRegisters, 4
bytesOfVectorRegisters:
        .zero   8
stackBefore:
        .zero   8

/* Each register from its place at rax, or there. */
        .macro  LOAD_X n
        movups  192 + 64 * \n(%rax), %xmm\n
        .endm
        .macro  LOAD_Y n
        vmovups 192 + 64 * \n(%rax), %ymm\n
        .endm
        .macro  LOAD_Z n
        vmovups 192 + 64 * \n(%rax), %zmm\n
        .endm
        .macro  LOAD_K n
        kmovq   128 + 8 * \n(%rax), %k\n
        .endm
        .macro  STORE_X n
        movups  %xmm\n, 192 + 64 * \n(%rax)
        .endm
        .macro  STORE_Y n
        vmovups %ymm\n, 192 + 64 * \n(%rax)
        .endm
        .macro  STORE_Z n
        vmovups %zmm\n, 192 + 64 * \n(%rax)
        .endm
        .macro  STORE_K n
        kmovq   %k\n, 128 + 8 * \n(%rax)
        .endm
        .macro  EIGHT what
        .irp    n, 0, 1, 2, 3, 4, 5, 6, 7
        \what   \n
        .endr
        .endm
        .macro  SIXTEEN what
        EIGHT   \what
        .irp    n, 8, 9, 10, 11, 12, 13, 14, 15
        \what   \n
        .endr
        .endm
        .macro  THIRTY_TWO what
        SIXTEEN \what
        .irp    n, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31
        \what   \n
        .endr
        .endm

/* Every vector register of this machine: `do` is LOAD or STORE. */
        .macro  VECTORS do
        cmpl    $32, bytesOfVectorRegisters(%rip)
        je      2f
        ja      3f
        SIXTEEN \do\()_X
        jmp     4f
2:      SIXTEEN \do\()_Y
        jmp     4f
3:      THIRTY_TWO \do\()_Z
        EIGHT   \do\()_K
4:
        .endm

        .text
/* rdi: function, rsi: registers, rdx: top of the stack. */
        .globl  callWithAllRegisters
        .type   callWithAllRegisters, @function
callWithAllRegisters:
        endbr64
        .irp    register, rbx, rbp, r12, r13, r14, r15
        pushq   %\register
        .endr
        movq    %rsp, stackBefore(%rip)
        movq    %rdi, %r11
        movq    %rsi, %rax
        movq    %rdx, %rsp
        VECTORS LOAD
        movq    (%rax), %rdi
        movq    8(%rax), %rsi
        movq    16(%rax), %rdx
        movq    24(%rax), %rcx
        movq    32(%rax), %r8
        movq    40(%rax), %r9
        movq    56(%rax), %r10
        movq    64(%rax), %rbx
        movq    72(%rax), %rbp
        movq    80(%rax), %r12
        movq    88(%rax), %r13
        movq    96(%rax), %r14
        movq    104(%rax), %r15
        movq    48(%rax), %rax
        call    *%r11
        movq    stackBefore(%rip), %rsp
        .irp    register, r15, r14, r13, r12, rbp, rbx
        popq    %\register
        .endr
        cmpl    $16, bytesOfVectorRegisters(%rip)
        je      1f
        vzeroupper
1:      ret
        .size   callWithAllRegisters, . - callWithAllRegisters

        .globl  recordArrival
        .type   recordArrival, @function
recordArrival:
        endbr64
        movq    %rax, 48 + arrived(%rip)
        leaq    arrived(%rip), %rax
        movq    %rdi, (%rax)
        movq    %rsi, 8(%rax)
        movq    %rdx, 16(%rax)
        movq    %rcx, 24(%rax)
        movq    %r8, 32(%rax)
        movq    %r9, 40(%rax)
        movq    %r10, 56(%rax)
        movq    %rbx, 64(%rax)
        movq    %rbp, 72(%rax)
        movq    %r12, 80(%rax)
        movq    %r13, 88(%rax)
        movq    %r14, 96(%rax)
        movq    %r15, 104(%rax)
        movq    %rsp, 112(%rax)
        VECTORS STORE
        xorl    %eax, %eax
        ret
        .size   recordArrival, . - recordArrival

        .globl  writeAboveReturnAddress
        .type   writeAboveReturnAddress, @function
writeAboveReturnAddress:
        endbr64
        notq    8(%rsp)
        ret
        .size   writeAboveReturnAddress, . - writeAboveReturnAddress

        .irp    bytes, 64, 2000
        .globl  useStack\bytes
        .type   useStack\bytes, @function
useStack\bytes:
        endbr64
        movq    %rsp, -\bytes(%rsp)
        ret
        .size   useStack\bytes, . - useStack\bytes
        .endr

        .section .note.GNU-stack, "", @progbits
