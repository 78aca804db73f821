/* SPDX-License-Identifier: MIT */
/* For each dispatched export its slot table (entries -1 to 6), its trampoline and its stub.

   A stub is one load and one indirect jump: no test, no argument touched, nothing on the stack. As
   long as no variant is chosen, VariantIndex is -1 and the jump leads to the trampoline, which
   starts the library and falls through into the stub. Both use rax and r11, which carry no argument
   in either convention.

   What differs between systems is in the file included here: LazyStartThunk, which keeps the
   registers that carry arguments around a start-up whose status nobody sees, and these macros:

     TABLE name                begins the table, behind its entry -1
     END_OF_TABLE name
     SLOT entry                one address in a table
     TRAMPOLINE_AND_STUB name  begins their code
     EXPORT symbol             the stub's name in front of its code
     END_OF_STUB name, symbol
     TARGET                    what an indirect jump must meet */
#ifdef __ELF__
#include "frame/stubs_elf.inc"
#else
#include "frame/stubs_pe.inc"
#endif

#define VARIANT(tag, ...) SLOT \name\()_##tag

        .macro  STUB prefix, name
        TABLE   \name
#include "frame/variants.def"
        END_OF_TABLE \name
        TRAMPOLINE_AND_STUB \name
        TARGET
        call    LazyStartThunk
        EXPORT  \prefix\name
        TARGET
        movslq  VariantIndex(%rip), %rax
        leaq    \name\()_table(%rip), %r11
        jmp     *(%r11,%rax,8)
        END_OF_STUB \name, \prefix\name
        .endm

#define DISPATCHED_SERVICE(name) STUB legacy90pxmcc, name
#define CONVERSION(name, family) STUB legacy90pxmi, name
#include "frame/conversions.def"
