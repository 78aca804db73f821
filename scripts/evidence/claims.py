# SPDX-License-Identifier: MIT
"""The claims, in the order of what an hour of each finds."""

from evidence.parts import SECONDS, TESTS, Part

PACKAGES = ("g++", "clang", "cmake", "make", "git", "libgtest-dev", "libpng-dev", "qemu-user",
            "binutils", "pkg-config", "ffmpeg")


def built(*targets: str) -> tuple[tuple[str, tuple[str, ...]], ...]:
    return (("gcc", targets),)


def program(name: str, tests: str = "") -> tuple[str, ...]:
    """A test program of the preset gcc, or some of its tests."""
    some = (f"--gtest_filter={tests}",) if tests else ()
    return (f"build/gcc/tests/{name}", "--gtest_brief=1", *some)


PARTS: tuple[Part, ...] = (
    Part(name="registers", minutes=1,
         claim="All 102 exports keep what a callee must keep: registers, direction flag, x87 "
               "control word, MXCSR; also on the first call, by start-up",
         command=program("callers_test"), builds=built("callers_test"),
         inputs=(*TESTS, "tests/callers_test.cpp"),
         able="eight careless callees are part of the program; LosesRbx and eight other faults of "
              "bad-kernels.",
         found="that the test could not fail for MXCSR and the x87 control word: it compared them "
               "with what the call had left."),
    Part(name="arguments", minutes=1,
         claim="Upper halves of 32-bit arguments, and registers and stack that carry no argument, "
               "decide nothing and are left alone above the return address",
         command=program("traces_test", "Arguments*"), builds=built("traces_test"),
         inputs=(*TESTS, "tests/traces"),
         able="callees that trust upper halves, read a free register and write their caller's "
              "frame are part of the program.",
         found="nothing."),
    Part(name="start-up-road", minutes=1,
         claim="Every stub brings every argument register to its entry, vector and mask registers "
               "too, directly and by start-up; in the linked objects and in the shared object",
         command=program("traces_test", "Road*"), builds=built("traces_test"),
         inputs=(*TESTS, "tests/traces"),
         able="each register is changed by itself; a thunk and stubs were broken in four ways.",
         found="that start-up used xmm0, which now no compiler may."),
    Part(name="stack", minutes=1,
         claim="No call needs more than 1,024 bytes of stack below its return address",
         command=program("traces_test", "Stack*"), builds=built("traces_test"),
         inputs=(*TESTS, "tests/traces"),
         able="callees of 0, 64 and 2,000 bytes are part of the program; NeedsADeepStack of "
              "bad-kernels.",
         found="16 functions of GCC's build and 28 of Clang's that needed up to 1,592 bytes. They "
               "need 928 now, and less time."),
    Part(name="page-ends", minutes=1,
         claim="The twist's matrix and the arrays of planes and pitches are read within bounds",
         command=program("page_ends_test"), builds=built("page_ends_test"),
         inputs=(*TESTS, "tests/page_ends_test.cpp"),
         able="a loop over the matrix with one float too many dies in it, by name.",
         found="nothing."),
    Part(name="bad-kernels", minutes=2,
         claim="Deliberately bad kernels and start-ups are caught, each by the test that has to",
         command=("tests/bad_kernels/check", "build/gcc"), builds=built("all"),
         inputs=("catalogue", "tests"), compilers=("g++",),
         able="with its fault left out, a row must be reported as not caught.",
         found="twelve faults that no test noticed: among them control words, reads between rows, "
               "writes to sources, images of more than 65,535 columns or rows, and system calls "
               "outside one variant. Each has a test now."),
    Part(name="alignment", minutes=1,
         claim="Every pointer at each of 64 addresses, widths 1 to 40, gives the same bytes",
         command=program("alignment_test"), builds=built("alignment_test"),
         inputs=(*TESTS, "tests/alignment_test.cpp"),
         able="one wrong byte at one address is part of the program.", found="nothing."),
    Part(name="spans", minutes=1,
         claim="Images that span more than 8 GiB, upwards and downwards",
         command=program("geometry_test", "*Spans*"), builds=built("geometry_test"),
         inputs=(*TESTS, "tests/spans_test.cpp"),
         able="offsets wrapped where they should not be, and the reverse: 35 tests failed.",
         found="nothing."),
    Part(name="big-images", minutes=5,
         claim="2^20 columns, 2^20 + 1 rows, and 2^24 rows in one, where the last one wins",
         command=program("big_images_test"), builds=built("big_images_test"),
         inputs=(*TESTS, "tests/big_images_test.cpp", "tests/many_rows_test.cpp"),
         able="columns and rows counted modulo 2^20, 2^24 and 2^16.", found="nothing."),
    Part(name="msan", minutes=6,
         claim="No byte outside what may be read decides anything, and every byte that must be "
               "written is: under MemorySanitizer",
         command=("scripts/check-memory", "msan"), compilers=("clang++",),
         inputs=("catalogue", "tests/memory", "tests/oracle", "scripts/check-memory"),
         able="marks that are wrong by one byte, three ways for every conversion, variant and "
              "plane: all are found, 460 of them only because every call is made twice, with other "
              "bytes outside; of products MemorySanitizer follows the low bits alone.",
         found="nothing."),
    Part(name="tsan", minutes=12,
         claim="First calls of 64 threads at once race for nothing: under ThreadSanitizer, and in "
               "fresh loads of the shared object",
         command=("scripts/check-memory", "tsan"), compilers=("clang++",),
         inputs=("catalogue", "tests/memory", "scripts/check-memory"),
         able="the same program with plain stores in start-up has to be reported. Stubs are "
              "assembly, which it does not see: one aligned load each.", found="nothing."),
    Part(name="memcheck", minutes=10,
         claim="valgrind's memcheck finds no fault in geometry tests and calls on marked memory",
         command=("scripts/check-memory", "valgrind"), compilers=("g++",),
         inputs=(*TESTS, "tests/memory", "scripts/check-memory"),
         able="the planted faults of msan, all found.",
         found="nothing in the library; of memcheck, that it takes halves of pmaddwd for "
               "undefined where one half is: so it is not asked about chroma of 4:1:1 in SIMD."),
    Part(name="coverage", minutes=6,
         claim="Every line and branch of the library runs in the fast tests, but for those with a "
               "reason",
         command=("scripts/coverage",), compilers=("clang++",),
         inputs=("catalogue", "tests", "scripts/coverage"),
         able="a reason that is not needed is a failure, and so is a line that needs one.",
         found="no line without a test. The table is [coverage.md](coverage.md)."),
    Part(name="mutations", minutes=60,
         claim="1,000 changes of the library's sources, one at a time, are noticed by the tests, "
               "or no caller can tell",
         command=("scripts/mutate", "--count", "1000", "--jobs", "2", "--seconds", SECONDS),
         inputs=("catalogue", "scripts/mutate", "tests"),
         able="it is a proof of that kind itself; its parts have tests of their own.",
         found="unwind information of the start-up road that no test read, and a float read behind "
               "the matrix that only a sanitizer saw. The table is [mutations.md](mutations.md)."),
    Part(name="geometry", minutes=15,
         claim="Nothing is read or written beyond what is documented: every conversion in every "
               "level, widths to 80, heights to 8, all layouts, between guard pages",
         command=program("geometry_full_test"), builds=built("geometry_full_test"),
         inputs=(*TESTS, "tests/geometry_full_test.cpp"),
         able="18 faults of bad-kernels.", found="nothing since it stands."),
    Part(name="decoders", minutes=40,
         claim="Every decoder gives what the oracle gives for all 16,777,216 triples, at every "
               "column of a block and in the tails",
         command=program("decode_exhaustive_test"), builds=built("decode_exhaustive_test"),
         inputs=(*TESTS, "tests/decode_exhaustive_test.cpp"),
         able="one wrong triple of 16,777,216 in a block, in a tail, and at one column only.",
         found="nothing since it stands."),
    Part(name="encoders", minutes=15,
         claim="Every encoder for all 65,536 pixels and all sums of a chroma group, at every place "
               "of a block and in the tails",
         command=program("encode_exhaustive_test"), builds=built("encode_exhaustive_test"),
         inputs=(*TESTS, "tests/encode_exhaustive_test.cpp"),
         able="one wrong pixel and one wrong sum.", found="nothing since it stands."),
    Part(name="depth", minutes=3,
         claim="Every depth conversion for all pixels and all 16,777,216 triples of bytes",
         command=program("depth_exhaustive_test"), builds=built("depth_exhaustive_test"),
         inputs=(*TESTS, "tests/depth_exhaustive_test.cpp"),
         able="one wrong triple of 16,777,216.", found="nothing since it stands."),
    Part(name="twist", minutes=15,
         claim="The twist for all 16,777,216 triples through 72 matrices in four rounding modes",
         command=program("twist_exhaustive_test"), builds=built("twist_exhaustive_test"),
         inputs=(*TESTS, "tests/twist_exhaustive_test.cpp"),
         able="one wrong triple of 16,777,216; a twist that follows the caller's rounding mode.",
         found="nothing since it stands."),
    Part(name="fuzz", minutes=60,
         claim="10^8 calls of any conversion with any arguments that are allowed or rejected, "
               "against the oracle, under ASan and UBSan",
         command=("scripts/fuzz", "--calls", "100000000", "--seconds", SECONDS),
         compilers=("clang++",), inputs=("catalogue", "scripts/fuzz", "tests/fuzz", "tests/oracle"),
         able="scripts/fuzz --show-it-finds plants eight faults, from one pixel wrong for one "
              "triple to a rounding mode that is not restored; found after 1.5 to 37 s.",
         found="no fault of the library or the oracle."),
    Part(name="fuzz-msan", minutes=10,
         claim="The same under MemorySanitizer",
         command=("scripts/fuzz", "--engine", "msan", "--calls", "5000000", "--seconds", SECONDS),
         compilers=("clang++",), inputs=("catalogue", "scripts/fuzz", "tests/fuzz", "tests/oracle"),
         able="scripts/fuzz --engine msan --show-it-finds: a value from nowhere, after 1.8 s.",
         found="no fault of the library."),
    Part(name="fuzz-afl", minutes=10,
         claim="The same by AFL++",
         command=("scripts/fuzz", "--engine", "afl", "--calls", "5000000", "--seconds", SECONDS),
         compilers=("clang++",), inputs=("catalogue", "scripts/fuzz", "tests/fuzz", "tests/oracle"),
         able="scripts/fuzz --engine afl --show-it-finds: reads and stores too far, after 0.8 and "
              "3.0 s; of checks exchanged, nothing in 45 s.", found="no fault of the library."),
    Part(name="fuzz-y4m", minutes=5,
         claim="The reader of Y4M files takes any bytes whatever",
         command=("scripts/fuzz", "y4m", "--calls", "1000000", "--seconds", SECONDS),
         compilers=("clang++",), inputs=("examples", "scripts/fuzz", "tests/fuzz"),
         able="by no planted fault of its own; the engine is that of fuzz.", found="nothing."),
    Part(name="fuzz-png", minutes=5,
         claim="The reader of PNG files takes any bytes whatever",
         command=("scripts/fuzz", "png", "--calls", "1000000", "--seconds", SECONDS),
         compilers=("clang++",), inputs=("examples", "scripts/fuzz", "tests/fuzz"),
         able="by no planted fault of its own; the engine is that of fuzz.",
         found="an array of rows that no check of memory counted: 528 MB for a 69-byte file, "
               "before it was rejected. There is none now."),
    Part(name="same-bytes", minutes=120,
         claim="Every build writes the same: GCC 12, Clang 14, Clang 19, MinGW's GCC and Clang, "
               "-O0 to -O3, and the oracle; hashes of whole domains",
         command=("scripts/same-bytes",), compilers=("g++", "clang++", "clang++-19"),
         inputs=("catalogue", "tests/hashes", "tests/oracle", "scripts/same-bytes"),
         able="lists with one line changed, left out and added are part of the suite.",
         found="nothing."),
    Part(name="suite", minutes=30,
         claim="Every stage of the suite passes: two compilers, Windows, unoptimized, sanitizers, "
               "packages",
         command=("scripts/test", "all"), compilers=("g++", "clang++"),
         inputs=("bench", "catalogue", "examples", "packaging", "scripts", "tests"),
         able="bad-kernels.", found="see CHANGELOG.md."),
)
