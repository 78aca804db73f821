/* SPDX-License-Identifier: MIT */
/* For each dispatched export its slot table (entries -1 to 6), its trampoline and its stub.

   A stub is one load and one indirect jump: no test, no argument touched, nothing on the stack. As
   long as no variant is chosen, VariantIndex is -1 and the jump leads to the trampoline, which
   starts the library and falls through into the stub. */
#include <cet.h>

#ifndef __ELF__
#error "the stubs are laid out for ELF"
#endif

        .hidden VariantIndex
        .hidden pxmStartUp

/* Keeps the six integer argument registers, which are all that an export's arguments use, around a
   start-up whose status nobody sees. Alignment: the caller's call, the trampoline's call and six
   pushes make 64 bytes. */
        .text
        .p2align 4
        .hidden LazyStartThunk
        .globl  LazyStartThunk
        .type   LazyStartThunk, @function
LazyStartThunk:
        .cfi_startproc
        .irp    register, rdi, rsi, rdx, rcx, r8, r9
        pushq   %\register
        .cfi_adjust_cfa_offset 8
        .endr
        call    pxmStartUp
        .irp    register, r9, r8, rcx, rdx, rsi, rdi
        popq    %\register
        .cfi_adjust_cfa_offset -8
        .endr
        ret
        .cfi_endproc
        .size   LazyStartThunk, . - LazyStartThunk

/* The tables hold addresses that the loader relocates, so they stand in data that is read-only
   afterwards; slots 0 to 6 hold the entries of the variants. Trampoline and stub take 31 bytes
   together: a stub lies in one line of the instruction cache. */
#define VARIANT(tag, ...) SLOT \name\()_##tag
        .macro  SLOT entry
        .hidden \entry
        .quad   \entry
        .endm

        .macro  STUB prefix, name
        .section .data.rel.ro, "aw", @progbits
        .balign 8
        .hidden \name\()_table
        .globl  \name\()_table
        .type   \name\()_table, @object
        .quad   \name\()_trampoline
\name\()_table:
#include "frame/variants.def"
        .size   \name\()_table, . - \name\()_table

        .text
        .p2align 5
        .type   \name\()_trampoline, @function
\name\()_trampoline:
        .cfi_startproc
        _CET_ENDBR
        call    LazyStartThunk
        .cfi_endproc
        .size   \name\()_trampoline, . - \name\()_trampoline
        .globl  \prefix\name
        .type   \prefix\name, @function
\prefix\name:
        .cfi_startproc
        _CET_ENDBR
        movslq  VariantIndex(%rip), %rax
        leaq    \name\()_table(%rip), %r11
        jmp     *(%r11,%rax,8)
        .cfi_endproc
        .size   \prefix\name, . - \prefix\name
        .endm

#define DISPATCHED_SERVICE(name) STUB legacy90pxmcc, name
#define CONVERSION(name, family) STUB legacy90pxmi, name
#include "frame/conversions.def"

        .section .note.GNU-stack, "", @progbits
