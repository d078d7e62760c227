// The program's compiled resources; PROGRAM_RESOURCES is the file's name.
        .section .rodata
        .global simulated_program_resources
        .global simulated_program_resources_end
simulated_program_resources:
        .incbin PROGRAM_RESOURCES
simulated_program_resources_end:
        .byte 0
        .section .note.GNU-stack, "", %progbits
