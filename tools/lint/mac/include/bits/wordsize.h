// In place of the C library's, which knows only the processor that it was installed for.
#define __WORDSIZE (__SIZEOF_POINTER__ * 8)
