// The program's pictures, taken into its read-only data as they stand. What is never shown is never read in.
// The alignment is that of the portions in which the system reads a file in.

#ifdef _WIN32
#define READ_ONLY_SECTION ".section .rdata,\"dr\""
#else
#define READ_ONLY_SECTION ".section .rodata"
#endif

asm(READ_ONLY_SECTION
    "\n"
    ".balign 65536\n"
    ".globl fb_pictures\n"
    "fb_pictures: .incbin \"" FB_PICTURES
    "\"\n"
    ".text\n");
