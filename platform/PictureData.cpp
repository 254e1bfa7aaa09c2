// The program's pictures, taken into its read-only data as they stand. What is never shown is never read in. The
// alignment is that of the portions in which the system reads a file in, or the largest that there is.

#ifdef _WIN32
#define START_READ_ONLY_DATA ".section .rdata,\"dr\"\n.balign 8192\n"
#else
#define START_READ_ONLY_DATA ".section .rodata\n.balign 65536\n"
#endif

asm(START_READ_ONLY_DATA
    ".globl fb_pictures, fb_pictures_end\n"
    "fb_pictures: .incbin \"" FB_PICTURES
    "\"\n"
    "fb_pictures_end:\n"
    ".text\n");
