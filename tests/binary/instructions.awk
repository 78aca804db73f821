# SPDX-License-Identifier: MIT
# Reads a disassembly and prints the instructions that a processor with the features `needs` may
# lack, and those that our code has no use for; the last line is the count of what was read. What
# touches vector registers must be on the list of a feature; the rest must not be on the list of
# later additions. With `detects`, the query of the operating system's support is allowed as well.

BEGIN {
  baseline = "movdq[au]|mov[adu]?p[sd]|movup[sd]|movap[sd]|mov[hl]p[sd]|movhlps|movlhps|movs[sd]|mov[dq]|movmskp[sd]" \
             "|p?unpck[hl]p[sd]|punpck[hl](bw|wd|dq|qdq)|packs(swb|sdw)|packuswb|packss(wb|dw)" \
             "|padd(b|w|d|q|sb|sw|usb|usw)|psub(b|w|d|q|sb|sw|usb|usw)|pmul(lw|hw|huw|udq)|pmaddwd" \
             "|pand|pandn|por|pxor|pcmp(eq|gt)[bwd]|ps(ll|rl)[wdq]|psra[wd]|ps(ll|rl)dq" \
             "|pshuf(d|lw|hw)|shufp[sd]|pm(in|ax)(sw|ub)|pavg[bw]|psadbw|pinsrw|pextrw|pmovmskb" \
             "|cvt(dq2ps|ps2dq|tps2dq|(t?ss|t?sd)2sil?q?|si2s[sd][lq]?|ss2sd|sd2ss|t?pd2dq|dq2pd|ps2pd|pd2ps)"\
             "|(add|sub|mul|div|min|max|sqrt)[sp][sd]|(and|or|xor|andn)p[sd]|u?comis[sd]|cmp(eq|lt|le|unord|neq|nlt|nle|ord)[sp][sd]"
  # What a feature stands for, with all that it implies. Of SSE3 and MOVBE kernels use nothing.
  list["Sse3"] = list["Movbe"] = list["AvxState"] = baseline
  list["Ssse3"] = baseline "|pshufb|palignr|pmaddubsw|pmulhrsw|pabs[bwd]|psign[bwd]|ph(add|sub)(w|d|sw)"
  list["Sse41"] = list["Ssse3"] \
    "|pmov[sz]x..|pinsr[bdq]|pextr[bdq]|pblendw|blendp[sd]|pm(in|ax)(sb|sd|uw|ud)|pmulld|packusdw|insertps"
  # AVX gives the three-operand form of everything up to SSE4.2, and a few of its own.
  list["Avx"] = list["Sse41"] "|zeroupper|lddqu|movddup|movs[hl]dup|broadcastss"
  list["Avx2Level"] = list["Avx"] \
    "|pbroadcast[bwdq]|broadcast(ss|sd|i128|f128)|perm(q|d|2i128|2f128)|(extract|insert)[if]128" \
    "|pblendd|ps(ll|rl|ra)v[dq]"
  # What AVX alone does in 256 bits: arithmetic of floats, and moves.
  floats = "^v(movdq[au]|lddqu|mov[au]p[sd]|movddup|movs[hl]dup|movmskp[sd]|unpck[hl]p[sd]|shufp[sd]" \
           "|permilp[sd]|perm2f128|(extract|insert)f128|broadcast(ss|sd|f128)|blendv?p[sd]" \
           "|cvt(dq2ps|t?ps2dq|t?pd2dqy?|dq2pd|ps2pd|pd2psy?)|(add|sub|mul|div|min|max|sqrt)p[sd]" \
           "|(and|or|xor|andn)p[sd]|cmp(eq|lt|le|unord|neq|nlt|nle|ord)p[sd])$"

  allowed = baseline
  for (i = split(needs, features, " "); i > 0; i--) {
    has[features[i]] = 1
    if (features[i] in list) allowed = allowed "|" list[features[i]]
    else print "no list of instructions for the feature", features[i]
  }
  # The operating system must save the registers too. Once they are there, nothing is encoded as
  # before.
  avx = ("Avx" in has) && ("AvxState" in has)
  avx2 = avx && ("Avx2Level" in has)
  allowed = (avx ? "^v(" : "^(") allowed ")$"

  later = "lzcnt|popcnt|movbe|crc32.*|adc?ox|rdrand|rdseed|clflushopt|k(mov|or|and|xor|test).*" \
          "|prefetch.*|movnt.*"  # these are of old, and of no use to kernels
  if (!avx2) later = later "|shlx|sarx|shrx|rorx|mulx|andn|bextr|bls(i|r|msk)|bzhi|pdep|pext"
  if (!detects) later = later "|xgetbv"
  later = "^(" later "|v.*)$"
  # Without register operands: part of AVX.
  withoutRegisters = avx ? "^v(zeroupper|ldmxcsr|stmxcsr)$" : "^$"
}

$2 != "" { count++ }
/%[xyz]?mm/ {
  if (!/%ymm/ || avx2) {
    if ($2 !~ allowed) print $2
  } else if (!avx || $2 !~ floats) print $2, "with wide registers"
  # Later forms of listed names: to memory it is SSE4.1, and masks and registers 16 to 31 are AVX-512.
  if ($2 == "pextrw" && /\)$/ && !("Sse41" in has)) print $2, "to memory"
  if (/%zmm|%[xy]mm(1[6-9]|2[0-9]|3[01])|%k[0-7]|\{/) print $2, "with masks or more registers"
  # From memory it is AVX, from a register AVX2.
  if (avx && !avx2 && $2 ~ /^vbroadcast/ && $3 ~ /^%/) print $2, "from a register"
  next
}
$2 ~ later && $2 !~ withoutRegisters { print $2 }

END { print count + 0 }
