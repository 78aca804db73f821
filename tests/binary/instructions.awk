# SPDX-License-Identifier: MIT
# Reads a disassembly and prints the instructions that a processor level does not allow. What touches
# vector registers must be on the level's list; the rest must not be on the list of later additions.

BEGIN {
  sse2 = "movdq[au]|mov[adu]?p[sd]|movup[sd]|movap[sd]|mov[hl]p[sd]|movhlps|movlhps|movs[sd]|mov[dq]|movmskp[sd]" \
         "|p?unpck[hl]p[sd]|punpck[hl](bw|wd|dq|qdq)|packs(swb|sdw)|packuswb|packss(wb|dw)" \
         "|padd(b|w|d|q|sb|sw|usb|usw)|psub(b|w|d|q|sb|sw|usb|usw)|pmul(lw|hw|huw|udq)|pmaddwd" \
         "|pand|pandn|por|pxor|pcmp(eq|gt)[bwd]|ps(ll|rl)[wdq]|psra[wd]|ps(ll|rl)dq" \
         "|pshuf(d|lw|hw)|shufp[sd]|pm(in|ax)(sw|ub)|pavg[bw]|psadbw|pinsrw|pextrw|pmovmskb" \
         "|cvt.*|(add|sub|mul|div|min|max|sqrt)[sp][sd]|(and|or|xor|andn)p[sd]|u?comis[sd]|cmp.*[sp][sd]"
  later = "^(shlx|sarx|shrx|rorx|mulx|andn|bextr|bls(i|r|msk)|bzhi|pdep|pext|lzcnt|popcnt|movbe|crc32.*|xgetbv|v.*)$"
  if (level == "frame") later = "^(shlx|sarx|shrx|rorx|mulx|andn|bextr|bls(i|r|msk)|bzhi|pdep|pext|lzcnt|popcnt|movbe|crc32.*|v.*)$"
  if (level == "l9") later = "^(lzcnt|popcnt|movbe|crc32.*|xgetbv|vgather.*|vpgather.*)$"
  # AVX gives the three-operand form of everything up to SSE4.2, and a few of its own.
  avx = "^v(" sse2 "|zeroupper|lddqu|pshufb|palignr|pmov[sz]x..|pinsr[bdq]|pextr[bdq]|pblendw|blendp[sd]" \
        "|pm(in|ax)(sb|sd|uw|ud)|pmulld|packusdw|insertps|movddup|movs[hl]dup|pabs[bwd])$"
  avx2 = "^v(" sse2 "|zeroupper|lddqu|pshufb|palignr|pmov[sz]x..|pinsr[bdq]|pextr[bdq]|pblendw|blendp[sd]" \
         "|pm(in|ax)(sb|sd|uw|ud)|pmulld|packusdw|insertps|movddup|movs[hl]dup|pabs[bwd]" \
         "|pbroadcast[bwdq]|broadcast(ss|sd|i128|f128)|perm(q|d|2i128|2f128)|(extract|insert)[if]128|pblendd|ps(ll|rl|ra)v[dq])$"
  allowed = level == "l9" ? avx2 : level == "e9" ? avx : "^(" sse2 ")$"
}

/%[xyz]mm/ {
  if ($2 !~ allowed) print $2
  if (/%zmm/ || (/%ymm/ && level != "l9")) print $2, "with wide registers"
  if (level == "e9" && $2 ~ /^v(pand|por|pxor)/ && /%ymm/) print $2
  # From a register it is AVX2.
  if (level == "e9" && $2 ~ /^vbroadcast/) print $2
  next
}
$2 ~ later && !(level == "l9" && $2 == "vzeroupper") { print $2 }
