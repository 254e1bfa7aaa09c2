// The program's pictures, taken into its read-only data as they stand. What is never shown is never read in.

#ifdef _WIN32
#define READ_ONLY_SECTION ".section .rdata,\"dr\""
#else
#define READ_ONLY_SECTION ".section .rodata"
#endif

asm(READ_ONLY_SECTION
    "\n"
    ".balign 64\n"
    ".globl fb_pictures\n"
    "fb_pictures: .incbin \"" FB_PICTURES
    "\"\n"
    ".text\n");
