/* The entry table: for each exported name a slot with the address of its implementation, and a 16-byte stub that jumps
   through the slot. Slots and stubs stand in the order of exports.def. Nothing writes a slot after load. */
        .macro  STUB name, impl
        .section .data.entries, "aw"
        .balign 8
1:      .quad   impl_\impl
        .text
        .globl  \name
        .type   \name, @function
        .balign 16, 0xCC
\name:  jmp     *1b(%rip)
        .balign 16, 0xCC
        .size   \name, . - \name
        .endm
#define EXPORT(name)     STUB name, name
#define SHARED(name, as) STUB name, as
#include "exports.def"
        .section .note.GNU-stack, "", @progbits
