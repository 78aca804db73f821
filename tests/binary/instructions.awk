# SPDX-License-Identifier: MIT
# Reads a disassembly and prints the instructions that a processor level does not allow. What touches
# vector registers must be on the level's list; the rest must not be on the list of later additions.

BEGIN {
  sse2 = "movdq[au]|mov[adu]?p[sd]|movup[sd]|movap[sd]|mov[hl]p[sd]|movhlps|movlhps|movs[sd]|mov[dq]|movmskp[sd]" \
         "|p?unpck[hl]p[sd]|punpck[hl](bw|wd|dq|qdq)|packs(swb|sdw)|packuswb|packss(wb|dw)" \
         "|padd(b|w|d|q|sb|sw|usb|usw)|psub(b|w|d|q|sb|sw|usb|usw)|pmul(lw|hw|huw|udq)|pmaddwd" \
         "|pand|pandn|por|pxor|pcmp(eq|gt)[bwd]|ps(ll|rl)[wdq]|psra[wd]|ps(ll|rl)dq" \
         "|pshuf(d|lw|hw)|shufp[sd]|pm(in|ax)(sw|ub)|pavg[bw]|psadbw|pinsrw|pextrw|pmovmskb" \
         "|cvt(dq2ps|ps2dq|tps2dq|(t?ss|t?sd)2sil?q?|si2s[sd][lq]?|ss2sd|sd2ss|t?pd2dq|dq2pd|ps2pd|pd2ps)"\
         "|(add|sub|mul|div|min|max|sqrt)[sp][sd]|(and|or|xor|andn)p[sd]|u?comis[sd]|cmp(eq|lt|le|unord|neq|nlt|nle|ord)[sp][sd]"
  ssse3 = "pshufb|palignr|pmaddubsw|pmulhrsw|pabs[bwd]|psign[bwd]|ph(add|sub)(w|d|sw)"
  sse41 = "pmov[sz]x..|pinsr[bdq]|pextr[bdq]|pblendw|blendp[sd]|pm(in|ax)(sb|sd|uw|ud)|pmulld|packusdw|insertps"
  # AVX gives the three-operand form of everything up to SSE4.2, and a few of its own.
  avx = sse2 "|" ssse3 "|" sse41 "|zeroupper|lddqu|movddup|movs[hl]dup|broadcastss"
  avx2 = avx "|pbroadcast[bwdq]|broadcast(ss|sd|i128|f128)|perm(q|d|2i128|2f128)|(extract|insert)[if]128" \
         "|pblendd|ps(ll|rl|ra)v[dq]"

  # Kernels of the SSE line keep to SSE2; depth conversions use what their processors have.
  list["u8-depth"] = list["n8-depth"] = sse2 "|" ssse3
  list["y8-depth"] = sse2 "|" ssse3 "|" sse41
  list["e9"] = list["e9-depth"] = avx
  list["l9"] = list["l9-depth"] = avx2
  allowed = "^(" (level in list ? list[level] : sse2) ")$"
  variant = substr(level, 1, 2)
  if (variant == "e9" || variant == "l9") sub(/\^/, "^v", allowed)

  bmi = "shlx|sarx|shrx|rorx|mulx|andn|bextr|bls(i|r|msk)|bzhi|pdep|pext"
  rare = "lzcnt|popcnt|movbe|crc32.*|adc?ox|rdrand|rdseed|clflushopt|k(mov|or|and|xor|test).*" \
         "|prefetch.*|movnt.*"  # these are of old, and of no use to kernels
  later = "^(" bmi "|" rare "|xgetbv|v.*)$"
  if (level == "frame") later = "^(" bmi "|" rare "|v.*)$"
  if (variant == "l9") later = "^(" rare "|xgetbv|v?p?gather.*)$"
  # Without register operands: part of AVX.
  if (variant == "e9" || variant == "l9") avxState = "^v(zeroupper|ldmxcsr|stmxcsr)$"
  else avxState = "^$"
}

$2 != "" { count++ }
/%[xyz]?mm/ {
  if ($2 !~ allowed) print $2
  # Later forms of listed names: to memory it is SSE4.1, and masks and registers 16 to 31 are AVX-512.
  if ($2 == "pextrw" && /\)$/ && level != "y8-depth") print $2, "to memory"
  if (/%[xy]mm(1[6-9]|2[0-9]|3[01])|%k[0-7]|\{/) print $2, "with masks or more registers"
  if (/%zmm/ || (/%ymm/ && level != "l9")) print $2, "with wide registers"
  # From memory it is AVX, from a register AVX2.
  if (variant == "e9" && $2 ~ /^vbroadcast/ && $3 ~ /^%/) print $2, "from a register"
  next
}
$2 ~ later && $2 !~ avxState { print $2 }

END { print count + 0 }
