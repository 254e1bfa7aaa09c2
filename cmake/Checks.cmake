# Warnings and sanitizers, for every target of the project through the interface target fb_checks.

add_library(fb_checks INTERFACE)

if(MSVC)
    target_compile_definitions(fb_checks INTERFACE
        NOMINMAX                       # min and max are the standard library's
        _CRT_SECURE_NO_WARNINGS)       # the standard's functions are meant, not that compiler's own
    target_compile_options(fb_checks INTERFACE
        /utf-8                         # the sources are UTF-8 on every system
        /permissive-                   # the language as it is
        /W4 /w14242 /w14244 /w14265)   # the likes of the warnings below
else()
    target_compile_options(fb_checks INTERFACE
        -Wall -Wextra -Wpedantic       # the common ground
        -Wshadow                       # a name that hides another one misleads the reader
        -Wconversion -Wsign-conversion # a number that silently loses bits would reach a file
        -Wnon-virtual-dtor             # deleting through a base class must not leak
        -Wold-style-cast               # casts say what they do
        -Woverloaded-virtual           # a toolkit's event handler with a slip in its signature would never run
        -Wdouble-promotion             # read-outs are computed in single precision on purpose
        -Wformat=2)                    # texts never serve as formats
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(fb_checks INTERFACE
        -Wno-restrict)             # g++ 12 reports it in its own library for "text" + std::string
endif()

if(FB_WARNINGS_AS_ERRORS)
    target_compile_options(fb_checks INTERFACE $<IF:$<BOOL:${MSVC}>,/WX,-Werror>)
endif()

if(FB_SANITIZE OR FB_FUZZ)
    # Beyond the usual: an index outside a standard container, and a fraction too large for a whole number.
    set(sanitizers -fsanitize=address,undefined,float-cast-overflow)
    target_compile_definitions(fb_checks INTERFACE _GLIBCXX_ASSERTIONS)
    target_compile_options(fb_checks INTERFACE
        ${sanitizers}
        -fno-sanitize-recover=all  # a finding ends the test that made it
        -fno-omit-frame-pointer)   # readable stacks
    target_link_options(fb_checks INTERFACE ${sanitizers})
endif()

if(FB_FUZZ)
    # Every source is instrumented, so that the fuzzer sees which input reaches new code. It need not see what is
    # compared with what, which takes a third of the time: the dictionaries know the words.
    target_compile_options(fb_checks INTERFACE -fsanitize=fuzzer-no-link -fno-sanitize-coverage=trace-cmp)
endif()
