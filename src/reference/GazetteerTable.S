// The tables of places, within the program: their pages are read when a search first touches them,
// and the system may take them back.
.macro table name, file
    .balign 16
    .global \name
    .hidden \name
\name:
    .incbin "\file"
    .global \name\()End
    .hidden \name\()End
\name\()End:
.endm

    .section .rodata
    table noonwardPlaces, NOONWARD_PLACES
    table noonwardAreas, NOONWARD_AREAS
    .section .note.GNU-stack,"",%progbits
