# SPDX-License-Identifier: MIT
"""The instructions that a processor with given features has, and that our code has a use for. What
touches vector registers must be on the list of a feature; all else must not be on the list of later
additions."""

import re
from collections.abc import Iterator
from functools import cache

from checks import require
from reading.disassembly import Instruction

BASELINE = "|".join((
    r"movdq[au]|mov[adu]?p[sd]|movup[sd]|movap[sd]|mov[hl]p[sd]|movhlps|movlhps|movs[sd]|mov[dq]",
    r"movmskp[sd]|p?unpck[hl]p[sd]|punpck[hl](bw|wd|dq|qdq)|packs(swb|sdw)|packuswb|packss(wb|dw)",
    r"padd(b|w|d|q|sb|sw|usb|usw)|psub(b|w|d|q|sb|sw|usb|usw)|pmul(lw|hw|huw|udq)|pmaddwd",
    r"pand|pandn|por|pxor|pcmp(eq|gt)[bwd]|ps(ll|rl)[wdq]|psra[wd]|ps(ll|rl)dq",
    r"pshuf(d|lw|hw)|shufp[sd]|pm(in|ax)(sw|ub)|pavg[bw]|psadbw|pinsrw|pextrw|pmovmskb",
    r"cvt(dq2ps|ps2dq|tps2dq|(t?ss|t?sd)2sil?q?|si2s[sd][lq]?|ss2sd|sd2ss)",
    r"cvt(t?pd2dq|dq2pd|ps2pd|pd2ps)",
    r"(add|sub|mul|div|min|max|sqrt)[sp][sd]|(and|or|xor|andn)p[sd]|u?comis[sd]",
    r"cmp(eq|lt|le|unord|neq|nlt|nle|ord)[sp][sd]"))
SSSE3 = BASELINE + r"|pshufb|palignr|pmaddubsw|pmulhrsw|pabs[bwd]|psign[bwd]|ph(add|sub)(w|d|sw)"
SSE41 = SSSE3 + "|" + "|".join((
    r"pmov[sz]x..|pinsr[bdq]|pextr[bdq]|pblendw|blendp[sd]|pm(in|ax)(sb|sd|uw|ud)|pmulld|packusdw",
    r"insertps"))
# AVX gives the three-operand form of everything up to SSE4.2, and a few of its own.
AVX = SSE41 + r"|zeroupper|lddqu|movddup|movs[hl]dup|broadcastss"
AVX2 = AVX + "|" + "|".join((
    r"pbroadcast[bwdq]|broadcast(ss|sd|i128|f128)|perm(q|d|2i128|2f128)|(extract|insert)[if]128",
    r"pblendd|ps(ll|rl|ra)v[dq]"))

# What a feature stands for, with all that it implies. Of SSE3 and MOVBE kernels use nothing.
OF_FEATURE = {"Sse3": BASELINE, "Movbe": BASELINE, "AvxState": BASELINE, "Ssse3": SSSE3,
              "Sse41": SSE41, "Avx": AVX, "Avx2Level": AVX2}

# What AVX alone does in 256 bits: arithmetic of floats, and moves.
WIDE_FLOATS = "v(" + "|".join((
    r"movdq[au]|lddqu|mov[au]p[sd]|movddup|movs[hl]dup|movmskp[sd]|unpck[hl]p[sd]|shufp[sd]",
    r"permilp[sd]|perm2f128|(extract|insert)f128|broadcast(ss|sd|f128)|blendv?p[sd]",
    r"cvt(dq2ps|t?ps2dq|t?pd2dqy?|dq2pd|ps2pd|pd2psy?)|(add|sub|mul|div|min|max|sqrt)p[sd]",
    r"(and|or|xor|andn)p[sd]|cmp(eq|lt|le|unord|neq|nlt|nle|ord)p[sd]")) + ")"

# Later than the baseline; the last two are not, and of no use to kernels.
LATER = (r"lzcnt|popcnt|movbe|crc32.*|adc?ox|rdrand|rdseed|clflushopt|k(mov|or|and|xor|test).*"
         r"|prefetch.*|movnt.*")
WITH_AVX2 = r"shlx|sarx|shrx|rorx|mulx|andn|bextr|bls(i|r|msk)|bzhi|pdep|pext"

MASKS_OR_MORE_REGISTERS = re.compile(r"%zmm|%[xy]mm(1[6-9]|2[0-9]|3[01])|%k[0-7]|\{")


class InstructionSet:
    """What a processor with the features `needs` has. With `detects`, the query of the operating
    system's support is allowed as well."""

    def __init__(self, needs: list[str], detects: bool = False) -> None:
        for feature in needs:
            require(feature in OF_FEATURE, f"no list of instructions for the feature {feature}")
        self.sse41 = "Sse41" in needs
        # The operating system must save the registers too. Once they are there, nothing is encoded
        # as before.
        self.avx = "Avx" in needs and "AvxState" in needs
        self.avx2 = self.avx and "Avx2Level" in needs
        listed = "|".join([BASELINE, *(OF_FEATURE[feature] for feature in needs)])
        vector = re.compile(f"v({listed})" if self.avx else listed)
        later = [LATER, "v.*"]
        if not self.avx2:
            later.append(WITH_AVX2)
        if not detects:
            later.append("xgetbv")
        missing = re.compile("|".join(later))
        without_registers = ("vzeroupper", "vldmxcsr", "vstmxcsr") if self.avx else ()

        # Code has few different names.
        self.has_vector = cache(lambda name: vector.fullmatch(name) is not None)
        self.has_scalar = cache(lambda name: name in without_registers
                                or missing.fullmatch(name) is None)

    def objections(self, it: Instruction) -> Iterator[str]:
        """What the processor lacks of an instruction."""
        if "mm" not in it.text or not re.search("%[xyz]?mm", it.text):
            if not self.has_scalar(it.name):
                yield it.name
            return
        if "%ymm" not in it.text or self.avx2:
            if not self.has_vector(it.name):
                yield it.name
        elif not self.avx or not re.fullmatch(WIDE_FLOATS, it.name):
            yield f"{it.name} with wide registers"
        yield from self.objections_to_form(it)

    def objections_to_form(self, it: Instruction) -> Iterator[str]:
        """Later forms of listed names. To memory pextrw is SSE4.1, from a register a broadcast is
        AVX2; masks and registers 16 to 31 are AVX-512."""
        if it.name == "pextrw" and it.operands.endswith(")") and not self.sse41:
            yield "pextrw to memory"
        if MASKS_OR_MORE_REGISTERS.search(it.operands):
            yield f"{it.name} with masks or more registers"
        if self.avx and not self.avx2 and it.name.startswith("vbroadcast") and it.text[0] == "%":
            yield f"{it.name} from a register"
